// Owners of the system's drawing objects: pens, brushes, fonts and bitmaps.
#pragma once

#include "afx.h"
#include "afxgeom_.h"

class CDC;

/// Owns the handle that was created through it or attached to it, and deletes it in the end. An object from FromHandle
/// of a handle that no object owns is temporary: it owns nothing, and it lives until the program is idle.
class AFX_PUBLIC CGdiObject : public CObject {
  public:
    CGdiObject() = default;
    ~CGdiObject() override;

    static CGdiObject* FromHandle(HGDIOBJ handle);
    /// Deletes the temporary objects; does nothing while a handler is running.
    static void DeleteTempMap();

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    operator HGDIOBJ() const { return m_hObject; }
    /// Takes the handle over; what the object owned before is deleted. FALSE for no handle or one that another object
    /// owns.
    BOOL Attach(HGDIOBJ handle);
    HGDIOBJ Detach();
    BOOL DeleteObject();
    int GetObject(int size, void* description) const { return ::GetObjectW(m_hObject, size, description); }

    HGDIOBJ m_hObject = nullptr;
};

class AFX_PUBLIC CPen : public CGdiObject {
  public:
    CPen() = default;
    /// Throws when the system has no room for it.
    CPen(int style, int width, COLORREF color);
    ~CPen() override;
    static CPen* FromHandle(HPEN handle);

    BOOL CreatePen(int style, int width, COLORREF color) { return Attach(::CreatePen(style, width, color)); }
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
};

class CBitmap;

class AFX_PUBLIC CBrush : public CGdiObject {
  public:
    CBrush() = default;
    /// Throws when the system has no room for it.
    explicit CBrush(COLORREF color);
    ~CBrush() override;
    static CBrush* FromHandle(HBRUSH handle);

    BOOL CreateSolidBrush(COLORREF color) { return Attach(::CreateSolidBrush(color)); }
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
};

class AFX_PUBLIC CFont : public CGdiObject {
  public:
    CFont() = default;
    ~CFont() override;
    static CFont* FromHandle(HFONT handle);

    BOOL CreateFontIndirect(const LOGFONTW* description) { return Attach(::CreateFontIndirectW(description)); }
    int GetLogFont(LOGFONTW* description) const { return GetObject(sizeof(LOGFONTW), description); }
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
};

class AFX_PUBLIC CBitmap : public CGdiObject {
  public:
    CBitmap() = default;
    ~CBitmap() override;
    static CBitmap* FromHandle(HBITMAP handle);

    BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
};
