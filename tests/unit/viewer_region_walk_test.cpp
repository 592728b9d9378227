// Random clicks by the million: the rules against a second, plain telling of them, step by step.
#include <doctest/doctest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <tuple>

#include "support/viewer_states.h"
#include "viewer/click.h"
#include "viewer/coordinates.h"
#include "viewer/marks.h"

using namespace pixora;

namespace {

using Whole = long long;

// The build that checks every access of memory takes its time.
#ifdef NDEBUG
constexpr int kWalks = 20000;
#else
constexpr int kWalks = 6000;
#endif
constexpr int kSteps = 200;

Whole Trunc(double value) {
    return static_cast<Whole>(std::trunc(value));
}

// A viewer as the rules see it.
struct Told {
    Whole w = 0, h = 0;
    double z = 1;
    Whole left = 0, top = 0, right = 0, bottom = 0;
    Whole row = 0, column = 0, saved_row = 0, saved_column = 0, clicked_row = 0, clicked_column = 0;
    bool on = false, corner = false, move = false, coordinates = false;
    bool h_open = false, v_open = false;
    int corner_code = 0, anchor_code = 0;
    std::array<Whole, 4> shown{};  // the rectangle on the canvas
    bool h_redraw = false, v_redraw = false, canvas_redraw = false, warned = false;

    void Click(Whole x, Whole y, bool shift, bool ctrl, bool play);
    void ClickLines(Whole x, Whole y, bool shift, bool ctrl, bool play);
    void ClickCorner();
    void ClickMove();
    int Nearest(Whole x, Whole y, bool with_centre) const;
};

Whole SixteenBits(Whole line) {
    if (line > 65535) return 65535;
    return line < 0 ? 0 : line;
}

void Told::ClickLines(Whole x, Whole y, bool shift, bool ctrl, bool play) {
    if (!h_open && !v_open) return;
    if (!play) {
        warned = true;
        return;
    }
    if (!ctrl && h_open) {
        Whole r = SixteenBits(Trunc(static_cast<double>(y) / z));
        if (on) {
            if (r < top) r = top;
            if (r > bottom) r = bottom;
        } else if (r > h - 1) {
            r = h - 1;
        }
        row = SixteenBits(r);
        h_redraw = true;
    }
    if (!shift && v_open) {
        Whole c = SixteenBits(Trunc(static_cast<double>(x) / z));
        if (on) {
            if (c < left) c = left;
            if (c > right) c = right;
        } else if (c > w - 1) {
            c = w - 1;
        }
        column = SixteenBits(c);
        v_redraw = true;
    }
}

void Told::ClickCorner() {
    const Whole r = clicked_row, c = clicked_column, L = left, T = top, R = right, B = bottom;
    if (corner_code == 1) {
        if (r < B && c < R) top = r, left = c;
    } else if (corner_code == 2) {
        if (r < B && c > L) top = r, right = c;
    } else if (corner_code == 3) {
        if (r > T && c < R) bottom = r, left = c;
    } else {
        if (r > T && c > L) bottom = r, right = c;
    }
}

void Told::ClickMove() {
    const Whole r = clicked_row, c = clicked_column;
    const Whole W = right - left, H = bottom - top;
    Whole t = top, b = bottom, l = left, rt = right;
    if (anchor_code == 0) {
        const Whole hH = H / 2, hW = W / 2;
        t = r - hH, b = r + hH;
        if (t < 0) b = H, t = 0;
        if (b > h - 1) t = h - 1 - H, b = h - 1;
        l = c - hW, rt = c + hW;
        if (l < 0) rt = W, l = 0;
        if (rt > w - 1) l = w - 1 - W, rt = w - 1;
    }
    if (anchor_code == 1) {
        t = r, l = c, b = r + H, rt = c + W;
        if (b > h - 1) t = h - 1 - H, b = h - 1;
        if (rt > w - 1) l = w - 1 - W, rt = w - 1;
    }
    if (anchor_code == 2) {
        t = r, rt = c, b = r + H, l = c - W;
        if (b > h - 1) t = h - 1 - H, b = h - 1;
        if (l < 0) rt = W, l = 0;
    }
    if (anchor_code == 3) {
        b = r, l = c, t = r - H, rt = c + W;
        if (t < 0) b = H, t = h - 1;
        if (rt > w - 1) l = w - W, rt = w;
    }
    if (anchor_code == 4) {
        b = r, rt = c, t = r - H, l = c - W;
        if (t < 0) b = H, t = 0;
        if (l < 0) l = 0, rt = W;
    }
    top = t, bottom = b, left = l, right = rt;
    const Whole dW = W - (rt - l), dH = H - (b - t);
    if (dW > 0) {
        if (right < w)
            right = right + 1;
        else
            left = left - 1;
    }
    if (dW < 0) right = right - 1;
    if (dH > 0) {
        if (bottom < h)
            bottom = bottom + 1;
        else
            top = top - 1;
    } else if (dW < 0) {
        bottom = bottom - 1;
    }
}

void Told::Click(Whole x, Whole y, bool shift, bool ctrl, bool play) {
    warned = h_redraw = v_redraw = canvas_redraw = false;
    saved_row = row;
    saved_column = column;
    if (x < 0) x = 0;
    y = y + 1;
    if (y < 0) y = 0;
    if (!corner && !move && !coordinates) return ClickLines(x, y, shift, ctrl, play);
    if (!corner && !move) return;
    clicked_row = SixteenBits(Trunc(static_cast<double>(y) / z));
    if (clicked_row > h - 1) clicked_row = h - 1;
    clicked_column = SixteenBits(Trunc(static_cast<double>(x) / z));
    if (clicked_column > w - 1) clicked_column = w - 1;
    if (corner)
        ClickCorner();
    else
        ClickMove();
    shown = {Trunc(static_cast<double>(left) * z), Trunc(static_cast<double>(top) * z),
             Trunc(static_cast<double>(right + 1) * z), Trunc(static_cast<double>(bottom + 1) * z)};
    canvas_redraw = h_redraw = v_redraw = true;
}

int Told::Nearest(Whole x, Whole y, bool with_centre) const {
    const double px = static_cast<double>(Trunc(static_cast<double>(x) / z));
    const double py = static_cast<double>(Trunc(static_cast<double>(y) / z));
    const auto distance = [&](Whole at_x, Whole at_y) {
        return std::pow(static_cast<double>(at_x) - px, 2) + std::pow(static_cast<double>(at_y) - py, 2);
    };
    int code = 1;
    double best = distance(left, top);
    if (const double d = distance(right, top); d < best) best = d, code = 2;
    if (const double d = distance(left, bottom); d < best) best = d, code = 3;
    if (const double d = distance(right, bottom); d < best) best = d, code = 4;
    if (with_centre && distance((left + right) / 2, (top + bottom) / 2) < best) code = 0;
    return code;
}

// Both tellings side by side.
class Walk {
public:
    Walk(std::mt19937& random, int side) : random_(random) {
        static constexpr std::array kRatios = {L"1.00", L"0.05", L"0.333", L"2.00", L"10.00", L"0.010"};
        const std::wstring ratio = kRatios[Below(kRatios.size())];
        const auto width = static_cast<std::uint16_t>(1 + Below(static_cast<unsigned>(side)));
        const auto height = static_cast<std::uint16_t>(1 + Below(static_cast<unsigned>(side)));
        state_ = test::NewViewer(width, height, ratio);
        told_.w = width;
        told_.h = height;
        told_.z = std::stod(std::string(ratio.begin(), ratio.end()));
        told_.right = width - 1;
        told_.bottom = height - 1;
        told_.row = told_.saved_row = state_.row;
        told_.column = told_.saved_column = state_.column;
        const PixelRect& shown = state_.canvas.region;
        told_.shown = {shown.left, shown.top, shown.right, shown.bottom};
    }

