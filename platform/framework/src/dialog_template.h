// Dialog templates in the form in which the resources hold them.
#pragma once

#include "afxver_.h"

namespace framework {

struct DialogTemplate {
    const DLGTEMPLATE* dialog;  // null when it was not found; valid while its module is loaded
    HINSTANCE module;
};

DialogTemplate find_dialog_template(LPCWSTR name);

/// Whether the template leaves the dialog's place open: it has neither a position nor a style that sets one.
bool wants_centering(const DLGTEMPLATE* dialog);

bool is_multiline_edit(HWND window);

}  // namespace framework
