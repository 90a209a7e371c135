// CWnd: a window and the C++ object that receives its messages.
#pragma once

#include "afxcmdtarget_.h"
#include "afxdc_.h"

class CDataExchange;
class CMenu;
class CScrollBar;

/// The map's number for all the WM_CTLCOLOR... messages.
#ifndef WM_CTLCOLOR
#define WM_CTLCOLOR 0x0019
#endif

// Flags of RunModalLoop.
#define MLF_NOIDLEMSG 0x0001   // do not send WM_ENTERIDLE to the parent
#define MLF_SHOWONIDLE 0x0004  // show the window once the queue is empty

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
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }

    /// FALSE for no window, for an object that has one, and for a window that another object has.
    BOOL Attach(HWND window);
    HWND Detach();
    /// Attach, and the window's messages come to this object, which passes on what it does not handle.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    /// Gives the window its own procedure back and detaches it.
    HWND UnsubclassWindow();

    // Creation. The object receives the window's messages from WM_NCCREATE on. A null class name gives a plain window
    // class.
    BOOL Create(LPCWSTR class_name, LPCWSTR title, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                void* parameter = nullptr);
    BOOL CreateEx(DWORD ex_style, LPCWSTR class_name, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                  HWND parent, HMENU menu_or_id, void* parameter = nullptr);
    BOOL CreateEx(DWORD ex_style, LPCWSTR class_name, LPCWSTR title, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id, void* parameter = nullptr);
    virtual BOOL DestroyWindow();
    /// May change how the window is created; FALSE gives it up.
    virtual BOOL PreCreateWindow(CREATESTRUCTW& creation);
    virtual void PreSubclassWindow() {}

    // Text, state and style.
    void SetWindowText(LPCWSTR text) { ::SetWindowTextW(m_hWnd, text); }
    void GetWindowText(CString& text) const;
    int GetWindowText(LPWSTR buffer, int size) const { return ::GetWindowTextW(m_hWnd, buffer, size); }
    int GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }
    /// With position flags, SetWindowPos is called with them too. FALSE when nothing changed.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT position_flags = 0);
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT position_flags = 0);
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CFont* GetFont() const;
    HICON SetIcon(HICON icon, BOOL big);

    // Place.
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const RECT* rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
    BOOL BringWindowToTop() { return ::BringWindowToTop(m_hWnd); }
    void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); }
    void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
    void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
    void ClientToScreen(RECT* rect) const;
    void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
    void ScreenToClient(RECT* rect) const;
    void MapWindowPoints(CWnd* to, POINT* points, UINT count) const;
    void MapWindowPoints(CWnd* to, RECT* rect) const;
    /// Over the given window, or over the owner, or the parent; within the work area.
    void CenterWindow(CWnd* over = nullptr);

    // Relatives.
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* SetParent(CWnd* parent);
    /// The owner that SetOwner gave, or else the parent; the two differ in who gets a control's notifications.
    CWnd* GetOwner() const { return owner_ ? FromHandle(owner_) : GetParent(); }
    void SetOwner(CWnd* owner) { owner_ = owner ? owner->m_hWnd : nullptr; }
    CWnd* GetTopLevelParent() const;
    CWnd* GetWindow(UINT relation) const { return FromHandle(::GetWindow(m_hWnd, relation)); }
    CWnd* GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }
    BOOL IsChild(const CWnd* window) const { return ::IsChild(m_hWnd, window->m_hWnd); }
    static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
    static CWnd* WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }

    // Controls of a dialog.
    void SetDlgItemText(int id, LPCWSTR text) { ::SetDlgItemTextW(m_hWnd, id, text); }
    int GetDlgItemText(int id, CString& text) const;
    void SetDlgItemInt(int id, UINT value, BOOL is_signed = TRUE) { ::SetDlgItemInt(m_hWnd, id, value, is_signed); }
    UINT GetDlgItemInt(int id, BOOL* read = nullptr, BOOL is_signed = TRUE) const;
    void CheckDlgButton(int id, UINT check) { ::CheckDlgButton(m_hWnd, id, check); }
    UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id); }
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// Moves the controls' values into the members (TRUE) or back, by DoDataExchange; FALSE when a value was refused.
    BOOL UpdateData(BOOL save = TRUE);

    // Messages, timers, focus and mouse.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure = nullptr);
    BOOL KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
    static CWnd* GetCapture() { return FromHandle(::GetCapture()); }
    BOOL OpenClipboard() { return ::OpenClipboard(m_hWnd); }
    int MessageBox(LPCWSTR text, LPCWSTR caption = nullptr, UINT type = MB_OK);

    // Painting.
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
    void ValidateRect(const RECT* rect) { ::ValidateRect(m_hWnd, rect); }
    BOOL GetUpdateRect(RECT* rect, BOOL erase = FALSE) { return ::GetUpdateRect(m_hWnd, rect, erase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(const RECT* rect = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void SetRedraw(BOOL redraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
    CDC* GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
    CDC* GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
    int ReleaseDC(CDC* dc) { return ::ReleaseDC(m_hWnd, dc->m_hDC); }

    // Scrolling and the caret.
    int GetScrollPos(int bar) const { return ::GetScrollPos(m_hWnd, bar); }
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE);
    void GetScrollRange(int bar, int* first, int* last) const { ::GetScrollRange(m_hWnd, bar, first, last); }
    void SetScrollRange(int bar, int first, int last, BOOL redraw = TRUE);
    BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL) const;
    BOOL SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw = TRUE);
    void ShowScrollBar(UINT bar, BOOL show = TRUE) { ::ShowScrollBar(m_hWnd, static_cast<int>(bar), show); }
    BOOL EnableScrollBar(int bar, UINT flags = ESB_ENABLE_BOTH);
    void ScrollWindow(int dx, int dy, const RECT* rect = nullptr, const RECT* clip = nullptr);
    void CreateSolidCaret(int width, int height) { ::CreateCaret(m_hWnd, nullptr, width, height); }
    void CreateCaret(CBitmap* bitmap) { ::CreateCaret(m_hWnd, *bitmap, 0, 0); }
    void ShowCaret() { ::ShowCaret(m_hWnd); }
    void HideCaret() { ::HideCaret(m_hWnd); }
    static void SetCaretPos(POINT point) { ::SetCaretPos(point.x, point.y); }
    static CPoint GetCaretPos();

    /// Runs messages until EndModalLoop or the end of the window; the result that EndModalLoop gave last.
    int RunModalLoop(DWORD flags = 0);
    void EndModalLoop(int result);
    BOOL ContinueModal() const { return continue_modal_; }

    /// May take a message of the queue before it is dispatched; TRUE when it was taken.
    virtual BOOL PreTranslateMessage(MSG* message);
    /// Offers the message to the objects of its window and of the parents up to `stop`.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);
    /// The message that is being handled.
    static const MSG* GetCurrentMessage();

    HWND m_hWnd = nullptr;

    static const CWnd wndTop, wndBottom, wndTopMost, wndNoTopMost;

  protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// TRUE when a handler took the message.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// The procedure of the window's class, or the system's default one.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// The default handling of the message that is being handled.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void DoDataExchange(CDataExchange*) {}
    /// The last call for a window; here an object may delete itself.
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
    void OnMove(int, int) { Default(); }
    void OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    void OnSysChar(UINT, UINT, UINT) { Default(); }
    void OnSysCommand(UINT, LPARAM) { Default(); }
    void OnTimer(UINT_PTR) { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnMButtonDown(UINT, CPoint) { Default(); }
    void OnMButtonUp(UINT, CPoint) { Default(); }
    void OnMButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    void OnRButtonDblClk(UINT, CPoint) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    void OnMouseLeave() { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    HBRUSH OnCtlColor(CDC*, CWnd*, UINT) { return reinterpret_cast<HBRUSH>(Default()); }
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnEnable(BOOL) { Default(); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnCancelMode() { Default(); }
    void OnInputLangChange(UINT, UINT) { Default(); }
    void OnInputLangChangeRequest(UINT, UINT) { Default(); }
    void OnEnterIdle(UINT, CWnd*) { Default(); }

  private:
    friend class CreationHook;
    friend class WindowProcedure;
    explicit CWnd(HWND special) : m_hWnd(special) {}

    /// Puts the framework's procedure in the place of the window's.
    void take_over_messages();

    WNDPROC window_procedure_ = nullptr;  // the one before ours
    HWND owner_ = nullptr;
    int modal_result_ = 0;
    bool in_modal_loop_ = false;
    bool continue_modal_ = false;
};
