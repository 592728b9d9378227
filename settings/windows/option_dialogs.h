// The three option dialogs. Each change takes effect and is stored at once.
#pragma once

#include <windows.h>

#include <filesystem>

#include "base/flags.h"
#include "platform/dialog.h"
#include "settings/option_choices.h"
#include "settings/settings.h"

namespace pixora {

/// What the main window lends its option dialogs; it outlives them.
struct OptionContext {
    SharedFlags* flags = nullptr;
    Settings* settings = nullptr;
    std::filesystem::path settings_path;
};

/// What the three dialogs have in common: radio buttons that the program alone sets, one table of choices.
class OptionWindow : public Dialog {
public:
    /// Creates the dialog beside `main_window` and shows it. @return false when that failed.
    [[nodiscard]] bool Open(HWND main_window);
    /// Puts the open dialog before all others.
    void BringToFront() const;

protected:
    OptionWindow(int template_id, OptionDialog kind, WindowKind hide_kind, bool SharedFlags::*open_flag,
                 OptionContext context);

    void OnInit() override;
    Handled OnCommand(const Command& command) override;
    void OnTick() override;
    void OnDestroy() override { Flags().*open_flag_ = false; }

    /// Takes the states of all buttons from the settings and shows them.
    void ShowSettings();
    [[nodiscard]] SharedFlags& Flags() const { return *context_.flags; }

private:
    void ShowStates() const;
    void Place(HWND main_window) const;

    OptionDialog kind_;
    WindowKind hide_kind_;
    bool SharedFlags::*open_flag_;
    OptionContext context_;
    OptionButtons buttons_;
};

/// "Viewer Option": caption style, level cursor, histogram binning, valid bits of 16-bit data.
class CViewerOption final : public OptionWindow {
public:
    explicit CViewerOption(OptionContext context);
};

/// "Line and Region Style": colours and border type of the lines and the region.
class CRegionStyle final : public OptionWindow {
public:
    explicit CRegionStyle(OptionContext context);
};

/// "Main Dialog Option": where the main window starts.
class CMainOption final : public OptionWindow {
public:
    explicit CMainOption(OptionContext context);

private:
    void OnTick() override;
};

}  // namespace pixora
