#include "viewer/menu_rules.h"

#include <doctest/doctest.h>

#include <vector>

using namespace pixora;

TEST_CASE("the views and the saving of a region can be greyed, nothing else") {
    std::vector<int> ids;
    for (const MenuCommand& command : kMenuCommands) ids.push_back(command.id);
    CHECK(ids == std::vector<int>{32923, 32917, 32918, 32919, 32921, 32810});
}

TEST_CASE("a view can be opened while it is not open") {
    ViewerState state;
    const MenuCommand histogram{32919, &ViewFlags::histogram};
    CHECK(IsOffered(histogram, state));
    state.edit.view_open.h_profile = true;
    CHECK(IsOffered(histogram, state));
    state.edit.view_open.histogram = true;
    CHECK_FALSE(IsOffered(histogram, state));
    state.edit.view_open.histogram = false;
    CHECK(IsOffered(histogram, state));
}

TEST_CASE("each view's command has the flag of its view, the others have none") {
    CHECK(kMenuCommands[0].view == &ViewFlags::statistics);
    CHECK(kMenuCommands[1].view == &ViewFlags::h_profile);
    CHECK(kMenuCommands[2].view == &ViewFlags::v_profile);
    CHECK(kMenuCommands[3].view == &ViewFlags::histogram);
    CHECK(kMenuCommands[4].view == &ViewFlags::image_info);
    CHECK(kMenuCommands[5].view == nullptr);
    CHECK(kViews == 5);
}

TEST_CASE("a region can be saved only while one shows") {
    ViewerState state;
    CHECK_FALSE(IsOffered({32810}, state));
    state.region_on = true;
    CHECK(IsOffered({32810}, state));
}
