#include "viewer/measure_tick.h"

#include "analysis/statistics_readout.h"

namespace pixora {
namespace {

// The region that measurements and profiles are limited to.
Region ExtentOf(const ViewerState& state) {
    return state.region_on ? state.region : WholeImage(state.image.width, state.image.height);
}

// The statistics view shows figures of a region only.
bool IsMeasureWanted(const ViewerState& state) {
    return state.edit.view_open.histogram || (state.edit.view_open.statistics && state.region_on);
}

void ReadPixel(ViewerState& state, PixelPoint mouse) {
    PixelReadout& readout = state.readout;
    readout.mouse = mouse;
    readout.rgb = {};
    const PixelUnderMouse pixel =
        FindPixelUnderMouse(mouse.x, mouse.y, RatioOf(state), state.samples.width, state.samples.height);
    if (!pixel.inside || !readout.Active()) return;
    const auto bgr = state.samples.Pixel(pixel.x, pixel.y);
    readout.rgb = {bgr[2], bgr[1], bgr[0]};
}

/// Remembers `key`. @return whether it is another one than before. Remembered at once, so that what fails for
/// want of memory is not tried again at every tick.
template <typename Key>
bool IsNew(std::optional<Key>& last, const Key& key) {
    if (last == key) return false;
    last = key;
    return true;
}

}  // namespace

SampleImage SamplesOf(const ViewerState& state) {
    return {state.samples.width, state.samples.height, state.image.colour != 0, EffectiveBits(state.image),
            state.samples.samples.All()};
}

void MeasureTick::Follow(ViewerState& state, PixelPoint mouse) {
    ReadPixel(state, mouse);
    FollowRegion(state);
    FollowRow(state);
    FollowColumn(state);
}

void MeasureTick::FollowRegion(ViewerState& state) {
    if (!IsMeasureWanted(state)) return;
    const Region part = ClippedTo(ExtentOf(state), state.samples.width, state.samples.height);
    if (!IsNew(measured_, part)) return;
    Measure(SamplesOf(state), part, state.measurement);
    ++state.measured;
}

void MeasureTick::FollowRow(ViewerState& state) {
    if (!state.edit.view_open.h_profile) return;
    const Region extent = ExtentOf(state);
    if (!IsNew(row_, LineKey{state.row, extent})) return;
    ReadLine(SamplesOf(state), ProfileKind::horizontal, state.row, extent, state.h_profile);
    ++state.h_profile_read;
}

void MeasureTick::FollowColumn(ViewerState& state) {
    if (!state.edit.view_open.v_profile) return;
    const Region extent = ExtentOf(state);
    if (!IsNew(column_, LineKey{state.column, extent})) return;
    ReadLine(SamplesOf(state), ProfileKind::vertical, state.column, extent, state.v_profile);
    ++state.v_profile_read;
}

}  // namespace pixora
