#include "pricelist/numeric_edit.h"

#include <cwchar>

namespace corvanes {

bool number_character_allowed(wchar_t character, const wchar_t* text) {
    constexpr wchar_t backspace = 8;
    if ((character >= L'0' && character <= L'9') || character == backspace) {
        return true;
    }
    return character == L'.' && std::wcschr(text, L'.') == nullptr;
}

}  // namespace corvanes

BEGIN_MESSAGE_MAP(CEditReal, CEdit)
    ON_WM_CHAR()
END_MESSAGE_MAP()

void CEditReal::OnChar(UINT character, UINT repeat, UINT flags) {
    CString text;
    GetWindowText(text);
    if (corvanes::number_character_allowed(static_cast<wchar_t>(character), text)) {
        CEdit::OnChar(character, repeat, flags);
    }
}
