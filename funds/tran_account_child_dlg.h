#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/bank_records.h"
#include "plugin/contract/earray.h"

/// The form of a transfer between bank and gold account, and the list of transfers that were made.
class CTranAccountChildDlg : public CDialog {
public:
    static constexpr UINT IDD = 10013;
    static constexpr int kBankLabel = 10001;
    static constexpr int kBank = 10002;
    static constexpr int kDirectionLabel = 10004;
    static constexpr int kDirection = 10009;
    static constexpr int kFundPasswordLabel = 10003;
    static constexpr int kFundPassword = 10006;
    static constexpr int kBankPasswordLabel = 10012;
    static constexpr int kBankPassword = 10020;
    static constexpr int kBankBalanceLabel = 10005;
    static constexpr int kBankBalance = 10018;
    static constexpr int kQueryBankBalance = 10008;
    static constexpr int kGoldFundsLabel = 10025;
    static constexpr int kGoldFunds = 1006;
    static constexpr int kQueryGoldFunds = 1007;
    static constexpr int kAmountLabel = 10026;
    static constexpr int kAmount = 1008;
    static constexpr int kTransfer = 10029;
    static constexpr int kGoldToBank = 10027;
    static constexpr int kBankToGold = 10023;
    static constexpr int kQueryTransfers = 10028;
    static constexpr int kTransfers = 10007;
    static constexpr int kNote = 1040;

    /// What the tab strip shows; kNothing hides every control.
    enum class View { kForm = 0, kTransferList = 1, kNothing = 2 };
    void ShowView(View view);

    /// Reads the banks from the core and empties the form and the list of transfers.
    void LoadBanks();
    /// Takes a transfer that was asked for, or by `bEndOfList`, with a null block, learns that it
    /// was the last. The block stays the caller's.
    void AddTransferRow(const CBankTransfer* block, bool bEndOfList);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    DECLARE_MESSAGE_MAP()

private:
    EArray<CZebBank> m_banks{16};
    EArray<CBankTransfer> m_transfers{32};
};
