// The templates of the statistics and the image information view.
#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "tests/unit/support/resources.h"

using namespace pixora;

namespace {

constexpr int kLabel = -1;

}  // namespace

TEST_CASE("the statistics view has its controls, in the order of the Tab key") {
    const DialogTemplate dialog = ReadTemplate("IDD_STATISTICS");
    CHECK(dialog.id == 154);
    CHECK(dialog.caption == L"Statistics View");
    CHECK(ControlsOf(dialog) ==
          ControlTexts{{1245, L""},          {1246, L""},       {1226, L""},     {1227, L""},
                       {1056, L"REGION ON"}, {1057, L"CORNER"}, {1058, L"MOVE"}, {1062, L"H-V ON"},
                       {1225, L""},          {kLabel, L"Max."}, {1173, L""},     {kLabel, L"Min."},
                       {1174, L""},          {kLabel, L"Mean"}, {1176, L""},     {kLabel, L"Std."},
                       {1175, L""},          {1006, L" "},      {1237, L""},     {1239, L""},
                       {1240, L""},          {1241, L""}});
    for (const int button : {1056, 1057, 1058, 1062, 1006})
        CHECK(FindControl(dialog, button).style.find("BS_OWNERDRAW") != std::string::npos);
    for (const int box : {1173, 1174, 1176, 1175})
        CHECK(FindControl(dialog, box).style.find("ES_READONLY") != std::string::npos);
}

TEST_CASE("the image information view has its lines") {
    const DialogTemplate dialog = ReadTemplate("IDD_IMAGE_INFO");
    CHECK(dialog.id == 169);
    CHECK(dialog.caption == L"Image Info.");
    CHECK(ControlsOf(dialog) == ControlTexts{{1249, L"Folder: "},
                                             {1250, L""},
                                             {1247, L"File Name: "},
                                             {1246, L""},
                                             {1245, L""},
                                             {1224, L""},
                                             {1293, L""},
                                             {1225, L""},
                                             {1226, L""},
                                             {1209, L""}});
}

TEST_CASE("an ampersand in a name or a format is shown as it is") {
    for (const char* name : {"IDD_STATISTICS", "IDD_IMAGE_INFO"})
        for (const TemplateControl& control : ReadTemplate(name).controls) {
            const bool filled = control.kind == "LTEXT" || control.style.starts_with("Static");
            if (filled && control.text.empty()) {
                CAPTURE(control.id);
                CHECK(control.style.find("SS_NOPREFIX") != std::string::npos);
            }
        }
}

TEST_CASE("the menu of the file name has one item") {
    CHECK(ReadMenu("IDR_INFO_MENU") ==
          std::vector<MenuItem>{{0, 0, L"Image Info."}, {1, 148, L"Copy Full Path to Clipboard"}});
}
