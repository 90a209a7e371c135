// The host's main window: the drawing view, the history of the command line, and the line that is typed.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/host/prompt/person.h"
#include "platform/host/view/drawing_pane.h"

namespace host {

class MainWindow {
  public:
    /// The drawing's name for the title, marked when there are unsaved changes.
    using DrawingName = std::function<std::wstring()>;

    /// Created hidden. `content` tells what the drawing view is to show; without it, nothing.
    explicit MainWindow(
        DrawingPane::Content content = [] { return PaneContent(); },
        DrawingName drawing_name = [] { return std::wstring(); });
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    HWND window() const { return window_; }
    DrawingPane& pane() { return *pane_; }
    void show();
    /// Done before each wait too.
    void update_title();
    void append_history(std::wstring_view text);

    /// Shows the prompt and runs a message loop until the person has answered. Cancel when the window is being closed.
    /// While the guide is not idle, a point that is picked in the view is an answer, as if typed.
    Answer wait_for_answer(std::wstring_view prompt, const PointerGuide& guide = {});
    /// Runs a message loop until the person has done something with the mouse or a key. Nothing on a cancel. The prompt
    /// is what was printed last.
    std::optional<InputEvent> wait_for_event();
    /// Asked when Windows is about to end its session; without one, it may.
    void ask_before_session_ends(std::function<bool()> may_end) { may_end_session_ = std::move(may_end); }
    /// The person asked to close the window; prompts cancel from then on.
    bool close_requested() const { return close_requested_; }
    /// Takes the request back (the person wants to keep the drawing after all).
    void forget_close_request() { close_requested_ = false; }

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    std::optional<LRESULT> handle(UINT message, LPARAM lparam);
    void create_children();
    void place_children() const;
    void run_messages(const PointerGuide& guide, const std::function<bool()>& done);
    void redirect_typing(MSG& message) const;
    /// True when the message is done with.
    bool take_message(const MSG& message);
    /// Takes Return and Escape out of the typed line's keys.
    bool take_key(const MSG& message);
    bool take_event_key(const MSG& message);
    bool redirect_wheel(const MSG& message) const;
    void take_typed_line();
    void take_pane_event(const PaneEvent& event);

    DrawingName drawing_name_;
    HWND window_ = nullptr;
    HWND history_ = nullptr;
    HWND prompt_ = nullptr;
    HWND line_ = nullptr;
    std::unique_ptr<DrawingPane> pane_;
    std::wstring last_line_;  ///< of the history
    std::optional<Answer> answer_;
    bool waiting_for_event_ = false;
    bool event_cancelled_ = false;
    std::optional<InputEvent> event_;
    bool close_requested_ = false;
    std::function<bool()> may_end_session_;
};

}  // namespace host
