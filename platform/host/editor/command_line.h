// The lower part of the main window: the history of what was said, the prompt, and the line that is typed.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/prompt/command_history.h"
#include "platform/host/prompt/keywords.h"

namespace host {

/// The prompt beside the typed line. Its options, as in "[All/Window]", are underlined and can be clicked.
class PromptLabel {
  public:
    /// `chosen` is told the option that was clicked. The parent destroys the window, after this object.
    PromptLabel(HWND parent, HFONT font, std::function<void(std::wstring)> chosen);
    ~PromptLabel();
    PromptLabel(const PromptLabel&) = delete;
    PromptLabel& operator=(const PromptLabel&) = delete;

    HWND window() const { return window_; }
    void set_text(std::wstring text);
    /// The width of the whole text in pixels.
    int wanted_width() const;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void paint() const;
    /// Where the first `length` characters end, in pixels. A text that is too long is cut off at its front, because the
    /// options are at its end.
    int right_of(HDC context, size_t length) const;
    const PromptOption* option_at(int x) const;

    HWND window_;
    HFONT font_;
    std::function<void(std::wstring)> chosen_;
    std::wstring text_;
    std::vector<PromptOption> options_;
};

class CommandLine {
  public:
    using Names = std::function<std::vector<std::wstring>()>;

    /// `option_chosen` is told the prompt's option that was clicked. The parent destroys the windows.
    CommandLine(HWND parent, HFONT font, std::function<void(std::wstring)> option_chosen);

    /// `names` gives the names of all commands; Tab completes a line to one of them.
    void complete_with(Names names) { names_ = std::move(names); }
    void show_large_history(bool large) { large_ = large; }
    bool shows_large_history() const { return large_; }
    /// The height in pixels that this part takes of a window of that height.
    int wanted_height(int window_height) const;
    void place(const RECT& area);
    void focus() const { SetFocus(line_); }

    /// The text is seen after the next update_history(): an edit control takes long for each piece that it is given.
    void append_history(std::wstring_view text);
    /// Brings the history up to date, unless the window is hidden.
    void update_history();
    /// The text that was printed last, from its last line end on.
    const std::wstring& last_line() const { return last_line_; }
    /// Only the last line of the text is shown.
    void set_prompt(std::wstring_view text);

    /// Takes the typed line away and gives it back; Up finds it again from then on.
    std::wstring take_typed();
    void clear_typed();
    /// Whether the key edits a text: the typed line has one, or the history has the focus.
    bool edits_text(const MSG& message) const;
    bool is_line(HWND window) const { return window == line_; }
    /// Sends what is typed in the history to the line, so that a person who has clicked there can go on typing.
    void redirect_typing(MSG& message) const;
    /// Acts on Tab, Up and Down; true when the message was one of these keys.
    bool take_key(const MSG& message);

  private:
    void complete();
    void set_typed(const std::wstring& text);
    int line_height() const { return letter_height_ + letter_height_ / 2 + 2; }

    HWND history_;
    HWND line_;
    PromptLabel prompt_;
    Names names_;
    RECT area_{};
    int letter_height_ = 0;  ///< pixels
    bool large_ = false;
    std::wstring last_line_;  ///< the last line of the history
    std::wstring unshown_;    ///< the end of the history that the edit control has not got
    CommandHistory typed_before_;
    std::wstring completing_;  ///< what was typed before the first Tab
    std::wstring completed_;   ///< what the last Tab made of it; empty before the first Tab
};

}  // namespace host
