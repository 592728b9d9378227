// Viewer states for tests.
#pragma once

#include <cstdint>
#include <string>

#include "viewer/viewer_state.h"

namespace pixora::test {

/// A new viewer of a grey image.
inline ViewerState NewViewer(std::uint16_t width, std::uint16_t height, const std::wstring& ratio = L"1.00") {
    ImageBuffer image;
    image.width = width;
    image.height = height;
    image.display_size = ratio;
    return NewViewerState(image, SampleBuffer{});
}

/// One whose region shows.
inline ViewerState RegionViewer(std::uint16_t width, std::uint16_t height, const Region& region) {
    ViewerState state = NewViewer(width, height);
    state.region = state.last_seen_region = state.undo_region = region;
    state.region_on = true;
    UpdateCanvas(state);
    return state;
}

}  // namespace pixora::test
