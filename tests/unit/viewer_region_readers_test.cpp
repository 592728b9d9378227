// Regions as clicks by the million leave them, and worse ones: who reads pixels of a region gets those of the
// image that lie in it, told pixel by pixel.
#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "support/viewer_states.h"
#include "viewer/click.h"
#include "viewer/edit_tick.h"
#include "viewer/measure_tick.h"
#include "viewer/region_file.h"

using namespace pixora;

namespace {

using Values = std::vector<std::uint16_t>;

// The build that checks every access of memory takes its time.
#ifdef NDEBUG
constexpr int kWalks = 7000;
#else
constexpr int kWalks = 700;
#endif
constexpr int kSteps = 300;
constexpr int kLongestSide = 9;  // 9 x 9 x 3 samples of different values fit 8 bits

// A number of its own for every sample; none is 0, and what lies around the buffer is not among them either.
std::uint16_t SampleAt(const ViewerState& state, int x, int y, int channel) {
    const int pixel = y * state.image.width + x;
    return static_cast<std::uint16_t>(state.image.colour ? 1 + 3 * pixel + channel : 1 + pixel);
}

bool Lies(const Region& region, int x, int y) {
    return x >= region.left && x <= region.right && y >= region.top && y <= region.bottom;
}

// One viewer of a small image, clicked at random.
class Clicked {
public:
    explicit Clicked(std::mt19937& random) : random_(random) {
        const auto side = [&] { return static_cast<std::uint16_t>(1 + Below(kLongestSide)); };
        state_ = test::NewViewer(side(), side(), Below(2) == 0 ? L"1.00" : L"2.00");
        state_.image.colour = static_cast<std::uint8_t>(Below(2));
        const int width = state_.image.width, height = state_.image.height;
        auto samples =
            ZeroedArray<std::uint16_t>::Make(std::uint64_t{3} * state_.image.width * state_.image.height);
        REQUIRE(samples);
        std::size_t at = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                for (int channel = 0; channel < 3; ++channel)
                    samples->All()[at++] = SampleAt(state_, x, y, channel);
        SetSamples(state_, {width, height, *std::move(samples)});
        state_.region_on = true;
        state_.edit.view_open = kAllViews;
    }

    void Step() {
        if (Below(3) == 0) Switch();
        if (Below(100) == 0) state_.region = AnyRegion();
        const PixelPoint at{static_cast<std::int32_t>(Below(24)) - 2,
                            static_cast<std::int32_t>(Below(24)) - 2};
        static_cast<void>(ClickViewer(state_, {at, Below(4) == 0, Below(4) == 0}, true));
        static_cast<void>(FollowEdits(state_));
    }

    // What a viewer's tick reads for its views.
    bool ViewsReadWhatTheyShould() {
        ticks_.Follow(state_, {0, 0});
        return SameProfile(state_.h_profile, true) && SameProfile(state_.v_profile, false) &&
               SameMeasurement();
    }

    // What a saved region holds.
    [[nodiscard]] bool CutHoldsWhatItShould() const {
        Values expected;
        ForEachPixel([&](int x, int y) {
            for (int channel = 0; channel < Channels(); ++channel)
                expected.push_back(SampleAt(state_, x, y, channel));
        });
        const CutRegion cut = CutOutRegion(state_.samples, state_.image.colour != 0,
                                           EffectiveBits(state_.image), state_.region);
        const std::size_t pixels = std::size_t{cut.width} * cut.height;
        return cut.samples == expected && pixels * static_cast<std::size_t>(Channels()) == expected.size();
    }

    [[nodiscard]] bool Partial() const {
        return state_.region.right >= state_.image.width || state_.region.bottom >= state_.image.height ||
               state_.region.left < 0 || state_.region.top < 0;
    }
    [[nodiscard]] bool Empty() const {
        bool empty = true;
        ForEachPixel([&](int, int) { empty = false; });
        return empty;
    }

private:
    unsigned Below(unsigned count) { return static_cast<unsigned>(random_() % count); }
    [[nodiscard]] int Channels() const { return state_.image.colour ? 3 : 1; }

