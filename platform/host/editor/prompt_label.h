// The prompt beside the typed line. Its options, as in "[All/Window]", are underlined and can be clicked.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/host/prompt/keywords.h"

namespace host {

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

}  // namespace host
