#include "viewer/menu_rules.h"

#include <doctest/doctest.h>

#include <vector>

using namespace pixora;

TEST_CASE("the views and the saving of a region can be greyed, nothing else") {
    std::vector<int> ids;
    for (const MenuCommand& command : kMenuCommands) ids.push_back(command.id);
    CHECK(ids == std::vector<int>{32923, 32917, 32918, 32919, 32921, 32810});
}

TEST_CASE("a command that would do nothing is greyed") {
    ViewerState state;
    state.region_on = true;
    CHECK_FALSE(IsOffered({32919, false}, state));
    CHECK(IsOffered({32919, true}, state));
    CHECK_FALSE(IsOffered({32810, false}, state));
}

TEST_CASE("a region can be saved only while one shows") {
    ViewerState state;
    CHECK_FALSE(IsOffered({32810, true}, state));
    state.region_on = true;
    CHECK(IsOffered({32810, true}, state));
}
