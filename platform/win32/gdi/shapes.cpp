#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/win32/gdi/lines.h"
#include "platform/win32/gdi/painter.h"

using namespace winbase;

namespace {

/// A rectangle with elliptic corners, in device pixels.
struct RoundShape {
    RECT rect;
    double radius_x;
    double radius_y;

    /// How far row `y` begins and ends inside the rectangle's sides.
    int Inset(int y) const {
        const double from_edge = std::min(y + 0.5 - rect.top, rect.bottom - (y + 0.5));
        if (from_edge >= radius_y || radius_y <= 0) return 0;
        const double rise = (radius_y - from_edge) / radius_y;
        return static_cast<int>(std::lround(radius_x - radius_x * std::sqrt(1 - rise * rise)));
    }
    bool HasRow(int y) const { return y >= rect.top && y < rect.bottom && rect.left < rect.right; }
    RoundShape Shrunk(int by) const {
        return {{rect.left + by, rect.top + by, rect.right - by, rect.bottom - by},
                std::max(radius_x - by, 0.0),
                std::max(radius_y - by, 0.0)};
    }
};

RECT Scaled(const RECT& rect, int scale) {
    return {rect.left * scale, rect.top * scale, rect.right * scale, rect.bottom * scale};
}

void PaintRow(const RoundShape& outer, const RoundShape& inner, int y, SpanPainter* pen,
              SpanPainter* brush) {
    const int left = outer.rect.left + outer.Inset(y);
    const int right = outer.rect.right - outer.Inset(y);
    int hole_left = right;
    int hole_right = right;
    if (inner.HasRow(y)) {
        hole_left = std::max(left, inner.rect.left + inner.Inset(y));
        hole_right = std::min(right, inner.rect.right - inner.Inset(y));
    }
    if (pen) pen->Span(left, hole_left, y);
    if (pen) pen->Span(hole_right, right, y);
    if (brush) brush->Span(hole_left, hole_right, y);
}

/// Outline and inside of a round shape; corners are logical diameters.
BOOL PaintRound(Dc& dc, RECT rect, double corner_x, double corner_y) {
    const Pen& pen = *dc.state.pen;
    const bool outlined = pen.style != PS_NULL;
    // Without an outline the shape is what an outline would enclose on the near sides.
    if (!outlined) rect = {rect.left, rect.top, rect.right - 1, rect.bottom - 1};
    const RECT seen = Intersection(rect, dc.reach.Bounds());
    if (IsEmpty(seen)) return TRUE;
    const int scale = dc.surface->scale();
    const double width = rect.right - rect.left;
    const double height = rect.bottom - rect.top;
    const RoundShape outer{Scaled(rect, scale), std::min(corner_x, width) * scale / 2,
                           std::min(corner_y, height) * scale / 2};
    const RoundShape inner = outlined ? outer.Shrunk(std::max(pen.width, 1) * scale) : outer;
    SpanPainter ink(dc, rect, PixelFor(dc, pen.color));
    SpanPainter ground(dc, rect, PixelFor(dc, dc.state.brush->color));
    for (int y = seen.top * scale; y < seen.bottom * scale; ++y) {
        PaintRow(outer, inner, y, outlined ? &ink : nullptr,
                 dc.state.brush->hollow ? nullptr : &ground);
    }
    return TRUE;
}

RECT OrderedOnSurface(const Dc& dc, int left, int top, int right, int bottom) {
    return dc.ToSurface(Near(RECT{std::min(left, right), std::min(top, bottom),
                                  std::max(left, right), std::max(top, bottom)}));
}

std::vector<POINT> OnSurface(const Dc& dc, const POINT* points, int count) {
    const POINT offset = dc.Offset();
    std::vector<POINT> result(points, points + count);
    for (POINT& point : result) point = {Near(point.x) + offset.x, Near(point.y) + offset.y};
    return result;
}

/// Where the polygon's edges cross a device row, ascending.
void FindCrossings(const std::vector<POINT>& points, int scale, int row,
                   std::vector<int>* crossings) {
    crossings->clear();
    const auto y_of = [scale](const POINT& point) {
        return static_cast<long long>(point.y) * scale;
    };
    const auto x_of = [scale](const POINT& point) { return static_cast<double>(point.x) * scale; };
    for (std::size_t i = 0; i < points.size(); ++i) {
        const POINT& a = points[i];
        const POINT& b = points[(i + 1) % points.size()];
        if ((y_of(a) <= row) == (y_of(b) <= row)) continue;
        const double part =
            static_cast<double>(row - y_of(a)) / static_cast<double>(y_of(b) - y_of(a));
        crossings->push_back(static_cast<int>(std::ceil(x_of(a) + part * (x_of(b) - x_of(a)))));
    }
    std::sort(crossings->begin(), crossings->end());
}

/// Every second stretch between crossings is inside.
void FillPolygon(Dc& dc, const std::vector<POINT>& points) {
    RECT bounds{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const POINT& point : points) {
        bounds = {std::min(bounds.left, point.x), std::min(bounds.top, point.y),
                  std::max(bounds.right, point.x), std::max(bounds.bottom, point.y)};
    }
    const RECT seen = Intersection(bounds, dc.reach.Bounds());
    if (IsEmpty(seen)) return;
    const int scale = dc.surface->scale();
    SpanPainter ground(dc, bounds, PixelFor(dc, dc.state.brush->color));
    std::vector<int> crossings;
    for (int y = seen.top * scale; y < seen.bottom * scale; ++y) {
        FindCrossings(points, scale, y, &crossings);
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            ground.Span(crossings[i], crossings[i + 1], y);
        }
    }
}

void FillInside(Dc& dc, const RECT& rect) {
    if (!dc.state.brush->hollow) FillReached(dc, rect, PixelFor(dc, dc.state.brush->color));
}

}  // namespace

BOOL WINAPI Rectangle(HDC handle, int left, int top, int right, int bottom) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc) return FALSE;
    const RECT rect = OrderedOnSurface(*dc, left, top, right, bottom);
    if (IsEmpty(rect)) return TRUE;
    const RECT last{rect.left, rect.top, rect.right - 1, rect.bottom - 1};
    FillInside(*dc, last);
    const POINT corners[] = {{last.left, last.top},
                             {last.right, last.top},
                             {last.right, last.bottom},
                             {last.left, last.bottom}};
    for (std::size_t i = 0; i < 4; ++i) DrawLine(*dc, corners[i], corners[(i + 1) % 4]);
    return TRUE;
}

BOOL WINAPI Ellipse(HDC handle, int left, int top, int right, int bottom) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc) return FALSE;
    const RECT rect = OrderedOnSurface(*dc, left, top, right, bottom);
    return PaintRound(*dc, rect, rect.right - rect.left, rect.bottom - rect.top);
}

BOOL WINAPI RoundRect(HDC handle, int left, int top, int right, int bottom, int width, int height) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc) return FALSE;
    return PaintRound(*dc, OrderedOnSurface(*dc, left, top, right, bottom), std::abs(Near(width)),
                      std::abs(Near(height)));
}

BOOL WINAPI Polygon(HDC handle, const POINT* points, int count) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc || !points || count < 2) return FALSE;
    const std::vector<POINT> corners = OnSurface(*dc, points, count);
    if (!dc->state.brush->hollow) FillPolygon(*dc, corners);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        DrawLine(*dc, corners[i], corners[(i + 1) % corners.size()]);
    }
    return TRUE;
}
