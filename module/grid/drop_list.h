// The list that a drop-list cell opens: a combo box laid over the cell while a person chooses. Letters typed one soon
// after another lead to the item that begins with them, the same letter again to the next such item; Backspace begins
// anew.
#pragma once

#include <afxwin.h>

#include <string>

#include "grid/cell_editor.h"
#include "grid/typed_word.h"

namespace corvanes {

class DropList : public CWnd, public CellEditor {
  public:
    static constexpr UINT control_id = 126;

    // Creates the window, hidden, on the first call. The items are the lines of `items`; false when there are none.
    bool Prepare(CWnd& parent, const wchar_t* items);
    // Unfolds the list, once the window is visible.
    void Unfold();
    // Takes the combo box's notification codes, which the parent passes on.
    void Notified(UINT code);

    RECT bounds(const RECT& cell) const override;
    void begin(CellEditOwner& owner, const CString& text, UINT key) override;
    // The chosen item; the cell's former text when none was chosen.
    CString text() const override;
    void end() override;

  protected:
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    UINT OnGetDlgCode();
    DECLARE_MESSAGE_MAP()

  private:
    int font_height() const;
    LRESULT find_item(LRESULT after, const std::wstring& beginning) const;

    CellEditOwner* owner_ = nullptr;
    CString former_;
    bool chosen_ = false;
    TypedWord typed_;
};

}  // namespace corvanes
