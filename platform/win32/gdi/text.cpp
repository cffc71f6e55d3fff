#include "platform/win32/gdi/text.h"

#include <algorithm>
#include <numeric>

#include "platform/win32/gdi/painter.h"

namespace winbase {

namespace {

/// Paints glyphs into one rectangle of a surface, in device pixels.
class GlyphPainter {
public:
    GlyphPainter(Surface& surface, const RECT& part, Pixel pixel)
        : surface_(surface), pixel_(pixel), scale_(surface.scale()) {
        part_ = {part.left * scale_, part.top * scale_, part.right * scale_, part.bottom * scale_};
    }

    void Paint(const Glyph& glyph, int pen_x, int baseline) {
        if (!glyph.coverage) return;
        const int left = pen_x * scale_ + glyph.left;
        const int top = baseline * scale_ - glyph.top;
        const RECT box{left, top, left + glyph.width, top + glyph.height};
        const RECT seen = Contains(part_, box) ? box : Intersection(part_, box);
        if (IsEmpty(seen)) return;
        const std::uint8_t* coverage =
            glyph.coverage + (seen.top - top) * glyph.width + (seen.left - left);
        BlendCoverage({surface_.Row(seen.top) + seen.left, surface_.stride(),
                       seen.right - seen.left, seen.bottom - seen.top},
                      coverage, glyph.width, pixel_);
    }

private:
    Surface& surface_;
    Pixel pixel_;
    int scale_;
    RECT part_;
};

void PaintGlyphs(Dc& dc, const TextRun& run, const RECT& part, FontFace& face, Pixel pixel) {
    GlyphPainter painter(*dc.surface, part, pixel);
    const int scale = dc.surface->scale();
    const int baseline = run.place.y + face.size().ascent;
    int x = run.place.x;
    std::string_view rest = run.text;
    const INT* advances = run.advances;
    // Slanted and fallback characters reach a little beyond their cells.
    const int margin = face.size().em;
    while (!rest.empty() && x < part.right + margin) {
        const std::size_t before = rest.size();
        const Glyph& glyph = face.GlyphOf(TakeCode(&rest), scale);
        if (x > part.left - margin - glyph.advance) painter.Paint(glyph, x, baseline);
        int advance = glyph.advance;
        if (advances) {
            advance = std::accumulate(advances, advances + (before - rest.size()), 0);
            advances += before - rest.size();
        }
        x += advance;
    }
}

/// The rectangle that can show something of the run, ink beyond the cell included.
RECT InkBounds(const TextRun& run, const FontFace& face) {
    const int margin = face.size().em;
    const RECT cell{run.place.x - margin, run.place.y - margin, run.place.x + run.width + margin,
                    run.place.y + face.size().Height() + margin};
    return run.clip ? Intersection(cell, *run.clip) : cell;
}

RECT CellOf(const TextRun& run, const FontFace& face) {
    const RECT cell{run.place.x, run.place.y, run.place.x + run.width,
                    run.place.y + face.size().Height()};
    return run.clip ? Intersection(cell, *run.clip) : cell;
}

void DrawBar(Dc& dc, const RECT& bar, const RECT* clip) {
    const RECT seen = clip ? Intersection(bar, *clip) : bar;
    const Pixel pixel = PixelFor(dc, dc.state.text_color);
    ForEachPart(dc, seen, [&dc, pixel](const RECT& part) {
        FillBlock(BlockOf(*dc.surface, part), pixel);
        dc.surface->AddDamage(part);
    });
}

}  // namespace

int TextWidth(FontFace& face, std::string_view text) {
    int width = 0;
    while (!text.empty()) width += face.Advance(TakeCode(&text));
    return width;
}

void DrawRun(Dc& dc, const TextRun& run) {
    if (dc.reach.Empty()) return;
    FontFace& face = dc.state.font->Face();
    const RECT cell = CellOf(run, face);
    if (dc.state.back_mode == OPAQUE && !IsEmpty(cell)) {
        FillReached(dc, cell, PixelFor(dc, dc.state.back_color));
    }
    const Pixel pixel = PixelFor(dc, dc.state.text_color);
    ForEachPart(dc, InkBounds(run, face), [&](const RECT& part) {
        PaintGlyphs(dc, run, part, face, pixel);
        dc.surface->AddDamage(part);
    });
    if (face.underlined()) {
        DrawUnderline(dc, run.place.x, run.place.x + run.width, run.place.y, run.clip);
    }
    if (face.struck_out()) {
        const int y = run.place.y + face.size().ascent * 2 / 3;
        DrawBar(dc, {run.place.x, y, run.place.x + run.width, y + 1}, run.clip);
    }
    if (RecordingTexts()) {
        dc.surface->records().Add(run.text, cell, dc.reach, dc.state.text_color, face.weight());
    }
}

void DrawUnderline(Dc& dc, int left, int right, int top, const RECT* clip) {
    const FaceSize& size = dc.state.font->Face().size();
    const int y = top + size.ascent + 1;
    DrawBar(dc, {left, y, right, y + std::max(1, size.em / 14)}, clip);
}

}  // namespace winbase

