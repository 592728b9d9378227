// "Viewer Option": its buttons, what they store, and what open viewers make of it.
#include <doctest/doctest.h>

#include "tests/ui/support/image_files.h"
#include "tests/ui/support/input.h"
#include "tests/ui/support/option_windows.h"
#include "tests/ui/support/texts.h"

using namespace pixora::ui;

namespace {

constexpr int kSimple = 1243, kFullPath = 1254, kLevelOn = 1246, kLevelOff = 1260, kBinning = 1247,
              kNoBinning = 1248, kAuto = 1244, k16 = 1242, k14 = 1256, k12 = 1253, k10 = 1255, k8 = 1257;

/// In an order in which each click changes something, beginning with the defaults.
const std::vector<Choice> kChoices = {
    {kFullPath, L"Full Path", 0, {{L"CAP_STYLE", L"FULL"}}},
    {kSimple, L"Simple", 0, {{L"CAP_STYLE", L"SIMPLE"}}},
    {kLevelOff, L"OFF", 1, {{L"LVL_CURSOR", L"OFF"}}},
    {kLevelOn, L"ON", 1, {{L"LVL_CURSOR", L"ON"}}},
    {kNoBinning, L"No Binning", 2, {{L"HIS_BINNING", L"OFF"}}},
    {kBinning, L"256 Levels", 2, {{L"HIS_BINNING", L"ON"}}},
    {k16, L"16bit", 3, {{L"VALID_BITS", L"16"}, {L"AUTO_BIT", L"OFF"}}},
    {k14, L"14bit", 3, {{L"VALID_BITS", L"14"}, {L"AUTO_BIT", L"OFF"}}},
    {k12, L"12bit", 3, {{L"VALID_BITS", L"12"}, {L"AUTO_BIT", L"OFF"}}},
    {k10, L"10bit", 3, {{L"VALID_BITS", L"10"}, {L"AUTO_BIT", L"OFF"}}},
    {k8, L"8bit", 3, {{L"VALID_BITS", L"8"}, {L"AUTO_BIT", L"OFF"}}},
    {kAuto, L"AUTO", 3, {{L"AUTO_BIT", L"ON"}}},  // VALID_BITS keeps its value
};

/// What a dialog that opens with these settings has on.
std::vector<int> ShownFor(const SettingValues& settings) {
    Program program({.settings = settings});
    const Window dialog = OpenOptions(program, kViewerOption);
    const std::vector<int> on = ButtonsOn(dialog, kChoices);
    for (const Choice& choice : kChoices) {
        CAPTURE(choice.id);
        CHECK(ShowsMark(program, dialog.Item(choice.id)) == dialog.Item(choice.id).Checked());
    }
    program.Exit();
    return on;
}

/// A TIFF file with 16 bits a sample that all hold `sample`.
std::filesystem::path FlatTiff(std::wstring_view name, unsigned sample) {
    TiffFile file{.width = 40, .height = 30, .bits = 16};
    for (std::uint32_t i = 0; i < file.width * file.height; ++i) {
        file.pixels += static_cast<char>(sample & 0xFF);
        file.pixels += static_cast<char>(sample >> 8);
    }
    return ScratchFile(name, Bytes(file));
}

/// The first sample of a slot's data copy.
unsigned FirstSample(const wchar_t* copy) {
    const std::string bytes = ReadBytes(DataFolder() / copy);
    REQUIRE(bytes.size() == 40 * 30 * 2);
    return static_cast<unsigned char>(bytes[0]) | static_cast<unsigned>(static_cast<unsigned char>(bytes[1]))
                                                      << 8;
}

}  // namespace

