// What one viewer knows, shared with its canvas and its analysis views.
#pragma once

#include <cstdint>
#include <string>

#include "analysis/line_profile.h"
#include "analysis/measurement.h"
#include "image/image_buffer.h"
#include "image/region.h"
#include "settings/settings.h"
#include "viewer/canvas_plan.h"
#include "viewer/edit_state.h"
#include "viewer/geometry.h"
#include "viewer/pixel_readout.h"
#include "viewer/sample_buffer.h"

namespace pixora {

/// Held by std::shared_ptr: the viewer and each of its views own a share, because a view may outlive its
/// viewer's window by a timer tick. Nothing is pushed; whoever changes something raises a request that its
/// reader finds at the next tick.
struct ViewerState {
    ImageBuffer image;
    SampleBuffer samples;

    std::wstring ratio_text;       ///< the display ratio; always a valid ratio
    PixelPoint anchor;             ///< how far the next layout moves the window back; zero between layouts
    bool layout_requested = true;  ///< set by whoever changes the ratio; cleared by the viewer's tick
    bool wheel_pending = false;    ///< a step of the wheel waits for its layout; further ones are ignored

    std::wstring caption_style;  ///< CAP_STYLE as the viewer last took it over

    Region region;                      ///< may lie outside the image or be crossed; see image/region.h
    Region last_seen_region;            ///< the region that the viewer's tick last saw
    Region undo_region;                 ///< the region before the last change that the tick saw
    bool region_on = false;             ///< the region shows and limits the profile lines
    std::uint16_t row = 0, column = 0;  ///< the horizontal and the vertical profile line, in image pixels
    std::uint16_t saved_row = 0, saved_column = 0;  ///< both as they were before the last click
    int corner_code = 0;  ///< the corner that clicks move, as a MarkPosition; 0 acts as bottom right
    int anchor_code = 0;  ///< the point that clicks move the region by, as a MarkPosition
    EditState edit;

    int channel = 0;  ///< 0 grey; of a colour image 1 red, 2 green, 3 blue, 4 all three

    /// What the open views show, kept up by the viewer's tick and computed anew only when something that it
    /// depends on has changed. Each has a number that grows with every computation, so that a view sees at a
    /// glance whether it shows the newest.
    Measurement measurement;  ///< of the region that shows, or of the whole image
    LineProfile h_profile, v_profile;
    unsigned measured = 0, h_profile_read = 0, v_profile_read = 0;
    PixelReadout readout;
    bool binning = true;  ///< histograms are drawn in 256 levels; set and changed by the histogram view

    bool closing = false;  ///< the viewer's window goes away; its views close themselves

    CanvasState canvas;
};

/// The state of a new viewer: the image's stored display size, the region on the whole image and switched
/// off, the profile lines in the middle.
[[nodiscard]] ViewerState NewViewerState(ImageBuffer image, SampleBuffer samples);

/// Gives the viewer its samples, and allows the readout of pixels when there are any.
void SetSamples(ViewerState& state, SampleBuffer samples);

/// Takes over the settings that a viewer follows: colours, border style and caption style.
void ApplySettings(const Settings& settings, ViewerState& state);

/// The display ratio as a number; above 0.
[[nodiscard]] double RatioOf(const ViewerState& state);

/// Size of the viewer's image in its own pixels.
[[nodiscard]] PixelSize ImageSizeOf(const ViewerState& state);

/// Gives the canvas the ratio, the region and the profile lines.
void UpdateCanvas(ViewerState& state);

}  // namespace pixora
