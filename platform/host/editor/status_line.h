// The line at the bottom of the main window: where the pointer is, what is selected, what the pointer is over.
#pragma once

#include <windows.h>

#include <string>

namespace host {

class StatusLine {
  public:
    enum Part { coordinates, selected, under_pointer, part_count };

    /// The parent destroys the window.
    StatusLine(HWND parent, HFONT font);

    HWND window() const { return window_; }
    int height() const;
    /// Moves the line to the bottom of the parent.
    void place();
    void set(Part part, const std::wstring& text);

  private:
    HWND window_;
    int letter_width_ = 0;  ///< pixels, on average
    std::wstring texts_[part_count];
};

}  // namespace host
