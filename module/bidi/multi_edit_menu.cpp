// The editor's context menu, with what its keys do and what no key does.
#include <iterator>

#include "bidi/clipboard_text.h"
#include "bidi/multi_edit.h"

using namespace corvanes;

namespace {

enum MenuCommand : UINT {
    menu_undo = 1,
    menu_cut,
    menu_copy,
    menu_paste,
    menu_delete,
    menu_select_word,
    menu_select_all,
    menu_right_to_left,
    menu_first_character,
};

/// Characters that no key of the editor gives.
struct ListedCharacter {
    wchar_t character;
    const wchar_t* name;
};

constexpr ListedCharacter listed_characters[] = {
    {0x20AA, L"\x20AA\tNew sheqel"}, {0x20AC, L"\x20AC\tEuro"},          {0x05BE, L"\x05BE\tHebrew hyphen (maqaf)"},
    {0x05F3, L"\x05F3\tGeresh"},     {0x05F4, L"\x05F4\tGershayim"},     {0x2013, L"\x2013\tEn dash"},
    {0x00B0, L"\x00B0\tDegree"},     {0x00B1, L"\x00B1\tPlus or minus"}, {0x00D7, L"\x00D7\tTimes"},
    {0x00D8, L"\x00D8\tDiameter"},   {0x00B2, L"\x00B2\tSquare"},        {0x00B3, L"\x00B3\tCube"},
    {0x00BD, L"\x00BD\tHalf"},       {0x2033, L"\x2033\tInch"},
};

UINT enabled_if(bool enabled) {
    return MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED);
}

}  // namespace

/// Shows the menu and gives what a person chooses, 0 for nothing. The keyboard asks for the menu with the point -1, -1;
/// it then opens at the caret.
UINT CUGMultiEdit::AskContextMenu(CPoint point) {
    const bool selected = !editing_.selection().empty();
    const bool any = !TypedText().empty();
    CMenu menu, characters;
    menu.CreatePopupMenu();
    characters.CreatePopupMenu();
    UINT command = menu_first_character;
    for (const ListedCharacter& listed : listed_characters) {
        characters.AppendMenu(MF_STRING, command++, listed.name);
    }
    menu.AppendMenu(enabled_if(editing_.can_undo()), menu_undo, L"&Undo");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(enabled_if(selected), menu_cut, L"Cu&t");
    menu.AppendMenu(enabled_if(selected), menu_copy, L"&Copy");
    menu.AppendMenu(enabled_if(clipboard_has_text()), menu_paste, L"&Paste");
    menu.AppendMenu(enabled_if(selected), menu_delete, L"&Delete");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(enabled_if(any), menu_select_word, L"Select &Word");
    menu.AppendMenu(enabled_if(any), menu_select_all, L"Select &All");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, menu_first_character, L"Insert &Sheqel Sign");
    // The menu that the popup is put into destroys it.
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(characters.Detach()), L"&Insert Character");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | (editing_.model().right_to_left() ? MF_CHECKED : 0U), menu_right_to_left,
                    L"&Right to left Reading order");
    if (point.x == -1 && point.y == -1) {
        point = GetCaretPos();
        ClientToScreen(&point);
    }
    return static_cast<UINT>(
        menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x, point.y, this));
}

void CUGMultiEdit::OnContextMenu(CWnd*, CPoint point) {
    const UINT chosen = AskContextMenu(point);
    switch (chosen) {
        case menu_undo:
            SendMessage(WM_UNDO);
            break;
        case menu_cut:
            SendMessage(WM_CUT);
            break;
        case menu_copy:
            SendMessage(WM_COPY);
            break;
        case menu_paste:
            SendMessage(WM_PASTE);
            break;
        case menu_delete:
            SendMessage(WM_CLEAR);
            break;
        case menu_select_word:
            SelectWord();
            break;
        case menu_select_all:
            SelectAll();
            break;
        case menu_right_to_left:
            SetDirection(editing_.model().right_to_left() ? ParagraphDirection::left_to_right
                                                          : ParagraphDirection::right_to_left);
            break;
        default:
            // Wine answers -2 when a menu inside was opened by its letter and closed by Escape.
            if (chosen >= menu_first_character && chosen - menu_first_character < std::size(listed_characters)) {
                TypeCharacter(listed_characters[chosen - menu_first_character].character);
            }
            break;
    }
}

// The word that the caret stands in, or behind.
void CUGMultiEdit::SelectWord() {
    Edit([](TextEditing& editing) {
        const size_t length = editing.model().logical().size();
        const size_t caret = editing.caret().index;
        if (length > 0) {
            editing.select_word(caret < length ? caret : length - 1);
        }
    });
}
