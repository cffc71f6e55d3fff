#include "controls/bmp_button_no_pic.h"

namespace {

constexpr CBmpButtonNoPic::Style kStyles[] = {
    {RGB(0xFF, 0xFF, 0xFF), RGB(0xB8, 0xC5, 0xD1), RGB(0x1F, 0x29, 0x33)},
    {RGB(0xEE, 0xF4, 0xFB), RGB(0x2F, 0x6D, 0xB3), RGB(0x1F, 0x4F, 0x86)},
    {RGB(0xD5, 0xE3, 0xF2), RGB(0x2F, 0x6D, 0xB3), RGB(0x1F, 0x4F, 0x86)},
    {RGB(0xF3, 0xF5, 0xF8), RGB(0xD9, 0xE0, 0xE7), RGB(0x84, 0x90, 0x9C)},
};

// Corners of 2 pixels: the parent's ground shows in the outermost one, the frame closes diagonally.
void PaintBox(const CDC& dc, const CRect& rect, COLORREF ground, COLORREF frame) {
    CRect wide(rect);
    wide.DeflateRect(0, 1);
    CRect high(rect);
    high.DeflateRect(1, 0);
    CRect inner(rect);
    inner.DeflateRect(1, 1);
    dc.FillSolidRect(wide, frame);
    dc.FillSolidRect(high, frame);
    dc.FillSolidRect(inner, ground);
    for (const LONG x : {inner.left, inner.right - 1}) {
        for (const LONG y : {inner.top, inner.bottom - 1}) ::SetPixel(dc, int{x}, int{y}, frame);
    }
}

}  // namespace

CBmpButtonNoPic::CBmpButtonNoPic() {
    for (std::size_t state = 0; state < m_styles.size(); ++state) m_styles[state] = kStyles[state];
}

void CBmpButtonNoPic::SetStyle(int state, const Style& style) {
    if (state < 0 || state >= static_cast<int>(m_styles.size())) return;
    m_styles[static_cast<std::size_t>(state)] = style;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void CBmpButtonNoPic::PaintState(const CDC& dc, const CRect& client, int state) {
    const Style& style = m_styles[static_cast<std::size_t>(state) % m_styles.size()];
    PaintBox(dc, client, style.ground, style.frame);
    const toolkit::ScopedSelect select(dc, Font());
    controls::PaintCaption(dc, client, Caption(), style.text);
}
