#include "funds/tran_account_child_dlg.h"

#include "controls/page_ground.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareBanks = 10;

using Child = CTranAccountChildDlg;
constexpr int kFormControls[] = {
    Child::kDirectionLabel,    Child::kDirection,
    Child::kFundPasswordLabel, Child::kFundPassword,
    Child::kBankPasswordLabel, Child::kBankPassword,
    Child::kBankBalanceLabel,  Child::kBankBalance,
    Child::kQueryBankBalance,  Child::kGoldFundsLabel,
    Child::kGoldFunds,         Child::kQueryGoldFunds,
    Child::kAmountLabel,       Child::kAmount,
    Child::kTransfer,          Child::kNote,
};
constexpr int kListControls[] = {Child::kQueryTransfers, Child::kTransfers};
constexpr int kBankControls[] = {Child::kBankLabel, Child::kBank};
// Nobody sees these; what they did is done by direction and transfer button.
constexpr int kHiddenControls[] = {Child::kGoldToBank, Child::kBankToGold};

}  // namespace

BEGIN_MESSAGE_MAP(CTranAccountChildDlg, CDialog)
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

BOOL CTranAccountChildDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    ShowView(View::kForm);
    return TRUE;
}

void CTranAccountChildDlg::ShowView(View view) {
    const auto show = [this](std::span<const int> ids, bool visible) {
        for (const int id : ids) {
            HWND control = ::GetDlgItem(m_hWnd, id);
            if (control != nullptr) ::ShowWindow(control, visible ? SW_SHOW : SW_HIDE);
        }
    };
    show(kBankControls, view != View::kNothing);
    show(kFormControls, view == View::kForm);
    show(kListControls, view == View::kTransferList);
    show(kHiddenControls, false);
}

void CTranAccountChildDlg::LoadBanks() {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr || m_hWnd == nullptr) return;
    const int came = ReadRecords(m_banks, kSpareBanks, [core](CZebBank* buffer, int capacity) {
        return core->GetBankList(buffer, capacity);
    });
    m_banks.SetSize(came);
    SendDlgItemMessage(kBank, CB_RESETCONTENT);
    for (int bank = 0; bank < came; ++bank) {
        const std::string name(text::FieldText(m_banks.GetData()[bank].szBankName));
        const LRESULT item =
            SendDlgItemMessage(kBank, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
        SendDlgItemMessage(kBank, CB_SETITEMDATA, static_cast<WPARAM>(item), bank);
    }
    m_transfers.RemoveAll();
    for (const int id : {kAmount, kGoldFunds, kBankBalance, kBankPassword, kFundPassword}) {
        SetDlgItemText(id, "");
    }
}

void CTranAccountChildDlg::AddTransferRow(const CBankTransfer*, bool) {}

BOOL CTranAccountChildDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}

HBRUSH CTranAccountChildDlg::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    const HBRUSH ground = PageGroundBrush(dc, kind);
    return ground != nullptr ? ground : CDialog::OnCtlColor(dc, control, kind);
}
