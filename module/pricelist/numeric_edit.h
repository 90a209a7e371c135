// CEditReal, an edit control that accepts only an unsigned decimal number from the keyboard.
#pragma once

#include <afxwin.h>

namespace corvanes {

/// Whether a character may be typed into a control that holds `text`: digits, backspace, and one ".".
bool number_character_allowed(wchar_t character, const wchar_t* text);

}  // namespace corvanes

/// Other characters are dropped silently; pasted text is taken as it is.
class CEditReal : public CEdit {
  protected:
    afx_msg void OnChar(UINT character, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()
};
