// The splash page, the About box and the please-wait window.
#pragma once

#include "platform/dialog.h"
#include "platform/gdi.h"

namespace pixora {

/// Shown at start; it ends itself.
class CSplashPage final : public Dialog {
public:
    CSplashPage();

private:
    void OnInit() override;
    void OnTimer(UINT_PTR id) override;

    UniqueBitmap banner_;
    UniqueFont bold_;
};

/// The product's identity, with a link to the maker's page.
class CAboutBox final : public Dialog {
public:
    CAboutBox();

private:
    void OnInit() override;
    Handled OnCommand(const Command& command) override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

    UniqueBitmap banner_;
    UniqueFont bold_, underlined_;
    bool link_visited_ = false;
};

/// Tells that a large file is being read; the user cannot close it.
class CPleaseWait final : public Dialog {
public:
    CPleaseWait();
    /// Creates, shows and paints the window at once: no messages are served while the file is read.
    void Show(HWND owner);

private:
    void OnInit() override;
    void OnClose() override {}
};

}  // namespace pixora