using namespace winbase;

namespace {

// A text that is longer is wider than any surface.
constexpr UINT kMaxText = 1 << 16;

int SumOf(const INT* advances, std::string_view text) {
    return Near(static_cast<int>(std::clamp<long long>(
        std::accumulate(advances, advances + text.size(), 0LL), -kFarthest, kFarthest)));
}

/// The cell's left and top for a reference point, by the context's alignment.
POINT AlignedPlace(const Dc& dc, POINT point, int width, const FaceSize& size) {
    switch (dc.state.align & TA_CENTER) {
        case TA_RIGHT: point.x -= width; break;
        case TA_CENTER: point.x -= width / 2; break;
        default: break;
    }
    switch (dc.state.align & TA_BASELINE) {
        case TA_BOTTOM: point.y -= size.Height(); break;
        case TA_BASELINE: point.y -= size.ascent; break;
        default: break;
    }
    return point;
}

/// With TA_UPDATECP the text begins at the current position, which moves behind it.
void AdvancePosition(Dc& dc, int width) {
    switch (dc.state.align & TA_CENTER) {
        case TA_LEFT: dc.state.position.x = Near(Near(dc.state.position.x) + width); break;
        case TA_RIGHT: dc.state.position.x = Near(Near(dc.state.position.x) - width); break;
        default: break;
    }
}

void DrawAligned(Dc& dc, POINT point, std::string_view text, const RECT* clip,
                 const INT* advances) {
    const bool moves = (dc.state.align & TA_UPDATECP) != 0;
    if (moves) point = dc.state.position;
    FontFace& face = dc.state.font->Face();
    const int width = advances ? SumOf(advances, text) : TextWidth(face, text);
    const POINT offset = dc.Offset();
    POINT place = AlignedPlace(dc, {Near(point.x), Near(point.y)}, width, face.size());
    place = {place.x + offset.x, place.y + offset.y};
    DrawRun(dc, {text, place, clip, advances, width});
    if (moves) AdvancePosition(dc, width);
}

}  // namespace

BOOL WINAPI ExtTextOutA(HDC handle, int x, int y, UINT options, const RECT* rect, LPCSTR text,
                        UINT count, const INT* advances) {
    Dc* dc = FindDcToDraw(handle);
    if (!dc || (!text && count > 0) || count > kMaxText) return FALSE;
    const RECT area = rect ? dc->ToSurface(Near(*rect)) : RECT{};
    if (rect && (options & ETO_OPAQUE)) FillReached(*dc, area, PixelFor(*dc, dc->state.back_color));
    if (count == 0) return TRUE;
    const RECT* clip = rect && (options & ETO_CLIPPED) ? &area : nullptr;
    DrawAligned(*dc, {x, y}, {text, count}, clip, advances);
    return TRUE;
}

BOOL WINAPI TextOutA(HDC dc, int x, int y, LPCSTR text, int count) {
    if (count < 0) return FALSE;
    return ExtTextOutA(dc, x, y, 0, nullptr, text, static_cast<UINT>(count), nullptr);
}

BOOL WINAPI GetTextExtentPoint32A(HDC handle, LPCSTR text, int count, LPSIZE size) {
    Dc* dc = FindDc(handle);
    if (!dc || !size || count < 0 || (!text && count > 0)) return FALSE;
    FontFace& face = dc->state.font->Face();
    *size = {};
    if (count == 0) return TRUE;
    *size = {TextWidth(face, {text, static_cast<std::size_t>(count)}), face.size().Height()};
    return TRUE;
}

BOOL WINAPI GetTextExtentExPointA(HDC handle, LPCSTR text, int count, int max_extent, LPINT fit,
                                  LPINT partial, LPSIZE size) {
    Dc* dc = FindDc(handle);
    if (!dc || !size || count < 0 || (!text && count > 0)) return FALSE;
    FontFace& face = dc->state.font->Face();
    std::string_view rest(text, static_cast<std::size_t>(count));
    int width = 0;
    int fitting = 0;
    for (int at = 0; at < count;) {
        width += face.Advance(TakeCode(&rest));
        const int end = count - static_cast<int>(rest.size());
        if (!fit || width <= max_extent) {
            fitting = end;
            // Both bytes of a character end where it ends.
            if (partial) std::fill(partial + at, partial + end, width);
        }
        at = end;
    }
    if (fit) *fit = fitting;
    *size = {width, count == 0 ? 0 : face.size().Height()};
    return TRUE;
}
