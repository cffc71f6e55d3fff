#include "controls/tool_tip.h"

#include <algorithm>
#include <cstring>

#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

namespace {

constexpr COLORREF kGround = 0xE7FFFF;
constexpr COLORREF kFrame = RGB(0, 0, 0);
constexpr COLORREF kHot = 0xB4DDF0;
constexpr SIZE kTextMargin{5, 2};
constexpr SIZE kItemMargin{15, 4};
constexpr int kTextLeft = 3;
constexpr int kTextTop = 1;
constexpr int kGap = 2;
constexpr int kBelow = 20;
constexpr int kPlaceAtLeft = 2;
constexpr std::string_view kLineEnd = "\r\n";

// What stands behind the last line end is no line: it is neither measured nor drawn.
template <class Take>
void ForEachLine(std::string_view text, Take take) {
    for (std::size_t end = text.find(kLineEnd); end != std::string_view::npos;
         end = text.find(kLineEnd)) {
        take(text.substr(0, end));
        text.remove_prefix(end + kLineEnd.size());
    }
}

int KeepOnScreen(int x, int width, int screen_width) {
    return screen_width > 0 && x + width > screen_width ? screen_width - width : x;
}

}  // namespace

CToolTip::CToolTip() {
    m_font.CreateFont(15, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, FF_SWISS,
                      "Tahoma");
}

CToolTip::~CToolTip() {
    if (GetSafeHwnd()) DestroyWindow();
}

BOOL CToolTip::Create(UINT template_id, CWnd* parent) {
    m_hParent = parent ? parent->GetSafeHwnd() : nullptr;
    return CDialog::Create(template_id, parent);
}

// The empty template makes a child; a tip has to leave its parent's rectangle.
BOOL CToolTip::OnInitDialog() {
    CDialog::OnInitDialog();
    ModifyStyle(WS_CHILD, WS_POPUP);
    ::SetWindowLongA(m_hWnd, GWL_EXSTYLE, ::GetWindowLongA(m_hWnd, GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
    ::SetParent(m_hWnd, nullptr);
    return FALSE;
}

CSize CToolTip::MeasureLine(const CDC& dc, std::string_view line) {
    if (line.empty()) line = " ";
    const CSize size = dc.GetTextExtent(line.data(), static_cast<int>(line.size()));
    m_nLineHeight = size.cy;
    return size;
}

CSize CToolTip::MeasureText() {
    const CClientDC dc(this);
    const toolkit::ScopedSelect select(dc, m_font);
    CSize size(0, 0);
    ForEachLine(m_szText.data(), [&](std::string_view line) {
        const CSize extent = MeasureLine(dc, line);
        size.cx = std::max(size.cx, extent.cx);
        size.cy += extent.cy;
    });
    return {size.cx + kTextMargin.cx, size.cy + kTextMargin.cy};
}

CSize CToolTip::MeasureItems() {
    const CClientDC dc(this);
    const toolkit::ScopedSelect select(dc, m_font);
    CSize size(0, 0);
    for (const TipItem& item : m_items) {
        const CSize extent = MeasureLine(dc, item.szText);
        size.cx = std::max(size.cx, extent.cx);
        size.cy += extent.cy;
    }
    return {size.cx + kItemMargin.cx, size.cy + kItemMargin.cy};
}

bool CToolTip::TakeText(const char* text) {
    m_items.clear();
    if (!text || *text == '\0') {
        Hide();
        return false;
    }
    if (!GetSafeHwnd() || std::strcmp(text, m_szText.data()) == 0) return false;
    const std::size_t length = text::PrefixLength(text, kTextSize - 1);
    std::memcpy(m_szText.data(), text, length);
    m_szText[length] = '\0';
    return true;
}

void CToolTip::ShowAt(CPoint corner, CSize size) {
    ::SetWindowPos(m_hWnd, HWND_TOPMOST, corner.x, corner.y, size.cx, size.cy,
                   SWP_NOACTIVATE | SWP_SHOWWINDOW);
    Invalidate();
    m_bShown = 1;
}

void CToolTip::ShowText(const char* text, CPoint point, int screen_width) {
    if (!TakeText(text)) return;
    const CSize size = MeasureText();
    const int x = KeepOnScreen(point.x, size.cx, screen_width);
    ShowAt(CPoint(x, point.y - size.cy - kGap), size);
}

void CToolTip::ShowTextBelow(const char* text, CPoint point, int placement) {
    if (!TakeText(text)) return;
    const CSize size = MeasureText();
    const int x = placement == kPlaceAtLeft ? point.x - size.cx - kGap : point.x;
    ShowAt(CPoint(x, point.y + kBelow), size);
}

void CToolTip::SetItems(const TipItem* items, int count) {
    m_items.clear();
    if (!items || count <= 0) return;
    m_items.assign(items, items + count);
    for (TipItem& item : m_items) item.szText[sizeof item.szText - 1] = '\0';
}

void CToolTip::ShowItems(CPoint point, int screen_width) {
    if (m_items.empty()) {
        Hide();
        return;
    }
    if (m_bShown || !GetSafeHwnd()) return;
    const CSize size = MeasureItems();
    const int x = KeepOnScreen(point.x, size.cx, screen_width);
    ShowAt(CPoint(x - 1, point.y - 1 - size.cy), size);
}

void CToolTip::Hide() {
    if (!m_bShown) return;
    m_items.clear();
    m_szText[0] = '\0';
    m_bShown = 0;
    if (GetSafeHwnd() && IsWindowVisible()) ShowWindow(SW_HIDE);
}

void CToolTip::HideIfOutside(int x, int y, int margin_x, int margin_y) {
    if (!m_bShown || !GetSafeHwnd()) return;
    CRect place;
    GetWindowRect(&place);
    place.InflateRect(margin_x, margin_y);
    if (!place.PtInRect(CPoint(x, y))) Hide();
}

LRESULT CToolTip::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: Paint(); return 0;
        case WM_SIZE: GetClientRect(&m_rcClient); break;
        case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
        case WM_MOUSEMOVE:
            OnMove(CPoint(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))));
            return 0;
        case WM_LBUTTONDOWN: OnPress(); return 0;
        case WM_MOUSELEAVE: OnLeave(); return 0;
        default: break;
    }
    return CDialog::WindowProc(message, wParam, lParam);
}

