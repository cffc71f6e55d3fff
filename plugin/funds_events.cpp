#include "plugin/contract/bank_records.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/event_call.h"
#include "plugin/event_cases.h"
#include "plugin/funds_text.h"
#include "plugin/settings/process_values.h"

namespace events {

namespace {

AccountFunds FundsOf(const CZebAccountSummary& summary, CMainDlg& shell) {
    const PositionProfit profit{.open = shell.Positions().m_dProfitOpen,
                                .floating = shell.Positions().m_dProfitHold};
    const FundsSource source = g_nUseProfile == 1 ? FundsSource::kClient : FundsSource::kServer;
    return ComputeFunds(summary, profit, source);
}

/// A server that works the funds out tells the host itself, whose window then only has to be
/// painted anew.
void ReportToHost(const AccountFunds& funds, CMainDlg& shell) {
    shell.ShowFundsLine(funds.equity, funds.shownAvailable, funds.openProfit);
    if (g_nUseProfile != 1 && g_hParentWnd != nullptr) {
        ::InvalidateRect(g_hParentWnd, nullptr, TRUE);
    }
}

}  // namespace

void OnAccountResult(EventCall& call) {
    if (call.Failed()) {
        call.Box(call.TextOr("查询失败！"), "提示2", MB_ICONERROR);
        return;
    }
    const auto* summary = call.Record<CZebAccountSummary>();
    if (summary == nullptr) return;
    CMainDlg& shell = *call.Shell();
    const AccountFunds funds = FundsOf(*summary, shell);
    g_dAvailable = funds.available;
    g_dEquity = funds.equity;
    shell.Funds().ShowText(FundsPageText(funds).c_str());
    shell.TranAccount().Child().SetDlgItemText(CTranAccountChildDlg::kGoldFunds,
                                               MoneyText(funds.available).c_str());
    ReportToHost(funds, shell);
    shell.ShowFundsOnPanels(funds.equity, funds.shownAvailable, funds.openProfit);
    ReportMarginCall(call);
}

void OnBankBalance(EventCall& call) {
    if (call.Failed()) {
        call.Box(call.TextOr("查询失败！"), "提示4", MB_ICONERROR);
        return;
    }
    const auto* result = call.Record<CBankResult>();
    if (result == nullptr) return;
    call.Shell()->TranAccount().Child().SetDlgItemText(CTranAccountChildDlg::kBankBalance,
                                                       MoneyText(result->dBalance).c_str());
}

// A failure is dropped without a word.
void OnBankTransferRow(EventCall& call) {
    if (call.Failed()) return;
    const auto* transfer = call.Record<CBankTransfer>();
    if (transfer == nullptr && call.HasBlock()) return;
    call.Shell()->TranAccount().Child().AddTransferRow(transfer, !call.HasBlock());
}

void OnTransferDone(EventCall& call) {
    call.Box(call.TextOr(call.Failed() ? "未知错误" : "转账成功"), "提示", MB_ICONINFORMATION);
    CMainDlg* shell = call.Shell();
    if (call.Failed() || shell == nullptr) return;
    shell->TranAccount().Child().SetDlgItemText(CTranAccountChildDlg::kAmount, "");
}

}  // namespace events
