#include "afxgdiobj_.h"

#include "afxapp_.h"
#include "thread_state.h"

using framework::thread_state;

CGdiObject::~CGdiObject() {
    if (thread_state().drawing_objects.owns(this)) {
        DeleteObject();
    }
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ handle) {
    return thread_state().drawing_objects.object<CGdiObject>(handle);
}

void CGdiObject::DeleteTempMap() {
    thread_state().delete_temporary_objects();
}

BOOL CGdiObject::Attach(HGDIOBJ handle) {
    auto& objects = thread_state().drawing_objects;
    if (!handle || !objects.attach(handle, this)) {
        return FALSE;
    }
    if (m_hObject && m_hObject != handle && objects.owns(this)) {
        DeleteObject();
    }
    m_hObject = handle;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
    auto& objects = thread_state().drawing_objects;
    if (objects.owns(this)) {
        objects.detach(m_hObject);
    }
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() {
    return m_hObject && ::DeleteObject(Detach());
}

CPen::CPen(int style, int width, COLORREF color) {
    if (!CreatePen(style, width, color)) {
        AfxThrowResourceException();
    }
}

CPen::~CPen() = default;

CPen* CPen::FromHandle(HPEN handle) {
    return thread_state().drawing_objects.object<CPen>(handle);
}

CBrush::CBrush(COLORREF color) {
    if (!CreateSolidBrush(color)) {
        AfxThrowResourceException();
    }
}

CBrush::~CBrush() = default;

CBrush* CBrush::FromHandle(HBRUSH handle) {
    return thread_state().drawing_objects.object<CBrush>(handle);
}

CFont::~CFont() = default;

CFont* CFont::FromHandle(HFONT handle) {
    return thread_state().drawing_objects.object<CFont>(handle);
}

CBitmap::~CBitmap() = default;

CBitmap* CBitmap::FromHandle(HBITMAP handle) {
    return thread_state().drawing_objects.object<CBitmap>(handle);
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* dc, int width, int height) {
    return Attach(::CreateCompatibleBitmap(dc->m_hDC, width, height));
}