    void Switch() {
        const unsigned mode = Below(8);
        state_.edit.corner = mode < 2;
        state_.edit.move = mode >= 2 && mode < 7;
        state_.corner_code = static_cast<int>(Below(7)) - 1;
        state_.anchor_code = static_cast<int>(Below(7)) - 1;
    }

    // Also one that no click leads to.
    Region AnyRegion() {
        using Limits = std::numeric_limits<std::int32_t>;
        const auto edge = [&]() -> std::int32_t {
            switch (Below(8)) {
                case 0:
                    return Limits::min() + static_cast<std::int32_t>(Below(3));
                case 1:
                    return Limits::max() - static_cast<std::int32_t>(Below(3));
                case 2:
                    return static_cast<std::int32_t>(random_());
                default:
                    return static_cast<std::int32_t>(Below(14)) - 3;
            }
        };
        return {edge(), edge(), edge(), edge()};
    }

    // The pixels of the image that lie in the region, row by row.
    template <typename Visit>
    void ForEachPixel(Visit visit) const {
        for (int y = 0; y < state_.image.height; ++y)
            for (int x = 0; x < state_.image.width; ++x)
                if (Lies(state_.region, x, y)) visit(x, y);
    }

    // The region says how far a line is read, not which line it is.
    [[nodiscard]] bool SameProfile(const LineProfile& profile, bool horizontal) const {
        const ImageBuffer& image = state_.image;
        const Region& region = state_.region;
        const int line = horizontal ? state_.row : state_.column;
        const int from = horizontal ? region.left : region.top,
                  to = horizontal ? region.right : region.bottom;
        const bool read = !Empty() && line < (horizontal ? image.height : image.width);
        std::array<Values, 3> expected;
        int first = 0;
        for (int at = 0; read && at < (horizontal ? image.width : image.height); ++at) {
            if (at < from || at > to) continue;
            if (expected[0].empty()) first = at;
            for (int channel = 0; channel < Channels(); ++channel)
                expected[static_cast<std::size_t>(channel)].push_back(
                    SampleAt(state_, horizontal ? at : line, horizontal ? line : at, channel));
        }
        return profile.values == expected && profile.first == first &&
               static_cast<std::size_t>(profile.count) == expected[0].size();
    }

    [[nodiscard]] bool SameMeasurement() const {
        std::array<std::array<std::uint32_t, 256>, 3> expected{};
        std::uint64_t pixels = 0;
        ForEachPixel([&](int x, int y) {
            ++pixels;
            for (int channel = 0; channel < Channels(); ++channel)
                ++expected[static_cast<std::size_t>(channel)][SampleAt(state_, x, y, channel)];
        });
        const Measurement& measured = state_.measurement;
        bool same = measured.pixels == pixels;
        for (std::size_t channel = 0; channel < static_cast<std::size_t>(Channels()); ++channel)
            same = same && std::equal(expected[channel].begin(), expected[channel].end(),
                                      measured.counts[channel].begin(), measured.counts[channel].end());
        return same;
    }

    std::mt19937& random_;
    ViewerState state_;
    MeasureTick ticks_;
};

}  // namespace

TEST_CASE("no state of a region makes a reader of pixels leave the image") {
    std::mt19937 random(20261121);
    int clicks = 0, wrong_views = 0, wrong_cuts = 0, partial = 0, empty = 0;
    for (int walk = 0; walk < kWalks; ++walk) {
        Clicked viewer(random);
        for (int step = 0; step < kSteps; ++step, ++clicks) {
            viewer.Step();
            wrong_cuts += !viewer.CutHoldsWhatItShould();
            wrong_views += step % 64 == 0 && !viewer.ViewsReadWhatTheyShould();
            partial += viewer.Partial();
            empty += viewer.Empty();
        }
    }
    CHECK(clicks == kWalks * kSteps);
    CHECK(wrong_cuts == 0);
    CHECK(wrong_views == 0);
    // The walks would prove little without the regions that leave the image.
    CHECK(partial > clicks / 50);
    CHECK(empty > clicks / 50);
}
