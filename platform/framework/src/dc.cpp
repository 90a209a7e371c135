#include "afxdc_.h"

#include "afxwnd_.h"
#include "thread_state.h"

using framework::thread_state;

namespace {

HWND handle_of(CWnd* window) {
    return window ? window->m_hWnd : nullptr;
}

void attach_or_throw(CDC& dc, HDC handle) {
    if (!dc.Attach(handle)) {
        AfxThrowResourceException();
    }
}

}  // namespace

CDC::~CDC() {
    if (thread_state().contexts.owns(this)) {
        DeleteDC();
    }
}

CDC* CDC::FromHandle(HDC handle) {
    return thread_state().contexts.object<CDC>(handle);
}

void CDC::DeleteTempMap() {
    thread_state().delete_temporary_objects();
}

BOOL CDC::Attach(HDC handle) {
    auto& contexts = thread_state().contexts;
    if (!handle || !contexts.attach(handle, this)) {
        return FALSE;
    }
    if (m_hDC && m_hDC != handle && contexts.owns(this)) {
        DeleteDC();
    }
    m_hDC = handle;
    return TRUE;
}

HDC CDC::Detach() {
    auto& contexts = thread_state().contexts;
    if (contexts.owns(this)) {
        contexts.detach(m_hDC);
    }
    return std::exchange(m_hDC, nullptr);
}

BOOL CDC::DeleteDC() {
    return m_hDC && ::DeleteDC(Detach());
}

HGDIOBJ CDC::select(const CGdiObject* object) const {
    return object ? ::SelectObject(m_hDC, object->m_hObject) : nullptr;
}

CPoint CDC::SetViewportOrg(int x, int y) {
    CPoint before;
    ::SetViewportOrgEx(m_hDC, x, y, &before);
    return before;
}

int CDC::IntersectClipRect(const RECT* rect) {
    return ::IntersectClipRect(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
}

CPoint CDC::MoveTo(int x, int y) {
    CPoint before;
    ::MoveToEx(m_hDC, x, y, &before);
    return before;
}

BOOL CDC::Pie(const RECT* r, POINT start, POINT end) {
    return ::Pie(m_hDC, r->left, r->top, r->right, r->bottom, start.x, start.y, end.x, end.y);
}

BOOL CDC::Arc(const RECT* r, POINT start, POINT end) {
    return ::Arc(m_hDC, r->left, r->top, r->right, r->bottom, start.x, start.y, end.x, end.y);
}

void CDC::FillSolidRect(const RECT* rect, COLORREF color) {
    // An empty text with an opaque background fills the rectangle without a brush.
    ::SetBkColor(m_hDC, color);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, rect, nullptr, 0, nullptr);
}

BOOL CDC::BitBlt(int x, int y, int w, int h, CDC* from, int from_x, int from_y, DWORD operation) {
    return ::BitBlt(m_hDC, x, y, w, h, from ? from->m_hDC : nullptr, from_x, from_y, operation);
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT length, const int* advances) {
    return ::ExtTextOutW(m_hDC, x, y, options, rect, text, length, advances);
}

int CDC::DrawText(LPCWSTR text, int length, RECT* rect, UINT format) {
    return ::DrawTextW(m_hDC, text, length, rect, format);
}

CSize CDC::GetTextExtent(LPCWSTR text, int length) const {
    CSize size;
    ::GetTextExtentPoint32W(m_hDC, text, length, &size);
    return size;
}

CClientDC::CClientDC(CWnd* window) : window_(handle_of(window)) {
    attach_or_throw(*this, ::GetDC(window_));
}

CClientDC::~CClientDC() {
    ::ReleaseDC(window_, Detach());
}

CPaintDC::CPaintDC(CWnd* window) : window_(handle_of(window)) {
    attach_or_throw(*this, ::BeginPaint(window_, &m_ps));
}

CPaintDC::~CPaintDC() {
    Detach();
    ::EndPaint(window_, &m_ps);
}
