#include "platform/win32/gdi/painter.h"

#include <algorithm>

namespace winbase {

namespace {

/// Of red, green and blue together, half or more of the light.
bool IsBright(COLORREF color) {
    return GetRValue(color) * 3 + GetGValue(color) * 6 + GetBValue(color) >= 1275;
}

}  // namespace

Pixel PixelFor(const Dc& dc, COLORREF color) {
    const Bitmap* bitmap = dc.state.bitmap;
    if (!bitmap || bitmap->depth == Bitmap::Depth::kColor) return ToPixel(color);
    return IsBright(color) ? 0xFFFFFF : 0;
}

void FillReached(Dc& dc, const RECT& rect, Pixel pixel) {
    ForEachPart(dc, rect, [&dc, pixel](const RECT& part) {
        FillBlock(BlockOf(*dc.surface, part), pixel);
        Covered(*dc.surface, part);
    });
}

void XorReached(Dc& dc, const RECT& rect, Pixel pixel) {
    ForEachPart(dc, rect, [&dc, pixel](const RECT& part) {
        XorBlock(BlockOf(*dc.surface, part), pixel);
        dc.surface->AddDamage(part);
    });
}

SpanPainter::SpanPainter(Dc& dc, const RECT& bounds, Pixel pixel) : dc_(dc), pixel_(pixel) {
    const RECT seen = Intersection(bounds, dc.reach.Bounds());
    if (!IsEmpty(seen)) dc.surface->AddDamage(seen);
}

void SpanPainter::Span(int left, int right, int y) {
    const int scale = dc_.surface ? dc_.surface->scale() : 1;
    for (const RECT& reach : dc_.reach.Rects()) {
        if (y < reach.top * scale || y >= reach.bottom * scale) continue;
        const int from = std::max(left, reach.left * scale);
        const int to = std::min(right, reach.right * scale);
        if (from < to) std::fill(dc_.surface->Row(y) + from, dc_.surface->Row(y) + to, pixel_);
    }
}

}  // namespace winbase
