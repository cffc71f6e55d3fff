#include "orderentry/panel_bs_dlg.h"

#include <string>

#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"

void CPanelBSDlg::SetContract(const CZebContract* contract) {
    m_pContract = contract;
    m_bEnabled = contract != nullptr;
    m_stSymbol = {};
    if (contract != nullptr) {
        const std::string code(text::FieldText(contract->szContract));
        GetSymbolByName(&m_stSymbol, code.c_str());
    }
    constexpr int kTrading[] = {kBuy,       kSell,       kBuyFirst, kBuySecond,
                                kSellFirst, kSellSecond, kStops,    kAutoStop};
    for (const int id : kTrading) {
        HWND control = ::GetDlgItem(m_hWnd, id);
        if (control != nullptr) ::EnableWindow(control, m_bEnabled);
    }
}

void CPanelBSDlg::OnQuoteEvent(const JSDyn1&) {}

void CPanelBSDlg::RefreshStopCheck() {}

void CPanelBSDlg::ReloadSettings() {}
