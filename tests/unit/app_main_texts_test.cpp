#include "app/main_texts.h"

#include <doctest/doctest.h>

#include "dialogs/message_texts.h"

using namespace pixora;

TEST_CASE("the start-up boxes hold real double quotes") {
    CHECK(kAlreadyOpen == L"\"Pixora\" is already open !");
    CHECK(kOpeningError == L"\"Pixora\" found opening error");
    CHECK(kDefaultFileCreated == L"Created a default initial file.");
}

TEST_CASE("an unusable settings file is named with its path") {
    CHECK(SettingsFaultText("Pixora.ini") == L"The settings file cannot be used.\nPixora.ini");
}

TEST_CASE("questions and the notice stand in the first line of their boxes") {
    const BoxContent close = QuestionBox(CloseAllQuestion());
    CHECK(close.caption == L"Pixora : Confirmation");
    CHECK(close.lines[0] ==
          BoxLine{1079, L"Are you sure you want to close all viewer windows?", std::nullopt});
    CHECK(close.lines[1].text.empty());
    CHECK(close.lines[2].text.empty());
    const BoxContent restore = QuestionBox(RestoreDefaultsQuestion());
    CHECK(restore.caption == L"Pixora : Confirmation");
    CHECK(restore.lines[0] ==
          BoxLine{1079, L"Are you sure you want to restore the default settings?", std::nullopt});
    const BoxContent restored = InformationBox(DefaultsRestoredNotice());
    CHECK(restored.caption == L"Pixora : Information");
    CHECK(restored.lines[0] == BoxLine{1053, L"Defaults have been restored.", 26});
}

TEST_CASE("the title counts the open viewers") {
    CHECK(MainTitle(0) == L"Pixora");
    CHECK(MainTitle(1) == L"Pixora  (N=1)");
    CHECK(MainTitle(8) == L"Pixora  (N=8)");
}

TEST_CASE("the title is set at the first tick and when the count changes") {
    TitleKeeper keeper;
    CHECK(keeper.Update(0) == L"Pixora");
    CHECK_FALSE(keeper.Update(0).has_value());
    CHECK(keeper.Update(2) == L"Pixora  (N=2)");
    CHECK_FALSE(keeper.Update(2).has_value());
    CHECK(keeper.Update(0) == L"Pixora");
}

TEST_CASE("the path box menu has one item") {
    CHECK(kCopyPathItem == L"Copy Full Path to Clipboard");
}

TEST_CASE("an error about a file names it shortened to 38 units") {
    CHECK(FileErrorMessage(L"a.tif", L"This file is invalid or corrupt.") ==
          Message{L" : Error", L"File: a.tif", L"This file is invalid or corrupt.", L""});
    CHECK(FileErrorMessage(L"0123456789012345678901234567890123456789.bmp", kOpenFailed) ==  // 44 characters
          Message{L" : Error", L"File: 01234.....5678901234567890123456789.bmp", L"Failed to Open Image File",
                  L""});
}
