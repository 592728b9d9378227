// The program: one copy at a time, from the command line to the main window.
#pragma once

#include <string>

#include "platform/dialog.h"

namespace pixora {

class CPixoraApp {
public:
    /// Runs the program until its main window is closed.
    /// @return false: there is no message loop beyond that of the dialogs.
    bool InitInstance();
};

/// Stands between the program and its main window and is never shown: its initialisation checks that no other
/// copy runs, takes the image path out of the command line and runs the main window.
class CPixoraDlg final : public Dialog {
public:
    explicit CPixoraDlg(std::wstring command_line);

private:
    void OnInit() override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;
    void AddAboutToSystemMenu() const;
    [[nodiscard]] bool IsOnlyCopy() const;

    std::wstring command_line_;
};

}  // namespace pixora
