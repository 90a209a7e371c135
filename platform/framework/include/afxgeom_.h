// Points, sizes and rectangles: the system's structures with arithmetic.
#pragma once

#include "afxver_.h"

class CSize : public tagSIZE {
  public:
    CSize() : tagSIZE{0, 0} {}
    CSize(int width, int height) : tagSIZE{width, height} {}
    CSize(SIZE size) : tagSIZE(size) {}
    bool operator==(SIZE other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(SIZE other) const { return !(*this == other); }
};

class CPoint : public tagPOINT {
  public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(int left, int top) {
        x = left;
        y = top;
    }
    CPoint(POINT point) : tagPOINT(point) {}
    /// The two signed halves of a mouse message's parameter.
    explicit CPoint(LPARAM packed) : tagPOINT{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}

    void Offset(int dx, int dy) { *this += CSize(dx, dy); }
    void SetPoint(int left, int top) { *this = CPoint(left, top); }
    bool operator==(POINT other) const { return x == other.x && y == other.y; }
    bool operator!=(POINT other) const { return !(*this == other); }
    void operator+=(SIZE size) { x += size.cx, y += size.cy; }
    void operator-=(SIZE size) { x -= size.cx, y -= size.cy; }
    CPoint operator+(SIZE size) const { return {x + size.cx, y + size.cy}; }
    CPoint operator-(SIZE size) const { return {x - size.cx, y - size.cy}; }
    CPoint operator+(POINT other) const { return {x + other.x, y + other.y}; }
    CSize operator-(POINT other) const { return {x - other.x, y - other.y}; }
};

class CRect : public tagRECT {
  public:
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    CRect(const RECT& rect) : tagRECT(rect) {}
    CRect(const RECT* rect) : tagRECT(*rect) {}
    CRect(POINT origin, SIZE size) : tagRECT{origin.x, origin.y, origin.x + size.cx, origin.y + size.cy} {}
    CRect(POINT top_left, POINT bottom_right) : tagRECT{top_left.x, top_left.y, bottom_right.x, bottom_right.y} {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    operator RECT*() { return this; }
    operator const RECT*() const { return this; }

    BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
    BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }
    BOOL EqualRect(const RECT* other) const { return ::EqualRect(this, other); }

    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRectEmpty() { *this = CRect(); }
    void CopyRect(const RECT* source) { *this = CRect(*source); }
    void InflateRect(int dx, int dy) { ::InflateRect(this, dx, dy); }
    void InflateRect(int l, int t, int r, int b) { SetRect(left - l, top - t, right + r, bottom + b); }
    void DeflateRect(int dx, int dy) { ::InflateRect(this, -dx, -dy); }
    void DeflateRect(int l, int t, int r, int b) { InflateRect(-l, -t, -r, -b); }
    void OffsetRect(int dx, int dy) { ::OffsetRect(this, dx, dy); }
    void OffsetRect(POINT by) { ::OffsetRect(this, by.x, by.y); }
    void NormalizeRect();
    BOOL IntersectRect(const RECT* one, const RECT* other) { return ::IntersectRect(this, one, other); }
    BOOL UnionRect(const RECT* one, const RECT* other) { return ::UnionRect(this, one, other); }
    BOOL SubtractRect(const RECT* from, const RECT* part) { return ::SubtractRect(this, from, part); }

    bool operator==(const RECT& other) const { return EqualRect(&other) != FALSE; }
    bool operator!=(const RECT& other) const { return !(*this == other); }
    void operator+=(POINT by) { OffsetRect(by); }
    void operator-=(POINT by) { OffsetRect(-by.x, -by.y); }
    CRect operator&(const RECT& other) const;
    CRect operator|(const RECT& other) const;
};

inline void CRect::NormalizeRect() {
    if (left > right) {
        *this = CRect(right, top, left, bottom);
    }
    if (top > bottom) {
        *this = CRect(left, bottom, right, top);
    }
}

inline CRect CRect::operator&(const RECT& other) const {
    CRect result;
    result.IntersectRect(this, &other);
    return result;
}

inline CRect CRect::operator|(const RECT& other) const {
    CRect result;
    result.UnionRect(this, &other);
    return result;
}
