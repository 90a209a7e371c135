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
    /// In pixels, of the whole text.
    int wanted_width() const;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void paint() const;
    /// Where a part of the text ends, in pixels. Of a text that is too long the end is seen, where the options are.
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

    /// What Tab completes a line to: the names of all commands.
    void complete_with(Names names) { names_ = std::move(names); }
    void show_large_history(bool large) { large_ = large; }
    bool shows_large_history() const { return large_; }
    /// In pixels, in a window of that height.
    int wanted_height(int window_height) const;
    void place(const RECT& area);
    void focus() const { SetFocus(line_); }

    void append_history(std::wstring_view text);
    /// What was printed last, behind its last line end.
    const std::wstring& last_line() const { return last_line_; }
    /// Only the last line of the text is shown.
    void set_prompt(std::wstring_view text);

    /// The line that stands there; it is empty afterwards, and in the history of lines.
    std::wstring take_typed();
    void clear_typed();
    /// A key goes to a text that it edits: the line has one, or it is the history's.
    bool edits_text(const MSG& message) const;
    bool is_line(HWND window) const { return window == line_; }
    /// A person who has clicked into the history still types into the line.
    void redirect_typing(MSG& message) const;
    /// Tab, Up and Down; true when the message was one of them.
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
    std::wstring last_line_;  ///< of the history
    CommandHistory typed_before_;
    std::wstring completing_;  ///< what was typed before the first Tab
    std::wstring completed_;   ///< what the last Tab made of it; empty when another key came
};

}  // namespace host
