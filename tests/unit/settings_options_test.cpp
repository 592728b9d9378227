#include <doctest/doctest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <vector>

#include "settings/option_choices.h"
#include "settings/settings_file.h"
#include "tests/unit/support/scratch_folder.h"

using namespace pixora;
using pixora::test::ScratchFolder;

namespace {

using Ids = std::vector<int>;

const UserFolders kFolders{L"D:", L"P:"};

Ids OnAtStart(OptionDialog dialog, Settings settings) {
    OptionButtons buttons(dialog);
    buttons.Begin(settings);
    return {buttons.On().begin(), buttons.On().end()};
}

/// What is on at the start when one value of the default record is another.
Ids OnWith(OptionDialog dialog, std::wstring Settings::*key, const wchar_t* value) {
    Settings settings = DefaultSettings(kFolders);
    settings.*key = value;
    return OnAtStart(dialog, settings);
}

constexpr auto kViewer = OptionDialog::viewer_option;
constexpr auto kRegion = OptionDialog::region_style;
constexpr auto kMain = OptionDialog::main_option;

}  // namespace

TEST_CASE("the option dialogs have their captions and row labels") {
    CHECK(OptionCaption(kViewer) == L"Pixora - Viewer Option");
    CHECK(OptionCaption(kRegion) == L"Pixora - Line and Region Style");
    CHECK(OptionCaption(kMain) == L"Pixora - Main Dialog Option ");
    REQUIRE(OptionRows(kViewer).size() == 4);
    CHECK(OptionRows(kViewer)[3] == L"16bit TIFF image viewer file data valid bits");
    REQUIRE(OptionRows(kRegion).size() == 4);
    CHECK(OptionRows(kRegion)[0] == L"Cursor Line  Color");
    REQUIRE(OptionRows(kMain).size() == 1);
    CHECK(OptionRows(kMain)[0] == L"Startup Display Position");
    CHECK(OptionChoices(kViewer).size() == 12);
    CHECK(OptionChoices(kRegion).size() == 12);
    CHECK(OptionChoices(kMain).size() == 3);
}

TEST_CASE("the default settings turn one button of each row on") {
    CHECK(OnAtStart(kViewer, DefaultSettings(kFolders)) == Ids{1243, 1246, 1247, 1244});
    CHECK(OnAtStart(kRegion, DefaultSettings(kFolders)) == Ids{1247, 1241, 1306, 1250});
    CHECK(OnAtStart(kMain, DefaultSettings(kFolders)) == Ids{1075});
}

TEST_CASE("automatic bits show AUTO whatever the number is") {
    for (const wchar_t* bits : {L"8", L"10", L"12", L"14", L"16", L"", L"99"}) {
        Settings settings = DefaultSettings(kFolders);
        settings.VALID_BITS = bits;
        CHECK(OnAtStart(kViewer, settings)[3] == 1244);
    }
}

TEST_CASE("without automatic bits the number's button is on, an unknown number shows AUTO") {
    const auto shown = [](const wchar_t* auto_bit, const wchar_t* bits) {
        Settings settings = DefaultSettings(kFolders);
        settings.AUTO_BIT = auto_bit;
        settings.VALID_BITS = bits;
        return OnAtStart(kViewer, settings)[3];
    };
    CHECK(shown(L"OFF", L"16") == 1242);
    CHECK(shown(L"OFF", L"14") == 1256);
    CHECK(shown(L"OFF", L"12") == 1253);
    CHECK(shown(L"OFF", L"10") == 1255);
    CHECK(shown(L"OFF", L"8") == 1257);
    CHECK(shown(L"OFF", L"9") == 1244);
    CHECK(shown(L"OFF", L"") == 1244);
    CHECK(shown(L"OFF", L" 8") == 1244);
    CHECK(shown(L"on", L"12") == 1253);
}

TEST_CASE("the viewer options fall back to Simple, OFF and No Binning") {
    CHECK(OnWith(kViewer, &Settings::CAP_STYLE, L"FULL")[0] == 1254);
    CHECK(OnWith(kViewer, &Settings::CAP_STYLE, L"full")[0] == 1243);
    CHECK(OnWith(kViewer, &Settings::LVL_CURSOR, L"OFF")[1] == 1260);
    CHECK(OnWith(kViewer, &Settings::LVL_CURSOR, L"On")[1] == 1260);
    CHECK(OnWith(kViewer, &Settings::HIS_BINNING, L"OFF")[2] == 1248);
    CHECK(OnWith(kViewer, &Settings::HIS_BINNING, L"YES")[2] == 1248);
}

