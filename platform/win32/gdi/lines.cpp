#include "platform/win32/gdi/lines.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/win32/gdi/painter.h"

namespace winbase {

namespace {

/// Pixels of pen and of gap, repeated; no gap for a solid pen.
struct Dashes {
    int drawn;
    int gap;
};

Dashes DashesOf(const Pen& pen) {
    if (pen.width > 1) return {1, 0};  // wide pens are always solid
    if (pen.style == PS_DOT) return {3, 3};
    if (pen.style == PS_DASH) return {18, 6};
    return {1, 0};
}

/// The pixels of a line, by their number from the start: one step along the longer way each, and
/// to the side where the ideal line is more than half a pixel away.
class LineSteps {
public:
    LineSteps(POINT from, POINT to)
        : from_(from),
          dx_(to.x - from.x),
          dy_(to.y - from.y),
          flat_(std::abs(dx_) >= std::abs(dy_)) {}

    int Count() const { return flat_ ? std::abs(dx_) : std::abs(dy_); }
    POINT At(int step) const {
        const int along = (flat_ ? dx_ : dy_) < 0 ? -step : step;
        const int aside = Aside(step, flat_ ? dy_ : dx_);
        return flat_ ? POINT{from_.x + along, from_.y + aside}
                     : POINT{from_.x + aside, from_.y + along};
    }
    /// The steps from `*first` up to `*last` that may lie within `bounds`, widened by `margin`.
    void Limit(const RECT& bounds, int margin, int* first, int* last) const {
        const int start = flat_ ? from_.x : from_.y;
        const int low = (flat_ ? bounds.left : bounds.top) - margin;
        const int high = (flat_ ? bounds.right : bounds.bottom) + margin;
        const bool forwards = (flat_ ? dx_ : dy_) >= 0;
        *first = std::max(0, forwards ? low - start : start - high);
        *last = std::min(Count(), forwards ? high - start : start - low + 1);
    }

private:
    int Aside(int step, int rise) const {
        const long long run = Count();
        const long long amount = (2LL * step * std::abs(rise) + run - 1) / (2 * run);
        return static_cast<int>(rise < 0 ? -amount : amount);
    }

    POINT from_;
    int dx_;
    int dy_;
    bool flat_;
};

/// A round dot of `width` logical pixels around the logical pixel `center`.
void PaintDot(SpanPainter& painter, POINT center, int width, int scale) {
    const int size = width * scale;
    const int left = (center.x - (width - 1) / 2) * scale;
    const int top = (center.y - (width - 1) / 2) * scale;
    const double radius = size / 2.0;
    for (int y = 0; y < size; ++y) {
        const double dy = y + 0.5 - radius;
        // A little less than the circle, so that a dot of 3 is a cross and not a block.
        const double half =
            width <= 2 ? radius : std::sqrt(std::max(0.0, radius * radius - dy * dy));
        const int inset = static_cast<int>(std::ceil(radius - half - 0.25));
        painter.Span(left + inset, left + size - inset, top + y);
    }
}

RECT BoundsOf(POINT from, POINT to, int margin) {
    return {std::min(from.x, to.x) - margin, std::min(from.y, to.y) - margin,
            std::max(from.x, to.x) + margin + 1, std::max(from.y, to.y) + margin + 1};
}

/// A solid thin line across or down: one rectangle.
void DrawStraight(Dc& dc, POINT from, POINT to, Pixel pixel) {
    // The last point is left out, at whichever end it lies.
    const int back_x = to.x < from.x ? 1 : 0;
    const int back_y = to.y < from.y ? 1 : 0;
    const bool across = from.y == to.y;
    const RECT rect{std::min(from.x, to.x) + back_x, std::min(from.y, to.y) + back_y,
                    across ? std::max(from.x, to.x) + back_x : from.x + 1,
                    across ? from.y + 1 : std::max(from.y, to.y) + back_y};
    FillReached(dc, rect, pixel);
}

void DrawSteps(Dc& dc, POINT from, POINT to, const Pen& pen) {
    const int width = std::max(pen.width, 1);
    const LineSteps steps(from, to);
    const Dashes dashes = DashesOf(pen);
    const RECT bounds = BoundsOf(from, to, width);
    SpanPainter ink(dc, bounds, PixelFor(dc, pen.color));
    SpanPainter gaps(dc, bounds, PixelFor(dc, dc.state.back_color));
    int first = 0;
    int last = 0;
    steps.Limit(dc.reach.Bounds(), width, &first, &last);
    for (int step = first; step < last; ++step) {
        const bool drawn = step % (dashes.drawn + dashes.gap) < dashes.drawn;
        if (!drawn && dc.state.back_mode == TRANSPARENT) continue;
        PaintDot(drawn ? ink : gaps, steps.At(step), width, dc.surface->scale());
    }
}

}  // namespace

void DrawLine(Dc& dc, POINT from, POINT to) {
    const Pen& pen = *dc.state.pen;
    const bool nothing = from.x == to.x && from.y == to.y;
    if (pen.style == PS_NULL || nothing || dc.reach.Empty()) return;
    const bool straight = from.x == to.x || from.y == to.y;
    if (straight && pen.width <= 1 && DashesOf(pen).gap == 0) {
        DrawStraight(dc, from, to, PixelFor(dc, pen.color));
    } else {
        DrawSteps(dc, from, to, pen);
    }
}

}  // namespace winbase

using namespace winbase;

namespace {

POINT ToSurface(const Dc& dc, POINT point) {
    const POINT offset = dc.Offset();
    return {Near(point.x) + offset.x, Near(point.y) + offset.y};
}

}  // namespace

BOOL WINAPI LineTo(HDC handle, int x, int y) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc) return FALSE;
    DrawLine(*dc, ToSurface(*dc, dc->state.position), ToSurface(*dc, {x, y}));
    dc->state.position = {x, y};
    return TRUE;
}

BOOL WINAPI Polyline(HDC handle, const POINT* points, int count) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc || !points || count < 2) return FALSE;
    for (int i = 1; i < count; ++i) {
        DrawLine(*dc, ToSurface(*dc, points[i - 1]), ToSurface(*dc, points[i]));
    }
    return TRUE;
}
