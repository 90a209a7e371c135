// Finds the dialog that the user has to answer, and what is in it.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace host {

/// The registered message "CellRectangleQuery" carries a pointer to this in lParam (wParam is 0). A grid that has the
/// cell shows it, fills in the rectangle in screen pixels, and returns 1; every other window returns 0. Row -1 is the
/// heading.
struct CellRectangle {
    int column;
    int row;
    RECT rectangle;
};

/// The registered message "PrintedPageQuery" carries a pointer to this in lParam (wParam is 0). A window that can be
/// printed paints the page, counted from 0, in that many pixels, and returns how many pages there are; every other one
/// returns 0.
struct PrintedPage {
    HDC context;
    int width;
    int height;
    int dots_per_inch;
    int page;
};

/// A place in a window's client area.
struct WindowPoint {
    HWND window;
    POINT point;
};

enum class CellPlace {
    middle,
    right_border,  ///< the last pixel inside
};

class ModalDialog {
  public:
    /// The dialog or message box of this thread that takes input now, if any.
    static std::optional<ModalDialog> find();

    HWND window() const { return window_; }
    std::wstring title() const;
    /// Whether it is a message box of the system, whoever has shown it.
    bool is_message_box() const { return message_box_; }
    /// The message of a message box.
    std::wstring message() const;
    /// The title of a dialog, the message of a message box.
    std::wstring name() const { return message_box_ ? message() : title(); }

    /// The visible control with that number, or null.
    HWND control(int id) const;
    /// The visible button (or check box) with that caption, "&" aside, or null.
    HWND button(const std::wstring& caption) const;
    /// The button that Return presses, or null.
    HWND default_button() const;
    /// Where to point for a cell of a grid; nothing when no grid has the cell.
    std::optional<WindowPoint> cell(int column, int row, CellPlace place) const;
    /// Has a page painted. Returns how many pages there are, 0 when nothing in the dialog can be printed.
    int print(const PrintedPage& page) const;
    /// All windows inside, outer ones before inner ones.
    std::vector<HWND> descendants() const;

  private:
    ModalDialog(HWND window, bool message_box) : window_(window), message_box_(message_box) {}

    HWND window_;
    bool message_box_;
};

/// The owner of a message box or dialog that the host shows: the dialog that is up, else the main window.
HWND dialog_owner(HWND main_window);

}  // namespace host
