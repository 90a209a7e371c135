// The commands that a person may give to a grid.
#pragma once

#include <afxwin.h>

namespace corvanes {

enum class GridCommand {
    copy,
    copy_with_headings,
    cut,
    paste,
    clear,
    select_all,
    find,
    find_next,
    replace,
    fit_column,
    sort,
    hide_column,
    print,
    show_column,  // column -1 stands for all hidden ones
};

// Carries out commands; the grid's windows know it by this interface.
class CommandTarget {
  public:
    // Handles a key that went down in the painting area, with the modifier keys that are held; true when it stands for
    // a command.
    virtual bool KeyDown(UINT key) = 0;
    // Handles a key with Alt: the left and right arrows make the current column narrower and wider.
    virtual void SysKeyDown(UINT key) = 0;
    // Handles a printable character that was typed in the painting area.
    virtual void CharDown(wchar_t character) = 0;
    // Carries out a command; `column` matters only to commands about one column.
    virtual void Run(GridCommand command, int column) = 0;
    // Asks with a menu at a point of the screen and runs what was chosen; `column` is the one that was pointed at, or
    // -1.
    virtual void ShowMenu(CWnd& window, POINT point, int column) = 0;
    // Shows the sum of the selected numbers below the grid, or removes it when there is none.
    virtual void ShowStatus() = 0;
    // Whether ShowStatus is to be called soon after the grid was painted.
    virtual bool StatusDue() const = 0;

  protected:
    ~CommandTarget() = default;
};

}  // namespace corvanes