void CToolTip::Paint() {
    CPaintDC dc(this);
    if (m_rcClient.IsRectEmpty()) return;
    CDC memory;
    CBitmap picture;
    memory.CreateCompatibleDC(&dc);
    picture.CreateCompatibleBitmap(dc, m_rcClient.Width(), m_rcClient.Height());
    const toolkit::ScopedSelect select_picture(memory, picture);
    const toolkit::ScopedSelect select_font(memory, m_font);
    PaintContent(memory);
    dc.BitBlt(0, 0, m_rcClient.Width(), m_rcClient.Height(), &memory, 0, 0, SRCCOPY);
}

void CToolTip::PaintContent(const CDC& dc) {
    dc.FillSolidRect(m_rcClient, kGround);
    const CBrush frame(kFrame);
    dc.FrameRect(&m_rcClient, frame);
    dc.SetBkMode(TRANSPARENT);
    ItemMode() ? PaintItems(dc) : PaintLines(dc);
}

void CToolTip::PaintLines(const CDC& dc) const {
    int y = kTextTop;
    ForEachLine(m_szText.data(), [&](std::string_view line) {
        dc.TextOut(kTextLeft, y, line.data(), static_cast<int>(line.size()));
        y += m_nLineHeight;
    });
}

void CToolTip::PaintItems(const CDC& dc) const {
    int y = kTextTop;
    for (std::size_t i = 0; i < m_items.size(); ++i, y += m_nLineHeight) {
        if (static_cast<int>(i) == m_nHot) {
            dc.FillSolidRect(CRect(kTextLeft + 1, y, m_rcClient.right - 2, y + m_nLineHeight),
                             kHot);
        }
        const char* const text = m_items[i].szText;
        dc.TextOut(kTextLeft, y, text, static_cast<int>(std::strlen(text)));
    }
}

void CToolTip::OnMove(CPoint point) {
    if (ItemMode() || !m_bHideOnMove) {
        for (int i = 0; i < static_cast<int>(m_items.size()); ++i) {
            const bool under =
                point.y >= i * m_nLineHeight + 1 && point.y <= (i + 1) * m_nLineHeight;
            if (!under || i == m_nHot) continue;
            m_nHot = i;
            Invalidate();
        }
    } else {
        Hide();
    }
    if (m_bTracking) return;
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE | TME_HOVER, m_hWnd, HOVER_DEFAULT};
    m_bTracking = _TrackMouseEvent(&track) ? 1 : 0;
}

void CToolTip::OnPress() {
    if (m_nHot < 0 || m_nHot >= static_cast<int>(m_items.size())) return;
    const int id = m_items[static_cast<std::size_t>(m_nHot)].nID;
    ::PostMessageA(m_hNotify ? m_hNotify : m_hParent, WM_USER + 1, 0, id);
    Hide();
}

void CToolTip::OnLeave() {
    if (!m_bTracking) return;
    m_bTracking = 0;
    Hide();
}
