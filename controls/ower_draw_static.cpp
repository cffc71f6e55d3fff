#include "controls/ower_draw_static.h"

namespace {

UINT TextFormat(DWORD style) {
    const DWORD kind = style & SS_TYPEMASK;
    const UINT align = kind == SS_CENTER ? DT_CENTER : kind == SS_RIGHT ? DT_RIGHT : DT_LEFT;
    const bool centered = (style & SS_CENTERIMAGE) != 0;
    return align | (centered ? DT_VCENTER | DT_SINGLELINE : DT_WORDBREAK);
}

}  // namespace

BEGIN_MESSAGE_MAP(COwerDrawStatic, CStatic)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_CTLCOLOR()
    ON_WM_ENABLE()
    ON_MESSAGE(WM_SETTEXT, &ThisClass::OnSetText)
END_MESSAGE_MAP()

void COwerDrawStatic::SetBackgroundOwner(CWnd* owner) {
    owner_ = owner ? owner->GetSafeHwnd() : nullptr;
    if (m_hWnd) Invalidate();
}

void COwerDrawStatic::SetTextColor(COLORREF color) {
    color_ = color;
    has_color_ = true;
    if (m_hWnd) Invalidate();
}

// The erasing paints; this ends the update region.
void COwerDrawStatic::OnPaint() { const CPaintDC dc(this); }

BOOL COwerDrawStatic::OnEraseBkgnd(CDC* dc) {
    if (!IsWindowVisible()) return TRUE;
    CRect client;
    GetClientRect(client);
    MemorySurface surface;
    if (!surface.Create(*dc, client.Size())) return TRUE;
    PaintPlain(surface.dc(), client);
    if (owner_) {
        background_.TakeOnce(*this, owner_);
        background_.CopyTo(surface.dc());
    }
    PaintText(surface.dc(), client);
    surface.CopyTo(*dc);
    return TRUE;
}

HBRUSH COwerDrawStatic::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    if (kind != CTLCOLOR_STATIC) return CStatic::OnCtlColor(dc, control, kind);
    dc->SetBkMode(TRANSPARENT);
    return static_cast<HBRUSH>(::GetStockObject(NULL_BRUSH));
}

// The class would paint the text at once, on a ground of its own.
LRESULT COwerDrawStatic::OnSetText(WPARAM wParam, LPARAM lParam) {
    const LRESULT answer = ::DefWindowProcA(m_hWnd, WM_SETTEXT, wParam, lParam);
    Invalidate();
    return answer;
}

void COwerDrawStatic::PaintPlain(HDC dc, const CRect& client) {
    const LRESULT brush =
        ::SendMessageA(::GetParent(m_hWnd), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                       reinterpret_cast<LPARAM>(m_hWnd));
    ::FillRect(dc, client, ::GetSysColorBrush(COLOR_3DFACE));
    if (brush) ::FillRect(dc, client, reinterpret_cast<HBRUSH>(brush));
}

void COwerDrawStatic::PaintText(HDC dc, CRect rect) {
    char text[1024] = "";
    GetWindowText(text, sizeof(text));
    const toolkit::ScopedSelect font(dc, reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    ::SetBkMode(dc, TRANSPARENT);
    if (has_color_) ::SetTextColor(dc, color_);
    if (!IsWindowEnabled()) ::SetTextColor(dc, ::GetSysColor(COLOR_GRAYTEXT));
    ::DrawTextA(dc, text, -1, rect, TextFormat(GetStyle()));
}
