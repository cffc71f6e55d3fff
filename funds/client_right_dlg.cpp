#include "funds/client_right_dlg.h"

#include "platform/text/bounded_text.h"

void CClientRightDlg::ShowFunds(double available, double open_profit) {
    text::FormatText(m_szAvailable, sizeof(m_szAvailable), "%.2f", available);
    text::FormatText(m_szOpenProfit, sizeof(m_szOpenProfit), "%.2f", open_profit);
    if (m_hWnd != nullptr) Invalidate();
}
