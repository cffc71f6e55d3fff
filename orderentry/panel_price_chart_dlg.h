#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/market_records.h"

/// The strip of a panel that shows the best bid and ask, painted by hand.
class CPanelPriceChartDlg : public CDialog {
public:
    static constexpr UINT IDD = 10104;

    /// The contract's symbol and its decimal places; a zero symbol for none.
    void SetSymbol(const CHostSymbol& symbol, int digits);
    void OnQuoteEvent(const JSDyn1& quote);

protected:
    void OnOK() override {}
    void OnCancel() override {}

private:
    CHostSymbol m_stSymbol{};
    int m_nDigits = 2;
};
