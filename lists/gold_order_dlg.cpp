#include "lists/gold_order_dlg.h"

#include "controls/page_ground.h"
#include "lists/list_columns.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareRecords = 16;
constexpr int kToolbarHeight = 23;

constexpr lists::Column kColumns[] = {
    {"委托时间", 60}, {"合约", 60},    {"买卖", 60},     {"开平", 60},     {"委托价格", 80, 6},
    {"委手", 60, 6},  {"成手", 60, 6}, {"状态", 120, 5}, {"备注", 120, 5}, {"委托号", 60, 5},
};

}  // namespace

BEGIN_MESSAGE_MAP(CGoldOrderDlg, CDialog)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

int CGoldOrderDlg::OnCreate(LPCREATESTRUCT create) {
    if (CDialog::OnCreate(create) == -1) return -1;
    lists::MakeList(m_list, *this, kList, this);
    lists::SetColumns(m_list, kColumns);
    return 0;
}

void CGoldOrderDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kMode, m_btnMode);
    DDX_Control(exchange, kCancel, m_btnCancel);
    DDX_Control(exchange, kCancelAll, m_btnCancelAll);
}

BOOL CGoldOrderDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_btnMode, kSkinPages, lists::kUprightSkin);
    m_btnCancel.EnableWindow(FALSE);
    m_btnCancelAll.EnableWindow(FALSE);
    return TRUE;
}

void CGoldOrderDlg::Refresh(bool bNotifyPanels) {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr) return;
    ReadRecords(m_orders, kSpareRecords, [core](CZebOrder* buffer, int capacity) {
        return core->GetOrderList(buffer, capacity);
    });
    if (bNotifyPanels && m_pPanelHost != nullptr) {
        m_pPanelHost->ShowOrdersOnPanels(m_orders.GetData(), m_orders.GetCount());
    }
}

void CGoldOrderDlg::ShowToolbar(bool show) {
    m_bToolbar = show;
    if (m_hWnd == nullptr) return;
    for (const int id : {kCancel, kCancelAll}) {
        ::ShowWindow(::GetDlgItem(m_hWnd, id), show ? SW_SHOW : SW_HIDE);
    }
    LayOut();
}

void CGoldOrderDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    LayOut();
}

void CGoldOrderDlg::LayOut() {
    if (m_btnMode.m_hWnd == nullptr || m_list.m_hWnd == nullptr) return;
    CRect client;
    GetClientRect(&client);
    const int offset = m_bToolbar ? kToolbarHeight : 0;
    const int below = client.Height() - offset;
    m_btnMode.MoveWindow(0, offset + 2, 21, below - 4);
    m_list.MoveWindow(26, offset + 2, client.Width() - 28, below - 2);
}

BOOL CGoldOrderDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    m_list.DrawBorder();
    return TRUE;
}
