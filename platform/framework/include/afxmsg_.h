// The message-map entries: one macro for each message, and how its parameters become a handler's arguments.
#pragma once

#include <tuple>
#include <type_traits>

#include "afxwnd_.h"
#include "afxctrls_.h"

namespace framework {

template <class Result>
LRESULT as_result(Result value) {
    if constexpr (std::is_pointer_v<Result>) {
        return reinterpret_cast<LRESULT>(value);
    } else {
        return static_cast<LRESULT>(value);
    }
}

/// A handler's exact signature; a handler with another signature does not convert to the member pointer.
template <class Function>
struct Signature;

template <class Result, class... Args>
struct Signature<Result(Args...)> {
    template <class Class>
    static BOOL call(CCmdTarget* target, Result (Class::*handler)(Args...), std::tuple<Args...> args,
                     AFX_MESSAGE& message) {
        const auto bound = [&](Args... each) { return (static_cast<Class*>(target)->*handler)(each...); };
        if constexpr (std::is_void_v<Result>) {
            std::apply(bound, args);
        } else {
            message.result = as_result(std::apply(bound, args));
        }
        return TRUE;
    }
};

/// Handlers that say by their result whether the message is done.
template <class Function>
struct Passing {
    template <class Handler, class Tuple>
    static BOOL call(CCmdTarget* target, Handler handler, Tuple args, AFX_MESSAGE& message) {
        Signature<Function>::call(target, handler, args, message);
        return message.result != 0;
    }
};

template <class Kind, auto arguments, auto handler>
BOOL invoke(CCmdTarget* target, AFX_MESSAGE& message) {
    return Kind::call(target, handler, arguments(message), message);
}

inline CWnd* window(WPARAM handle) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
inline CWnd* window(LPARAM handle) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}

inline std::tuple<> no_arguments(const AFX_MESSAGE&) {
    return {};
}
inline std::tuple<WPARAM, LPARAM> raw_arguments(const AFX_MESSAGE& m) {
    return {m.wParam, m.lParam};
}
inline std::tuple<UINT, int, int> size_arguments(const AFX_MESSAGE& m) {
    return {static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam)};
}
inline std::tuple<UINT, UINT, UINT> key_arguments(const AFX_MESSAGE& m) {
    return {static_cast<UINT>(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam)};
}
inline std::tuple<UINT, CPoint> mouse_arguments(const AFX_MESSAGE& m) {
    return {static_cast<UINT>(m.wParam), CPoint(m.lParam)};
}
inline std::tuple<UINT, short, CPoint> wheel_arguments(const AFX_MESSAGE& m) {
    return {LOWORD(m.wParam), static_cast<short>(HIWORD(m.wParam)), CPoint(m.lParam)};
}
inline std::tuple<UINT_PTR> timer_argument(const AFX_MESSAGE& m) {
    return {m.wParam};
}
inline std::tuple<UINT, UINT, CScrollBar*> scroll_arguments(const AFX_MESSAGE& m) {
    return {LOWORD(m.wParam), HIWORD(m.wParam), CScrollBar::FromHandle(reinterpret_cast<HWND>(m.lParam))};
}
inline std::tuple<CWnd*> first_window(const AFX_MESSAGE& m) {
    return {window(m.wParam)};
}
inline std::tuple<CWnd*> second_window(const AFX_MESSAGE& m) {
    return {window(m.lParam)};
}
inline std::tuple<CDC*> context_argument(const AFX_MESSAGE& m) {
    return {CDC::FromHandle(reinterpret_cast<HDC>(m.wParam))};
}
inline std::tuple<CDC*, CWnd*, UINT> color_arguments(const AFX_MESSAGE& m) {
    return {CDC::FromHandle(reinterpret_cast<HDC>(m.wParam)), window(m.lParam), m.message - WM_CTLCOLORMSGBOX};
}
inline std::tuple<CWnd*, UINT, UINT> cursor_arguments(const AFX_MESSAGE& m) {
    return {window(m.wParam), LOWORD(m.lParam), HIWORD(m.lParam)};
}
inline std::tuple<BOOL, UINT> show_arguments(const AFX_MESSAGE& m) {
    return {static_cast<BOOL>(m.wParam), static_cast<UINT>(m.lParam)};
}
inline std::tuple<CWnd*, CPoint> menu_arguments(const AFX_MESSAGE& m) {
    return {window(m.wParam), CPoint(m.lParam)};
}
inline std::tuple<UINT, UINT> two_numbers(const AFX_MESSAGE& m) {
    return {static_cast<UINT>(m.wParam), static_cast<UINT>(m.lParam)};
}
inline std::tuple<CREATESTRUCTW*> creation_argument(const AFX_MESSAGE& m) {
    return {reinterpret_cast<CREATESTRUCTW*>(m.lParam)};
}

}  // namespace framework

/// Marks a message handler for the reader.
#define afx_msg

/// Handlers are given in full (&CMyDialog::OnPress), those of ON_WM_... have the names that the macro implies.
/// One entry of the given kind; `arguments` names one of the functions above.
#define AFX_ENTRY(message, code, first, last, kind, arguments, handler)                                      \
    {static_cast<UINT>(message), static_cast<UINT>(code), static_cast<UINT>(first), static_cast<UINT>(last), \
     &framework::invoke<kind, framework::arguments, handler>},
#define AFX_WINDOW_ENTRY(message, result, parameters, arguments, handler) \
    AFX_ENTRY(message, 0, 0, 0, framework::Signature<result parameters>, arguments, &ThisClass::handler)

