#include "controls/bs_button.h"

BEGIN_MESSAGE_MAP(CBSButton, CSkinButton)
    ON_WM_MOUSEMOVE()
    ON_WM_KEYDOWN()
END_MESSAGE_MAP()

namespace {

constexpr COLORREF kBuyTitle = 0x093FFE;
constexpr COLORREF kSellTitle = 0x0C8B3C;
constexpr int kTitleDrop = 2;

/// Fonts that all such buttons share, made at first use and kept.
struct SharedFonts {
    CFont title;
    CFont price[3];  ///< normal, hover, pressed

    SharedFonts() {
        Make(title, 12, FW_NORMAL);
        Make(price[0], 18, FW_BOLD);
        Make(price[1], 19, FW_BOLD);
        Make(price[2], 17, FW_BOLD);
    }
    static void Make(CFont& font, int height, int weight) {
        font.CreateFont(height, 0, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
    }
};

const SharedFonts& Fonts() {
    static const SharedFonts fonts;
    return fonts;
}

BYTE DisabledPart(int value) {
    const int space = 255 - value;
    return static_cast<BYTE>(space < 128 ? value - value * 0.1 : value + space * 0.1);
}

}  // namespace

COLORREF controls::DisabledOn(COLORREF ground) {
    return RGB(DisabledPart(GetRValue(ground)), DisabledPart(GetGValue(ground)),
               DisabledPart(GetBValue(ground)));
}

void CBSButton::SetPrice(const char* text, COLORREF color) {
    const std::string price = text ? text : "";
    if (price == m_strPrice && color == m_crPrice) return;
    m_strPrice = price;
    m_crPrice = color;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void CBSButton::SetInert(bool inert) {
    if (inert == (State() == kInert)) return;
    ChangeState(inert ? kInert : kNormal);
    if (inert && GetSafeHwnd() && ::GetCapture() == m_hWnd) ::ReleaseCapture();
}

bool CBSButton::IsBuy() const { return Caption().find("买") != std::string::npos; }

COLORREF CBSButton::TitleColor(int state) const {
    if (state == kDisabled)
        return controls::DisabledOn(controls::SkinPixel(Skin().bitmap, m_ptColor));
    return IsBuy() ? kBuyTitle : kSellTitle;
}

void CBSButton::PaintState(const CDC& dc, const CRect& client, int state) {
    CSkinButton::PaintState(dc, client, state);
    CRect title(client);
    title.bottom = title.top + client.Height() / 3;
    // Clear of the border that skins have.
    title.OffsetRect(0, kTitleDrop);
    CRect price(client);
    price.top = title.bottom;
    {
        const toolkit::ScopedSelect select(dc, Fonts().title);
        controls::PaintCaption(dc, title, Caption(), TitleColor(state));
    }
    const int font = state == kHover || state == kPressed ? state : kNormal;
    const toolkit::ScopedSelect select(dc, Fonts().price[font]);
    controls::PaintCaption(dc, price, m_strPrice,
                           state == kDisabled ? TitleColor(state) : m_crPrice);
}

void CBSButton::OnMouseMove(UINT flags, CPoint point) {
    if (State() == kInert) return;
    CRect client;
    GetClientRect(&client);
    const bool inside = client.PtInRect(point) != FALSE;
    if (!inside && ::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
        OnMouseLeave(0, 0);
        return;
    }
    if (inside && ::GetCapture() != m_hWnd) SetCapture();
    CTrackButton::OnMouseMove(flags, point);
}

void CBSButton::OnKeyDown(UINT, UINT, UINT) {
    if (State() != kInert) Default();
}
