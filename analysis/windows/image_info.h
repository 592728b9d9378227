// The "Image Info." window.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "analysis/windows/analysis_view.h"

namespace pixora {

/// Lists the facts of a viewer's image. The menu of the file name copies the image's full path.
class CImageInfo final : public AnalysisView {
public:
    explicit CImageInfo(ViewContext context);
    ~CImageInfo() override;

private:
    void Begin() override;
    void Update() override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

    void FollowRegion();
    void FollowDisplaySize();
    [[nodiscard]] bool IsOnName(LPARAM position) const;
    void ShowNameMenu(LPARAM position);

    // What the window shows.
    struct ShownRegion {
        Region region;
        bool on = false;
        friend bool operator==(const ShownRegion&, const ShownRegion&) = default;
    };
    std::optional<ShownRegion> region_;
    std::wstring ratio_text_;
};

}  // namespace pixora
