// Dialog data exchange: moving values between controls and members.
#pragma once

#include "afxwnd_.h"

/// One UpdateData call.
class AFX_PUBLIC CDataExchange {
  public:
    CDataExchange(CWnd* dialog, BOOL save) : m_bSaveAndValidate(save), m_pDlgWnd(dialog) {}

    /// The control's window; throws std::logic_error when the dialog has no such control.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);
    /// Gives the focus to the control that was prepared last, and ends the UpdateData call with FALSE.
    [[noreturn]] void Fail();

    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;

  private:
    HWND last_control_ = nullptr;
    bool last_is_edit_ = false;
};

/// Subclasses the control, the first time.
AFX_PUBLIC void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
/// BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
AFX_PUBLIC void DDX_Check(CDataExchange* exchange, int id, int& value);
AFX_PUBLIC void DDX_Text(CDataExchange* exchange, int id, CString& value);
/// Anything but one decimal integer within the range of int is refused with a message.
AFX_PUBLIC void DDX_Text(CDataExchange* exchange, int id, int& value);
