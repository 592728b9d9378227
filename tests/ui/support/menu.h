// Menus as a person uses them: opened and chosen from with the mouse.
#pragma once

#include <string_view>
#include <vector>

#include "tests/ui/support/probe.h"
#include "tests/ui/support/process.h"

namespace pixora::ui {

/// A popup menu that is open on the screen.
class OpenMenu {
public:
    /// Waits for a popup menu of the process that is not one of `known`.
    OpenMenu(const Process& process, Probe& probe, std::vector<Window> known = {});

    /// Its items and those of its sub-menus, the latter deeper.
    [[nodiscard]] const std::vector<ProbeMenuItem>& Items() const { return items_; }
    /// The item of its own level with exactly this text.
    [[nodiscard]] const ProbeMenuItem& Item(std::wstring_view text) const;
    [[nodiscard]] bool Greyed(std::wstring_view text) const;
    /// Clicks an item; the menu closes.
    void Choose(std::wstring_view text);
    /// Clicks an item with items of its own and returns its popup.
    [[nodiscard]] OpenMenu Open(std::wstring_view text);
    /// Presses Escape until no menu is open.
    void Dismiss();

    [[nodiscard]] const Window& Popup() const { return popup_; }

private:
    void ClickItem(std::wstring_view text) const;

    const Process& process_;
    Probe& probe_;
    std::vector<Window> known_;
    Window popup_;
    std::vector<ProbeMenuItem> items_;
};

/// Clicks on an entry of a window's menu bar, for example L"&File".
[[nodiscard]] OpenMenu OpenFromBar(const Process& process, Probe& probe, const Window& window,
                                   std::wstring_view entry);

/// The text of an item without the mark of its underlined letter.
[[nodiscard]] std::wstring PlainText(std::wstring_view item);

/// The command id of the item with this text, at any depth; throws when there is none.
[[nodiscard]] int CommandOf(const std::vector<ProbeMenuItem>& items, std::wstring_view text);

}  // namespace pixora::ui
