#include <algorithm>
#include <utility>

#include "platform/win32/gdi/painter.h"

using namespace winbase;

namespace {

RECT Inner(const RECT& rect) {
    return {rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1};
}

/// A turned stretch holds the end that it starts from and not the far one.
void Straighten(LONG* from, LONG* to) {
    if (*to >= *from) return;
    std::swap(*from, *to);
    ++*from;
    ++*to;
}

RECT Straightened(RECT rect) {
    Straighten(&rect.left, &rect.right);
    Straighten(&rect.top, &rect.bottom);
    return rect;
}

void FillFrame(Dc& dc, const RECT& rect, Pixel pixel) {
    FillReached(dc, {rect.left, rect.top, rect.right, rect.top + 1}, pixel);
    FillReached(dc, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, pixel);
    FillReached(dc, {rect.left, rect.top + 1, rect.left + 1, rect.bottom - 1}, pixel);
    FillReached(dc, {rect.right - 1, rect.top + 1, rect.right, rect.bottom - 1}, pixel);
}

/// Every other pixel, counted from the corner, so that a second call takes the first one back.
void InvertDot(Dc& dc, const RECT& area, int x, int y) {
    if ((x - area.left + y - area.top) % 2 != 0) XorReached(dc, {x, y, x + 1, y + 1}, 0xFFFFFF);
}

/// The colours between two vertices, `at` pixels behind the first of `length`.
COLORREF ColorBetween(const TRIVERTEX& first, const TRIVERTEX& last, int at, int length) {
    const auto channel = [at, length](long long a, long long b) {
        return static_cast<BYTE>((a * (length - at) + b * at) / length >> 8);
    };
    return RGB(channel(first.Red, last.Red), channel(first.Green, last.Green),
               channel(first.Blue, last.Blue));
}

struct Gradient {
    TRIVERTEX first;
    TRIVERTEX last;
    bool vertical;
};

/// Each line of the gradient that the context reaches.
void FillGradient(Dc& dc, Gradient gradient) {
    LONG TRIVERTEX::*along = gradient.vertical ? &TRIVERTEX::y : &TRIVERTEX::x;
    if (gradient.first.*along > gradient.last.*along) std::swap(gradient.first, gradient.last);
    const RECT rect = dc.ToSurface(Near(RECT{
        std::min(gradient.first.x, gradient.last.x), std::min(gradient.first.y, gradient.last.y),
        std::max(gradient.first.x, gradient.last.x), std::max(gradient.first.y, gradient.last.y)}));
    const RECT seen = Intersection(rect, dc.reach.Bounds());
    if (IsEmpty(seen)) return;
    const int start = gradient.vertical ? rect.top : rect.left;
    const int length = gradient.vertical ? rect.bottom - rect.top : rect.right - rect.left;
    const int end = gradient.vertical ? seen.bottom : seen.right;
    for (int at = gradient.vertical ? seen.top : seen.left; at < end; ++at) {
        const RECT line = gradient.vertical ? RECT{seen.left, at, seen.right, at + 1}
                                            : RECT{at, seen.top, at + 1, seen.bottom};
        const COLORREF color = ColorBetween(gradient.first, gradient.last, at - start, length);
        FillReached(dc, line, PixelFor(dc, color));
    }
}

}  // namespace

int WINAPI FillRect(HDC handle, const RECT* rect, HBRUSH brush_handle) {
    Dc* dc = FindDcToDraw(handle);
    const Brush* brush = FindBrush(brush_handle);
    if (!dc || !rect || !brush) return 0;
    if (brush->hollow || rect->left == rect->right || rect->top == rect->bottom) return 1;
    FillReached(*dc, dc->ToSurface(Straightened(Near(*rect))), PixelFor(*dc, brush->color));
    return 1;
}

int WINAPI FrameRect(HDC handle, const RECT* rect, HBRUSH brush_handle) {
    Dc* dc = FindDcToDraw(handle);
    const Brush* brush = FindBrush(brush_handle);
    if (!dc || !rect || !brush || IsEmpty(*rect)) return 0;
    if (!brush->hollow) FillFrame(*dc, dc->ToSurface(Near(*rect)), PixelFor(*dc, brush->color));
    return 1;
}

