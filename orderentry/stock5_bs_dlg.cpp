#include "orderentry/stock5_bs_dlg.h"

#include <cstring>

#include "orderentry/contract_rules.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

using orderentry::kFirstAskPlace;
using orderentry::kFirstBidPlace;
using orderentry::kLevels;
using orderentry::kNoPlace;

BEGIN_MESSAGE_MAP(CStock5BSDlg, CDialog)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONDOWN()
    ON_MESSAGE(WM_MOUSELEAVE, &CStock5BSDlg::OnMouseLeave)
END_MESSAGE_MAP()

namespace {

constexpr int kGroundSkin = 18;
constexpr int kLabelLeft = 8;
constexpr int kPriceLeft = 50;
constexpr int kVolumeInset = 10;
constexpr int kSummaryLeft = 40;
constexpr int kLimitLabelLeft = 88;
constexpr int kLimitLeft = 117;
constexpr int kHoverMargin = 2;
constexpr COLORREF kHoverGround = 0x232323;
constexpr COLORREF kLabel = orderentry::kLevelSame;

constexpr const char* kAskLabels[kLevels] = {"卖一", "卖二", "卖三", "卖四", "卖五"};
constexpr const char* kBidLabels[kLevels] = {"买一", "买二", "买三", "买四", "买五"};

int Length(const char* text) { return static_cast<int>(std::strlen(text)); }

void PaintText(const CDC& dc, int x, int y, const char* text, COLORREF color) {
    dc.SetTextColor(color);
    dc.TextOut(x, y, text, Length(text));
}

/// Of the symbol with this key; -1 when the host does not know it.
int DigitsOf(unsigned int packed) {
    CHostSymbol symbol{};
    return GetSymbolInfo(LOWORD(packed), HIWORD(packed), &symbol) ? symbol.nDigits : -1;
}

}  // namespace

void CStock5BSDlg::OnQuote(unsigned int packed, const JSDyn1& quote) {
    m_levels = orderentry::LevelsOf(quote, DigitsOf(packed));
    if (GetSafeHwnd()) Invalidate(FALSE);
}

BOOL CStock5BSDlg::OnEraseBkgnd(CDC*) { return TRUE; }

void CStock5BSDlg::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    if (client.IsRectEmpty()) return;
    CDC memory;
    CBitmap picture;
    memory.CreateCompatibleDC(&dc);
    picture.CreateCompatibleBitmap(dc, client.Width(), client.Height());
    const toolkit::ScopedSelect select(memory, picture);
    Paint(memory, client);
    dc.BitBlt(0, 0, client.Width(), client.Height(), &memory, 0, 0, SRCCOPY);
}

void CStock5BSDlg::PaintGround(CDC& dc, const CRect& client) const {
    dc.FillSolidRect(client, GetSysColor(COLOR_3DFACE));
    CUICallBack* const core = GetUICallBack();
    const HBITMAP skin = core ? core->GetSkinBitmap(kSkinPages, kGroundSkin) : nullptr;
    BITMAP size{};
    if (!skin || !GetObjectA(skin, sizeof size, &size) || size.bmWidth < 1 || size.bmHeight < 1) {
        return;
    }
    CDC source;
    source.CreateCompatibleDC(&dc);
    const toolkit::ScopedSelect select(source, skin);
    dc.StretchBlt(0, 0, client.Width(), client.Height(), &source, 0, 0, size.bmWidth, size.bmHeight,
                  SRCCOPY);
}

void CStock5BSDlg::Paint(CDC& dc, const CRect& client) {
    PaintGround(dc, client);
    const toolkit::ScopedSelect select(dc, *GetFont());
    dc.SetBkMode(TRANSPARENT);
    const orderentry::LevelRows rows = orderentry::RowsOfLevels();
    for (int i = 0; i < kLevels; ++i) {
        PaintLevel(dc, rows.asks[i], kAskLabels[i], m_levels.asks[i], orderentry::kLevelAskVolume,
                   kFirstAskPlace + i);
        PaintLevel(dc, rows.bids[i], kBidLabels[i], m_levels.bids[i], orderentry::kLevelBidVolume,
                   kFirstBidPlace + i);
    }
    PaintSummary(dc, rows);
}

void CStock5BSDlg::PaintLevel(CDC& dc, int y, const char* label, const orderentry::LevelText& level,
                              COLORREF volume_color, int place) {
    CRect client;
    GetClientRect(&client);
    PaintText(dc, kLabelLeft, y, label, kLabel);
    PaintPrice(dc, CPoint(kPriceLeft, y), level.price, level.color, place);
    const int width = dc.GetTextExtent(level.volume, Length(level.volume)).cx;
    PaintText(dc, client.right - kVolumeInset - width, y, level.volume, volume_color);
}

void CStock5BSDlg::PaintSummary(CDC& dc, const orderentry::LevelRows& rows) {
    PaintText(dc, kLabelLeft, rows.last, "最新", kLabel);
    PaintPrice(dc, CPoint(kSummaryLeft, rows.last), m_levels.last, m_levels.last_color,
               orderentry::kLastPlace);
    PaintText(dc, kLimitLabelLeft, rows.last, "涨停", kLabel);
    PaintText(dc, kLimitLeft, rows.last, m_levels.upper_limit, orderentry::kLevelUp);
    const bool falls = m_levels.change[0] == '-';
    PaintText(dc, kLabelLeft, rows.change, "涨幅", kLabel);
    PaintText(dc, kSummaryLeft, rows.change, m_levels.change,
              falls ? orderentry::kLevelDown : orderentry::kLevelUp);
    PaintText(dc, kLimitLabelLeft, rows.change, "跌停", kLabel);
    PaintText(dc, kLimitLeft, rows.change, m_levels.lower_limit, orderentry::kLevelDown);
}

void CStock5BSDlg::PaintPrice(CDC& dc, CPoint corner, const char* text, COLORREF color, int place) {
    const CSize size = dc.GetTextExtent(text, Length(text));
    CRect& rect = m_places[place];
    rect = CRect(corner.x, corner.y, corner.x + size.cx, corner.y + size.cy);
    if (place == m_nHover) {
        CRect ground = rect;
        ground.InflateRect(kHoverMargin, kHoverMargin);
        dc.FillSolidRect(ground, kHoverGround);
    }
    PaintText(dc, corner.x, corner.y, text, color);
}

int CStock5BSDlg::PlaceAt(CPoint point) const {
    for (int place = 0; place < orderentry::kPlaces; ++place) {
        if (m_places[place].PtInRect(point)) return place;
    }
    return kNoPlace;
}

void CStock5BSDlg::Hover(int place) {
    if (place == m_nHover) return;
    m_nHover = place;
    Invalidate(FALSE);
}

void CStock5BSDlg::OnMouseMove(UINT flags, CPoint point) {
    if (!m_bTracking) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_hWnd, 0};
        m_bTracking = _TrackMouseEvent(&track) != FALSE;
    }
    Hover(PlaceAt(point));
    CDialog::OnMouseMove(flags, point);
}

LRESULT CStock5BSDlg::OnMouseLeave(WPARAM, LPARAM) {
    m_bTracking = false;
    Hover(kNoPlace);
    return 0;
}

void CStock5BSDlg::OnLButtonDown(UINT flags, CPoint point) {
    Hover(PlaceAt(point));
    const char* const price = orderentry::PriceAt(m_levels, m_nHover);
    if (price && m_hTarget && ::IsWindow(m_hTarget)) ::SetWindowTextA(m_hTarget, price);
    CDialog::OnLButtonDown(flags, point);
}
