#include "afxwin.h"

#include "creation_hook.h"
#include "dialog_template.h"
#include "modal_owner.h"

using framework::Scoped;

namespace {

bool is_button(HWND control, LRESULT kind) {
    return (::SendMessageW(control, WM_GETDLGCODE, 0, 0) & kind) != 0;
}

/// Windows makes the button that gets the focus at first the default one; Wine only gives it the focus, so that Return
/// would end the dialog instead. A dialog with a default button of its own keeps that one.
void make_first_button_default(HWND dialog) {
    for (HWND control = ::GetWindow(dialog, GW_CHILD); control; control = ::GetWindow(control, GW_HWNDNEXT)) {
        if (is_button(control, DLGC_DEFPUSHBUTTON)) {
            return;
        }
    }
    const HWND first = ::GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (first && is_button(first, DLGC_UNDEFPUSHBUTTON)) {
        ::SendMessageW(first, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

}  // namespace

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &ThisClass::OnOK)
    ON_COMMAND(IDCANCEL, &ThisClass::OnCancel)
    ON_MESSAGE(WM_INITDIALOG, &ThisClass::HandleInitDialog)
    ON_MESSAGE(WM_SETFONT, &ThisClass::HandleSetFont)
END_MESSAGE_MAP()

CDialog::CDialog(LPCWSTR name, CWnd* parent) : m_pParentWnd(parent), m_lpszTemplateName(name) {}

CDialog::~CDialog() = default;

BOOL CDialog::Create(LPCWSTR name, CWnd* parent) {
    const auto found = framework::find_dialog_template(name);
    CWnd* const owner = parent ? parent : AfxGetMainWnd();
    return create(found.dialog, owner ? owner->m_hWnd : nullptr, found.module);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* dialog, CWnd* parent) {
    CWnd* const owner = parent ? parent : AfxGetMainWnd();
    return create(dialog, owner ? owner->m_hWnd : nullptr, AfxGetResourceHandle());
}

BOOL CDialog::create(const DLGTEMPLATE* dialog, HWND parent, HINSTANCE instance) {
    if (!dialog || m_hWnd) {
        return FALSE;
    }
    auto_center_ = framework::wants_centering(dialog);
    CreationHook hook(this);
    const HWND window = ::CreateDialogIndirectParamW(instance, dialog, parent, dialog_procedure, 0);
    return window && window == m_hWnd;
}

INT_PTR CDialog::DoModal() {
    if (m_hWnd || modal_) {
        return -1;
    }
    const auto found = framework::find_dialog_template(m_lpszTemplateName);
    const Scoped<bool> modal(modal_, true);
    ended_ = false;
    result_ = -1;
    framework::ModalOwner owner(m_pParentWnd ? m_pParentWnd->m_hWnd : nullptr);
    if (create(found.dialog, owner.window(), found.module) && !ended_) {
        RunModalLoop();
    }
    // The dialog is hidden first, then its owner is enabled, and last the dialog is destroyed; in another order the
    // system would activate another program.
    if (m_hWnd) {
        SetWindowPos(nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
    owner.enable(m_hWnd);
    DestroyWindow();
    return result_;
}

void CDialog::EndDialog(int result) {
    if (modal_) {
        ended_ = true;
        result_ = result;
        EndModalLoop(result);
    }
    ::EndDialog(m_hWnd, result);
}

INT_PTR CALLBACK CDialog::dialog_procedure(HWND window, UINT message, WPARAM, LPARAM) {
    if (message != WM_INITDIALOG) {
        return FALSE;
    }
    const auto dialog = dynamic_cast<CDialog*>(FromHandlePermanent(window));
    if (!dialog) {
        return TRUE;
    }
    try {
        const BOOL default_focus = dialog->OnInitDialog();
        if (default_focus) {
            make_first_button_default(window);
        }
        return default_focus;
    } catch (...) {
        // No exception may pass through the system's code that called this procedure.
        AfxReportCurrentException();
        dialog->EndDialog(-1);
        return TRUE;
    }
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
    CRect before, after;
    GetWindowRect(before);
    const bool may_center = auto_center_ && !IsWindowVisible() && !(GetStyle() & WS_CHILD);
    const LRESULT result = Default();
    if (m_hWnd && may_center && !ended_) {
        GetWindowRect(after);
        if (before.EqualRect(&after) && !IsWindowVisible()) {
            CenterWindow();
        }
    }
    return result;
}

LRESULT CDialog::HandleSetFont(WPARAM wParam, LPARAM) {
    if (CFont* const font = CFont::FromHandle(reinterpret_cast<HFONT>(wParam))) {
        OnSetFont(font);
    }
    return Default();
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

BOOL CDialog::OnCmdMsg(UINT id, int code, void* extra, void* handler_info) {
    if (CWnd::OnCmdMsg(id, code, extra, handler_info)) {
        return TRUE;
    }
    // The program's commands go on to the owner; the notifications of controls stay here.
    constexpr UINT first_command = 0x8000, first_system_command = 0xf000;
    if (code != CN_COMMAND || id < first_command || id >= first_system_command) {
        return FALSE;
    }
    CWnd* const parent = GetParent();
    return parent && parent->OnCmdMsg(id, code, extra, handler_info);
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    if (CWnd::PreTranslateMessage(message)) {
        return TRUE;
    }
    // A multi-line edit control of the dialog takes every key, and would not let Escape close the dialog.
    if (message->message == WM_KEYDOWN && (message->wParam == VK_ESCAPE || message->wParam == VK_CANCEL) &&
        ::GetParent(message->hwnd) == m_hWnd && framework::is_multiline_edit(message->hwnd)) {
        const HWND cancel = ::GetDlgItem(m_hWnd, IDCANCEL);
        if (!cancel || ::IsWindowEnabled(cancel)) {
            SendMessage(WM_COMMAND, IDCANCEL);
            return TRUE;
        }
    }
    // Windows makes a button that was clicked, or pressed by its letter, the default one; Wine only gives it the focus.
    const HWND focus = ::GetFocus();
    if (message->message == WM_KEYDOWN && message->wParam == VK_RETURN && ::GetParent(focus) == m_hWnd &&
        is_button(focus, DLGC_UNDEFPUSHBUTTON)) {
        SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(focus), TRUE);
    }
    return PreTranslateInput(message);
}

void CDialog::GotoDlgCtrl(CWnd* control) {
    SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), TRUE);
}
