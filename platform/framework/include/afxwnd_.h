// CWnd: a window and the C++ object that receives its messages.
#pragma once

#include "afxcmdtarget_.h"
#include "afxdc_.h"

class CDataExchange;
class CMenu;
class CScrollBar;

/// The number that stands for all the WM_CTLCOLOR... messages in a message map.
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019
#endif

/// An object that is attached to a window owns it: destroying the object destroys the window. When the window goes
/// first, the object is detached at WM_NCDESTROY and PostNcDestroy is called. The objects that FromHandle makes for
/// windows without one are temporary: they own nothing, receive nothing, and live until the program is idle.
class AFX_PUBLIC CWnd : public CCmdTarget {
    DECLARE_MESSAGE_MAP()

  public:
    CWnd() = default;
    ~CWnd() override;

    static CWnd* FromHandle(HWND window);
    static CWnd* FromHandlePermanent(HWND window);
    /// Deletes the temporary objects; does nothing while a handler is running.
    static void DeleteTempMap();
    operator HWND() const { return m_hWnd; }

    /// Takes over a window. FALSE for a null window, for an object that has one already, and for a window that another
    /// object has.
    BOOL Attach(HWND window);
    HWND Detach();
    /// Attaches the window and takes its messages; what this object does not handle goes on to the window's former
    /// procedure.
    BOOL SubclassWindow(HWND window);

    // Creation. The object receives the window's messages from WM_NCCREATE on. A null class name gives a plain window
    // class.
    BOOL Create(LPCWSTR class_name, LPCWSTR title, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                void* parameter = nullptr);
    BOOL CreateEx(DWORD ex_style, LPCWSTR class_name, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                  HWND parent, HMENU menu_or_id, void* parameter = nullptr);
    BOOL CreateEx(DWORD ex_style, LPCWSTR class_name, LPCWSTR title, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id, void* parameter = nullptr);
    virtual BOOL DestroyWindow();
    /// May change how the window is created; FALSE cancels the creation.
    virtual BOOL PreCreateWindow(CREATESTRUCTW& creation);
    virtual void PreSubclassWindow() {}

    // Text, state and style.
    void SetWindowText(LPCWSTR text) { ::SetWindowTextW(m_hWnd, text); }
    void GetWindowText(CString& text) const;
    int GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CFont* GetFont() const;

    // Place.
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const RECT* rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
    void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); }
    void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
    void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
    void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
    void ScreenToClient(RECT* rect) const;
    /// Moves the window to the middle of the given window, or else of its owner or parent, within the work area.
    void CenterWindow(CWnd* over = nullptr);

    // Relatives.
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* GetTopLevelParent() const;

    // Controls of a dialog.
    UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id); }
    /// Moves the controls' values into the members (TRUE) or back, by DoDataExchange; FALSE without a window.
    BOOL UpdateData(BOOL save = TRUE);

    // Messages, timers, focus and mouse.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure = nullptr);
    BOOL KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }

    // Painting.
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(const RECT* rect = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);

    // Scrolling and the caret.
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
    void SetScrollRange(int bar, int first, int last, BOOL redraw = TRUE);
    void CreateSolidCaret(int width, int height) { ::CreateCaret(m_hWnd, nullptr, width, height); }
    void ShowCaret() { ::ShowCaret(m_hWnd); }
    void HideCaret() { ::HideCaret(m_hWnd); }
    static void SetCaretPos(POINT point) { ::SetCaretPos(point.x, point.y); }
    static CPoint GetCaretPos();

    /// Shows the window once the queue is empty, and runs messages until EndModalLoop or the end of the window. Returns
    /// the result that EndModalLoop was given last.
    int RunModalLoop();
    void EndModalLoop(int result);

    /// May take a message of the queue before it is dispatched; TRUE when it was taken.
    virtual BOOL PreTranslateMessage(MSG* message);
    /// Offers the message to the objects of its window and of the parents up to `stop`.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);
    /// The message that is being handled.
    static const MSG* GetCurrentMessage();

    HWND m_hWnd = nullptr;

  protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// TRUE when a handler took the message.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// The procedure of the window's class, or the system's default one.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// The default handling of the message that is being handled.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual void DoDataExchange(CDataExchange*) {}
    /// The last function that is called for a window; here an object may delete itself.
    virtual void PostNcDestroy() {}
    /// Translates a key or mouse message as a dialog does.
    BOOL PreTranslateInput(MSG* message);

    // Handlers with the default behaviour.
    int OnCreate(CREATESTRUCTW*) { return static_cast<int>(Default()); }
    void OnDestroy() { Default(); }
    void OnNcDestroy();
    void OnClose() { Default(); }
    void OnPaint() { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    void OnTimer(UINT_PTR) { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    HBRUSH OnCtlColor(CDC*, CWnd*, UINT) { return reinterpret_cast<HBRUSH>(Default()); }
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnInputLangChangeRequest(UINT, UINT) { Default(); }

  private:
    friend class CreationHook;
    friend class WindowProcedure;

    /// Replaces the window's procedure by the framework's.
    void take_over_messages();

    WNDPROC window_procedure_ = nullptr;  // the window's procedure before the framework's
    int modal_result_ = 0;
    bool in_modal_loop_ = false;
    bool continue_modal_ = false;
};
