#include "tests/ui/support/menu.h"

#include <algorithm>

#include "tests/ui/support/input.h"
#include "tests/ui/support/texts.h"

#ifndef MN_GETHMENU
#define MN_GETHMENU 0x01E1
#endif

namespace pixora::ui {
namespace {

bool IsPopup(const Window& window) {
    return window.Class() == L"#32768";
}

POINT CentreOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

/// The item of the outermost level with this text.
const ProbeMenuItem* FindItem(const std::vector<ProbeMenuItem>& items, std::wstring_view text) {
    for (const ProbeMenuItem& item : items)
        if (item.depth == 0 && item.text == text) return &item;
    return nullptr;
}

/// Whether the mouse and the keys of the window's thread go to a menu.
bool InMenu(const Window& window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window.Handle(), nullptr), &info) &&
           (info.flags & GUI_INMENUMODE) && info.hwndCapture;
}

/// How many popup menus are open, and one more while the keys go to a menu.
int OpenLevels(const Process& process) {
    const std::vector<Window> windows = process.Windows();
    const auto popups = std::count_if(windows.begin(), windows.end(), IsPopup);
    return static_cast<int>(popups) + (!windows.empty() && InMenu(windows.front()) ? 1 : 0);
}

}  // namespace

OpenMenu::OpenMenu(const Process& process, Probe& probe, std::vector<Window> known)
    : process_(process), probe_(probe), known_(std::move(known)) {
    popup_ = process_.WaitForWindow("a popup menu", [&](const Window& window) {
        return IsPopup(window) && std::find(known_.begin(), known_.end(), window) == known_.end();
    });
    const auto menu = reinterpret_cast<HMENU>(popup_.Send(MN_GETHMENU));
    // A popup has its items before its place.
    WaitFor("the menu's items", [&] {
        items_ = probe_.PopupItems(menu);
        return !items_.empty() && items_.front().place.bottom > items_.front().place.top;
    });
    // It is to be seen before it takes the mouse; a click in between would be lost.
    WaitFor("the menu to take the mouse", [&] { return InMenu(popup_); });
}

const ProbeMenuItem& OpenMenu::Item(std::wstring_view text) const {
    if (const ProbeMenuItem* item = FindItem(items_, text)) return *item;
    throw UiError("the menu has no item \"" + Narrow(text) + '"');
}

bool OpenMenu::Greyed(std::wstring_view text) const {
    return (Item(text).state & MFS_DISABLED) != 0;
}

void OpenMenu::ClickItem(std::wstring_view text) const {
    const POINT centre = CentreOf(Item(text).place);
    const Window hit(GetAncestor(WindowFromPoint(centre), GA_ROOT));
    // A popup is drawn over the window that it belongs to, even where the system lists it below that one.
    if (!IsPopup(hit) && hit.Handle() != GetWindow(popup_.Handle(), GW_OWNER))
        throw UiError("the menu item \"" + Narrow(text) + "\" cannot be reached");
    ClickAt(centre);
}

void OpenMenu::Choose(std::wstring_view text) {
    ClickItem(text);
    WaitFor("the menu to close", [&] { return !popup_.Visible(); });
}

OpenMenu OpenMenu::Open(std::wstring_view text) {
    std::vector<Window> known = known_;
    known.push_back(popup_);
    ClickItem(text);
    return OpenMenu(process_, probe_, std::move(known));
}

void OpenMenu::Dismiss() {
    // Each press closes one level, the last one leaves the menu bar; a press too many would reach the window.
    for (int level = OpenLevels(process_); level > 0; level = OpenLevels(process_)) {
        PressKey(VK_ESCAPE);
        WaitFor("a menu to close", [&] { return OpenLevels(process_) < level; });
    }
}

OpenMenu OpenFromBar(const Process& process, Probe& probe, const Window& window, std::wstring_view entry) {
    const std::vector<ProbeMenuItem> bar = probe.MenuBar(window);
    const ProbeMenuItem* item = FindItem(bar, entry);
    if (!item) throw UiError("the menu bar has no entry \"" + Narrow(entry) + '"');
    ClickAt(CentreOf(item->place));
    return OpenMenu(process, probe);
}

std::wstring PlainText(std::wstring_view item) {
    std::wstring text(item);
    std::erase(text, L'&');
    return text;
}

int CommandOf(const std::vector<ProbeMenuItem>& items, std::wstring_view text) {
    for (const ProbeMenuItem& item : items)
        if (item.text == text && !item.has_items) return static_cast<int>(item.id);
    throw UiError("no menu has an item \"" + Narrow(text) + '"');
}

}  // namespace pixora::ui
