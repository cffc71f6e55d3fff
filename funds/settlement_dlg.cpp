#include "funds/settlement_dlg.h"

#include "controls/page_ground.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

BEGIN_MESSAGE_MAP(CSettlementDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_BN_CLICKED(kQuery, &CSettlementDlg::OnQuery)
END_MESSAGE_MAP()

void CSettlementDlg::Query(const char* date) {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr || !m_bReplyReceived) return;
    m_bReplyReceived = false;
    core->SendFunctionRequest(kFunctionSettlement, date);
}

void CSettlementDlg::LoadReport(const char*) { m_bReplyReceived = true; }

void CSettlementDlg::OnQuery() {
    SYSTEMTIME day{};
    SendDlgItemMessage(kDate, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&day));
    char date[24];
    text::FormatText(date, sizeof(date), "%02d%02d%02d", day.wYear, day.wMonth, day.wDay);
    Query(date);
    SetDlgItemText(kReport, "");
}

void CSettlementDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    const auto move = [this](int id, int x, int y, int width, int height) {
        HWND control = ::GetDlgItem(m_hWnd, id);
        if (control != nullptr) ::MoveWindow(control, x, y, width, height, TRUE);
    };
    move(kDate, 3, 5, 80, 20);
    move(kQuery, 88, 5, 60, 20);
    move(kSave, cx - 62, 5, 60, 20);
    move(kReport, 3, 30, cx - 6, cy - 30);
}

BOOL CSettlementDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
