#include "settings/option_placement.h"

#include <doctest/doctest.h>

using namespace pixora;

namespace {

constexpr ScreenRect kMain{100, 40, 500, 160};
constexpr ScreenRect kWork{0, 0, 1920, 1040};

}  // namespace

TEST_CASE("the option dialogs stand beside the main window, each a caption's height lower") {
    CHECK(PlaceOptionDialog(OptionDialog::viewer_option, kMain, {300, 200}, kWork, 23) ==
          ScreenPoint{500, 40});
    CHECK(PlaceOptionDialog(OptionDialog::region_style, kMain, {400, 150}, kWork, 23) ==
          ScreenPoint{500, 63});
    CHECK(PlaceOptionDialog(OptionDialog::main_option, kMain, {320, 90}, kWork, 23) == ScreenPoint{500, 86});
}

TEST_CASE("an option dialog stays inside the work area") {
    CHECK(PlaceOptionDialog(OptionDialog::main_option, {1500, 980, 1900, 1040}, {320, 90}, kWork, 23) ==
          ScreenPoint{1180, 950});
}
