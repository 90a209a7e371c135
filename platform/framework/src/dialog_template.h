// Dialog templates as they lie in the resources.
#pragma once

#include "afxver_.h"

namespace framework {

struct DialogTemplate {
    const DLGTEMPLATE* dialog;  // null when it was not found; else it stays as long as its module
    HINSTANCE module;
};

DialogTemplate find_dialog_template(LPCWSTR name);

/// Whether the template says nothing of where the dialog goes: neither a position nor a style for it.
bool wants_centering(const DLGTEMPLATE* dialog);

bool is_multiline_edit(HWND window);

}  // namespace framework
