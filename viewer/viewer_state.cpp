#include "viewer/viewer_state.h"

#include <utility>

#include "analysis/profile_line.h"
#include "base/number_text.h"
#include "viewer/display_size.h"

namespace pixora {

ViewerState NewViewerState(ImageBuffer image, SampleBuffer samples) {
    ViewerState state;
    state.ratio_text = StartRatio(image.display_size);
    state.region = WholeImage(image.width, image.height);
    state.last_seen_region = state.undo_region = state.region;
    ProfileScope lines{.kind = ProfileKind::horizontal, .width = image.width, .height = image.height};
    state.row = state.saved_row = CentredLine(lines);
    lines.kind = ProfileKind::vertical;
    state.column = state.saved_column = CentredLine(lines);
    state.channel = image.colour ? 1 : 0;
    state.image = std::move(image);
    SetSamples(state, std::move(samples));
    state.canvas.image = ImageSizeOf(state);
    UpdateCanvas(state);
    return state;
}

void SetSamples(ViewerState& state, SampleBuffer samples) {
    state.samples = std::move(samples);
    const bool filled = !state.samples.samples.All().empty();
    state.readout.samples_ready = state.readout.pixel_ready = filled;
    state.readout.none = !filled;
}

void ApplySettings(const Settings& settings, ViewerState& state) {
    CanvasState& canvas = state.canvas;
    canvas.line_colour = ColorIndexOf(settings.LINE_COLOR, canvas.line_colour);
    canvas.border_colour = ColorIndexOf(settings.BDR_COLOR, canvas.border_colour);
    canvas.mark_colour = MarkColorIndexOf(settings.MARK_COLOR, canvas.mark_colour);
    canvas.border_style = BorderStyleOf(settings.BDR_TYPE);
    state.caption_style = settings.CAP_STYLE;
}

double RatioOf(const ViewerState& state) {
    return ParseRatio(state.ratio_text).value_or(*ParseRatio(kFallbackRatio));
}

PixelSize ImageSizeOf(const ViewerState& state) {
    return {state.image.width, state.image.height};
}

void UpdateCanvas(ViewerState& state) {
    CanvasState& canvas = state.canvas;
    canvas.ratio = RatioOf(state);
    canvas.region_shown = state.region_on;
    canvas.region = DisplayRectangle(state.region, canvas.ratio);
    canvas.row = state.row;
    canvas.column = state.column;
}

}  // namespace pixora
