#include "controls/black_button.h"

namespace {

constexpr CBlackButton::Gradient kDisabledGradient{0x545454, 0x1E1E1E};
constexpr COLORREF kFrame = 0x515151;
constexpr COLORREF kDisabledText = 0x9A9A9A;

TRIVERTEX Vertex(LONG x, LONG y, COLORREF color) {
    const auto wide = [](BYTE value) { return static_cast<COLOR16>(value << 8); };
    return {x, y, wide(GetRValue(color)), wide(GetGValue(color)), wide(GetBValue(color)), 0};
}

}  // namespace

void controls::PaintGradient(const CDC& dc, const CRect& rect, COLORREF top, COLORREF bottom) {
    if (rect.IsRectEmpty()) return;
    TRIVERTEX corners[] = {Vertex(rect.left, rect.top, top),
                           Vertex(rect.right, rect.bottom, bottom)};
    GRADIENT_RECT mesh{0, 1};
    dc.GradientFill(corners, 2, &mesh, 1, GRADIENT_FILL_RECT_V);
}

CBlackButton::CBlackButton() {
    m_font.CreateFont(12, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
}

void CBlackButton::SetGradients(const Gradient& normal, const Gradient& pressed) {
    m_normal = normal;
    m_pressed = pressed;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void CBlackButton::PaintState(const CDC& dc, const CRect& client, int state) {
    const Gradient& gradient = state == kDisabled  ? kDisabledGradient
                               : state == kPressed ? m_pressed
                                                   : m_normal;
    CRect face(client);
    face.DeflateRect(2, 2);
    const CBrush frame(kFrame);
    dc.FrameRect(&face, frame);
    face.DeflateRect(1, 1);
    controls::PaintGradient(dc, face, gradient.top, gradient.bottom);
    const toolkit::ScopedSelect select(dc, m_font);
    controls::PaintCaption(dc, client, Caption(), state == kDisabled ? kDisabledText : m_crText);
}
