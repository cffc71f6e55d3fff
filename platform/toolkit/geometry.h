#pragma once

#include "platform/toolkit/base.h"

/// Points, sizes and rectangles with arithmetic; each is its plain record and nothing more.

class CSize : public SIZE {
public:
    CSize() : SIZE() {}
    CSize(int width, int height) : SIZE() {
        cx = width;
        cy = height;
    }
    CSize(const SIZE& size) : SIZE(size) {}
    bool operator==(const SIZE& other) const { return cx == other.cx && cy == other.cy; }
};

class CPoint : public POINT {
public:
    CPoint() : POINT() {}
    CPoint(int left, int top) : POINT() {
        x = left;
        y = top;
    }
    CPoint(const POINT& point) : POINT(point) {}
    void Offset(int dx, int dy) {
        x += dx;
        y += dy;
    }
    bool operator==(const POINT& other) const { return x == other.x && y == other.y; }
    CPoint operator+(const SIZE& size) const { return {int{x + size.cx}, int{y + size.cy}}; }
    CPoint operator-(const SIZE& size) const { return {int{x - size.cx}, int{y - size.cy}}; }
    CSize operator-(const POINT& other) const { return {int{x - other.x}, int{y - other.y}}; }
};

class CRect : public RECT {
public:
    CRect() : RECT() {}
    CRect(int l, int t, int r, int b) : RECT() { SetRect(l, t, r, b); }
    CRect(const RECT& rect) : RECT(rect) {}
    CRect(const POINT& origin, const SIZE& size)
        : CRect(int{origin.x}, int{origin.y}, int{origin.x + size.cx}, int{origin.y + size.cy}) {}

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    int Width() const { return int{right - left}; }
    int Height() const { return int{bottom - top}; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {int{left}, int{top}}; }
    CPoint BottomRight() const { return {int{right}, int{bottom}}; }
    CPoint CenterPoint() const { return {int{(left + right) / 2}, int{(top + bottom) / 2}}; }
    bool IsRectEmpty() const { return left >= right || top >= bottom; }
    /// Right and bottom are outside.
    bool PtInRect(const POINT& point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    void SetRect(int l, int t, int r, int b) {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void InflateRect(int dx, int dy) { InflateRect(dx, dy, dx, dy); }
    void InflateRect(int l, int t, int r, int b) {
        left -= l;
        top -= t;
        right += r;
        bottom += b;
    }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void DeflateRect(int l, int t, int r, int b) { InflateRect(-l, -t, -r, -b); }
    void OffsetRect(int dx, int dy) { InflateRect(-dx, -dy, dx, dy); }
    /// Becomes what both rectangles share, which may be nothing.
    bool IntersectRect(const RECT& first, const RECT& second) {
        return ::IntersectRect(this, &first, &second) != FALSE;
    }
    bool operator==(const RECT& other) const {
        return left == other.left && top == other.top && right == other.right &&
               bottom == other.bottom;
    }
};
