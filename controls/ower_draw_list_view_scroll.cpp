// Scroll bars: the horizontal one counts pixels, the vertical one rows.

#include <algorithm>

#include "controls/list_scroll.h"
#include "controls/ower_draw_list_view.h"

namespace {

SCROLLINFO BarOf(HWND window, int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ::GetScrollInfo(window, bar, &info);
    return info;
}

/// Leaves a bar alone that says so already, since setting one draws it.
void SetBar(HWND window, int bar, int last, int page) {
    const SCROLLINFO former = BarOf(window, bar);
    const auto kept_page = static_cast<UINT>(std::min(page, last + 1));
    if (former.nMin == 0 && former.nMax == last && former.nPage == kept_page) return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = last;
    info.nPage = static_cast<UINT>(page);
    ::SetScrollInfo(window, bar, &info, TRUE);
}

/// A message carries 16 bits of a position; where they agree with what is being dragged, that one
/// has them all.
int WholePosition(const SCROLLINFO& bar, UINT given) {
    return LOWORD(bar.nTrackPos) == given ? bar.nTrackPos : static_cast<int>(given);
}

}  // namespace

// A bar that comes or goes changes the client area and thereby calls this anew, so each step looks
// at the area for itself.
void COwerDrawListView::UpdateScrollBars() {
    UpdateHorizontalBar();
    UpdateVerticalBar();
    PullUp();
}

void COwerDrawListView::UpdateHorizontalBar() {
    CRect client;
    GetClientRect(&client);
    if (m_pGrid == nullptr || client.IsRectEmpty()) return;
    SetBar(m_hWnd, SB_HORZ, m_pGrid->TotalWidth(), client.Width());
    GetClientRect(&client);
    const bool fits = m_pGrid->TotalWidth() <= client.Width();
    int position = ::GetScrollPos(m_hWnd, SB_HORZ);
    if (fits && position != 0) {
        ::SetScrollPos(m_hWnd, SB_HORZ, 0, TRUE);
        position = 0;
    }
    if (fits || position != m_pGrid->nScrollX) Invalidate(FALSE);
    m_pGrid->nScrollX = position;
}

void COwerDrawListView::UpdateVerticalBar() {
    CRect client;
    GetClientRect(&client);
    if (m_pGrid == nullptr || client.IsRectEmpty()) return;
    SetBar(m_hWnd, SB_VERT,
           list_scroll::LastRow({m_pGrid->nRowCount, m_pGrid->nRowHeight, client.Height()}), 1);
}

void COwerDrawListView::PullUp() {
    CRect client;
    GetClientRect(&client);
    if (m_pGrid == nullptr || client.IsRectEmpty()) return;
    const auto first =
        list_scroll::PulledUp({m_pGrid->nRowCount, m_pGrid->nRowHeight, client.Height()},
                              m_pGrid->nScrollY / m_pGrid->nRowHeight);
    if (!first) return;
    ::SetScrollPos(m_hWnd, SB_VERT, *first, TRUE);
    // The number of a row where pixels are expected: the list stands near its beginning until it is
    // scrolled again.
    m_pGrid->nScrollY = *first;
    Invalidate(FALSE);
}

void COwerDrawListView::ResetScrollY(int offset) {
    if (m_pGrid != nullptr) m_pGrid->nScrollY = std::max(offset, 0);
}

void COwerDrawListView::ScrollToEnd() {
    if (m_pGrid == nullptr) return;
    const SCROLLINFO bar = BarOf(m_hWnd, SB_VERT);
    const int position = std::max(bar.nMax - static_cast<int>(bar.nPage) + 1, 0);
    ::SetScrollPos(m_hWnd, SB_VERT, position, TRUE);
    m_pGrid->nScrollY = list_scroll::OffsetOf(position, m_pGrid->nRowHeight);
    Invalidate(FALSE);
}

void COwerDrawListView::OnHScroll(UINT code, UINT position, CScrollBar*) {
    Scroll(SB_HORZ, code, position);
}

void COwerDrawListView::OnVScroll(UINT code, UINT position, CScrollBar*) {
    Scroll(SB_VERT, code, position);
}

BOOL COwerDrawListView::OnMouseWheel(UINT, short delta, CPoint) {
    if (delta != 0) Scroll(SB_VERT, delta < 0 ? SB_LINEDOWN : SB_LINEUP, 0);
    return TRUE;
}

void COwerDrawListView::Scroll(int bar, UINT code, UINT given) {
    const SCROLLINFO info = BarOf(m_hWnd, bar);
    // Both bars step by the page of the horizontal one: a page of rows is as many as the window is
    // wide in pixels and leads to the end.
    const int page = static_cast<int>(BarOf(m_hWnd, SB_HORZ).nPage);
    ScrollTo(bar, list_scroll::Target(code, info, page, WholePosition(info, given)));
}

void COwerDrawListView::ScrollTo(int bar, int position) {
    if (m_pGrid == nullptr) return;
    ::SetScrollPos(m_hWnd, bar, position, TRUE);
    const int reached = ::GetScrollPos(m_hWnd, bar);
    if (bar == SB_VERT) {
        m_pGrid->nScrollY = list_scroll::OffsetOf(reached, m_pGrid->nRowHeight);
        Repaint(&CListGrid::PaintBody);
    } else {
        m_pGrid->nScrollX = reached;
        Repaint(&CListGrid::Paint);
    }
}
