#include "controls/tab_set.h"

#include <algorithm>
#include <cstring>

#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

BEGIN_MESSAGE_MAP(CTabSet, CWnd)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_MESSAGE(WM_MOUSELEAVE, &CTabSet::OnMouseLeave)
END_MESSAGE_MAP()

namespace {

constexpr int kTabSkin = 9;
constexpr int kPictures = 3;
constexpr int kSelectedPicture = 2;
constexpr int kTabGap = 2;
constexpr int kEdge = 5;
constexpr COLORREF kText = 0x171717;

struct TabText {
    int height;
    int weight;
    int drop;  ///< how far the text's rectangle begins below the tab's top
};
constexpr TabText kSelectedText{13, FW_BOLD, 3};
constexpr TabText kPlainText{12, FW_NORMAL, 5};

}  // namespace

CTabSet::CTabSet() { m_hMemDC.CreateCompatibleDC(nullptr); }

BOOL CTabSet::Create(CWnd* parent, int id) {
    m_pParent = parent;
    m_nID = id;
    const LPCSTR window_class = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorA(nullptr, IDC_ARROW));
    return CWnd::Create(window_class, "TabSet", WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), parent,
                        static_cast<UINT>(id));
}

int CTabSet::AddTab(const char* text) {
    const int index = m_tabs.GetCount();
    if (m_tabs.SetSize(index + 1) != index + 1) return -1;
    ButtonInfo& tab = m_tabs.GetData()[index];
    tab = {};
    text::CopyText(tab.szText, text ? text : "");
    if (GetSafeHwnd()) Invalidate();
    return index;
}

void CTabSet::RemoveTab(int index) {
    const int count = m_tabs.GetCount();
    if (index < 0 || index >= count) return;
    ButtonInfo* const tabs = m_tabs.GetData();
    std::copy(tabs + index + 1, tabs + count, tabs + index);
    m_tabs.SetSize(count - 1);
    // The selection stays with its tab; that of the removed one goes to its successor.
    if (index < m_nCurSel || m_nCurSel == count - 1) m_nCurSel = std::max(m_nCurSel - 1, 0);
    if (GetSafeHwnd()) Invalidate();
}

void CTabSet::PlaceTabs() {
    CRect client;
    GetClientRect(&client);
    int left = client.left;
    for (int i = 0; i < m_tabs.GetCount(); ++i, left += m_nTabWidth + kTabGap) {
        m_tabs.GetData()[i].rcTab = {left, client.top, left + m_nTabWidth, client.bottom};
    }
}

// All painting belongs to the background, which is why the paint step adds nothing to it.
BOOL CTabSet::OnEraseBkgnd(CDC* dc) {
    CUICallBack* const core = GetUICallBack();
    const HBITMAP skin = core ? core->GetSkinBitmap(kSkinPages, kTabSkin) : nullptr;
    PlaceTabs();
    PaintParentGround(*dc);
    for (int i = 0; i < m_tabs.GetCount(); ++i) {
        PaintTab(*dc, m_tabs.GetData()[i], i == m_nCurSel || i == m_nMarked, skin);
    }
    return 1;
}

// What stood here before a tab went is gone then, whether or not the parent leaves its children out
// of its own painting.
void CTabSet::PaintParentGround(const CDC& dc) const {
    CPoint corner(0, 0);
    ::MapWindowPoints(m_hWnd, m_pParent->GetSafeHwnd(), &corner, 1);
    ::OffsetViewportOrgEx(dc, -corner.x, -corner.y, nullptr);
    m_pParent->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc()));
    ::OffsetViewportOrgEx(dc, corner.x, corner.y, nullptr);
}

void CTabSet::OnPaint() { const CPaintDC dc(this); }

void CTabSet::PaintTab(const CDC& dc, const ButtonInfo& tab, bool selected, HBITMAP skin) const {
    PaintPicture(dc, tab.rcTab, selected, skin);
    const TabText& look = selected ? kSelectedText : kPlainText;
    CFont font;
    font.CreateFont(look.height, 0, 0, 0, look.weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                    "宋体");
    const toolkit::ScopedSelect select(dc, font);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(kText);
    CRect place(tab.rcTab);
    place.top += look.drop;
    dc.DrawText(tab.szText, -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

void CTabSet::PaintPicture(const CDC& dc, const RECT& place, bool selected, HBITMAP skin) const {
    BITMAP info{};
    if (!skin || !::GetObjectA(skin, sizeof info, &info)) return;
    const int width = info.bmWidth / kPictures;
    const int middle = width - 2 * kEdge;
    if (middle < 1 || info.bmHeight < 1) return;
    const toolkit::ScopedSelect select(m_hMemDC, skin);
    const int height = std::min<int>(place.bottom - place.top, info.bmHeight);
    const int source = selected ? kSelectedPicture * width : 0;
    const auto copy = [&](int left, int from, int columns) {
        ::BitBlt(dc, left, place.top, columns, height, m_hMemDC, from, 0, SRCCOPY);
    };
    copy(place.left, source, kEdge);
    const int end = place.right - kEdge;
    for (int left = place.left + kEdge; left < end; left += middle) {
        copy(left, source + kEdge, std::min(middle, end - left));
    }
    copy(end, source + width - kEdge, kEdge);
}

int CTabSet::TabAt(CPoint point) const {
    for (int i = 0; i < m_tabs.GetCount(); ++i) {
        const RECT& tab = m_tabs.GetData()[i].rcTab;
        const bool inside = point.x >= tab.left && point.x <= tab.right && point.y >= tab.top &&
                            point.y <= tab.bottom;
        if (inside) return i;
    }
    return -1;
}

void CTabSet::Notify() {
    NMHDR header{};
    header.hwndFrom = m_hWnd;
    header.idFrom = static_cast<UINT_PTR>(m_nID);
    header.code = static_cast<UINT>(TCN_SELCHANGE);
    m_pParent->SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void CTabSet::OnLButtonDown(UINT, CPoint point) {
    const int tab = TabAt(point);
    if (tab >= 0 && tab != m_nCurSel) {
        const HWND window = m_hWnd;
        m_nCurSel = tab;
        Invalidate();
        Notify();
        if (!::IsWindow(window)) return;
    }
    Default();
}

void CTabSet::OnMouseMove(UINT, CPoint) {
    if (!m_bHover) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, m_hWnd, 0};
        m_bHover = _TrackMouseEvent(&track) ? 1 : 0;
    }
    Default();
}

LRESULT CTabSet::OnMouseLeave(WPARAM, LPARAM) {
    m_bHover = 0;
    return 0;
}
