// The system's dialogs for opening and saving a file.
#pragma once

#include <string>

#include "tests/ui/support/process.h"

namespace pixora::ui {

class FileDialog {
public:
    /// Waits for one of the process.
    explicit FileDialog(const Process& process);

    [[nodiscard]] const Window& Box() const { return box_; }
    [[nodiscard]] std::wstring Name() const { return name_.Text(); }
    /// The file types offered.
    [[nodiscard]] std::vector<std::wstring> Types() const;
    /// Types a name and presses the dialog's button.
    void Accept(const std::wstring& name) const;
    void Cancel() const;

private:
    void WaitUntilGone() const;

    Window box_, name_;
};

}  // namespace pixora::ui