    // One click, after what the user may have switched before. @return whether both tellings agree.
    bool Step() {
        if (Below(4) == 0) Switch();
        if (Below(50) == 0) Type();
        if (Below(4) == 0 && !RightClick()) return false;
        return LeftClick();
    }

    // The region's part inside the image is a part of the image, or nothing.
    [[nodiscard]] bool StaysInside() const {
        const int width = state_.image.width, height = state_.image.height;
        const Region part = ClippedTo(state_.region, width, height);
        if (IsEmpty(part)) return true;
        return part.left >= 0 && part.top >= 0 && part.right < width && part.bottom < height;
    }

    [[nodiscard]] const ViewerState& State() const { return state_; }

private:
    unsigned Below(std::size_t count) { return static_cast<unsigned>(random_() % count); }
    bool Coin() { return Below(2) == 0; }

    // A client point over the image or a little outside.
    PixelPoint Point() {
        const auto along = [&](Whole extent) {
            const Whole shown = Trunc(static_cast<double>(extent) * told_.z);
            return static_cast<std::int32_t>(
                static_cast<Whole>(Below(static_cast<std::size_t>(shown + shown / 4 + 8))) - 4 - shown / 8);
        };
        return {along(told_.w), along(told_.h)};
    }

    void Switch() {
        const unsigned mode = Below(8);  // the modes of regions more often than the others
        state_.edit.corner = told_.corner = mode < 2;
        state_.edit.move = told_.move = mode >= 1 && mode < 6;
        state_.edit.coordinates = told_.coordinates = mode >= 5 && mode < 7;
        state_.region_on = told_.on = Below(4) != 0;
        state_.edit.view_open.h_profile = told_.h_open = Coin();
        state_.edit.view_open.v_profile = told_.v_open = Coin();
        if (Coin()) state_.corner_code = told_.corner_code = static_cast<int>(Below(7)) - 1;
        if (Coin()) state_.anchor_code = told_.anchor_code = static_cast<int>(Below(7)) - 1;
    }

