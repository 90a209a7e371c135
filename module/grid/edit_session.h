// EditSession, the edit of one cell: it opens the editor, asks the grid's owner, and stores the text.
#pragma once

#include <string_view>

#include "grid/cell_editor.h"

namespace corvanes {

class CellGrid;

class EditSession final : public CellEditOwner {
  public:
    explicit EditSession(CellGrid& grid) : grid_(grid) {}
    EditSession(const EditSession&) = delete;
    EditSession& operator=(const EditSession&) = delete;

    bool active() const { return editor_ != nullptr; }
    // Opens `window` over the cell. False when the window is no CellEditor or nothing of the cell is visible.
    bool start(int column, int row, CWnd& window, UINT key);
    EditOutcome end_edit(EditEnd how, UINT key) override;
    // Asks the grid's owner about a text that was chosen without an editor, and stores it. False when that was refused,
    // or when the cell went away meanwhile.
    bool offer(int column, int row, LPCWSTR text);
    // Closes the editor without asking or storing anything, and ends the hold of a cell. To be called when the cell or
    // the grid is gone.
    void abandon();
    // Gives the focus to the open editor, if there is one.
    void focus();
    // Moves the caret to the click, at a point of the painting area, that opened the editor; the cell was shown at
    // `clicked` then.
    void point_at(POINT point, const RECT& clicked);
    bool is_editor(HWND window) const { return active() && window_->m_hWnd == window; }

  private:
    void close();
    // How far from the left edge of its cell a text that stands at the right is painted, beyond the margin.
    LONG indent(const RECT& shown, std::wstring_view text);

    CellGrid& grid_;
    CellEditor* editor_ = nullptr;
    CWnd* window_ = nullptr;
    int column_ = -1;
    int row_ = -1;
    bool ending_ = false;
};

}  // namespace corvanes
