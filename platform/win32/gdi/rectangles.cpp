#include <windows.h>

#include <algorithm>

namespace {

bool Empty(const RECT& rect) { return rect.left >= rect.right || rect.top >= rect.bottom; }

// Both wrap around instead of overflowing.
int Sum(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}
int Difference(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

}  // namespace

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom) {
    if (!rect) return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT rect) { return SetRect(rect, 0, 0, 0, 0); }

BOOL WINAPI CopyRect(LPRECT target, const RECT* source) {
    if (!target || !source) return FALSE;
    *target = *source;
    return TRUE;
}

BOOL WINAPI InflateRect(LPRECT rect, int x, int y) {
    if (!rect) return FALSE;
    *rect = {Difference(rect->left, x), Difference(rect->top, y), Sum(rect->right, x),
             Sum(rect->bottom, y)};
    return TRUE;
}

BOOL WINAPI OffsetRect(LPRECT rect, int x, int y) {
    if (!rect) return FALSE;
    *rect = {Sum(rect->left, x), Sum(rect->top, y), Sum(rect->right, x), Sum(rect->bottom, y)};
    return TRUE;
}

BOOL WINAPI IntersectRect(LPRECT target, const RECT* first, const RECT* second) {
    if (!target || !first || !second) return FALSE;
    const RECT common{std::max(first->left, second->left), std::max(first->top, second->top),
                      std::min(first->right, second->right),
                      std::min(first->bottom, second->bottom)};
    const bool empty = Empty(*first) || Empty(*second) || Empty(common);
    *target = empty ? RECT{} : common;
    return !empty;
}

BOOL WINAPI UnionRect(LPRECT target, const RECT* first, const RECT* second) {
    if (!target || !first || !second) return FALSE;
    if (Empty(*first)) {
        *target = Empty(*second) ? RECT{} : *second;
    } else if (Empty(*second)) {
        *target = *first;
    } else {
        *target = {std::min(first->left, second->left), std::min(first->top, second->top),
                   std::max(first->right, second->right), std::max(first->bottom, second->bottom)};
    }
    return !Empty(*target);
}

BOOL WINAPI SubtractRect(LPRECT target, const RECT* first, const RECT* second) {
    if (!target || !first || !second) return FALSE;
    RECT rest = *first;
    RECT common;
    if (Empty(rest)) {
        rest = {};
    } else if (IntersectRect(&common, first, second)) {
        // Only what leaves a rectangle is taken away.
        if (common.top == rest.top && common.bottom == rest.bottom) {
            if (common.left == rest.left) {
                rest.left = common.right;
            } else if (common.right == rest.right) {
                rest.right = common.left;
            }
        } else if (common.left == rest.left && common.right == rest.right) {
            if (common.top == rest.top) {
                rest.top = common.bottom;
            } else if (common.bottom == rest.bottom) {
                rest.bottom = common.top;
            }
        }
    }
    *target = Empty(rest) ? RECT{} : rest;
    return !Empty(rest);
}

BOOL WINAPI EqualRect(const RECT* first, const RECT* second) {
    return first && second && first->left == second->left && first->top == second->top &&
           first->right == second->right && first->bottom == second->bottom;
}

BOOL WINAPI IsRectEmpty(const RECT* rect) { return !rect || Empty(*rect); }

BOOL WINAPI PtInRect(const RECT* rect, POINT point) {
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}
