#include "lists/gold_trade_dlg.h"

#include "controls/page_ground.h"
#include "lists/list_columns.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareRecords = 16;

constexpr lists::Column kColumns[] = {
    {"时间", 60},     {"合约", 60}, {"买卖", 60},   {"开平", 60},
    {"成交价格", 60}, {"数量", 60}, {"委托号", 60}, {"成交号", 150},
};

}  // namespace

BEGIN_MESSAGE_MAP(CGoldTradeDlg, CDialog)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

int CGoldTradeDlg::OnCreate(LPCREATESTRUCT create) {
    if (CDialog::OnCreate(create) == -1) return -1;
    lists::MakeList(m_list, *this, kList, this);
    lists::SetColumns(m_list, kColumns);
    return 0;
}

void CGoldTradeDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kMode, m_btnMode);
    DDX_Control(exchange, kExport, m_btnExport);
}

BOOL CGoldTradeDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_btnMode, kSkinPages, lists::kUprightSkin);
    return TRUE;
}

void CGoldTradeDlg::Refresh() {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr) return;
    ReadRecords(m_trades, kSpareRecords, [core](CZebTrade* buffer, int capacity) {
        return core->GetTradeList(buffer, capacity);
    });
}

void CGoldTradeDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_btnMode.m_hWnd != nullptr) m_btnMode.MoveWindow(0, 32, 21, cy - 34);
    if (m_btnExport.m_hWnd != nullptr) m_btnExport.MoveWindow(cx - 62, 5, 60, 20);
    if (m_list.m_hWnd != nullptr) m_list.MoveWindow(26, 31, cx - 28, cy - 32);
}

BOOL CGoldTradeDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    m_list.DrawBorder();
    return TRUE;
}
