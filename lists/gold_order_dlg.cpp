#include "lists/gold_order_dlg.h"

#include "controls/page_ground.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareRecords = 16;
constexpr int kToolbarHeight = 23;

}  // namespace

BEGIN_MESSAGE_MAP(CGoldOrderDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

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
    HWND mode = ::GetDlgItem(m_hWnd, kMode);
    if (mode == nullptr) return;
    CRect client;
    GetClientRect(&client);
    const int offset = m_bToolbar ? kToolbarHeight : 0;
    ::MoveWindow(mode, 0, offset + 2, 21, client.Height() - 4 - offset, TRUE);
}

BOOL CGoldOrderDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
