// CUGMaskedEdit, the one-line editor that the grid opens over a cell.
#pragma once

#include <afxwin.h>

#include "grid/cell_editor.h"

// Enter and Tab commit, Escape cancels, losing the focus commits. No mask can be set: any text is accepted.
class CUGMaskedEdit : public CEdit, public corvanes::CellEditor {
  public:
    void begin(corvanes::CellEditOwner& owner, const CString& text, UINT key) override;
    CString text() const override;
    void end() override;

  protected:
    // The text scrolls along with the caret whatever style the owner creates the window with.
    BOOL PreCreateWindow(CREATESTRUCTW& creation) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    UINT OnGetDlgCode();
    DECLARE_MESSAGE_MAP()

  private:
    // Null while no edit is going on.
    corvanes::CellEditOwner* owner_ = nullptr;
};
