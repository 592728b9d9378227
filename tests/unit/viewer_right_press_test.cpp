#include "viewer/right_press.h"

#include <doctest/doctest.h>

using namespace pixora;

namespace {

// At which of the next ticks, counted from 1, the menu opens; 0 for none of them.
int MenuTick(RightPress& press, int ticks, bool held = true, bool editing = true) {
    int opened = 0;
    for (int tick = 1; tick <= ticks; ++tick)
        if (press.Tick(held, editing)) {
            CHECK(opened == 0);
            opened = tick;
        }
    return opened;
}

}  // namespace

TEST_CASE("a press held for more than six ticks opens the menu, once") {
    RightPress press;
    press.Begin();
    CHECK(MenuTick(press, 6) == 0);
    CHECK(press.Tick(true, true));
    CHECK(MenuTick(press, 50) == 0);
}

TEST_CASE("the release after the menu is no click, the next press is") {
    RightPress press;
    press.Begin();
    CHECK(MenuTick(press, 7) == 7);
    CHECK_FALSE(press.EndsAsClick());
    press.Begin();
    CHECK(MenuTick(press, 3) == 0);
    CHECK(press.EndsAsClick());
}

TEST_CASE("a press released in time is a click and starts no count") {
    RightPress press;
    press.Begin();
    CHECK(MenuTick(press, 6) == 0);
    CHECK(press.EndsAsClick());
    CHECK(MenuTick(press, 50) == 0);  // the button is down for something else
}

TEST_CASE("a press that began elsewhere never opens the menu") {
    RightPress press;
    CHECK(MenuTick(press, 50) == 0);
    CHECK(press.EndsAsClick());
}

TEST_CASE("a release that no message told of ends the press") {
    RightPress press;
    press.Begin();
    CHECK(MenuTick(press, 6) == 0);
    CHECK_FALSE(press.Tick(false, true));
    CHECK(MenuTick(press, 50) == 0);
}

TEST_CASE("ticks count only while the region is edited, one after another") {
    RightPress press;
    press.Begin();
    CHECK(MenuTick(press, 50, true, false) == 0);
    CHECK(MenuTick(press, 6) == 0);
    CHECK_FALSE(press.Tick(true, false));
    CHECK(MenuTick(press, 7) == 7);
}

TEST_CASE("every press can open the menu anew") {
    RightPress press;
    press.Begin();
    CHECK(MenuTick(press, 7) == 7);
    press.Begin();
    CHECK(MenuTick(press, 7) == 7);
}

TEST_CASE("it matters what is held from the press until the release, or a tick that sees the button up") {
    RightPress press;
    CHECK_FALSE(press.Pressed());
    press.Begin();
    CHECK(press.Pressed());
    CHECK(MenuTick(press, 8) == 7);
    CHECK(press.Pressed());
    CHECK_FALSE(press.EndsAsClick());
    CHECK_FALSE(press.Pressed());
    press.Begin();
    CHECK_FALSE(press.Tick(false, true));
    CHECK_FALSE(press.Pressed());
}
