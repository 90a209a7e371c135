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

    bool operator==(POINT other) const { return x == other.x && y == other.y; }
    bool operator!=(POINT other) const { return !(*this == other); }
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
    CPoint TopLeft() const { return {left, top}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    operator RECT*() { return this; }
    operator const RECT*() const { return this; }

    BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }
    BOOL EqualRect(const RECT* other) const { return ::EqualRect(this, other); }

    bool operator==(const RECT& other) const { return EqualRect(&other) != FALSE; }
    bool operator!=(const RECT& other) const { return !(*this == other); }
};
