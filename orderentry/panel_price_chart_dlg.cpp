#include "orderentry/panel_price_chart_dlg.h"

void CPanelPriceChartDlg::SetSymbol(const CHostSymbol& symbol, int digits) {
    m_stSymbol = symbol;
    m_nDigits = digits;
}

void CPanelPriceChartDlg::OnQuoteEvent(const JSDyn1&) {}
