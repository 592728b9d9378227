// The template of the histogram view in the resource scripts.
#include <doctest/doctest.h>

#include <vector>

#include "tests/unit/support/resources.h"

using namespace pixora;

TEST_CASE("the histogram view has its controls, in the order of the Tab key") {
    const DialogTemplate dialog = ReadTemplate("IDD_HISTOGRAM");
    CHECK(dialog.id == 166);
    CHECK(dialog.caption == L"Histogram View");
    CHECK(ControlsOf(dialog) == ControlTexts{
                                    {1166, L""},      {1165, L""},        {1167, L""},
                                    {1168, L""},      {1169, L""},        {1170, L""},
                                    {1171, L""},      {1172, L""},        {1173, L""},
                                    {1174, L""},      {1175, L""},        {1176, L""},
                                    {1177, L""},      {1178, L"Level ="}, {1179, L""},
                                    {1180, L"ENTER"}, {1181, L"ON"},      {1182, L"CENTER"},
                                    {1183, L"UP"},    {1184, L"DN"},      {1185, L" 256 Level Binning"},
                                    {1058, L" "},
                                });
}

TEST_CASE("no button of the histogram view is pressed by Enter, and the level takes any character") {
    for (const TemplateControl& control : ReadTemplate("IDD_HISTOGRAM").controls) {
        CAPTURE(control.id);
        CHECK(control.kind != "DEFPUSHBUTTON");
        CHECK(control.style.find("ES_NUMBER") == std::string::npos);
        if (control.id == 1165) CHECK(control.style.find("SS_OWNERDRAW") != std::string::npos);
    }
}

TEST_CASE("the menu of the histogram view has one item") {
    const std::vector<MenuItem> menu = ReadMenu("IDR_HISTOGRAM_MENU");
    REQUIRE(menu.size() == 2);
    CHECK(menu[1].text == L"&Export to CSV file");
}
