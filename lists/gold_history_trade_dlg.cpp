#include "lists/gold_history_trade_dlg.h"

#include "controls/page_ground.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kMargin = 12;
constexpr int kTextTop = 44;

}  // namespace

BEGIN_MESSAGE_MAP(CGoldHistoryTradeDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

void CGoldHistoryTradeDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kQuery, m_btnQuery);
}

BOOL CGoldHistoryTradeDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_btnQuery, kSkinPages, 1);
    SetGroundOfRichEdit(*this, kText);
    return TRUE;
}

void CGoldHistoryTradeDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    HWND text = ::GetDlgItem(m_hWnd, kText);
    if (text == nullptr) return;
    ::MoveWindow(text, kMargin, kTextTop, cx - 2 * kMargin, cy - kTextTop - kMargin, TRUE);
}

BOOL CGoldHistoryTradeDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
