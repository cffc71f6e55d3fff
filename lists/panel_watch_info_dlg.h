#pragma once

#include "controls/templates.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/earray.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/position_records.h"

/// The lower part of a panel: one position and one order of its contract at a time.
class CPanelWatchInfoDlg : public CDialog {
public:
    static constexpr UINT IDD = controls::kEmptyDialog;
    static constexpr int kCancel = 10008;

    /// Who gets what the user does with positions.
    void SetOwner(HWND owner) { m_hOwner = owner; }
    /// Null for none.
    void SetContract(const CZebContract* contract);
    /// Reads the positions of the contract from the core.
    void RefreshPositions();
    /// Takes the orders of the contract out of all orders.
    void OnOrders(const CZebOrder* orders, int count);

protected:
    void OnOK() override {}
    void OnCancel() override {}

private:
    HWND m_hOwner = nullptr;
    const CZebContract* m_pContract = nullptr;
    EArray<CZebPosition> m_positions{4};
    EArray<CZebOrder> m_orders{32};
};
