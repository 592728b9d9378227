#include "tests/ui/support/boxes.h"

#include "tests/ui/support/input.h"
#include "tests/ui/support/texts.h"

namespace pixora::ui {
namespace {

constexpr int kLine1 = 1053, kLine2 = 1051, kLine3 = 1052, kSymbol = 1022;
constexpr int kRangeTop = 1308, kRangeMiddle = 1310, kRangeBottom = 1309;
constexpr int kQuestionLine = 1079, kQuestionCancel = 1314;

}  // namespace

void CheckCentred(const Window& box) {
    const RECT frame = box.Frame();
    CHECK(frame.left == GetSystemMetrics(SM_CXSCREEN) / 2 - (frame.right - frame.left) / 2);
    CHECK(frame.top == GetSystemMetrics(SM_CYSCREEN) / 2 - (frame.bottom - frame.top) / 2 - 30);
}

Window WaitForErrorBox(const Program& program) {
    return program.Running().WaitForWindow("an error box", [](const Window& window) {
        return window.Class() == L"#32770" && window.FindItem(kSymbol) && window.FindItem(kLine1);
    });
}

ErrorTexts ReadErrorBox(const Window& box) {
    return {box.Text(), box.ItemText(kLine1), box.ItemText(kLine2), box.ItemText(kLine3)};
}

ErrorTexts DismissErrorBox(Program& program) {
    const Window box = WaitForErrorBox(program);
    CheckCentred(box);
    const Window symbol = box.Item(kSymbol);
    CHECK(symbol.Send(STM_GETIMAGE, IMAGE_BITMAP) != 0);
    WaitFor("the error symbol to be painted", [&] { return !Uniform(program.See(symbol)); });
    const ErrorTexts texts = ReadErrorBox(box);
    PressOk(box);
    return texts;
}

bool HasIcon(const Window& box) {
    for (const Window& control : box.Controls())
        if (control.Class() == L"Static" && (control.Style() & SS_TYPEMASK) == SS_ICON &&
            control.Send(STM_GETICON) != 0)
            return true;
    return false;
}

Window WaitForRangeBox(const Program& program) {
    return program.Running().WaitForWindow(
        "a range box", [](const Window& window) { return window.FindItem(kRangeTop).has_value(); });
}

ErrorTexts ReadRangeBox(const Window& box) {
    return {box.Text(), box.ItemText(kRangeTop), box.ItemText(kRangeMiddle), box.ItemText(kRangeBottom)};
}

Window WaitForQuestion(const Program& program) {
    return program.Running().WaitForWindow("a question", [](const Window& window) {
        return window.FindItem(kQuestionLine) && window.FindItem(kQuestionCancel);
    });
}

std::wstring QuestionText(const Window& question) {
    return question.ItemText(kQuestionLine);
}

void Answer(const Window& question, bool yes) {
    Click(question.Item(yes ? IDOK : kQuestionCancel));
    WaitFor("the question to close", [&] { return !question.Exists(); });
}

Window WaitForNotice(const Program& program) {
    return program.Running().WaitForWindow("a notice", [](const Window& window) {
        return window.FindItem(kLine1) && window.FindItem(kLine3) && !window.FindItem(kSymbol);
    });
}

std::wstring NoticeText(const Window& notice) {
    return notice.ItemText(kLine1);
}

}  // namespace pixora::ui

doctest::String doctest::StringMaker<pixora::ui::ErrorTexts>::convert(const pixora::ui::ErrorTexts& texts) {
    std::wstring all;
    for (const std::wstring& text : {texts.caption, texts.line1, texts.line2, texts.line3})
        all += L'"' + text + L"\" ";
    return String(pixora::ui::Narrow(all).c_str());
}
