#include "lists/panel_watch_info_dlg.h"

void CPanelWatchInfoDlg::SetContract(const CZebContract* contract) {
    m_pContract = contract;
    if (contract == nullptr) {
        m_positions.RemoveAll();
        m_orders.RemoveAll();
        if (m_hWnd != nullptr) Invalidate();
    }
    RefreshPositions();
}

void CPanelWatchInfoDlg::RefreshPositions() {}

void CPanelWatchInfoDlg::OnOrders(const CZebOrder*, int) {}