#define ON_COMMAND(id, handler) \
    AFX_ENTRY(WM_COMMAND, CN_COMMAND, id, id, framework::Signature<void()>, no_arguments, handler)
#define ON_CONTROL(code, id, handler) \
    AFX_ENTRY(WM_COMMAND, code, id, id, framework::Signature<void()>, no_arguments, handler)
#define ON_MESSAGE(message, handler) \
    AFX_ENTRY(message, 0, 0, 0, framework::Signature<LRESULT(WPARAM, LPARAM)>, raw_arguments, handler)

#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_EN_CHANGE(id, handler) ON_CONTROL(EN_CHANGE, id, handler)

#define ON_WM_CREATE() AFX_WINDOW_ENTRY(WM_CREATE, int, (CREATESTRUCTW*), creation_argument, OnCreate)
#define ON_WM_DESTROY() AFX_WINDOW_ENTRY(WM_DESTROY, void, (), no_arguments, OnDestroy)
#define ON_WM_NCDESTROY() AFX_WINDOW_ENTRY(WM_NCDESTROY, void, (), no_arguments, OnNcDestroy)
#define ON_WM_CLOSE() AFX_WINDOW_ENTRY(WM_CLOSE, void, (), no_arguments, OnClose)
#define ON_WM_PAINT() AFX_WINDOW_ENTRY(WM_PAINT, void, (), no_arguments, OnPaint)
#define ON_WM_SIZE() AFX_WINDOW_ENTRY(WM_SIZE, void, (UINT, int, int), size_arguments, OnSize)
#define ON_WM_KEYDOWN() AFX_WINDOW_ENTRY(WM_KEYDOWN, void, (UINT, UINT, UINT), key_arguments, OnKeyDown)
#define ON_WM_CHAR() AFX_WINDOW_ENTRY(WM_CHAR, void, (UINT, UINT, UINT), key_arguments, OnChar)
#define ON_WM_SYSKEYDOWN() AFX_WINDOW_ENTRY(WM_SYSKEYDOWN, void, (UINT, UINT, UINT), key_arguments, OnSysKeyDown)
#define ON_WM_TIMER() AFX_WINDOW_ENTRY(WM_TIMER, void, (UINT_PTR), timer_argument, OnTimer)
#define ON_WM_LBUTTONDOWN() AFX_WINDOW_ENTRY(WM_LBUTTONDOWN, void, (UINT, CPoint), mouse_arguments, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_WINDOW_ENTRY(WM_LBUTTONUP, void, (UINT, CPoint), mouse_arguments, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_LBUTTONDBLCLK, void, (UINT, CPoint), mouse_arguments, OnLButtonDblClk)
#define ON_WM_MOUSEMOVE() AFX_WINDOW_ENTRY(WM_MOUSEMOVE, void, (UINT, CPoint), mouse_arguments, OnMouseMove)
#define ON_WM_HSCROLL() AFX_WINDOW_ENTRY(WM_HSCROLL, void, (UINT, UINT, CScrollBar*), scroll_arguments, OnHScroll)
#define ON_WM_VSCROLL() AFX_WINDOW_ENTRY(WM_VSCROLL, void, (UINT, UINT, CScrollBar*), scroll_arguments, OnVScroll)
#define ON_WM_SETFOCUS() AFX_WINDOW_ENTRY(WM_SETFOCUS, void, (CWnd*), first_window, OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_WINDOW_ENTRY(WM_KILLFOCUS, void, (CWnd*), first_window, OnKillFocus)
#define ON_WM_ERASEBKGND() AFX_WINDOW_ENTRY(WM_ERASEBKGND, BOOL, (CDC*), context_argument, OnEraseBkgnd)
#define ON_WM_CTLCOLOR() AFX_WINDOW_ENTRY(WM_CTLCOLOR, HBRUSH, (CDC*, CWnd*, UINT), color_arguments, OnCtlColor)
#define ON_WM_GETDLGCODE() AFX_WINDOW_ENTRY(WM_GETDLGCODE, UINT, (), no_arguments, OnGetDlgCode)
#define ON_WM_SETCURSOR() AFX_WINDOW_ENTRY(WM_SETCURSOR, BOOL, (CWnd*, UINT, UINT), cursor_arguments, OnSetCursor)
#define ON_WM_SHOWWINDOW() AFX_WINDOW_ENTRY(WM_SHOWWINDOW, void, (BOOL, UINT), show_arguments, OnShowWindow)
#define ON_WM_CONTEXTMENU() AFX_WINDOW_ENTRY(WM_CONTEXTMENU, void, (CWnd*, CPoint), menu_arguments, OnContextMenu)
#define ON_WM_CAPTURECHANGED() AFX_WINDOW_ENTRY(WM_CAPTURECHANGED, void, (CWnd*), second_window, OnCaptureChanged)
#define ON_WM_INPUTLANGCHANGEREQUEST() \
    AFX_WINDOW_ENTRY(WM_INPUTLANGCHANGEREQUEST, void, (UINT, UINT), two_numbers, OnInputLangChangeRequest)
/// A handler that returns FALSE leaves the message to the default handling.
#define ON_WM_MOUSEWHEEL()                                                                            \
    AFX_ENTRY(WM_MOUSEWHEEL, 0, 0, 0, framework::Passing<BOOL(UINT, short, CPoint)>, wheel_arguments, \
              &ThisClass::OnMouseWheel)