TEST_CASE("the viewer options leave unknown values in the record alone") {
    Settings settings = DefaultSettings(kFolders);
    settings.CAP_STYLE = L"odd";
    settings.AUTO_BIT = L"OFF";
    settings.VALID_BITS = L"9";
    const Settings before = settings;
    OptionButtons(kViewer).Begin(settings);
    CHECK(settings == before);
}

TEST_CASE("the region styles show every colour and type") {
    CHECK(OnWith(kRegion, &Settings::LINE_COLOR, L"GREEN")[0] == 1244);
    CHECK(OnWith(kRegion, &Settings::LINE_COLOR, L"RED")[0] == 1247);
    CHECK(OnWith(kRegion, &Settings::LINE_COLOR, L"GRAY")[0] == 1246);
    CHECK(OnWith(kRegion, &Settings::BDR_COLOR, L"GREEN")[1] == 1241);
    CHECK(OnWith(kRegion, &Settings::BDR_COLOR, L"RED")[1] == 1242);
    CHECK(OnWith(kRegion, &Settings::BDR_COLOR, L"GRAY")[1] == 1243);
    CHECK(OnWith(kRegion, &Settings::BDR_TYPE, L"AREA")[2] == 1306);
    CHECK(OnWith(kRegion, &Settings::BDR_TYPE, L"LINE")[2] == 1307);
    CHECK(OnWith(kRegion, &Settings::MARK_COLOR, L"GREEN")[3] == 1245);
    CHECK(OnWith(kRegion, &Settings::MARK_COLOR, L"RED")[3] == 1248);
    CHECK(OnWith(kRegion, &Settings::MARK_COLOR, L"GRAY")[3] == 1249);
    CHECK(OnWith(kRegion, &Settings::MARK_COLOR, L"WHITE")[3] == 1250);
}

TEST_CASE("the region style dialog replaces unknown colours in the record, but not the type") {
    Settings settings = DefaultSettings(kFolders);
    settings.LINE_COLOR = L"WHITE";
    settings.BDR_COLOR = L"";
    settings.BDR_TYPE = L"DOTS";
    settings.MARK_COLOR = L"BLUE";
    OptionButtons buttons(kRegion);
    buttons.Begin(settings);
    CHECK(settings.LINE_COLOR == L"RED");
    CHECK(settings.BDR_COLOR == L"GREEN");
    CHECK(settings.BDR_TYPE == L"DOTS");
    CHECK(settings.MARK_COLOR == L"WHITE");
    CHECK(buttons.IsOn(1247));
    CHECK(buttons.IsOn(1241));
    CHECK(buttons.IsOn(1307));
    CHECK(buttons.IsOn(1250));
}

TEST_CASE("a replaced mark colour is saved with the next change") {
    const ScratchFolder folder;
    const auto path = folder / "Pixora.ini";
    CHECK(WriteDefaultSettingsFile(path, kFolders));
    CHECK(PutSettingValue(path, L"MARK_COLOR=", L"BLUE"));
    Settings settings;
    CHECK(LoadSettings(path, settings) == SettingsLoadResult::complete);
    OptionButtons buttons(kRegion);
    buttons.Begin(settings);
    std::wstring value;
    CHECK(GetSettingValue(path, L"MARK_COLOR=", value));
    CHECK(value == L"BLUE");
    CHECK(buttons.Click(1242, settings));
    CHECK(SaveOptions(kRegion, path, settings));
    CHECK(GetSettingValue(path, L"MARK_COLOR=", value));
    CHECK(value == L"WHITE");
}

TEST_CASE("the main dialog options show the start position, anything unknown as top left") {
    CHECK(OnWith(kMain, &Settings::MAIN_POS, L"TL") == Ids{1073});
    CHECK(OnWith(kMain, &Settings::MAIN_POS, L"TR") == Ids{1074});
    CHECK(OnWith(kMain, &Settings::MAIN_POS, L"LAST") == Ids{1075});
    CHECK(OnWith(kMain, &Settings::MAIN_POS, L"") == Ids{1073});
    CHECK(OnWith(kMain, &Settings::MAIN_POS, L"last") == Ids{1073});
}

