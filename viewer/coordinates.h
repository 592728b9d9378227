// The rules of the "Region Coordinates" dialog.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dialogs/message.h"
#include "image/region.h"
#include "viewer/geometry.h"
#include "viewer/viewer_state.h"

namespace pixora {

/// The texts of the four entries.
struct CoordinateTexts {
    std::wstring left, top, right, bottom;
    friend bool operator==(const CoordinateTexts&, const CoordinateTexts&) = default;
};
[[nodiscard]] CoordinateTexts TextsOf(const Region& region);

/// The caption: L" [3 ]  Region Coordinates" for the viewer of slot 2.
/// @param slot  nothing for a viewer without a number.
[[nodiscard]] std::wstring CoordinatesCaption(std::optional<int> slot);

/// What is written on the two buttons.
inline constexpr std::wstring_view kCoordinatesEdit = L"EDIT", kCoordinatesEnter = L"ENTER";

/// What came of the check of typed coordinates. Every warning is shown, one after another, then the error
/// about the order of the corners.
struct CoordinateCheck {
    std::optional<Region> region;   ///< set only when every entry was accepted
    std::vector<Warning> warnings;  ///< entries that are no number or lie outside the image
    std::optional<Message> order;   ///< corners that are crossed
};

/// Checks four entries against the image and against each other. An entry that is no number counts as its
/// leading digits when the order is checked.
[[nodiscard]] CoordinateCheck CheckCoordinates(const CoordinateTexts& typed, PixelSize image);

/// The rectangle that the canvas shows after coordinates were entered. Unlike the rectangle of a layout it
/// leaves out the last column and row of the region.
[[nodiscard]] PixelRect EnteredRectangle(const Region& region, double ratio);

/// What the dialog remembers while it is open.
class CoordinateEntry {
public:
    explicit CoordinateEntry(const Region& current) : saved_(current) {}

    /// Takes up a region that was changed elsewhere. @return whether the entries must be written anew; what
    /// was typed stays as long as the region does.
    [[nodiscard]] bool Follow(const Region& current);

    /// Gives the viewer the accepted region, or the saved one back when anything was refused, and tells its
    /// canvas and views. The entries are to be written anew then.
    void Apply(const CoordinateCheck& check, ViewerState& state);

private:
    /// The region when the dialog opened or last accepted one; also the one that the entries show.
    Region saved_;
};

/// The dialog goes on: its mode is on, the region shows, the viewer stays.
[[nodiscard]] bool CoordinatesWanted(const ViewerState& state);
/// The dialog is open now.
void CoordinatesOpened(ViewerState& state);
/// The dialog has closed, for whatever reason: the coordinates mode ends with it.
void CoordinatesClosed(ViewerState& state);

}  // namespace pixora