TEST_CASE("each button of the viewer options stores its value at once and puts the others of its row out") {
    Program program({.settings = {{L"BDR_COLOR", L"GRAY"}, {L"MAIN_POS", L"TR"}}});
    const Window dialog = OpenOptions(program, kViewerOption);
    SettingValues values = TestSettings();
    values[L"BDR_COLOR"] = L"GRAY";
    values[L"MAIN_POS"] = L"TR";
    ClickAll(program, dialog, kChoices, values, {kSimple, kLevelOn, kBinning, kAuto});
    // AUTO left the number of bits as it was.
    CHECK(StoredSetting(L"VALID_BITS") == L"8");
    program.Exit();
}

TEST_CASE("the viewer options open with what the settings say") {
    CHECK(ShownFor({{L"AUTO_BIT", L"ON"}, {L"VALID_BITS", L"12"}, {L"CAP_STYLE", L"FULL"}}) ==
          std::vector<int>{kFullPath, kLevelOn, kBinning, kAuto});
    CHECK(ShownFor({{L"AUTO_BIT", L"OFF"},
                    {L"VALID_BITS", L"14"},
                    {L"LVL_CURSOR", L"OFF"},
                    {L"HIS_BINNING", L"OFF"}}) == std::vector<int>{kSimple, kLevelOff, kNoBinning, k14});
    // Words that nobody knows.
    CHECK(ShownFor({{L"AUTO_BIT", L"on"},
                    {L"VALID_BITS", L"11"},
                    {L"CAP_STYLE", L"full"},
                    {L"LVL_CURSOR", L"yes"},
                    {L"HIS_BINNING", L"1"}}) == std::vector<int>{kSimple, kLevelOff, kNoBinning, kAuto});
}

TEST_CASE("the caption style changes the captions of all open viewers at once") {
    const std::filesystem::path file = ScratchFile(L"a.bmp", BmpBytes(Chart(120, 90), 24));
    Program program;
    const Window first = program.Open(file, 1), second = program.Open(file, 2);
    const Window dialog = OpenOptions(program, kViewerOption);
    const auto wait_for = [&](const std::wstring& name) {
        WaitFor("the captions", [&] {
            return first.Text() == L"[1 ]  (100%) File Name : " + name &&
                   second.Text() == L"[2 ]  (100%) File Name : " + name;
        });
    };
    wait_for(L"a.bmp");
    ClickChoice(program, dialog, kChoices, kFullPath);
    wait_for(file.wstring());
    program.Close(second);
    // A new viewer begins with the style of now.
    CHECK(program.Open(file, 2).Text() == L"[2 ]  (100%) File Name : " + file.wstring());
    ClickChoice(program, dialog, kChoices, kSimple);
    WaitFor("the caption", [&] { return first.Text() == L"[1 ]  (100%) File Name : a.bmp"; });
    program.Exit();
}

TEST_CASE("the chosen valid bits count for the next image and leave an open one alone") {
    const std::filesystem::path file = FlatTiff(L"flat.tif", 0xABCD);
    Program program;
    const Window dialog = OpenOptions(program, kViewerOption);
    ClickChoice(program, dialog, kChoices, k12);
    const Window first = program.Open(file, 1);
    CHECK(first.Text() == L"[1 ]  (100%) File Name : flat.tif   (Upper 12bit / 16bit)");
    CHECK(FirstSample(L"import_img_00.bin") == 0xABC);
    ClickChoice(program, dialog, kChoices, k10);
    CHECK(program.Open(file, 2).Text() == L"[2 ]  (100%) File Name : flat.tif   (Upper 10bit / 16bit)");
    CHECK(FirstSample(L"import_img_01.bin") == 0x2AF);
    // All samples alike: the automatic finds no more than 8 bits.
    ClickChoice(program, dialog, kChoices, kAuto);
    CHECK(program.Open(file, 3).Text() == L"[3 ]  (100%) File Name : flat.tif   (Upper 8bit / 16bit)");
    CHECK(FirstSample(L"import_img_02.bin") == 0xAB);
    CHECK(first.Text() == L"[1 ]  (100%) File Name : flat.tif   (Upper 12bit / 16bit)");
    CHECK(FirstSample(L"import_img_00.bin") == 0xABC);
    program.Exit();
}
