// Pixels on the screen, and pixels that should be there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pixora::ui {

/// Pixels 0xRRGGBB, rows from top to bottom.
struct Picture {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels;

    Picture() = default;
    Picture(int width_, int height_)
        : width(width_),
          height(height_),
          pixels(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}
    [[nodiscard]] std::uint32_t& At(int x, int y) { return pixels[Index(x, y)]; }
    [[nodiscard]] std::uint32_t At(int x, int y) const { return pixels[Index(x, y)]; }
    friend bool operator==(const Picture&, const Picture&) = default;

private:
    [[nodiscard]] std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
};

[[nodiscard]] constexpr std::uint32_t Rgb(int red, int green, int blue) {
    return static_cast<std::uint32_t>(red << 16 | green << 8 | blue);
}

/// Compares `shown` with `image` enlarged `zoom` times: at every block's centre the pixel must be the
/// image's.
/// @return empty when they agree, else the first difference in words.
[[nodiscard]] std::string DifferenceEnlarged(const Picture& shown, const Picture& image, int zoom);
/// Compares `shown` with `image` reduced by `ratio` (below 1): each pixel shown must be one of those that it
/// stands for, or of the row or column beside them, never a mixture.
[[nodiscard]] std::string DifferenceReduced(const Picture& shown, const Picture& image, double ratio);
/// Whether all pixels have one colour.
[[nodiscard]] bool Uniform(const Picture& picture);

/// The screen, or a part of it.
[[nodiscard]] Picture CaptureScreen(int left, int top, int width, int height);
/// Writes a 24-bit BMP.
void SavePicture(const std::filesystem::path& path, const Picture& picture);

}  // namespace pixora::ui
