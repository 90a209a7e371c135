// CWinApp: the program, its main window and its message loop; and the functions that need no object.
#pragma once

#include "afxwnd_.h"

/// A program makes one object of a derived class. Modules that are loaded into it make none.
class AFX_PUBLIC CWinApp : public CCmdTarget {
  public:
    explicit CWinApp(LPCWSTR name = nullptr);
    ~CWinApp() override;

    virtual BOOL PreTranslateMessage(MSG* message);
    /// Called while the queue is empty, with 0, 1, ... until it returns FALSE. The base deletes the temporary objects.
    virtual BOOL OnIdle(LONG count);

    /// The main window; when it is destroyed, the program quits.
    CWnd* m_pMainWnd = nullptr;
    CString m_strAppName;

  private:
};

/// The program object, null in a program that has none.
AFX_PUBLIC CWinApp* AfxGetApp();
AFX_PUBLIC CWnd* AfxGetMainWnd();
/// Gets one message and runs it; FALSE for WM_QUIT. An exception from PreTranslateMessage is reported.
AFX_PUBLIC BOOL AfxPumpMessage();

/// The instance of the program, not of the module that asks.
AFX_PUBLIC HINSTANCE AfxGetInstanceHandle();
/// The module in which resources are looked for first; initially the program.
AFX_PUBLIC HINSTANCE AfxGetResourceHandle();
AFX_PUBLIC void AfxSetResourceHandle(HINSTANCE module);
/// The module that has the resource: first the current one is searched, then the extension modules, the latest first.
/// The current one when none has it.
AFX_PUBLIC HINSTANCE AfxFindResourceHandle(LPCWSTR name, LPCWSTR type);

/// The name of a window class with these properties, registered once for the program.
AFX_PUBLIC LPCWSTR AfxRegisterWndClass(UINT style, HCURSOR cursor = nullptr, HBRUSH background = nullptr,
                                       HICON icon = nullptr);

/// Shows a message box over the main window's active dialog. Without an icon in `type`, an OK, Cancel, Yes or No box
/// gets the exclamation mark.
AFX_PUBLIC int AfxMessageBox(LPCWSTR text, UINT type = MB_OK, UINT help_id = 0);
