#include "viewer/coordinates.h"

#include <utility>

#include "base/number_text.h"
#include "dialogs/value_check.h"
#include "viewer/edit_modes.h"

namespace pixora {
namespace {

constexpr std::wstring_view kCaption = L"Region Coordinates";

void CheckEntry(const std::wstring& typed, std::int32_t value, std::int32_t extent, std::wstring_view name,
                std::vector<Warning>& warnings) {
    const bool inside = value >= 0 && value <= extent - 1;
    if (inside && IsDigitText(typed)) return;
    warnings.push_back({L"Error", L"Invalid value in \"" + std::wstring(name) + L"\""});
}

Message CrossedMessage(const std::wstring& first_name, std::int32_t first, const std::wstring& last_name,
                       std::int32_t last) {
    return {L"- Error",
            first_name + L" = " + FormatWhole(first) + L" , " + last_name + L" = " + FormatWhole(last),
            L"Must be : " + first_name + L" <= " + last_name, L""};
}

std::optional<Message> CheckOrder(const Region& region) {
    if (region.top > region.bottom) return CrossedMessage(L"Top", region.top, L"Bottom", region.bottom);
    if (region.left > region.right) return CrossedMessage(L"Left", region.left, L"Right", region.right);
    return std::nullopt;
}

}  // namespace

CoordinateTexts TextsOf(const Region& region) {
    return {FormatWhole(region.left), FormatWhole(region.top), FormatWhole(region.right),
            FormatWhole(region.bottom)};
}

std::wstring CoordinatesCaption(std::optional<int> slot) {
    const std::wstring number = slot ? L" [" + FormatWhole(*slot + 1) + L" ]  " : L"";
    return number + std::wstring(kCaption);
}

CoordinateCheck CheckCoordinates(const CoordinateTexts& typed, PixelSize image) {
    const Region entered{ParseWhole(typed.left), ParseWhole(typed.top), ParseWhole(typed.right),
                         ParseWhole(typed.bottom)};
    CoordinateCheck check;
    CheckEntry(typed.top, entered.top, image.height, L"top", check.warnings);
    CheckEntry(typed.bottom, entered.bottom, image.height, L"bottom", check.warnings);
    CheckEntry(typed.left, entered.left, image.width, L"left", check.warnings);
    CheckEntry(typed.right, entered.right, image.width, L"right", check.warnings);
    check.order = CheckOrder(entered);
    if (check.warnings.empty() && !check.order) check.region = entered;
    return check;
}

// Deliberate: right and bottom are not moved to the far side of the last column and row.
PixelRect EnteredRectangle(const Region& region, double ratio) {
    return {Truncate(region.left * ratio), Truncate(region.top * ratio), Truncate(region.right * ratio),
            Truncate(region.bottom * ratio)};
}

bool CoordinateEntry::Follow(const Region& current) {
    return std::exchange(saved_, current) != current;
}

void CoordinateEntry::Apply(const CoordinateCheck& check, ViewerState& state) {
    static_cast<void>(Follow(state.region));  // a click while the messages showed is not taken back
    state.region = saved_ = check.region.value_or(saved_);
    state.canvas.region = EnteredRectangle(state.region, RatioOf(state));
    state.edit.rectangle_given = true;
    state.edit.region_changed = kAllViews;
    RequestRedraw(state);
}

bool CoordinatesWanted(const ViewerState& state) {
    return state.edit.coordinates && state.region_on && !state.closing;
}

void CoordinatesOpened(ViewerState& state) {
    state.edit.coordinates_open = true;
}

void CoordinatesClosed(ViewerState& state) {
    state.edit.coordinates_open = false;
    EndCoordinates(state);
}

}  // namespace pixora
