#include "host/skin/pictures.h"

namespace skin {

namespace {

constexpr double kCorner = 2;

enum State { kNormal, kHover, kPressed, kDisabled };

const Face& FaceOf(const Faces& faces, int state) {
    switch (state) {
        case kHover: return faces.hover;
        case kPressed: return faces.pressed;
        case kDisabled: return faces.disabled;
        default: return faces.normal;
    }
}

/// Outside 14 by 10, in the middle of the button.
void DrawKeyboard(Canvas& canvas, int width, int height, COLORREF ink) {
    const int left = (width - 14) / 2;
    const int top = (height - 10) / 2;
    canvas.RoundFrame(left, top, 14, 10, 1.5, 1, ink);
    for (int row = 0; row < 2; ++row) {
        for (int key = 0; key < 4; ++key)
            canvas.Bar(left + 2 + 3 * key, top + 2 + 2 * row, 1, 1, ink);
    }
    canvas.Bar(left + 4, top + 7, 6, 1, ink);
}

void DrawSymbol(Canvas& canvas, const ButtonLook& look, COLORREF ink) {
    const int x = look.width / 2;
    const int y = look.height / 2;
    switch (look.symbol) {
        case Symbol::kNone: return;
        case Symbol::kKeyboard: DrawKeyboard(canvas, look.width, look.height, ink); return;
        case Symbol::kPlus: canvas.Bar(x - 1, y - 5, 2, 10, ink); [[fallthrough]];
        case Symbol::kMinus: canvas.Bar(x - 5, y - 1, 10, 2, ink); return;
    }
}

}  // namespace

Canvas DrawButton(const ButtonLook& look, int scale) {
    Canvas canvas(kStateCount * look.width, look.height, scale, look.ground);
    for (int state = 0; state < kStateCount; ++state) {
        const Face& face = FaceOf(look.faces, state);
        canvas.SetOrigin(state * look.width, 0);
        canvas.RoundBar(0, 0, look.width, look.height, kCorner, face.border);
        canvas.RoundBar(1, 1, look.width - 2, look.height - 2, kCorner - 1, face.fill);
        DrawSymbol(canvas, look,
                   state == kDisabled ? look.dull_ink
                   : state == kNormal ? look.ink
                                      : look.hot_ink);
    }
    return canvas;
}

namespace {

struct MarkColors {
    COLORREF frame;
    COLORREF fill;
    COLORREF mark;
};

constexpr int kMarkSize = 14;

MarkColors ColorsOf(MarkKind kind, int state, bool checked) {
    const Palette& p = kLight;
    if (state == kDisabled) return {p.line, p.ground, p.faint};
    const COLORREF strong = FaceOf(p.primary, state).fill;
    if (checked && kind == MarkKind::kCheck) return {strong, strong, p.raised};
    const COLORREF fill = state == kPressed ? RGB(0xDC, 0xE7, 0xF3) : p.raised;
    const COLORREF frame = state == kNormal && !checked ? p.disabled : strong;
    return {frame, fill, strong};
}

void DrawRadio(Canvas& canvas, const MarkColors& colors, bool checked) {
    const Spot middle{kMarkSize / 2.0, kMarkSize / 2.0};
    canvas.Disc(middle, 7, colors.frame);
    canvas.Disc(middle, 6, colors.fill);
    if (checked) canvas.Disc(middle, 3, colors.mark);
}

void DrawCheck(Canvas& canvas, const MarkColors& colors, bool checked) {
    canvas.RoundBar(0, 0, kMarkSize, kMarkSize, kCorner, colors.frame);
    canvas.RoundBar(1, 1, kMarkSize - 2, kMarkSize - 2, kCorner - 1, colors.fill);
    if (checked) canvas.Lines({{3.5, 7.25}, {6, 9.75}, {10.75, 4.5}}, 1.75, colors.mark);
}

}  // namespace

Canvas DrawMarks(MarkKind kind, int scale) {
    Canvas canvas(2 * kStateCount * kMarkSize, kMarkSize, scale, Canvas::Ground::kTransparent);
    for (int i = 0; i < 2 * kStateCount; ++i) {
        const bool checked = i >= kStateCount;
        const MarkColors colors = ColorsOf(kind, i % kStateCount, checked);
        canvas.SetOrigin(i * kMarkSize, 0);
        if (kind == MarkKind::kRadio) {
            DrawRadio(canvas, colors, checked);
        } else {
            DrawCheck(canvas, colors, checked);
        }
    }
    return canvas;
}

}  // namespace skin
