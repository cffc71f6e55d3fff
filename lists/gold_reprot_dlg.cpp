#include "lists/gold_reprot_dlg.h"

#include "controls/page_ground.h"

namespace {

constexpr int kMargin = 6;

struct View {
    int page;
    bool position;
    bool order;
    bool trade;
    bool toolbar;
};

constexpr View kViews[] = {
    {0, true, true, false, false},  {1, false, true, false, true},    {2, false, false, true, true},
    {3, true, false, false, false}, {17, false, false, false, false},
};
constexpr int kLastPage = 17;

void Show(CWnd& page, bool visible) { page.ShowWindow(visible ? SW_SHOW : SW_HIDE); }

}  // namespace

BEGIN_MESSAGE_MAP(CGoldReprotDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_SETCURSOR()
    ON_MESSAGE(WM_CAPTURECHANGED, &CGoldReprotDlg::OnCaptureChanged)
END_MESSAGE_MAP()

BOOL CGoldReprotDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_position.Create(CGoldPositionDlg::IDD, this);
    m_order.Create(CGoldOrderDlg::IDD, this);
    m_trade.Create(CGoldTradeDlg::IDD, this);
    SetPage(m_nPage);
    return TRUE;
}

void CGoldReprotDlg::SetPage(int page) {
    if (page > kLastPage) return;
    m_nPage = page;
    if (m_trade.m_hWnd == nullptr) return;
    for (const View& view : kViews) {
        if (view.page != page) continue;
        Show(m_position, view.position);
        Show(m_order, view.order);
        Show(m_trade, view.trade);
        m_order.ShowToolbar(view.toolbar);
    }
    LayOut();
}

void CGoldReprotDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    LayOut();
}

void CGoldReprotDlg::LayOut() {
    if (m_trade.m_hWnd == nullptr) return;
    CRect whole;
    GetClientRect(&whole);
    whole.DeflateRect(kMargin, 0);
    m_pSplitter->SetRect(whole);
    if (m_nPage == 0) {
        m_position.MoveWindow(m_pSplitter->Pane(0));
        m_order.MoveWindow(m_pSplitter->Pane(1));
        return;
    }
    CWnd* shown = &m_position;
    if (m_nPage == 1) shown = &m_order;
    if (m_nPage == 2) shown = &m_trade;
    shown->MoveWindow(whole);
}

BOOL CGoldReprotDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}

void CGoldReprotDlg::OnLButtonDown(UINT keys, CPoint point) {
    CDialog::OnLButtonDown(keys, point);
    m_pSplitter->OnPress(point);
}

void CGoldReprotDlg::OnLButtonUp(UINT keys, CPoint point) {
    CDialog::OnLButtonUp(keys, point);
    m_pSplitter->OnRelease();
}

void CGoldReprotDlg::OnMouseMove(UINT keys, CPoint point) {
    CDialog::OnMouseMove(keys, point);
    if (m_pSplitter->OnMove(point)) LayOut();
}

BOOL CGoldReprotDlg::OnSetCursor(CWnd* window, UINT hit, UINT message) {
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    // The pages ask as well, before they choose their own.
    const bool own = window != nullptr && window->m_hWnd == m_hWnd;
    if (!own || !m_pSplitter->IsOver(point)) return CDialog::OnSetCursor(window, hit, message);
    ::SetCursor(::LoadCursorA(nullptr, IDC_SIZEWE));
    return TRUE;
}

LRESULT CGoldReprotDlg::OnCaptureChanged(WPARAM, LPARAM) {
    m_pSplitter->OnCaptureLost();
    return 0;
}
