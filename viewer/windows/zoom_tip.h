// The note at the cursor that tells the new display size.
#pragma once

#include <windows.h>

#include <string>

namespace pixora {

/// A tooltip that shows at once and stays for a while. Its window belongs to the owner's and goes with it.
class ZoomTip {
public:
    /// The owner's timer that ends it; the owner calls Hide() when it fires.
    static constexpr UINT_PTR kTimer = 2;

    ZoomTip() = default;
    ZoomTip(const ZoomTip&) = delete;
    ZoomTip& operator=(const ZoomTip&) = delete;

    /// Shows `text` at `cursor`, a point of the screen; what it showed before is replaced.
    void Show(HWND owner, POINT cursor, const std::wstring& text);
    void Hide();

private:
    [[nodiscard]] bool Create(HWND owner);

    HWND tip_ = nullptr;
    HWND owner_ = nullptr;
};

}  // namespace pixora
