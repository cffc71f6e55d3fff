#include "lists/gold_trade_dlg.h"

#include "controls/page_ground.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareRecords = 16;

}  // namespace

BEGIN_MESSAGE_MAP(CGoldTradeDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

void CGoldTradeDlg::Refresh() {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr) return;
    ReadRecords(m_trades, kSpareRecords, [core](CZebTrade* buffer, int capacity) {
        return core->GetTradeList(buffer, capacity);
    });
}

void CGoldTradeDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    HWND mode = ::GetDlgItem(m_hWnd, kMode);
    HWND save = ::GetDlgItem(m_hWnd, kExport);
    if (mode != nullptr) ::MoveWindow(mode, 0, 32, 21, cy - 34, TRUE);
    if (save != nullptr) ::MoveWindow(save, cx - 62, 5, 60, 20, TRUE);
}

BOOL CGoldTradeDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
