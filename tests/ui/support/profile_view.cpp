#include "tests/ui/support/profile_view.h"

#include "tests/ui/support/wait.h"

namespace pixora::ui {
namespace {

constexpr std::uint32_t kGrid = 0x808080;
// In an expected picture: a pixel of a dotted grid line, which shows the line or the tint.
constexpr std::uint32_t kDotted = 0xFF000000;

Picture Blank(const Window& plot, std::uint32_t tint) {
    const RECT client = plot.Client();
    Picture picture(client.right - client.left, client.bottom - client.top);
    for (std::uint32_t& pixel : picture.pixels) pixel = tint;
    return picture;
}

std::string Differences(const Picture& shown, const Picture& expected, std::uint32_t tint) {
    int grid = 0, dotted = 0;
    Picture filled = expected;
    for (int y = 0; y < expected.height && y < shown.height; ++y)
        for (int x = 0; x < expected.width && x < shown.width; ++x) {
            if (expected.At(x, y) != kDotted) continue;
            const bool on = shown.At(x, y) == kGrid;
            ++dotted;
            grid += on;
            filled.At(x, y) = on ? kGrid : tint;
        }
    if (4 * grid < dotted) return "the grid is missing";
    return DifferenceEnlarged(shown, filled, 1);
}

}  // namespace

PlotPicture::PlotPicture(const Window& view, std::uint32_t tint, int positions, int unit)
    : picture_(Blank(view.Item(kPlot), tint)), tint_(tint), positions_(positions) {
    const int width = picture_.width, height = picture_.height, last = positions - 1;
    DrawFrame(picture_, {0, 0, width, height}, 0);
    for (int level = 32; level < 256; level += 32) DrawAcross(picture_, Row(level), 1, width - 1, kDotted);
    for (int k = 1; k * unit < last; ++k)
        DrawDown(picture_, static_cast<int>(static_cast<double>(k) * (width - 3) * unit / last), 1,
                 height - 1, kDotted);
}

PlotPicture& PlotPicture::Flat(int level, std::uint32_t pen) {
    DrawAcross(picture_, Row(level), 1, Column(positions_ - 1) + 1, pen);
    return *this;
}

PlotPicture& PlotPicture::LevelCursor(int level) {
    return LevelCursor(level, kLevelPen);
}

PlotPicture& PlotPicture::LevelCursor(int level, std::uint32_t pen) {
    DrawAcross(picture_, level * picture_.height / 256 < 2 ? picture_.height - 1 : Row(level), 0,
               picture_.width, pen);
    return *this;
}

std::string PlotPicture::DifferenceFrom(const Picture& shown) const {
    return Differences(shown, picture_, tint_);
}

POINT PlotPicture::Place(int index, int value) const {
    return {Column(index), Row(value)};
}

int PlotPicture::Row(int level) const {
    return picture_.height - 1 - level * picture_.height / 256;
}

int PlotPicture::Column(int index) const {
    return static_cast<int>(index * (static_cast<double>(picture_.width - 3) / (positions_ - 1)) + 1.0);
}

void WaitForPlot(Program& program, const Window& view, const PlotPicture& expected) {
    std::string difference;
    try {
        WaitFor("the plot", [&] {
            difference = expected.DifferenceFrom(program.See(view.Item(kPlot)));
            return difference.empty();
        });
    } catch (const UiError& error) {
        throw UiError(error.what() + std::string("; ") + difference);
    }
}

void WaitForSamples(Program& program, const Window& view, const PlotPicture& empty,
                    const std::vector<int>& samples, std::uint32_t pen) {
    WaitFor("the samples in the plot", [&] {
        const Picture shown = program.See(view.Item(kPlot));
        for (std::size_t k = 0; k < samples.size(); ++k) {
            const POINT place = empty.Place(static_cast<int>(k), samples[k]);
            if (shown.At(place.x, place.y) != pen) return false;
        }
        return true;
    });
}

void Push(const Window& view, int button) {
    const Window control = view.Item(button);
    WaitFor("the button to be enabled", [&] { return control.Enabled(); });
    control.Post(BM_CLICK);
}

}  // namespace pixora::ui
