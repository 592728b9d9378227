#include "app/path_box.h"

#include <doctest/doctest.h>

#include <string>

#include "app/command_line.h"

using namespace pixora;

namespace {

const std::wstring kPath = L"C:\\pictures\\camera\\2026\\02\\a very long name of a holiday_1.tif";
#ifdef _WIN32
const std::wstring kOther = L"D:\\b.bmp";
#else
const std::wstring kOther = L"/d/b.bmp";
#endif

PathBox Opened(const std::wstring& path) {
    PathBox box;
    box.Opened(path);
    return box;
}

}  // namespace

TEST_CASE("the path box shows the path shortened to 45 units and keeps it whole") {
    const PathBox box = Opened(kPath);
    CHECK(box.Text() == L"C:\\pi.....\\a very long name of a holiday_1.tif");
    CHECK(box.FullPath() == kPath);
    CHECK(Opened(L"C:\\a.tif").Text() == L"C:\\a.tif");
}

TEST_CASE("path edit mode shows the whole path and the other button text") {
    PathBox box = Opened(kPath);
    CHECK(box.ButtonText() == L"EDIT");
    box.BeginEdit();
    CHECK(box.Editing());
    CHECK(box.ButtonText() == L"ENTER");
    CHECK(box.Text() == kPath);
    CHECK_FALSE(box.EndEdit(kPath, false).has_value());
    CHECK_FALSE(box.Editing());
    CHECK(box.Text() == L"C:\\pi.....\\a very long name of a holiday_1.tif");
}

TEST_CASE("leaving path edit mode opens a path that differs from the last one") {
    PathBox box = Opened(kPath);
    box.BeginEdit();
    CHECK(box.EndEdit(kOther, false) == kOther);
    CHECK(box.FullPath() == kPath);  // until the open has succeeded
}

TEST_CASE("the button opens the same path not again, Enter does") {
    PathBox box = Opened(kOther);
    box.BeginEdit();
    CHECK_FALSE(box.EndEdit(L" \"" + kOther + L"\" ", false).has_value());
    box.BeginEdit();
    CHECK(box.EndEdit(kOther, true) == kOther);
}

TEST_CASE("an empty typed path opens nothing") {
    PathBox box = Opened(kPath);
    for (const wchar_t* typed : {L"", L"   ", L"\"\"", L" \"\" "}) {
        box.BeginEdit();
        CHECK_FALSE(box.EndEdit(typed, true).has_value());
        CHECK_FALSE(box.Editing());
    }
    CHECK(box.FullPath() == kPath);
}

TEST_CASE("a typed relative path is made complete") {
    PathBox box;
    box.BeginEdit();
    CHECK(box.EndEdit(L"a.tif", false) == FullPath(L"a.tif"));
}

TEST_CASE("a file opened during path edit mode shows whole and leaves the mode alone") {
    PathBox box;
    box.BeginEdit();
    box.Opened(kPath);
    CHECK(box.Editing());
    CHECK(box.Text() == kPath);
}

TEST_CASE("the emptied box has nothing to reload and keeps the last opened path for the clipboard") {
    PathBox box;
    CHECK_FALSE(box.ClipboardText().has_value());
    box.Opened(kPath);
    CHECK(box.ClipboardText() == kPath);
    box.Empty();
    CHECK(box.FullPath().empty());
    CHECK(box.Text().empty());
    CHECK(box.ClipboardText() == kPath);
    box.Opened(kOther);
    CHECK(box.ClipboardText() == kOther);
}

TEST_CASE("a box that was emptied before any file was opened has nothing for the clipboard") {
    PathBox box;
    box.Empty();
    CHECK_FALSE(box.ClipboardText().has_value());
}

TEST_CASE("a typed path loses the blanks around it and one pair of quotes") {
    CHECK(CleanTypedPath(L"C:\\a b.tif") == L"C:\\a b.tif");
    CHECK(CleanTypedPath(L"  C:\\a b.tif\t ") == L"C:\\a b.tif");
    CHECK(CleanTypedPath(L"\"C:\\a b.tif\"") == L"C:\\a b.tif");
    CHECK(CleanTypedPath(L" \"C:\\a b.tif\" ") == L"C:\\a b.tif");
    CHECK(CleanTypedPath(L"\"\"C:\\a.tif\"\"") == L"\"C:\\a.tif\"");
    CHECK(CleanTypedPath(L"\"C:\\a.tif") == L"\"C:\\a.tif");
    CHECK(CleanTypedPath(L"\"") == L"\"");
    CHECK(CleanTypedPath(L" ").empty());
}

TEST_CASE("the open dialog starts with the stored folder and *.*, with nothing between them") {
    CHECK(OpenDialogName(L"C:\\Users\\me\\Pictures\\") == L"C:\\Users\\me\\Pictures\\*.*");
    CHECK(OpenDialogName(L"C:\\img") == L"C:\\img*.*");
    CHECK(OpenDialogName(L"\\") == L"\\*.*");
}

TEST_CASE("the folder of an opened file ends before its last backslash") {
    CHECK(FolderOfOpened(L"C:\\img\\a.tif") == L"C:\\img");
    CHECK(FolderOfOpened(L"C:\\a.tif") == L"C:");
    CHECK(FolderOfOpened(L"\\\\server\\share\\a.tif") == L"\\\\server\\share");
    CHECK(FolderOfOpened(L"a.tif").empty());
}

TEST_CASE("the open dialog offers all files, BMP and TIFF") {
    CHECK(kOpenFilter ==
          L"All Files(*.*)|*.*|BMP Files(*.bmp)|*.bmp|TIFF Files(*.tif;*.tiff)|*.tif;*.tiff||");
}
