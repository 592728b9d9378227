// pixora-cli.exe writes byte for byte what a person exports and saves in the program.
#include <doctest/doctest.h>

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/ui/support/boxes.h"
#include "tests/ui/support/file_dialog.h"
#include "tests/ui/support/histogram_view.h"
#include "tests/ui/support/profile_view.h"
#include "tests/ui/support/program.h"
#include "tests/ui/support/texts.h"
#include "tests/ui/support/viewer_hands.h"
#include "tests/ui/support/views.h"
#include "tests/ui/support/wait.h"

using namespace pixora::ui;

namespace {

namespace fs = std::filesystem;

constexpr int kExportHistogram = 32931, kExportProfile = 32930, kSavedNoticeLine = 1067;
constexpr const wchar_t* kChannels[] = {L"R", L"G", L"B", L"RGB"};
constexpr Edges kPart{7, 5, 98, 60};
constexpr wchar_t kPartText[] = L"7,5,98,60", kPartSize[] = L"Region = 92 x 56";

/// A sample, and what is exported and saved of it.
struct Sampled {
    const wchar_t* name;
    int channel = -1;     ///< an index into kChannels; -1 for a grey image
    bool row = true;      ///< a row's profile, else a column's
    bool region = true;   ///< of a region, else of the whole image
    bool as_tiff = true;  ///< the region is saved as TIFF, else as BMP
};

DWORD RunCli(const std::wstring& arguments) {
    const fs::path program = ProbePath().parent_path() / L"pixora-cli.exe";
    return Process(program, L'"' + program.wstring() + L"\" " + arguments).WaitForEnd();
}

std::wstring Quoted(const fs::path& path) {
    return L'"' + path.wstring() + L'"';
}

/// Shows the region kPart; the statistics view that does it is closed again.
void ShowPart(Program& program, const Window& viewer) {
    const Window statistics = OpenView(program, viewer, kViewStatistics);
    Push(statistics, kStatRegion);
    WaitForText(statistics, kStatRegion, L"REGION OFF");
    const Window coordinates = OpenView(program, statistics, kStatCoordinates);
    Push(coordinates, kCoordEdit);
    WaitFor("the entries to take text", [&] { return coordinates.Item(kCoordEnter).Enabled(); });
    coordinates.Item(kCoordLeft).SetText(std::to_wstring(kPart.left));
    coordinates.Item(kCoordTop).SetText(std::to_wstring(kPart.top));
    coordinates.Item(kCoordRight).SetText(std::to_wstring(kPart.right));
    coordinates.Item(kCoordBottom).SetText(std::to_wstring(kPart.bottom));
    Push(coordinates, kCoordEnter);
    WaitForText(statistics, kStatRegionSize, kPartSize);
    Push(statistics, kStatCoordinates);
    WaitFor("the coordinates dialog to close", [&] { return !coordinates.Exists(); });
}

/// One sample in its viewer, and the same in the hands of pixora-cli.
class Comparison {
public:
    Comparison(Program& program, const Sampled& sample)
        : program_(program), sample_(sample), viewer_(program.Open(Sample(sample.name))) {
        folder_ = FreshScratchFolder();
        if (sample.region) ShowPart(program, viewer_);
    }

    /// The copies of the import, which stand in the data folder while the viewer is open.
    void CompareCopies() const {
        const fs::path display = folder_ / L"display.bmp", data = folder_ / L"data.bin";
        const fs::path own_data = DataFolder() / L"import_img_00.bin";
        std::wstring call = L"convert " + Quoted(Sample(sample_.name)) + L" --display " + Quoted(display);
        if (fs::exists(own_data)) call += L" --data " + Quoted(data);
        CAPTURE(call);
        CHECK(RunCli(call) == 0);
        CHECK((ReadBytes(DataFolder() / L"import_img_00.bmp") == ReadBytes(display)));
        if (fs::exists(own_data)) CHECK((ReadBytes(own_data) == ReadBytes(data)));
        CHECK(fs::exists(own_data) == (std::wstring_view(sample_.name).find(L"tiff16") == 0));
    }

    void CompareHistogram() {
        const Window view = OpenView(program_, viewer_, kViewHistogram);
        if (sample_.channel >= 0) {
            WaitForText(view, kHistChannel, kChannels[0]);
            for (int i = 1; i <= sample_.channel; ++i) {
                Push(view, kHistChannel);
                WaitForText(view, kHistChannel, kChannels[i]);
            }
        }
        Export(view, kExportHistogram);
        Compare(L"histogram", L"csv", Channel() + Region());
    }

    void CompareProfile() {
        const Window view = OpenView(program_, viewer_, sample_.row ? kViewHProfile : kViewVProfile);
        WaitFor("the line's number", [&] { return !view.ItemText(kLine).empty(); });
        const std::wstring line = (sample_.row ? L" --row " : L" --column ") + view.ItemText(kLine);
        Export(view, kExportProfile);
        Compare(L"profile", L"csv", line + Channel() + Region());
    }

