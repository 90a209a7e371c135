// CUGMaskedEdit, the one-line editor that the grid opens over a cell.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bidi/multi_edit.h"
#include "grid/cell_editor.h"

// Enter, Tab, Up and Down commit, Escape cancels, losing the focus commits. No mask can be set: any text is accepted. A
// text with Hebrew is edited from right to left, from its first Hebrew letter on, unless the person chooses otherwise.
// The caret begins at the end, or where the click was that opened the editor.
class CUGMaskedEdit : public CUGMultiEdit, public corvanes::CellEditor {
  public:
    // Sets the direction in which the text of an empty cell begins; without one it follows the keyboard's language.
    void SetDirectionWhenEmpty(std::optional<corvanes::ParagraphDirection> direction) {
        direction_when_empty_ = direction;
    }

    void begin(corvanes::CellEditOwner& owner, const CString& text, UINT key) override;
    void point_at(POINT point) override;
    CString text() const override;
    void end() override;

  protected:
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    void OnDirectionChanged(int direction) override;
    void OnTextChanged(int length) override;
    DECLARE_MESSAGE_MAP()

  private:
    // Whether the key is Up or Down and leads to the row above or below.
    bool LeavesToRow(UINT key) const;
    corvanes::ParagraphDirection first_direction(std::wstring_view text, UINT key) const;
    // Sets a direction that the person did not choose.
    void TakeDirection(corvanes::ParagraphDirection direction);

    std::optional<corvanes::ParagraphDirection> direction_when_empty_;
    bool taking_direction_ = false;
    bool direction_chosen_ = false;  // whether the person chose the direction in this edit
    // The text as it was given, and as the editor holds it with its own line ends. A text that nobody edited is given
    // back as it was given.
    CString given_;
    std::wstring begun_;
    // Null while no edit is going on.
    corvanes::CellEditOwner* owner_ = nullptr;
};
