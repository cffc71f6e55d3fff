#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/market_records.h"

/// Five asks above five bids, painted by hand; a click takes a price over.
class CStock5BSDlg : public CDialog {
public:
    static constexpr UINT IDD = 10102;

    /// The window that gets the clicked price as its text. Null for none.
    void SetTarget(HWND target) { m_hTarget = target; }
    void OnQuote(unsigned int packed, const JSDyn1& quote);

protected:
    void OnOK() override {}
    void OnCancel() override {}

private:
    HWND m_hTarget = nullptr;
};