TEST_CASE("every button stores its value, turns itself on and the rest of its row off") {
    struct Expected {
        OptionDialog dialog;
        int control;
        std::wstring Settings::*key;
        const wchar_t* value;
        std::set<int> row;
    };
    const std::set<int> bits = {1244, 1242, 1256, 1253, 1255, 1257};
    const std::initializer_list<Expected> all = {
        {kViewer, 1243, &Settings::CAP_STYLE, L"SIMPLE", {1243, 1254}},
        {kViewer, 1254, &Settings::CAP_STYLE, L"FULL", {1243, 1254}},
        {kViewer, 1246, &Settings::LVL_CURSOR, L"ON", {1246, 1260}},
        {kViewer, 1260, &Settings::LVL_CURSOR, L"OFF", {1246, 1260}},
        {kViewer, 1247, &Settings::HIS_BINNING, L"ON", {1247, 1248}},
        {kViewer, 1248, &Settings::HIS_BINNING, L"OFF", {1247, 1248}},
        {kViewer, 1244, &Settings::AUTO_BIT, L"ON", bits},
        {kViewer, 1242, &Settings::VALID_BITS, L"16", bits},
        {kViewer, 1256, &Settings::VALID_BITS, L"14", bits},
        {kViewer, 1253, &Settings::VALID_BITS, L"12", bits},
        {kViewer, 1255, &Settings::VALID_BITS, L"10", bits},
        {kViewer, 1257, &Settings::VALID_BITS, L"8", bits},
        {kRegion, 1244, &Settings::LINE_COLOR, L"GREEN", {1244, 1247, 1246}},
        {kRegion, 1247, &Settings::LINE_COLOR, L"RED", {1244, 1247, 1246}},
        {kRegion, 1246, &Settings::LINE_COLOR, L"GRAY", {1244, 1247, 1246}},
        {kRegion, 1241, &Settings::BDR_COLOR, L"GREEN", {1241, 1242, 1243}},
        {kRegion, 1242, &Settings::BDR_COLOR, L"RED", {1241, 1242, 1243}},
        {kRegion, 1243, &Settings::BDR_COLOR, L"GRAY", {1241, 1242, 1243}},
        {kRegion, 1306, &Settings::BDR_TYPE, L"AREA", {1306, 1307}},
        {kRegion, 1307, &Settings::BDR_TYPE, L"LINE", {1306, 1307}},
        {kRegion, 1245, &Settings::MARK_COLOR, L"GREEN", {1245, 1248, 1249, 1250}},
        {kRegion, 1248, &Settings::MARK_COLOR, L"RED", {1245, 1248, 1249, 1250}},
        {kRegion, 1249, &Settings::MARK_COLOR, L"GRAY", {1245, 1248, 1249, 1250}},
        {kRegion, 1250, &Settings::MARK_COLOR, L"WHITE", {1245, 1248, 1249, 1250}},
        {kMain, 1073, &Settings::MAIN_POS, L"TL", {1073, 1074, 1075}},
        {kMain, 1074, &Settings::MAIN_POS, L"TR", {1073, 1074, 1075}},
        {kMain, 1075, &Settings::MAIN_POS, L"LAST", {1073, 1074, 1075}},
    };
    for (const Expected& expected : all) {
        CAPTURE(expected.control);
        Settings settings = DefaultSettings(kFolders);
        OptionButtons buttons(expected.dialog);
        buttons.Begin(settings);
        const std::set<int> before(buttons.On().begin(), buttons.On().end());
        CHECK(buttons.Click(expected.control, settings));
        CHECK(settings.*expected.key == expected.value);
        for (const int control : expected.row) CHECK(buttons.IsOn(control) == (control == expected.control));
        for (const int control : before) CHECK((buttons.IsOn(control) || expected.row.contains(control)));
    }
}

TEST_CASE("a click on a number of bits ends automatic mode") {
    Settings settings = DefaultSettings(kFolders);
    settings.AUTO_BIT = L"ON";
    settings.VALID_BITS = L"12";
    OptionButtons buttons(kViewer);
    buttons.Begin(settings);
    CHECK(buttons.IsOn(1244));
    CHECK(buttons.Click(1253, settings));
    CHECK(settings.AUTO_BIT == L"OFF");
    CHECK(settings.VALID_BITS == L"12");
}

