#include "funds/tran_account_dlg.h"

#include "controls/page_ground.h"

namespace {

/// The strip of tabs above the child.
constexpr int kTabHeight = 24;

}  // namespace

BEGIN_MESSAGE_MAP(CTranAccountDlg, CDialog)
    ON_NOTIFY(TCN_SELCHANGE, kTabs, &CTranAccountDlg::OnTabChanged)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

BOOL CTranAccountDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_tabs.Create(this, kTabs);
    m_tabs.AddTab("转账");
    m_tabs.AddTab("转账流水");
    m_child.Create(CTranAccountChildDlg::IDD, this);
    m_child.ShowWindow(SW_SHOW);
    return TRUE;
}

void CTranAccountDlg::OnTabChanged(NMHDR*, LRESULT* result) {
    using View = CTranAccountChildDlg::View;
    m_child.ShowView(m_tabs.GetCurSel() == 0 ? View::kForm : View::kTransferList);
    *result = 0;
}

void CTranAccountDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_tabs.m_hWnd != nullptr) m_tabs.MoveWindow(0, 0, cx, kTabHeight);
    if (m_child.m_hWnd != nullptr) m_child.MoveWindow(0, kTabHeight, cx, cy - kTabHeight);
}

BOOL CTranAccountDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
