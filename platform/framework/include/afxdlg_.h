// CDialog: a dialog box from a template, modal or not.
#pragma once

#include "afxwnd_.h"

class AFX_PUBLIC CDialog : public CWnd {
    DECLARE_MESSAGE_MAP()

  public:
    /// Makes an object for Create or InitModalIndirect.
    CDialog() = default;
    /// A modal dialog; the template is found as AfxFindResourceHandle says. Without a parent it is the main window.
    explicit CDialog(UINT id, CWnd* parent = nullptr) : CDialog(MAKEINTRESOURCEW(id), parent) {}
    explicit CDialog(LPCWSTR name, CWnd* parent = nullptr);
    ~CDialog() override;

    /// Creates a modeless dialog, which the caller shows and destroys.
    BOOL Create(UINT id, CWnd* parent = nullptr) { return Create(MAKEINTRESOURCEW(id), parent); }
    BOOL Create(LPCWSTR name, CWnd* parent = nullptr);
    BOOL CreateIndirect(const DLGTEMPLATE* dialog, CWnd* parent = nullptr);

    /// Shows the dialog and runs it, with its parent disabled, until EndDialog. Returns the result that EndDialog was
    /// given last; -1 when the dialog could not be created, or when the program is quitting.
    virtual INT_PTR DoModal();
    /// Ends the modal loop once the current handler is done. When it is called again before that, the later result
    /// counts.
    void EndDialog(int result);

    virtual BOOL OnInitDialog();
    /// Called when the dialog's controls are about to get this font.
    virtual void OnSetFont(CFont*) {}
    virtual void OnOK();
    virtual void OnCancel();

    BOOL OnCmdMsg(UINT id, int code, void* extra, void* handler_info) override;
    BOOL PreTranslateMessage(MSG* message) override;

    void GotoDlgCtrl(CWnd* control);

  protected:
    CWnd* m_pParentWnd = nullptr;
    LPCWSTR m_lpszTemplateName = nullptr;

    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    LRESULT HandleSetFont(WPARAM wParam, LPARAM lParam);

  private:
    static INT_PTR CALLBACK dialog_procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    BOOL create(const DLGTEMPLATE* dialog, HWND parent, HINSTANCE instance);

    bool modal_ = false;  // whether DoModal is running
    bool ended_ = false;
    bool auto_center_ = false;
    int result_ = -1;
};
