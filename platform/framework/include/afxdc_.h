// Device contexts: a class for each way to get one, which owns it.
#pragma once

#include "afxgdiobj_.h"

class CWnd;

/// Owns the context that it created or that was attached. What was selected into a context must be selected out before
/// the object behind it is deleted; the Select functions return what was there.
class AFX_PUBLIC CDC : public CObject {
  public:
    CDC() = default;
    ~CDC() override;

    /// A temporary object for a context that no object owns, as CGdiObject::FromHandle gives.
    static CDC* FromHandle(HDC handle);
    static void DeleteTempMap();

    operator HDC() const { return m_hDC; }
    BOOL Attach(HDC handle);
    HDC Detach();
    BOOL CreateCompatibleDC(CDC* dc) { return Attach(::CreateCompatibleDC(dc ? dc->m_hDC : nullptr)); }
    BOOL DeleteDC();

    CPen* SelectObject(CPen* pen) { return CPen::FromHandle(static_cast<HPEN>(select(pen))); }
    CBrush* SelectObject(CBrush* brush) { return CBrush::FromHandle(static_cast<HBRUSH>(select(brush))); }
    CFont* SelectObject(CFont* font) { return CFont::FromHandle(static_cast<HFONT>(select(font))); }
    CBitmap* SelectObject(CBitmap* bitmap) { return CBitmap::FromHandle(static_cast<HBITMAP>(select(bitmap))); }
    CGdiObject* SelectObject(CGdiObject* object) { return CGdiObject::FromHandle(select(object)); }
    CGdiObject* SelectStockObject(int index) {
        return CGdiObject::FromHandle(::SelectObject(m_hDC, ::GetStockObject(index)));
    }

    int SaveDC() { return ::SaveDC(m_hDC); }
    BOOL RestoreDC(int saved) { return ::RestoreDC(m_hDC, saved); }
    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }

    COLORREF SetTextColor(COLORREF color) { return ::SetTextColor(m_hDC, color); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF SetBkColor(COLORREF color) { return ::SetBkColor(m_hDC, color); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    UINT SetTextAlign(UINT flags) { return ::SetTextAlign(m_hDC, flags); }
    int SetROP2(int mode) { return ::SetROP2(m_hDC, mode); }
    int SetMapMode(int mode) { return ::SetMapMode(m_hDC, mode); }
    CPoint SetViewportOrg(int x, int y);

    int IntersectClipRect(const RECT* rect);

    CPoint MoveTo(int x, int y);
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL Polyline(const POINT* points, int count) { return ::Polyline(m_hDC, points, count); }
    BOOL Polygon(const POINT* points, int count) { return ::Polygon(m_hDC, points, count); }
    BOOL Rectangle(const RECT* r) { return ::Rectangle(m_hDC, r->left, r->top, r->right, r->bottom); }
    BOOL Ellipse(const RECT* r) { return ::Ellipse(m_hDC, r->left, r->top, r->right, r->bottom); }
    BOOL Pie(const RECT* r, POINT start, POINT end);
    BOOL Arc(const RECT* r, POINT start, POINT end);
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }

    int FillRect(const RECT* rect, CBrush* brush) { return ::FillRect(m_hDC, rect, *brush); }
    int FrameRect(const RECT* rect, CBrush* brush) { return ::FrameRect(m_hDC, rect, *brush); }
    /// Leaves `color` as the background colour.
    void FillSolidRect(const RECT* rect, COLORREF color);
    BOOL DrawFocusRect(const RECT* rect) { return ::DrawFocusRect(m_hDC, rect); }
    BOOL DrawEdge(RECT* rect, UINT edge, UINT flags) { return ::DrawEdge(m_hDC, rect, edge, flags); }
    BOOL DrawFrameControl(RECT* rect, UINT type, UINT state) { return ::DrawFrameControl(m_hDC, rect, type, state); }

    BOOL BitBlt(int x, int y, int w, int h, CDC* from, int from_x, int from_y, DWORD operation);

    BOOL TextOut(int x, int y, LPCWSTR text, int length) { return ::TextOutW(m_hDC, x, y, text, length); }
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT length, const int* advances);
    int DrawText(LPCWSTR text, int length, RECT* rect, UINT format);
    CSize GetTextExtent(LPCWSTR text, int length) const;
    CSize GetTextExtent(const CString& text) const { return GetTextExtent(text, text.GetLength()); }
    BOOL GetTextMetrics(TEXTMETRICW* metrics) const { return ::GetTextMetricsW(m_hDC, metrics); }

    HDC m_hDC = nullptr;

  private:
    HGDIOBJ select(const CGdiObject* object) const;
};

/// The context of a window's client area, or of the whole screen for null. The constructors of these classes throw when
/// the system has no context to give.
class AFX_PUBLIC CClientDC : public CDC {
  public:
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

  private:
    HWND window_;
};

/// Begins painting and ends it; only within the handling of WM_PAINT.
class AFX_PUBLIC CPaintDC : public CDC {
  public:
    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps{};

  private:
    HWND window_;
};
