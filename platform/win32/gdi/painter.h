#pragma once

#include "platform/win32/gdi/dc.h"
#include "platform/win32/gdi/pixels.h"

namespace winbase {

/// Calls `paint` with each part of `rect` (surface coordinates) that the context reaches.
template <class Paint>
void ForEachPart(const Dc& dc, const RECT& rect, Paint paint) {
    if (IsEmpty(Intersection(rect, dc.reach.Bounds()))) return;
    for (const RECT& reach : dc.reach.Rects()) {
        const RECT part = Intersection(rect, reach);
        if (!IsEmpty(part)) paint(part);
    }
}

/// Notes that a part within the surface got new pixels that hide what was there.
inline void Covered(Surface& surface, const RECT& part) {
    surface.AddDamage(part);
    if (!surface.records().Empty()) surface.records().Cover(part);
}

/// The pixel that a colour becomes on the context's surface: black or white on one of 1 bit.
Pixel PixelFor(const Dc& dc, COLORREF color);

/// Fills what the context reaches of a rectangle in surface coordinates.
void FillReached(Dc& dc, const RECT& rect, Pixel pixel);
void XorReached(Dc& dc, const RECT& rect, Pixel pixel);

/// Paints runs of device pixels (the surface's, `scale` to a logical pixel each way), clipped to
/// what the context reaches. `bounds` (surface coordinates) are around all of them.
class SpanPainter {
public:
    SpanPainter(Dc& dc, const RECT& bounds, Pixel pixel);
    /// From `left` up to but without `right`.
    void Span(int left, int right, int y);

private:
    Dc& dc_;
    Pixel pixel_;
};

}  // namespace winbase
