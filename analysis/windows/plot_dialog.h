// What the histogram and the line profiles have in common.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "analysis/level_cursor.h"
#include "analysis/windows/analysis_view.h"
#include "analysis/windows/plot_view.h"
#include "dialogs/value_check.h"

namespace pixora {

/// What every plot view has, under the ids of its own template.
struct PlotParts {
    int plot, channel;
    int level, level_enter, level_on, level_centre, level_up, level_down;
    int menu, export_command;    ///< the context menu and its only item
    PlotKey step_up, step_down;  ///< the keys that move the level
};

/// A view with a plot, the viewer's channel button, a level cursor and an export to a CSV file. It deals with
/// all of these; what is particular to a kind of plot is asked from the view.
class PlotDialog : public AnalysisView {
protected:
    PlotDialog(int template_id, WindowKind kind, bool ViewFlags::*flag, const PlotParts& parts,
               ViewContext context);

    [[nodiscard]] virtual std::wstring Title() const = 0;
    /// The user has changed something in this view, which may show it at once.
    virtual void Changed() = 0;
    /// Deals with a button that not every plot view has. @return false when the control is none of them.
    [[nodiscard]] virtual bool OnOwnButton(int id) = 0;
    /// The level that a click at a point of the client area sets; none when the click is for nobody.
    [[nodiscard]] virtual std::optional<std::uint32_t> LevelAtPoint(POINT client) const = 0;
    /// Enter takes what is typed. The window may be gone afterwards.
    virtual void ApplyEntries() { ApplyLevel(); }
    /// Whether a box of the view needs a key that the plot ignores.
    [[nodiscard]] virtual bool IsForBox(const MSG&) const { return false; }
    /// The part of the client area where the mouse opens the context menu.
    [[nodiscard]] virtual RECT MenuArea() const;
    virtual void Export() = 0;

    /// Views that begin with more call it first.
    void Begin() override;

    [[nodiscard]] bool IsColour() const { return State().image.colour != 0; }
    [[nodiscard]] LevelCursor& Cursor() { return level_; }
    [[nodiscard]] const LevelCursor& Cursor() const { return level_; }
    [[nodiscard]] PlotView& PlotFrame() { return plot_; }
    [[nodiscard]] const PlotView& PlotFrame() const { return plot_; }

    // Each writes only what differs from the viewer's state, so that nothing disturbs the user's typing.
    void FollowTitle();
    void FollowChannel();
    void FollowLevel();

    void ApplyLevel();
    /// Shows the box that refuses an entry. The entry's box must hold the last good text again by then, so
    /// that nothing can apply a refused text a second time.
    void Refuse(const InputError& refusal);

private:
    Handled OnCommand(const Command& command) final;
    Handled Filter(MSG& message) final;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) final;

    void ShowLevelCursor();
    void AdvanceChannel();
    [[nodiscard]] bool OnLevelButton(int id);
    void ClickPlot(POINT client);
    /// @return false when the request is for another menu.
    [[nodiscard]] bool ShowMenu(HWND control, LPARAM position);

    PlotParts parts_;
    LevelCursor level_;
    PlotKeys keys_;
    PlotView plot_;
    std::optional<std::wstring> caption_style_;  ///< that the title was composed with
    std::optional<int> channel_;                 ///< on the channel button
    std::optional<std::uint32_t> level_shown_;   ///< last put into the "Level =" box
};

}  // namespace pixora
