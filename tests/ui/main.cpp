// Runs the tests that operate a real pixora.exe, one after another, on the screen of this session.
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/ui/support/environment.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/watchdog.h"

namespace {

/// Leaves a picture of the screen at the first failed check of each test.
class TestListener : public doctest::IReporter {
public:
    explicit TestListener(const doctest::ContextOptions&) {}
    void log_assert(const doctest::AssertData& data) override {
        if (data.m_failed && !taken_) pixora::ui::SaveFailureShot(), taken_ = true;
    }
    void test_case_start(const doctest::TestCaseData& data) override {
        taken_ = false;
        pixora::ui::BeginTest();
        pixora::ui::WatchTest(data.m_name);
    }

    void test_case_end(const doctest::CurrentTestCaseStats&) override { pixora::ui::WatchTest({}); }

    void report_query(const doctest::QueryData&) override {}
    void test_run_start() override {}
    void test_run_end(const doctest::TestRunStats&) override {}
    void test_case_reenter(const doctest::TestCaseData&) override {}
    void test_case_exception(const doctest::TestCaseException&) override {}
    void subcase_start(const doctest::SubcaseSignature&) override {}
    void subcase_end() override {}
    void log_message(const doctest::MessageData&) override {}
    void test_case_skipped(const doctest::TestCaseData&) override {}

private:
    bool taken_ = false;
};

REGISTER_LISTENER("tests", 1, TestListener);

/// False when the run is to be on a scaled desktop and this one is not.
bool IsDesktopAsAsked() {
    wchar_t dpi[8] = L"";
    if (GetEnvironmentVariableW(L"PIXORA_UI_DPI", dpi, 8) == 0) return true;
    const std::wstring actual = std::to_wstring(GetDpiForSystem());
    if (actual == dpi) return true;
    std::printf("The desktop has %ls dots per inch instead of %ls.\n", actual.c_str(), dpi);
    return false;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    // Positions and sizes in real pixels, like the program itself.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) texts.push_back(pixora::ui::Narrow(arguments[i]));
    std::vector<const char*> pointers;
    for (const std::string& text : texts) pointers.push_back(text.c_str());
    // What a run that was ended by force has written must not be lost.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    if (!IsDesktopAsAsked()) return 2;
    pixora::ui::StartWatchdog();
    const pixora::ui::UserDataAside aside;
    (void)pixora::ui::FreshScratchFolder();
    return doctest::Context(count, pointers.data()).run();
}
