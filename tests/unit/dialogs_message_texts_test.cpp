#include "dialogs/message_texts.h"

#include <doctest/doctest.h>

#include <set>

#include "dialogs/identity.h"

using namespace pixora;

TEST_CASE("a caption is the product, a blank and the caller's text") {
    CHECK(DialogCaption(L": Confirmation") == L"Pixora : Confirmation");
    CHECK(DialogCaption(L"") == L"Pixora ");
}

TEST_CASE("an error box has two blanks before the colon and three at the end") {
    const BoxContent box = ErrorBox({L" : Error", L"one", L"two", L"three"});
    CHECK(box.caption == L"Pixora  : Error   ");
    CHECK(box.lines[0] == BoxLine{1053, L"one", std::nullopt});
    CHECK(box.lines[1] == BoxLine{1051, L"two", std::nullopt});
    CHECK(box.lines[2] == BoxLine{1052, L"three", std::nullopt});
    CHECK(ErrorBox({L" : Error- Invalid Value", L"", L"", L""}).caption ==
          L"Pixora  : Error- Invalid Value   ");
}

TEST_CASE("an error box without first line moves the other two") {
    const BoxContent box = ErrorBox({L" : Error", L"", L"two", L"three"});
    CHECK(box.lines[0] == BoxLine{1053, L"", std::nullopt});
    CHECK(box.lines[1] == BoxLine{1051, L"two", 20});
    CHECK(box.lines[2] == BoxLine{1052, L"three", 45});
}

TEST_CASE("an information box has a plain caption and moves all lines when the first is empty") {
    const BoxContent box = InformationBox({L": Information", L"one", L"two", L"three"});
    CHECK(box.caption == L"Pixora : Information");
    CHECK(box.lines[0] == BoxLine{1053, L"one", std::nullopt});
    CHECK(box.lines[1] == BoxLine{1051, L"two", std::nullopt});
    CHECK(box.lines[2] == BoxLine{1052, L"three", std::nullopt});
    const BoxContent moved = InformationBox({L": Information", L"", L"two", L""});
    CHECK(moved.lines[0] == BoxLine{1053, L"", 0});
    CHECK(moved.lines[1] == BoxLine{1051, L"two", 15});
    CHECK(moved.lines[2] == BoxLine{1052, L"", 35});
}

TEST_CASE("the only line of an information box stands in the middle") {
    CHECK(InformationBox({L"", L"one", L"", L""}).lines[0] == BoxLine{1053, L"one", 26});
    CHECK(InformationBox({L"", L"one", L"two", L""}).lines[0] == BoxLine{1053, L"one", std::nullopt});
    CHECK(InformationBox({L"", L"one", L"", L"three"}).lines[0] == BoxLine{1053, L"one", std::nullopt});
}

TEST_CASE("a question has controls of its own and moves all lines when the first is empty") {
    const BoxContent box = QuestionBox({L": Confirmation", L"one", L"two", L"three"});
    CHECK(box.caption == L"Pixora : Confirmation");
    CHECK(box.lines[0] == BoxLine{1079, L"one", std::nullopt});
    CHECK(box.lines[1] == BoxLine{1081, L"two", std::nullopt});
    CHECK(box.lines[2] == BoxLine{1080, L"three", std::nullopt});
    const BoxContent moved = QuestionBox({L": Confirmation", L"", L"two", L"three"});
    CHECK(moved.lines[0] == BoxLine{1079, L"", 0});
    CHECK(moved.lines[1] == BoxLine{1081, L"two", 15});
    CHECK(moved.lines[2] == BoxLine{1080, L"three", 35});
}

TEST_CASE("the notice that closes by itself has its own caption and times") {
    CHECK(kOneshotCaption == L"Pixora : Infomation");
    CHECK(kOneshotInitial_ms == 1000);
    CHECK(kOneshotShown_ms == 1500);
    CHECK(kOneshotControl == 1067);
}

TEST_CASE("the product's identity is the same everywhere") {
    CHECK(kVersionLine == L"Pixora  (Ver. 2.00)");
    CHECK(kDescription == L"Image File Viewer and Analyzer");
    CHECK(kBuildLine == L"Build 2026-02-10");
    CHECK(kAudienceLine == L"For all ZELKA camera users");
    CHECK(kWebAddressToOpen == std::wstring(kWebAddress) + L"/");
    CHECK(kSplash_ms == 2000);
    CHECK(kWaitCaption == L"Pixora (Loading File Data)");
    CHECK(kWaitText == L"Loading data. Please wait... ");
}

TEST_CASE("each identity text has a control of its own") {
    std::set<int> splash, about;
    for (const IdentityText& text : kSplashTexts) splash.insert(text.control);
    for (const IdentityText& text : kAboutTexts) about.insert(text.control);
    CHECK(splash == std::set<int>{1165, 1166, 1168, 1169});
    CHECK(about == std::set<int>{1145, 1165, 1166, 1167, 1168, 1169, 1170});
    for (const IdentityText& text : kAboutTexts) CHECK(text.text.empty() == (text.control == 1167));
}
