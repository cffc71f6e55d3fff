#include "controls/ratio_button.h"

#include "plugin/contract/messages.h"

BEGIN_MESSAGE_MAP(CRatioButton, CSkinButton)
    ON_MESSAGE(WM_UNLATCH_RATIO, &CRatioButton::OnUnlatch)
END_MESSAGE_MAP()

namespace {

constexpr COLORREF kText = 0x8E8E8E;
constexpr COLORREF kPressedText = 0xF5F5F5;

}  // namespace

CRatioButton::CRatioButton() {
    m_font.CreateFont(12, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
}

void CRatioButton::SetInert(bool inert) {
    if (inert != (State() == kInert)) CTrackButton::ChangeState(inert ? kInert : kNormal);
}

void CRatioButton::ChangeState(int state) {
    if (state == kPressed) m_bWasPressed = State() == kPressed;
    if (State() != kPressed) CTrackButton::ChangeState(state);
}

void CRatioButton::EndPress() {
    if (!m_bWasPressed) CTrackButton::ChangeState(kNormal);
}

LRESULT CRatioButton::OnUnlatch(WPARAM, LPARAM) {
    if (State() == kPressed) CTrackButton::ChangeState(kNormal);
    return 0;
}

void CRatioButton::PaintState(const CDC& dc, const CRect& client, int state) {
    CSkinButton::PaintState(dc, client, state);
    const toolkit::ScopedSelect select(dc, m_font);
    controls::PaintCaption(dc, client, Caption(), state == kPressed ? kPressedText : kText);
}
