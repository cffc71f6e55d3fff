#include "controls/bmp_button.h"

#include <string>

#include "controls/templates.h"
#include "platform/text/bounded_text.h"

BEGIN_MESSAGE_MAP(CBmpButton, CSkinButton)
    ON_WM_TIMER()
    ON_WM_DESTROY()
END_MESSAGE_MAP()

namespace {

constexpr UINT_PTR kTipTimer = 1;
constexpr UINT kTipTimerMillis = 50;
constexpr DWORD kTipDelayMillis = 200;

}  // namespace

CBmpButton::CBmpButton() {
    m_font.CreateFont(13, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
}

void CBmpButton::SetColors(const std::array<COLORREF, 4>& colors) {
    m_crStates = colors;
    m_bColors = true;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void CBmpButton::SetTip(const char* text) { text::CopyText(m_szTip, text ? text : ""); }

COLORREF CBmpButton::TextColor(int state) const {
    return state == kDisabled ? GetSysColor(COLOR_GRAYTEXT) : m_crText;
}

void CBmpButton::PaintState(const CDC& dc, const CRect& client, int state) {
    if (m_bColors) {
        dc.FillSolidRect(client, m_crStates[static_cast<std::size_t>(state) % m_crStates.size()]);
    } else {
        CSkinButton::PaintState(dc, client, state);
    }
    const toolkit::ScopedSelect select(dc, m_font);
    controls::PaintCaption(dc, client, Caption(), TextColor(state));
}

void CBmpButton::OnHover(CPoint point) {
    if (point == m_ptLast) return;
    m_ptLast = point;
    m_tip.Hide();
    m_dwLastMove = ::GetTickCount();
    if (m_bTipTimer) return;
    m_bTipTimer = SetTimer(kTipTimer, kTipTimerMillis, nullptr) != 0;
}

void CBmpButton::StopTip() {
    KillTimer(kTipTimer);
    m_bTipTimer = false;
    m_tip.Hide();
}

void CBmpButton::OnUnhover() {
    m_ptLast = CPoint(-1, -1);
    StopTip();
}

void CBmpButton::OnTimer(UINT_PTR id) {
    if (id != kTipTimer) {
        Default();
        return;
    }
    if (::GetTickCount() - m_dwLastMove < kTipDelayMillis || m_szTip[0] == '\0') return;
    if (!m_tip.GetSafeHwnd() && !m_tip.Create(controls::kEmptyDialog, this)) return;
    std::string text = m_szTip;
    if (text.size() < 2 || text.compare(text.size() - 2, 2, "\r\n") != 0) text += "\r\n";
    CPoint pointer;
    ::GetCursorPos(&pointer);
    m_tip.ShowText(text.c_str(), pointer, ::GetSystemMetrics(SM_CXSCREEN));
}

void CBmpButton::OnDestroy() {
    if (m_tip.GetSafeHwnd()) m_tip.DestroyWindow();
    CSkinButton::OnDestroy();
}
