// CUGMaskedEdit, the one-line editor that the grid opens over a cell.
#pragma once

#include <string>

#include "bidi/multi_edit.h"
#include "grid/cell_editor.h"

// Enter and Tab commit, Escape cancels, losing the focus commits. No mask can be set: any text is accepted. A cell that
// holds Hebrew, or that Hebrew is typed into, is edited from right to left.
class CUGMaskedEdit : public CUGMultiEdit, public corvanes::CellEditor {
  public:
    void begin(corvanes::CellEditOwner& owner, const CString& text, UINT key) override;
    CString text() const override;
    void end() override;

  protected:
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    DECLARE_MESSAGE_MAP()

  private:
    // The text given, and how the editor has it: it knows fewer kinds of line ends. Untouched it goes back as it came.
    CString given_;
    std::wstring begun_;
    // Null while no edit is going on.
    corvanes::CellEditOwner* owner_ = nullptr;
};
