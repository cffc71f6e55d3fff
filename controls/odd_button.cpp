#include "controls/odd_button.h"

BEGIN_MESSAGE_MAP(COddButton, CTrackButton)
    ON_WM_GETDLGCODE()
    ON_MESSAGE(BM_SETSTYLE, &COddButton::OnSetStyle)
END_MESSAGE_MAP()

namespace {

constexpr WPARAM kTypeBits = 0xF;

}  // namespace

COddButton::COddButton() {
    m_font.CreateFont(12, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
}

BOOL COddButton::Create(LPCSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    TakeType(style);
    return CTrackButton::Create(text, style, rect, parent, id);
}

void COddButton::TakeType(DWORD style) {
    m_nType = style & static_cast<DWORD>(kTypeBits);
    m_bDefault = m_nType == BS_DEFPUSHBUTTON;
    m_bCanDefault = m_nType == BS_PUSHBUTTON || m_nType == BS_DEFPUSHBUTTON;
}

void COddButton::PreSubclassWindow() {
    const DWORD type = GetStyle() & static_cast<DWORD>(kTypeBits);
    if (type != BS_OWNERDRAW) TakeType(type);
    CTrackButton::PreSubclassWindow();
}

// The dialog moves the default from button to button by style; taken as it comes, it would make
// the button draw itself.
LRESULT COddButton::OnSetStyle(WPARAM style, LPARAM redraw) {
    const WPARAM type = style & kTypeBits;
    if (type == BS_DEFPUSHBUTTON) m_bDefault = true;
    if (type == BS_PUSHBUTTON) m_bDefault = false;
    return DefWindowProc(BM_SETSTYLE, (style & ~kTypeBits) | BS_OWNERDRAW, redraw);
}

UINT COddButton::OnGetDlgCode() {
    if (m_nType == BS_GROUPBOX) return DLGC_STATIC;
    UINT code = static_cast<UINT>(Default());
    if (m_bDefault) code |= DLGC_DEFPUSHBUTTON;
    if (m_bCanDefault && !m_bDefault) code |= DLGC_UNDEFPUSHBUTTON;
    if (m_nType == BS_RADIOBUTTON || m_nType == BS_AUTORADIOBUTTON) code |= DLGC_RADIOBUTTON;
    return code;
}

HGDIOBJ COddButton::Font() const {
    const LRESULT own = SendMessage(WM_GETFONT);
    return own != 0 ? reinterpret_cast<HGDIOBJ>(own) : m_font.GetSafeHandle();
}

void COddButton::PaintState(const CDC& dc, const CRect& client, int state) {
    const toolkit::ScopedSelect select(dc, Font());
    controls::PaintCaption(dc, client, Caption(),
                           GetSysColor(state == kDisabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
}
