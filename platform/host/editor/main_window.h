// The host's main window: the menu bar, the drawing view, the command line and the status line.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/host/editor/command_line.h"
#include "platform/host/editor/menu_bar.h"
#include "platform/host/editor/status_line.h"
#include "platform/host/editor/window_settings.h"
#include "platform/host/prompt/person.h"
#include "platform/host/prompt/typed_ahead.h"
#include "platform/host/view/drawing_pane.h"
#include "platform/host/view/gdi_handles.h"

namespace host {

/// What the window asks of the program around it. Any of them may be missing.
struct WindowProgram {
    /// What the drawing view is to show; without this function it shows nothing.
    DrawingPane::Content content = {};
    /// The drawing's name for the title, marked when there are unsaved changes.
    std::function<std::wstring()> drawing_name = {};
    std::function<MenuBar::Contents()> menu = {};
    CommandLine::Names command_names = {};
    /// Whether a command is running.
    std::function<bool()> is_busy = {};
    /// Told of a point that was picked while no command runs; `reach` is that of an Answer. Returns what the pointer is
    /// to look like afterwards.
    std::function<PointerGuide(const Point&, double reach, bool with_shift)> picked = {};
    /// What the status line says of an entity; no_record for none.
    std::function<std::wstring(dxf::RecordId)> describe = {};
    /// Asked whether Windows may end its session; without this function it may.
    std::function<bool()> may_end_session = {};
};

class MainWindow {
  public:
    /// Created hidden. Throws std::runtime_error where the system has no window for it.
    explicit MainWindow(WindowProgram program = {});
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    HWND window() const { return window_; }
    const MenuBar& menu() const { return *menu_; }
    DrawingPane& pane() { return *pane_; }
    /// At a place that settings tell, or where the system puts it, within the screen.
    void show(const std::optional<WindowPlace>& wanted = std::nullopt);
    /// The place that the window has when it is neither maximised nor minimised.
    WindowPlace place() const;
    /// Brings the title up to date. The window does so itself before each wait.
    void update_title();
    /// Shows how far a long action is, from 0 to 1, until it has ended. False while Escape is held down.
    bool show_progress(std::wstring_view action, double part);
    /// Has a function called each time a dialog of this window waits for input, all of its messages handled.
    void when_dialog_waits(std::function<void()> told) { dialog_waits_ = std::move(told); }
    void append_history(std::wstring_view text) { line_->append_history(text); }
    bool shows_large_history() const { return line_->shows_large_history(); }
    void show_large_history(bool large);
    /// Shows these entities as selected, and how many they are.
    void show_selected(const std::vector<dxf::RecordId>& entities);

    /// Types a command, and behind line ends its answers, as the menu does (see TypedAhead::add).
    void type(std::wstring_view command);
    /// Whether the next prompt has its answer already.
    bool has_typed_ahead() const { return !typed_ahead_.empty(); }
    /// Shows the prompt and runs a message loop until the person has answered. Cancel when the window is being closed.
    /// While the guide is not idle, a point that is picked in the view is an answer, as if typed.
    Answer wait_for_answer(std::wstring_view prompt, const PointerGuide& guide = {});
    /// Runs a message loop until the person has used the mouse or a key; nothing on a cancel. The text that was printed
    /// last is shown as the prompt.
    std::optional<InputEvent> wait_for_event();
    /// Whether the person asked to close the window; prompts answer with cancel from then on.
    bool close_requested() const { return close_requested_; }
    /// Takes the request back (the person wants to keep the drawing after all).
    void forget_close_request() { close_requested_ = false; }

  private:
    enum class Waiting { nothing, answer, event };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    std::optional<LRESULT> handle(UINT message, WPARAM wparam, LPARAM lparam);
    void place_children();
    bool is_busy() const { return program_.is_busy && program_.is_busy(); }
    void run_messages(const PointerGuide& guide, const std::function<bool()>& done);
    /// Handles a message before it is dispatched; true when it must not be dispatched.
    bool take_message(const MSG& message);
    /// Acts on Return, Escape and the other keys of the typed line; true when the message was one of them.
    bool take_key(const MSG& message);
    bool take_event_key(const MSG& message);
    bool redirect_wheel(const MSG& message) const;
    void take_typed_line();
    void take_dropped(WPARAM drop);
    void take_pane_event(const PaneEvent& event);
    void take_pick(const PaneEvent& event, const Point& point);
    void describe_later(Vec2 at);
    void describe();

    WindowProgram program_;
    std::function<void()> dialog_waits_;
    HWND window_ = nullptr;
    GdiObject font_;
    std::unique_ptr<MenuBar> menu_;
    std::unique_ptr<DrawingPane> pane_;
    std::unique_ptr<CommandLine> line_;
    std::unique_ptr<StatusLine> status_;
    TypedAhead typed_ahead_;
    Waiting waiting_ = Waiting::nothing;
    std::optional<Answer> answer_;
    bool event_cancelled_ = false;
    std::optional<InputEvent> event_;
    bool close_requested_ = false;
    size_t selected_ = 0;
    std::optional<Vec2> pointed_at_;  ///< the point whose entity is to be described
    ULONGLONG progress_shown_ = 0;    ///< when progress was shown last, by GetTickCount64
};

}  // namespace host
