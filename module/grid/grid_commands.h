// GridCommands, what a person may do with a grid's cells by keys and menus: find, copy, paste, and the like.
#pragma once

#include <afxwin.h>

#include "grid/find_dialog.h"
#include "grid/grid_command.h"
#include "grid/selection_status.h"
#include "grid/typed_word.h"

namespace corvanes {

class CellGrid;

class GridCommands final : public CommandTarget {
  public:
    explicit GridCommands(CellGrid& grid) : grid_(grid), find_(grid) {}

    bool KeyDown(UINT key) override;
    void SysKeyDown(UINT key) override;
    void CharDown(wchar_t character) override;
    void Run(GridCommand command, int column) override;
    void ShowMenu(CWnd& window, POINT point, int column) override;
    void ShowStatus() override;
    bool StatusDue() const override;
    // Closes the windows of commands that are still open.
    void CloseWindows();

  private:
    // Whether the command would do anything now.
    bool Can(GridCommand command, int column) const;
    void SelectAll();
    void ShowColumn(int column);
    void Print();

    CellGrid& grid_;
    FindDialog find_;
    SelectionStatus status_;
    TypedWord typed_;
};

}  // namespace corvanes
