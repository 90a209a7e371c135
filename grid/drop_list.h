// The list that a drop-list cell opens: a combo box laid over the cell for as long as one chooses.
#pragma once

#include <afxwin.h>

#include "grid/cell_editor.h"

namespace corvanes {

class DropList : public CWnd, public CellEditor {
  public:
    static constexpr UINT control_id = 126;

    // Creates the window, hidden, on the first call. The items are the lines of `items`; false when there are none.
    // `height` is that of the cell, in pixels.
    bool Prepare(CWnd& parent, const wchar_t* items, int height);
    // Unfolds the list, once the window is visible.
    void Unfold();
    // The parent hands on the combo box's notification codes.
    void Notified(UINT code);

    RECT bounds(const RECT& cell) const override;
    void begin(CellEditOwner& owner, const CString& text, UINT key) override;
    // The chosen item; the text that the cell had when none was chosen.
    CString text() const override;
    void end() override;

  protected:
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    UINT OnGetDlgCode();
    DECLARE_MESSAGE_MAP()

  private:
    CellEditOwner* owner_ = nullptr;
    CString former_;
    bool chosen_ = false;
    int cell_height_ = 0;
};

}  // namespace corvanes
