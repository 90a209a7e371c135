// CUGMultiEdit, the edit window for text of both directions.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "bidi/char_widths.h"
#include "bidi/key_translation.h"
#include "bidi/text_editing.h"
#include "bidi/text_layout.h"

namespace corvanes {

/// From anyone to the editor: activate the keyboard layout, or the language's default one, that wParam holds.
constexpr UINT activate_layout_message = WM_USER + 100;

/// From the editor to its parent owner, the nearest window above it that is not a child. lParam is 0 but for the first.
constexpr UINT language_changed_message = 0x2C02;   // wParam: language; lParam: the layout handle's second word
constexpr UINT text_changed_message = 0x2D02;       // wParam: the text's length
constexpr UINT caret_moved_message = 0x2E02;        // wParam: the caret's index in the typed text
constexpr UINT direction_changed_message = 0x2F02;  // wParam: 1 left-to-right, 2 right-to-left

}  // namespace corvanes

/// Its window has the class of the system's edit control, so that programs find it, but the control itself never sees a
/// key, a click or a text: keys become characters by the editor's own tables, the text is kept in typed and painted
/// order, and it is painted here. The text messages of an edit control (WM_GETTEXT, EM_SETSEL, WM_PASTE and so on) are
/// answered for the typed text, with LF between lines, and its parent gets an edit control's notifications (EN_CHANGE
/// and so on).
class CUGMultiEdit : public CEdit {
  public:
    CUGMultiEdit();

    /// Begins anew with a typed text, or with a painted one when `from_logical` is 0; reads the keyboard's language.
    void ResetText(const wchar_t* text, int from_logical);
    std::wstring TypedText() const { return editing_.model().logical(); }
    void SetDirection(corvanes::ParagraphDirection direction);
    bool RightToLeft() const { return editing_.model().right_to_left(); }
    /// While the editor is locked, Tab and Enter do nothing and a pasted text becomes one line (see single_line).
    void SetLocked(bool locked) { locked_ = locked; }

  protected:
    // These tell the parent owner of a change; an override calls the version here, so that the owner is still told.
    virtual void OnLanguageChanged(LANGID language, WORD second_word);
    virtual void OnTextChanged(int length);
    virtual void OnCaretMoved(int index);
    virtual void OnDirectionChanged(int direction);

    /// Inserts a text in place of the selection, or tells the parent that there is no room.
    void ReplaceSelection(std::wstring_view text);
    void TypeCharacter(wchar_t character) { ReplaceSelection({&character, 1}); }
    /// Puts the character of a key that another window received in place of the selection. A digit is treated as typed
    /// here: while the language is Hebrew, it begins a number.
    void TypeFirstCharacter(wchar_t character);
    void SelectAll();
    void SelectWord();
    /// Moves the caret to the end of the typed text, or beside the character at a point of this window, and gives up
    /// the selection.
    void CaretToEnd();
    void CaretTo(CPoint point);

    int OnCreate(CREATESTRUCTW* creation);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnSysKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    void OnLButtonDblClk(UINT keys, CPoint point);
    void OnTimer(UINT_PTR timer);
    void OnCaptureChanged(CWnd* window);
    BOOL OnEraseBkgnd(CDC* dc);
    void OnPaint();
    UINT OnGetDlgCode();
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    void OnShowWindow(BOOL show, UINT status);
    void OnSize(UINT type, int width, int height);
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    void OnContextMenu(CWnd* window, CPoint point);
    LRESULT OnInputLanguage(WPARAM char_set, LPARAM layout);
    void OnInputLangChangeRequest(UINT, UINT) {}
    LRESULT OnActivateLayout(WPARAM layout, LPARAM);
    LRESULT OnSetText(WPARAM, LPARAM text);
    LRESULT OnGetText(WPARAM size, LPARAM buffer);
    LRESULT OnGetTextLength(WPARAM, LPARAM);
    LRESULT OnGetSel(WPARAM start, LPARAM end);
    LRESULT OnSetSel(WPARAM start, LPARAM end);
    LRESULT OnReplaceSel(WPARAM, LPARAM text);
    LRESULT OnGetModify(WPARAM, LPARAM);
    LRESULT OnSetModify(WPARAM modified, LPARAM);
    LRESULT OnGetLineCount(WPARAM, LPARAM);
    LRESULT OnLineFromChar(WPARAM index, LPARAM);
    LRESULT OnLineIndex(WPARAM line, LPARAM);
    LRESULT OnLineLength(WPARAM index, LPARAM);
    LRESULT OnGetLine(WPARAM line, LPARAM buffer);
    LRESULT OnGetLimitText(WPARAM, LPARAM);
    LRESULT OnCharFromPos(WPARAM, LPARAM point);
    LRESULT OnPosFromChar(WPARAM index, LPARAM);
    LRESULT OnSetFontMessage(WPARAM font, LPARAM redraw);
    LRESULT OnPrintClient(WPARAM dc, LPARAM);
    LRESULT OnCut(WPARAM, LPARAM);
    LRESULT OnCopy(WPARAM, LPARAM);
    LRESULT OnPaste(WPARAM, LPARAM);
    LRESULT OnClear(WPARAM, LPARAM);
    LRESULT OnUndo(WPARAM, LPARAM);
    LRESULT OnCanUndo(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

  private:
    /// Runs a change of the text or the caret, shows it, and tells the owner what became different.
    void Edit(const std::function<void(corvanes::TextEditing&)>& change);
    void HandleKey(UINT key, UINT repeat, UINT flags);
    void Perform(const corvanes::KeyAction& action, UINT repeat, UINT flags);
    void PerformCommand(const corvanes::KeyAction& action, UINT flags);
    void InsertFromKeyboard(UINT key, UINT flags);
    void InsertTab();
    void LeaveToParent(UINT key, UINT repeat, UINT flags);
    void DropTranslatedCharacter(UINT flags);

    void PaintText(CDC& screen, const RECT& part);
    void PaintSelection(CDC& screen, CDC& picture, const corvanes::TextView& view,
                        const corvanes::VisibleText& visible);
    void DrawVisibleText(CDC& picture, const corvanes::TextView& view, const corvanes::VisibleText& visible,
                         COLORREF color);
    corvanes::TextView View() const;
    corvanes::MeasureText Measure();
    size_t GapAt(CPoint point);
    void PlaceCaret(CPoint point, bool extend);
    void DragTo(CPoint point);
    UINT AskContextMenu(CPoint point);
    void UpdateCaret();
    void UpdateScrollRanges();
    void ScrollToCaret();
    void Redraw();
    /// The text that each row of the window shows.
    std::vector<corvanes::VisibleText> VisibleRows() const;
    void RedrawChangedRows(const std::vector<corvanes::VisibleText>& former);
    void TellOwner(UINT message, WPARAM wParam, LPARAM lParam) const;
    /// The notifications of an edit control.
    void NotifyParent(WORD notification) const;

    corvanes::TextEditing editing_;
    corvanes::InputLanguage language_;
    unsigned alignment_ = 0;
    int first_visible_column_ = 0;
    int first_visible_line_ = 0;
    HFONT font_ = nullptr;
    int line_height_ = 1;
    corvanes::CharWidths widths_;
    bool locked_ = false;
    bool has_caret_ = false;
};