TEST_CASE("a click on AUTO leaves the number of bits as it was") {
    Settings settings = DefaultSettings(kFolders);
    settings.AUTO_BIT = L"OFF";
    settings.VALID_BITS = L"10";
    OptionButtons buttons(kViewer);
    buttons.Begin(settings);
    CHECK(buttons.Click(1244, settings));
    CHECK(settings.AUTO_BIT == L"ON");
    CHECK(settings.VALID_BITS == L"10");
}

TEST_CASE("a click changes its own row alone, also when the record changed meanwhile") {
    Settings settings = DefaultSettings(kFolders);
    OptionButtons buttons(kViewer);
    buttons.Begin(settings);
    settings.LVL_CURSOR = L"OFF";
    CHECK(buttons.Click(1254, settings));
    CHECK(buttons.IsOn(1246));
    CHECK_FALSE(buttons.IsOn(1260));
    buttons.Begin(settings);
    CHECK(buttons.IsOn(1260));
}

TEST_CASE("a click on anything else changes nothing") {
    Settings settings = DefaultSettings(kFolders);
    const Settings before = settings;
    OptionButtons buttons(kMain);
    buttons.Begin(settings);
    CHECK_FALSE(buttons.Click(1243, settings));
    CHECK(settings == before);
    CHECK(buttons.IsOn(1075));
}

TEST_CASE("a settings file without one key makes every save incomplete, but not that of the start position") {
    const ScratchFolder folder;
    const auto path = folder / "Pixora.ini";
    Settings settings = DefaultSettings(kFolders);
    CHECK(SaveOptions(kViewer, path, settings));  // without a file nothing is reported
    folder.Write("Pixora.ini", "CAP_STYLE=SIMPLE\nMAIN_POS=LAST\n.END\n");
    settings.CAP_STYLE = L"FULL";
    settings.MAIN_POS = L"TR";
    CHECK_FALSE(SaveOptions(kViewer, path, settings));
    CHECK_FALSE(SaveOptions(kRegion, path, settings));
    CHECK(SaveOptions(kMain, path, settings));
    CHECK(folder.Read("Pixora.ini") ==
          "\xEF\xBB\xBF"
          "CAP_STYLE=FULL\r\nMAIN_POS=TR\r\n.END\r\n");
    folder.Write("Pixora.ini", "CAP_STYLE=SIMPLE\n.END\n");
    CHECK(SaveOptions(kMain, path, settings));  // its failures are not reported
    CHECK(kSaveNotComplete == L"\"Save settings\" is not complete");
}

TEST_CASE("a settings file that cannot be used at all is told once, not as an incomplete save, too") {
    const std::filesystem::path path(std::string(260, 'p'));
    int faults = 0;
    SetSettingsFaultHandler([&](const std::filesystem::path&) { ++faults; });
    CHECK(SaveOptions(kViewer, path, DefaultSettings(kFolders)));
    SetSettingsFaultHandler(nullptr);
    CHECK(faults == 1);
}

TEST_CASE("open viewers are drawn anew after a click on a style or a form of the caption only") {
    for (const OptionDialog dialog : {kViewer, kRegion, kMain})
        for (const OptionChoice& choice : OptionChoices(dialog)) {
            CAPTURE(choice.control);
            CHECK(RedrawsViewers(dialog, choice.control) ==
                  (dialog == kRegion || choice.key == &Settings::CAP_STYLE));
        }
    CHECK_FALSE(RedrawsViewers(kViewer, 1));
}

TEST_CASE("the main dialog options write the start position alone") {
    const ScratchFolder folder;
    const auto path = folder / "Pixora.ini";
    CHECK(WriteDefaultSettingsFile(path, kFolders));
    Settings settings = DefaultSettings(kFolders);
    settings.CAP_STYLE = L"FULL";
    settings.MAIN_POS = L"TL";
    CHECK(SaveOptions(kMain, path, settings));
    std::wstring value;
    CHECK(GetSettingValue(path, L"MAIN_POS=", value));
    CHECK(value == L"TL");
    CHECK(GetSettingValue(path, L"CAP_STYLE=", value));
    CHECK(value == L"SIMPLE");
}