    // Coordinates that the dialog accepts.
    void Type() {
        const auto pair = [&](Whole extent) {
            const Whole first = Below(static_cast<std::size_t>(extent));
            return std::pair(first, first + Below(static_cast<std::size_t>(extent - first)));
        };
        std::tie(told_.left, told_.right) = pair(told_.w);
        std::tie(told_.top, told_.bottom) = pair(told_.h);
        CoordinateEntry entry(state_.region);
        const CoordinateTexts typed{std::to_wstring(told_.left), std::to_wstring(told_.top),
                                    std::to_wstring(told_.right), std::to_wstring(told_.bottom)};
        entry.Apply(CheckCoordinates(typed, ImageSizeOf(state_)), state_);
        const PixelRect& shown = state_.canvas.region;
        told_.shown = {shown.left, shown.top, shown.right, shown.bottom};
    }

    bool RightClick() {
        const PixelPoint at = Point();
        PickMark(state_, at);
        if (told_.corner)
            told_.corner_code = told_.Nearest(at.x, at.y, false);
        else if (told_.move)
            told_.anchor_code = told_.Nearest(at.x, at.y, true);
        return state_.corner_code == told_.corner_code && state_.anchor_code == told_.anchor_code;
    }

    bool LeftClick() {
        const PixelPoint at = Point();
        const bool shift = Below(4) == 0, ctrl = Below(4) == 0, play = Below(8) != 0;
        state_.edit.redraw = {};
        state_.edit.redraw_canvas = state_.edit.clicked = false;
        const bool warned = ClickViewer(state_, {at, shift, ctrl}, play).has_value();
        told_.Click(at.x, at.y, shift, ctrl, play);
        return warned == told_.warned && SameRegion() && SameLines() && SameRequests();
    }

    [[nodiscard]] bool SameRegion() const {
        const Region& region = state_.region;
        const PixelRect& shown = state_.canvas.region;
        return std::array<Whole, 4>{region.left, region.top, region.right, region.bottom} ==
                   std::array<Whole, 4>{told_.left, told_.top, told_.right, told_.bottom} &&
               std::array<Whole, 4>{shown.left, shown.top, shown.right, shown.bottom} == told_.shown;
    }
    [[nodiscard]] bool SameLines() const {
        return std::array<Whole, 6>{
                   state_.row,          state_.column,           state_.saved_row,
                   state_.saved_column, state_.edit.clicked_row, state_.edit.clicked_column} ==
               std::array<Whole, 6>{told_.row,          told_.column,      told_.saved_row,
                                    told_.saved_column, told_.clicked_row, told_.clicked_column};
    }
    [[nodiscard]] bool SameRequests() const {
        const ViewFlags redraw{.h_profile = told_.h_redraw, .v_profile = told_.v_redraw};
        return state_.edit.redraw == redraw && state_.edit.redraw_canvas == told_.canvas_redraw &&
               state_.edit.clicked;
    }

    std::mt19937& random_;
    ViewerState state_;
    Told told_;
};

// What kinds of region the walks have come by.
struct Reached {
    int past_right = 0, past_bottom = 0, before_left = 0, crossed = 0, empty = 0;

    void Note(const ViewerState& state) {
        const Region& region = state.region;
        past_right += region.right >= state.image.width;
        past_bottom += region.bottom >= state.image.height;
        before_left += region.left < 0;
        crossed += region.top > region.bottom;
        empty += IsEmpty(ClippedTo(region, state.image.width, state.image.height));
    }
};

}  // namespace

TEST_CASE("over a million random clicks follow the rules and never leave the image once clipped") {
    std::mt19937 random(20240511);
    Reached reached;
    int clicks = 0, wrong = 0, outside = 0;
    for (int walk = 0; walk < kWalks; ++walk) {
        Walk viewer(random, walk % 3 == 0 ? 65535 : 60);
        for (int step = 0; step < kSteps; ++step, ++clicks) {
            wrong += !viewer.Step();
            outside += !viewer.StaysInside();
            reached.Note(viewer.State());
        }
    }
    CHECK(clicks == kWalks * kSteps);
    CHECK(wrong == 0);
    CHECK(outside == 0);
    // The walks would prove little without the regions that leave the image.
    CHECK(reached.past_right > 1000);
    CHECK(reached.past_bottom > 1000);
    CHECK(reached.before_left > 100);
    CHECK(reached.crossed > 1000);
    CHECK(reached.empty > 1000);
}
