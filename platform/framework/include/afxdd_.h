// Dialog data exchange: moving values between controls and members.
#pragma once

#include "afxwnd_.h"

/// The state of one UpdateData call.
class AFX_PUBLIC CDataExchange {
  public:
    CDataExchange(CWnd* dialog, BOOL save) : m_bSaveAndValidate(save), m_pDlgWnd(dialog) {}

    /// The control's window; throws std::logic_error when the dialog has no such control.
    HWND PrepareCtrl(int id);

    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;
};

/// Subclasses the control in the first call for it.
AFX_PUBLIC void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
/// Moves a check box's state: BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
AFX_PUBLIC void DDX_Check(CDataExchange* exchange, int id, int& value);
