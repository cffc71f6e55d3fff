#include "controls/rv_msgr_btn.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(CRvMsgrBtn, COddButton)
    ON_WM_MOUSEMOVE()
    ON_MESSAGE(WM_MOUSELEAVE, &CRvMsgrBtn::OnMouseLeave)
END_MESSAGE_MAP()

namespace {

constexpr COLORREF kGround = 0xB16023;
constexpr COLORREF kDisabledGround = 0xE0D7CC;
constexpr COLORREF kHighlights[] = {0xFFFFFF, 0xFFF8EC, 0xFFF4BA};
constexpr COLORREF kHotFrames[] = {0x33B8FB, 0x62E7FF};
constexpr int kFaceStart = 0xEC;
constexpr int kPressedFaceStart = 0xCC;
constexpr int kFaceStep = 1;
constexpr int kFaceEnd = 0x90;

void Line(const CDC& dc, int left, int y, int right, COLORREF color) {
    const CPen pen(PS_SOLID, 1, color);
    const toolkit::ScopedSelect select(dc, pen);
    dc.MoveTo(left, y);
    dc.LineTo(right, y);
}

void Frame(const CDC& dc, const CRect& rect, COLORREF color) {
    const CPen pen(PS_SOLID, 1, color);
    const toolkit::ScopedSelect select(dc, pen);
    dc.MoveTo(rect.left, rect.top);
    dc.LineTo(rect.right - 1, rect.top);
    dc.LineTo(rect.right - 1, rect.bottom - 1);
    dc.LineTo(rect.left, rect.bottom - 1);
    dc.LineTo(rect.left, rect.top);
}

}  // namespace

void CRvMsgrBtn::PaintState(const CDC& dc, const CRect& client, int state) {
    dc.FillSolidRect(client, state == kDisabled ? kDisabledGround : kGround);
    CRect face(client);
    face.DeflateRect(1, 1);
    int shade = state == kPressed ? kPressedFaceStart : kFaceStart;
    for (int y = face.top; y < face.bottom; ++y) {
        Line(dc, face.left, y, face.right, RGB(shade, shade, shade));
        shade = std::max(shade - kFaceStep, kFaceEnd);
    }
    if (state == kNormal || state == kHover) {
        int y = face.top;
        for (const COLORREF highlight : kHighlights)
            Line(dc, face.left, y++, face.right, highlight);
    }
    if (state == kHover || (m_bHot && state == kNormal)) {
        for (const COLORREF frame : kHotFrames) {
            Frame(dc, face, frame);
            face.DeflateRect(1, 1);
        }
    }
    COddButton::PaintState(dc, client, state);
}

// Whether the pointer is here does not count as a state of this button.
void CRvMsgrBtn::ChangeState(int state) {
    COddButton::ChangeState(state == kHover ? kNormal : state);
}

void CRvMsgrBtn::OnMouseMove(UINT, CPoint) {
    if (!m_bHot) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_hWnd, 0};
        m_bHot = _TrackMouseEvent(&track) != FALSE;
        Invalidate(FALSE);
    }
    Default();
}

LRESULT CRvMsgrBtn::OnMouseLeave(WPARAM, LPARAM) {
    m_bHot = false;
    Invalidate(FALSE);
    return 0;
}
