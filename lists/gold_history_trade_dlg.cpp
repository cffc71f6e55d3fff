#include "lists/gold_history_trade_dlg.h"

#include "controls/page_ground.h"

BEGIN_MESSAGE_MAP(CGoldHistoryTradeDlg, CDialog)
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

BOOL CGoldHistoryTradeDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetGroundOfRichEdit(*this, kText);
    return TRUE;
}

BOOL CGoldHistoryTradeDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
