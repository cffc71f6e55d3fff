#include "funds/tran_account_dlg.h"

#include "controls/page_ground.h"

namespace {

/// The strip of tabs above the child.
constexpr int kTabHeight = 24;

}  // namespace

BEGIN_MESSAGE_MAP(CTranAccountDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

BOOL CTranAccountDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_child.Create(CTranAccountChildDlg::IDD, this);
    m_child.ShowWindow(SW_SHOW);
    return TRUE;
}

void CTranAccountDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_child.m_hWnd != nullptr) m_child.MoveWindow(0, kTabHeight, cx, cy - kTabHeight);
}

BOOL CTranAccountDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