BOOL WINAPI InvertRect(HDC handle, const RECT* rect) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc || !rect) return FALSE;
    XorReached(*dc, dc->ToSurface(Near(*rect)), 0xFFFFFF);
    return TRUE;
}

BOOL WINAPI DrawFocusRect(HDC handle, const RECT* rect) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc || !rect) return FALSE;
    const RECT area = dc->ToSurface(Near(*rect));
    if (IsEmpty(area)) return TRUE;
    const RECT seen = Intersection(area, dc->reach.Bounds());
    for (int x = seen.left; x < seen.right; ++x) {
        InvertDot(*dc, area, x, area.top);
        if (area.bottom - 1 != area.top) InvertDot(*dc, area, x, area.bottom - 1);
    }
    const RECT sides = Intersection(Inner(area), {area.left, seen.top, area.right, seen.bottom});
    for (int y = sides.top; y < sides.bottom; ++y) {
        InvertDot(*dc, area, area.left, y);
        if (area.right - 1 != area.left) InvertDot(*dc, area, area.right - 1, y);
    }
    return TRUE;
}

BOOL WINAPI PatBlt(HDC handle, int x, int y, int width, int height, DWORD operation) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc) return FALSE;
    x = Near(x);
    y = Near(y);
    const RECT rect = dc->ToSurface(Straightened({x, y, x + Near(width), y + Near(height)}));
    const Brush& brush = *dc->state.brush;
    const Pixel pixel = PixelFor(*dc, brush.color);
    switch (operation) {
        case PATCOPY:
            if (!brush.hollow) FillReached(*dc, rect, pixel);
            return TRUE;
        case PATINVERT:
            if (!brush.hollow) XorReached(*dc, rect, pixel);
            return TRUE;
        case DSTINVERT: XorReached(*dc, rect, 0xFFFFFF); return TRUE;
        case BLACKNESS: FillReached(*dc, rect, 0); return TRUE;
        case WHITENESS: FillReached(*dc, rect, 0xFFFFFF); return TRUE;
        default: return FALSE;
    }
}

COLORREF WINAPI GetPixel(HDC handle, int x, int y) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc || !dc->surface) return CLR_INVALID;
    const RECT place = dc->ToSurface({Near(x), Near(y), Near(x) + 1, Near(y) + 1});
    if (!Contains(dc->surface->Bounds(), place)) return CLR_INVALID;
    return ToColor(*BlockOf(*dc->surface, place).pixels);
}

COLORREF WINAPI SetPixel(HDC handle, int x, int y, COLORREF color) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc) return CLR_INVALID;
    const RECT place = dc->ToSurface({Near(x), Near(y), Near(x) + 1, Near(y) + 1});
    if (!dc->reach.Intersects(place)) return CLR_INVALID;
    FillReached(*dc, place, PixelFor(*dc, color));
    return ToColor(PixelFor(*dc, color));
}

BOOL WINAPI GradientFill(HDC handle, PTRIVERTEX vertices, ULONG vertex_count, PVOID mesh,
                         ULONG mesh_count, ULONG mode) {
    Dc* dc = FindDcToDraw(handle);
    const bool known = mode == GRADIENT_FILL_RECT_H || mode == GRADIENT_FILL_RECT_V;
    if (!dc || !vertices || !mesh || !known) return FALSE;
    const auto* rects = static_cast<const GRADIENT_RECT*>(mesh);
    const auto is_bad = [vertex_count](const GRADIENT_RECT& rect) {
        return rect.UpperLeft >= vertex_count || rect.LowerRight >= vertex_count;
    };
    if (std::any_of(rects, rects + mesh_count, is_bad)) return FALSE;
    for (ULONG i = 0; i < mesh_count; ++i) {
        FillGradient(*dc, {vertices[rects[i].UpperLeft], vertices[rects[i].LowerRight],
                           mode == GRADIENT_FILL_RECT_V});
    }
    return TRUE;
}
