#include "app/main_rules.h"

#include <doctest/doctest.h>

using namespace pixora;

namespace {

constexpr std::uint32_t kKeyDown = 0x0100, kKeyUp = 0x0101, kChar = 0x0102;

}  // namespace

TEST_CASE("Enter applies the size box, in path edit mode it opens the typed path") {
    CHECK(FilterMainKey(kKeyDown, 13, false) == MainKey::apply_size);
    CHECK(FilterMainKey(kKeyDown, 13, true) == MainKey::leave_path_edit);
}

TEST_CASE("Escape never reaches the main window") {
    CHECK(FilterMainKey(kKeyDown, 27, false) == MainKey::swallow);
    CHECK(FilterMainKey(kKeyDown, 27, true) == MainKey::swallow);
}

TEST_CASE("every other message goes on as usual") {
    CHECK(FilterMainKey(kKeyDown, 32, false) == MainKey::pass);
    CHECK(FilterMainKey(kKeyUp, 13, false) == MainKey::pass);
    CHECK(FilterMainKey(kChar, 13, false) == MainKey::pass);
    CHECK(FilterMainKey(0x0113, 13, false) == MainKey::pass);
}

TEST_CASE("minimising hides nine kinds of window and leaves the created flags alone") {
    SharedFlags flags;
    OnMainSize(flags, true);
    REQUIRE(flags.hide.size() == 9);
    for (const bool hidden : flags.hide) CHECK(hidden);
    for (const bool created : flags.created) CHECK_FALSE(created);
}

TEST_CASE("any other size change shows the windows and sets all created flags") {
    SharedFlags flags;
    OnMainSize(flags, true);
    OnMainSize(flags, false);
    for (const bool hidden : flags.hide) CHECK_FALSE(hidden);
    for (const bool created : flags.created) CHECK(created);
}

TEST_CASE("Close All Files is enabled while a viewer is open") {
    SharedFlags flags;
    CHECK_FALSE(AnyViewerOpen(flags));
    flags.viewer_open[7] = true;
    CHECK(AnyViewerOpen(flags));
}

TEST_CASE("a request to close goes to all eight slots") {
    SharedFlags flags;
    RequestCloseAll(flags);
    for (const bool close : flags.close_viewer) CHECK(close);
    for (const bool redraw : flags.redraw_viewer) CHECK_FALSE(redraw);
}

TEST_CASE("a new viewer's slot starts without requests, the other slots keep theirs") {
    SharedFlags flags;
    RequestCloseAll(flags);
    flags.redraw_viewer.fill(true);
    flags.created.fill(true);
    flags.viewer_open.fill(true);
    ClearSlot(flags, 3);
    for (std::size_t slot = 0; slot < 8; ++slot) {
        CHECK(flags.close_viewer[slot] == (slot != 3));
        CHECK(flags.redraw_viewer[slot] == (slot != 3));
        CHECK(flags.created[slot] == (slot != 3));
        CHECK(flags.viewer_open[slot] == (slot != 3));
    }
}
