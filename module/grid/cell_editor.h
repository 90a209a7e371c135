// CellEditor and CellEditOwner, through which the grid and the windows that edit a cell's text talk to each other.
#pragma once

#include <afxwin.h>

namespace corvanes {

enum class EditEnd { commit, cancel };

// The result of an attempt to end an edit. `refused`: the grid's owner wants the edit to go on, and the editor gets the
// focus again. `busy`: nothing happened, because an earlier attempt is still being decided (its message box took the
// focus, say).
enum class EditOutcome { ended, refused, busy };

// The grid, as an open editor sees it.
class CellEditOwner {
  public:
    // To be called by the editor on Enter, Tab, Escape or the loss of the focus. `key` is the virtual key that asked
    // for the end, 0 when none did: after a committing Enter, Tab, Up or Down the grid moves on to the next cell. When
    // the edit ended, the editor has been hidden by the time this returns.
    virtual EditOutcome end_edit(EditEnd how, UINT key) = 0;

  protected:
    ~CellEditOwner() = default;
};

// Implemented by every CWnd that OnGridEditStart hands out. The grid places the window over the cell and gives it the
// grid's font, calls begin, shows it and gives it the focus, and in the end hides it and calls end. One window serves
// all cells, one after another.
class CellEditor {
  public:
    // Where the window goes for a cell at `cell`, both in pixels of the painting area.
    virtual RECT bounds(const RECT& cell) const { return cell; }
    // `owner` stays valid until end. `key` is the character that started the edit, as if it were typed into the open
    // editor in place of `text`; 0 when there was none.
    virtual void begin(CellEditOwner& owner, const CString& text, UINT key) = 0;
    // Tells the editor where the click was that began the edit, in pixels of its window.
    virtual void point_at(POINT /*point*/) {}
    // The text as it would be stored now.
    virtual CString text() const = 0;
    // After this the editor must not call its owner any more.
    virtual void end() = 0;

  protected:
    ~CellEditor() = default;
};

}  // namespace corvanes