    void CompareSavedRegion() {
        const wchar_t* ending = sample_.as_tiff ? L"tif" : L"bmp";
        viewer_.Command(kViewSaveRegion);
        FileDialog(program_.Running()).Accept(Ours(ending).wstring());
        const Window notice = program_.Running().WaitForWindow(
            "the notice", [](const Window& window) { return window.FindItem(kSavedNoticeLine).has_value(); });
        CHECK(notice.ItemText(kSavedNoticeLine) == L"Image file has been saved.");
        notice.Post(WM_CLOSE);  // it would close by itself
        WaitFor("the notice to close", [&] { return !notice.Exists(); });
        Compare(L"save-region", ending, L" --region " + std::wstring(kPartText));
    }

    [[nodiscard]] const Window& Viewer() const { return viewer_; }

private:
    [[nodiscard]] fs::path Ours(const wchar_t* ending) const {
        return folder_ / (std::wstring(L"window.") + ending);
    }
    [[nodiscard]] std::wstring Region() const {
        return sample_.region ? L" --region " + std::wstring(kPartText) : L"";
    }
    [[nodiscard]] std::wstring Channel() const {
        return sample_.channel < 0 ? L"" : std::wstring(L" --channel ") + kChannels[sample_.channel];
    }

    void Export(const Window& view, int command) {
        view.Command(command);
        FileDialog(program_.Running()).Accept(Ours(L"csv").wstring());
        const Window notice = WaitForNotice(program_);
        CHECK(NoticeText(notice) == L"CSV file has been saved.");
        PressOk(notice);
        WaitFor("the view", [&] { return view.Enabled(); });
    }

    /// Has pixora-cli write the same file, compares, and deletes both.
    void Compare(const std::wstring& command, const wchar_t* ending, const std::wstring& options) {
        const fs::path ours = Ours(ending), theirs = folder_ / (std::wstring(L"cli.") + ending);
        const std::wstring call =
            command + L' ' + Quoted(Sample(sample_.name)) + options + L" --out " + Quoted(theirs);
        CAPTURE(call);
        CHECK(RunCli(call) == 0);
        const std::string bytes = ReadBytes(ours);
        CHECK_FALSE(bytes.empty());
        CHECK((bytes == ReadBytes(theirs)));
        fs::remove(ours);
        fs::remove(theirs);
    }

    Program& program_;
    Sampled sample_;
    Window viewer_;
    fs::path folder_;
};

void CompareAll(const std::vector<Sampled>& samples) {
    Program program;
    for (const Sampled& sample : samples) {
        CAPTURE(std::wstring(sample.name));
        Comparison comparison(program, sample);
        comparison.CompareCopies();
        comparison.CompareHistogram();
        comparison.CompareProfile();
        if (sample.region) comparison.CompareSavedRegion();
        program.Close(comparison.Viewer());
    }
    program.Exit();
}

}  // namespace

TEST_CASE("pixora-cli and the program write the same files of the BMP samples") {
    CompareAll({{.name = L"bmp8-grey.bmp", .as_tiff = false},
                {.name = L"bmp8-palette.bmp", .channel = 3, .row = false},
                {.name = L"bmp24-grey.bmp"},
                {.name = L"bmp24-colour.bmp", .channel = 1, .as_tiff = false},
                {.name = L"bmp24-top-down.bmp", .channel = 2, .row = false},
                {.name = L"bmp32-colour.bmp", .channel = 0, .as_tiff = false}});
}

TEST_CASE("pixora-cli and the program write the same files of the grey TIFF samples") {
    CompareAll({{.name = L"tiff8-mono.tif"},
                {.name = L"tiff12-mono.tif", .row = false, .as_tiff = false},
                {.name = L"tiff16-mono-upper10.tif", .as_tiff = false},
                {.name = L"tiff16-mono-upper12.tif", .row = false},
                {.name = L"tiff16-mono-upper14.tif"},
                {.name = L"tiff16-mono.tif", .row = false, .region = false},
                {.name = L"tiff16-mono-big-endian.tif"}});
}

TEST_CASE("pixora-cli and the program write the same files of the colour TIFF samples") {
    CompareAll({{.name = L"tiff8-rgb.tif", .channel = 3, .region = false},
                {.name = L"tiff8-rgb-big-endian.tif", .channel = 1, .row = false, .as_tiff = false},
                {.name = L"tiff12-rgb.tif", .channel = 2},
                {.name = L"tiff16-rgb-upper12.tif", .channel = 3, .row = false},
                {.name = L"tiff16-rgb.tif", .channel = 0, .as_tiff = false}});
}
