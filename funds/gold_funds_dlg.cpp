#include "funds/gold_funds_dlg.h"

#include "controls/page_ground.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kMargin = 4;

}  // namespace

BEGIN_MESSAGE_MAP(CGoldFundsdlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

BOOL CGoldFundsdlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetGroundOfRichEdit(*this, kText);
    return TRUE;
}

void CGoldFundsdlg::ShowText(const char* text) {
    if (m_hWnd != nullptr && IsWindowVisible()) SetDlgItemText(kText, text);
}

void CGoldFundsdlg::RequestFunds() {
    CUICallBack* core = GetUICallBack();
    if (core != nullptr && core->IsLoggedIn()) core->QueryAccount(0);
}

void CGoldFundsdlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    HWND text = ::GetDlgItem(m_hWnd, kText);
    if (text != nullptr) {
        ::MoveWindow(text, kMargin, kMargin, cx - 2 * kMargin, cy - 2 * kMargin, TRUE);
    }
}

BOOL CGoldFundsdlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
