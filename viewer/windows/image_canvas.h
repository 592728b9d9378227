// The part of a viewer that shows its image.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

#include "platform/gdi.h"
#include "viewer/canvas_plan.h"

namespace pixora {

/// A child window that paints a picture at its viewer's display ratio, with lines, region and mark on top. It
/// lets the mouse through to its viewer. Painting only reads the state.
class CImageCanvas {
public:
    CImageCanvas() = default;
    CImageCanvas(const CImageCanvas&) = delete;
    CImageCanvas& operator=(const CImageCanvas&) = delete;
    ~CImageCanvas();

    /// Creates the window at the top left of `parent`, without size.
    /// @return false when it could not be created.
    [[nodiscard]] bool Create(HWND parent, std::shared_ptr<const CanvasState> state);
    /// Replaces the picture by the file's content and repaints. A file that cannot be decoded leaves the old
    /// picture; one that is the same as last time is not decoded again.
    void Load(const std::filesystem::path& display_copy);
    void Resize(PixelSize size);
    /// Asks for all of it to be painted again.
    void Repaint();

private:
    /// What tells one version of a file from another without reading it.
    struct FileVersion {
        std::filesystem::path path;
        std::uintmax_t size = 0;
        std::filesystem::file_time_type written;
        friend bool operator==(const FileVersion&, const FileVersion&) = default;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    [[nodiscard]] static std::optional<FileVersion> VersionOf(const std::filesystem::path& path);
    void Paint();
    void PaintBuffered(HDC screen, const RECT& dirty, const CanvasPlan& plan, PixelSize client);
    void Draw(HDC dc, const RECT& part, const CanvasPlan& plan, PixelSize client);

    HWND window_ = nullptr;
    std::shared_ptr<const CanvasState> state_;
    UniqueBitmap picture_;
    std::optional<FileVersion> loaded_;
};

}  // namespace pixora
