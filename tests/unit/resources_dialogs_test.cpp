// The dialog templates and the main menu in the resource scripts.
#include <doctest/doctest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/identity.h"
#include "dialogs/message_texts.h"
#include "tests/unit/support/resources.h"

using namespace pixora;

namespace {

/// The ids of the text lines from top to bottom.
std::vector<int> LinesDownwards(const DialogTemplate& dialog) {
    std::vector<std::pair<int, int>> lines;
    for (const TemplateControl& control : dialog.controls)
        if (control.kind.ends_with("TEXT")) lines.emplace_back(control.y, control.id);
    std::ranges::sort(lines);
    std::vector<int> ids;
    for (const auto& [y, id] : lines) ids.push_back(id);
    return ids;
}

bool Overlap(const TemplateControl& a, const TemplateControl& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

struct Facts {
    const char* name;
    int id, width, height;  ///< a width of 0: any size
    const wchar_t* caption;
};
constexpr Facts kDialogs[] = {
    {"IDD_PIXORA", 102, 0, 0, L"Pixora"},
    {"IDD_PLEASE_WAIT", 145, 139, 23, L"Pixora (Loading File Data)"},
    {"IDD_SPLASH", 146, 270, 193, L""},
    {"IDD_ABOUT", 147, 267, 203, L"About Pixora"},
    {"IDD_ONESHOT_MESSAGE", 156, 0, 0, L"Pixora"},
    {"IDD_MAIN_OPTION", 161, 0, 0, L"Main Dialog Option"},
    {"IDD_COORDINATE", 165, 0, 0, L"Region Coordinates"},
    {"IDD_VIEWER_OPTION", 167, 0, 0, L"Viewer Option"},
    {"IDD_VALUE_ENTRY", 168, 0, 0, L"Display Size Value"},
    {"IDD_IMG_IMPORT", 191, 0, 0, L"Pixora [N:2]"},
    {"IDD_DISPLAY", 193, 0, 0, L"Imported Image View"},
    {"IDD_REGION_STYLE", 200, 0, 0, L"Line and Region Style"},
    {"IDD_PX_ERROR", 204, 182, 70, L"Pixora"},
    {"IDD_CONFIRM_YES_CANCEL", 214, 193, 63, L"Execute Confirmation"},
    {"IDD_CONFIRM_ERR", 217, 207, 66, L"Pixora"},
    {"IDD_CONFIRM_OK", 218, 195, 57, L"Pixora"},
};

}  // namespace

TEST_CASE("the dialog templates have their numbers, sizes and captions") {
    for (const Facts& facts : kDialogs) {
        CAPTURE(facts.name);
        const DialogTemplate dialog = ReadTemplate(facts.name);
        CHECK(dialog.id == facts.id);
        CHECK(dialog.caption == facts.caption);
        if (facts.width == 0) continue;
        CHECK(dialog.width == facts.width);
        CHECK(dialog.height == facts.height);
    }
}

TEST_CASE("the main window has its controls, in the order of the Tab key") {
    const DialogTemplate dialog = ReadTemplate("IDD_IMG_IMPORT");
    CHECK(ControlsOf(dialog) == ControlTexts{{1173, L""},
                                             {1300, L"..."},
                                             {1296, L"Display Size"},
                                             {1209, L""},
                                             {1065, L"EDIT"},
                                             {1303, L"RELOAD"}});
    CHECK(dialog.style.find("WS_EX_TOPMOST") != std::string::npos);
    CHECK(FindControl(dialog, 1173).style.find("ES_READONLY") != std::string::npos);
    CHECK(FindControl(dialog, 1209).kind == "COMBOBOX");
    CHECK(FindControl(dialog, 1209).style.find("CBS_DROPDOWN ") != std::string::npos);
}

TEST_CASE("the coordinates of a region have their entries, which begin read-only, and their buttons") {
    const DialogTemplate dialog = ReadTemplate("IDD_COORDINATE");
    CHECK(ControlsOf(dialog) == ControlTexts{{1220, L"Left - Top (H, V) =    "},
                                             {1173, L""},
                                             {1175, L""},
                                             {1221, L"Right- Bottom (H,V) ="},
                                             {1176, L""},
                                             {1177, L""},
                                             {1056, L"EDIT VALUE"},
                                             {1174, L"ENTER"}});
    for (const int entry : {1173, 1175, 1176, 1177}) {
        CHECK(FindControl(dialog, entry).style.find("ES_READONLY") != std::string::npos);
        CHECK(FindControl(dialog, entry).style.find("ES_NUMBER") == std::string::npos);
    }
    for (const int button : {1056, 1174})
        CHECK(FindControl(dialog, button).style.find("BS_OWNERDRAW") != std::string::npos);
}

TEST_CASE("the message windows have their controls") {
    CHECK(ControlsOf(ReadTemplate("IDD_PX_ERROR")) ==
          ControlTexts{{1308, L""}, {1310, L""}, {1309, L""}, {1, L"OK"}});
    CHECK(ControlsOf(ReadTemplate("IDD_CONFIRM_ERR")) ==
          ControlTexts{{1022, L""}, {1053, L""}, {1051, L""}, {1052, L""}, {1, L"OK"}});
    CHECK(ControlsOf(ReadTemplate("IDD_CONFIRM_OK")) ==
          ControlTexts{{1053, L""}, {1051, L""}, {1052, L""}, {1, L"OK"}});
    CHECK(ControlsOf(ReadTemplate("IDD_CONFIRM_YES_CANCEL")) ==
          ControlTexts{{1081, L""}, {1079, L""}, {1080, L""}, {1, L"OK"}, {1314, L"CANCEL"}});
    CHECK(ControlsOf(ReadTemplate("IDD_ONESHOT_MESSAGE")) == ControlTexts{{kOneshotControl, L""}});
    CHECK(ControlsOf(ReadTemplate("IDD_VALUE_ENTRY")) == ControlTexts{{1002, L""}, {1003, L"OK"}});
}

TEST_CASE("the lines of the message windows stand in their order") {
    CHECK(LinesDownwards(ReadTemplate("IDD_PX_ERROR")) == std::vector{1308, 1310, 1309});
    CHECK(LinesDownwards(ReadTemplate("IDD_CONFIRM_ERR")) == std::vector{1053, 1051, 1052});
    CHECK(LinesDownwards(ReadTemplate("IDD_CONFIRM_OK")) == std::vector{1053, 1051, 1052});
    const DialogTemplate question = ReadTemplate("IDD_CONFIRM_YES_CANCEL");
    CHECK(LinesDownwards(question) == std::vector{1081, 1079, 1080});
    CHECK(FindControl(question, 1081).y == 7);
    CHECK(FindControl(question, 1079).y == 17);
    CHECK(FindControl(question, 1080).y == 23);
}

TEST_CASE("the message windows fill the lines that their templates have") {
    const Message message{L"", L"one", L"two", L"three"};
    for (const auto& [name, box] : {std::pair{"IDD_CONFIRM_ERR", ErrorBox(message)},
                                    std::pair{"IDD_CONFIRM_OK", InformationBox(message)},
                                    std::pair{"IDD_CONFIRM_YES_CANCEL", QuestionBox(message)}}) {
        CAPTURE(name);
        for (const BoxLine& line : box.lines)
            CHECK(FindControl(ReadTemplate(name), line.control).text.empty());
    }
}

TEST_CASE("splash page and About box have a picture at the top and every line of the identity") {
    const DialogTemplate splash = ReadTemplate("IDD_SPLASH"), about = ReadTemplate("IDD_ABOUT");
    for (const DialogTemplate& dialog : {splash, about}) {
        const TemplateControl& picture = dialog.controls.front();
        CHECK(picture.style.find("SS_BITMAP") != std::string::npos);
        CHECK(picture.width == 252);
        CHECK(picture.height == 120);
    }
    CHECK(splash.style.find("WS_CAPTION") == std::string::npos);
    CHECK(LinesDownwards(splash) == std::vector{1165, 1169, 1166, 1168});
    CHECK(splash.controls.size() == kSplashTexts.size() + 1);
    for (const IdentityText& text : kSplashTexts) CHECK(FindControl(splash, text.control).kind == "LTEXT");
    CHECK(about.controls.size() == kAboutTexts.size() + 2);
    for (const IdentityText& text : kAboutTexts) CHECK(FindControl(about, text.control).kind == "LTEXT");
    CHECK(FindControl(about, 1).text == L"OK");
    CHECK(FindControl(about, kLinkControl).style.find("SS_NOTIFY") != std::string::npos);
}

TEST_CASE("the wait window's template says what the program shows") {
    const DialogTemplate wait = ReadTemplate("IDD_PLEASE_WAIT");
    CHECK(wait.caption == kWaitCaption);
    REQUIRE(wait.controls.size() == 1);
    CHECK(wait.controls.front().text == kWaitText);
}

TEST_CASE("in every template each control has an id of its own and lies inside the dialog") {
    for (const std::string& name : TemplateNames()) {
        CAPTURE(name);
        const DialogTemplate dialog = ReadTemplate(name);
        std::set<int> ids;
        for (const TemplateControl& control : dialog.controls) {
            CAPTURE(control.id);
            if (control.id != ResourceIds().at("IDC_STATIC")) CHECK(ids.insert(control.id).second);
            CHECK(control.x >= 0);
            CHECK(control.y >= 0);
            CHECK(control.x + control.width <= dialog.width);
            // A combo box counts its list.
            if (control.kind != "COMBOBOX") CHECK(control.y + control.height <= dialog.height);
        }
    }
}

TEST_CASE("controls lie beside one another, except in a group and the question's close lines") {
    for (const std::string& name : TemplateNames()) {
        CAPTURE(name);
        const std::vector<TemplateControl> controls = ReadTemplate(name).controls;
        for (std::size_t i = 0; i < controls.size(); ++i) {
            for (std::size_t j = i + 1; j < controls.size(); ++j) {
                if (controls[i].kind == "GROUPBOX" || controls[i].kind == "COMBOBOX") continue;
                const bool question = controls[i].id == 1079 && controls[j].id == 1080;
                CHECK(Overlap(controls[i], controls[j]) == question);
            }
        }
    }
}

TEST_CASE("the main menu has its entries") {
    CHECK(ReadMenu("IDR_MAIN_MENU") == std::vector<MenuItem>{
                                           {0, 0, L"&File"},
                                           {1, 32771, L"Open (&O)"},
                                           {1, 32772, L"Close All Files (&C)"},
                                           {1, 0, L""},
                                           {1, 0, L"Restore Defaults  (&R)"},
                                           {2, 32773, L"&Execute Initialize (&E)"},
                                           {1, 0, L""},
                                           {1, 32774, L"Exit (&E)"},
                                           {0, 0, L"&Option"},
                                           {1, 32775, L"Viewer Option  (&V)"},
                                           {1, 32776, L"Line and Region Style (&S)"},
                                           {1, 32777, L"Main Dialog Option (&M)"},
                                           {0, 0, L"&Help"},
                                           {1, 32778, L"About Pixora (&A)"},
                                       });
    CHECK(ResourceIds().at("IDR_MAIN_MENU") == 137);
}

TEST_CASE("the start-up dialog's system menu offers About in its own words") {
    const std::vector<std::string> lines = ResourceLines("pixora.rc");
    CHECK(std::ranges::find(lines, "    IDS_ABOUTBOX \"Pixoraについて(&A)...\"") != lines.end());
    CHECK(ResourceIds().at("IDS_ABOUTBOX") == 101);
    CHECK(ResourceIds().at("IDM_ABOUTBOX") == 16);
    CHECK(ResourceIds().at("IDI_PIXORA") == 128);
    CHECK(ResourceIds().at("IDB_ERROR") == 142);
    CHECK(ResourceIds().at("IDB_BANNER") == 162);
}
