#pragma once

#include "controls/templates.h"
#include "platform/toolkit/toolkit.h"

/// The line of a panel that shows available funds and open profit.
class CClientRightDlg : public CDialog {
public:
    static constexpr UINT IDD = controls::kEmptyDialog;

    void ShowFunds(double available, double open_profit);

protected:
    void OnOK() override {}
    void OnCancel() override {}

private:
    char m_szAvailable[32] = {};
    char m_szOpenProfit[32] = {};
};
