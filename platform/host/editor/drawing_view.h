// The part of the main window that the drawing appears in.
#pragma once

#include <windows.h>

#include <string>

namespace host {

class DrawingView {
  public:
    /// A child window that fills nothing until its parent places it. The parent destroys it.
    explicit DrawingView(HWND parent);
    DrawingView(const DrawingView&) = delete;
    DrawingView& operator=(const DrawingView&) = delete;

    HWND window() const { return window_; }
    /// A text in the middle of the view; empty for none.
    void show_message(std::wstring message);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void paint() const;

    HWND window_ = nullptr;
    std::wstring message_;
};

}  // namespace host
