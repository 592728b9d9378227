// The template of the profile views in the resource scripts.
#include <doctest/doctest.h>

#include <vector>

#include "tests/unit/support/resources.h"

using namespace pixora;

TEST_CASE(
    "the profile views have their controls, those that the keyboard reaches in the order of the lines") {
    const DialogTemplate dialog = ReadTemplate("IDD_PROFILE");
    CHECK(dialog.id == 173);
    CHECK(ControlsOf(dialog) == ControlTexts{
                                    {1284, L""},       {1288, L""},           {1289, L""},
                                    {1290, L""},       {1291, L""},           {1292, L""},
                                    {1287, L""},       {1293, L""},           {1285, L"Line Number ="},
                                    {1277, L""},       {1273, L"CURSOR OFF"}, {1275, L"CENTER"},
                                    {1276, L"UP"},     {1274, L"DN"},         {1286, L"Level ="},
                                    {1281, L""},       {1283, L"ENTER"},      {1282, L"ON"},
                                    {1279, L"CENTER"}, {1280, L"UP"},         {1278, L"DN"},
                                    {1056, L"B/W"},
                                });
}

TEST_CASE("no button of the profile views is pressed by Enter, and the boxes take any character") {
    for (const TemplateControl& control : ReadTemplate("IDD_PROFILE").controls) {
        CAPTURE(control.id);
        CHECK(control.kind != "DEFPUSHBUTTON");
        CHECK(control.style.find("ES_NUMBER") == std::string::npos);
    }
}

TEST_CASE("the menu of the profile views has one item") {
    const std::vector<MenuItem> menu = ReadMenu("IDR_PROFILE_MENU");
    REQUIRE(menu.size() == 2);
    CHECK(menu[1].text == L"&Export to CSV file");
    CHECK(menu[1].id == ResourceIds().at("IDM_PROFILE_EXPORT"));
}
