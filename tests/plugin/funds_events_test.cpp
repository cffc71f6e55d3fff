#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/shell_test.h"
#include "tests/support/gbk_text.h"

namespace {

class FundsEvents : public tests::ShellTest {
protected:
    /// As the server sends it, with room behind the record.
    static LPARAM Summary() {
        CZebAccountSummary summary{};
        text::CopyText(summary.Balance, "100000");
        text::CopyText(summary.Available, "90000.5");
        text::CopyText(summary.CurrMargin, "2000");
        text::CopyText(summary.FrozenMargin, "300");
        text::CopyText(summary.Commission, "12.34");
        text::CopyText(summary.Margin1, "1");
        return RecordBlock(summary, 200);
    }

    CTranAccountChildDlg& Bank() { return shell->TranAccount().Child(); }
};

TEST_F(FundsEvents, ShowTheServersFiguresEverywhere) {
    shell->Positions().m_dProfitOpen = 55;
    shell->Positions().m_dProfitHold = -100;
    shell->ShowPage(4, SW_SHOW);
    AddPanel("a");
    AddPanel("b");
    log.clear();
    Send(EV_ACCOUNT_RESULT, Summary());
    EXPECT_EQ(90000.5, g_dAvailable);
    EXPECT_EQ(100000, g_dEquity);
    const std::string page = TextOf(shell->Funds(), CGoldFundsdlg::kText);
    EXPECT_NE(std::string::npos,
              page.find("可用资金:        90000.50        开仓盈亏:           55.00"));
    EXPECT_EQ("90000.50", TextOf(Bank(), CTranAccountChildDlg::kGoldFunds));
    EXPECT_EQ(
        "a funds 90000.50 55.00; b funds 90000.50 55.00; "
        "ReportSettlementText(4, 900, \"--\")",
        TakeLog());
}

TEST_F(FundsEvents, FollowTheProfitOfThePositions) {
    AddContract("Au(T+D)", 12, 1);
    Send(EV_CONTRACTS_READY);
    CZebPosition position{};
    text::CopyText(position.szContract, "Au(T+D)");
    position.dOpenProfit = 55;
    position.dHoldProfit = -100.25;
    core.positions = {position};
    g_dEquity = 1000;
    g_dAvailable = 500;
    AddPanel("a");
    AddPanel("b");
    for (const int use_profile : {0, 1}) {
        g_nUseProfile = use_profile;
        log.clear();
        Send(EV_POSITION_LIST);
        EXPECT_EQ(
            std::string(use_profile == 1 ? "SetFundsText(\"1000.00|399.75|55.00|\", 4); " : "") +
                "a funds 399.75 55.00; b funds 399.75 55.00",
            TakeLog({"SetFundsText", "a funds", "b funds"}));
    }
    core.positions.clear();
    Send(EV_POSITION_LIST);
    EXPECT_EQ("SetFundsText(\"1000.00|500.00|0.00|\", 4)", TakeLog({"SetFundsText"}));
}

TEST_F(FundsEvents, WorkTheFiguresOutAndTellTheHostBeforeTheReport) {
    g_nUseProfile = 1;
    shell->Positions().m_dProfitOpen = 55;
    shell->Positions().m_dProfitHold = -100;
    AddPanel("a");
    log.clear();
    Send(EV_ACCOUNT_RESULT, Summary());
    EXPECT_EQ(90000.5, g_dAvailable);
    EXPECT_EQ(90000.5 - 100 + 2001 + 300, g_dEquity);
    EXPECT_EQ("90000.50", TextOf(Bank(), CTranAccountChildDlg::kGoldFunds));
    EXPECT_EQ(
        "SetFundsText(\"92201.50|89900.50|55.00|\", 4); a funds 89900.50 55.00; "
        "ReportSettlementText(4, 900, \"--\")",
        TakeLog());
}

TEST_F(FundsEvents, PaintTheHostsWindowAnewOnlyWhenTheServerWorksTheFiguresOut) {
    for (const int use_profile : {0, 1, 2}) {
        g_nUseProfile = use_profile;
        platform::testing::Pump();
        ::ValidateRect(parent, nullptr);
        bool damaged = false;
        core.on_call = [&](std::string_view line) {
            if (line.starts_with("ReportSettlement")) {
                damaged = ::GetUpdateRect(parent, nullptr, FALSE) != FALSE;
            }
        };
        Send(EV_ACCOUNT_RESULT, Summary());
        EXPECT_EQ(use_profile != 1, damaged) << use_profile;
    }
}

TEST_F(FundsEvents, LeaveAHiddenFundsPageAlone) {
    shell->Funds().SetDlgItemText(CGoldFundsdlg::kText, "before");
    Send(EV_ACCOUNT_RESULT, Summary());
    EXPECT_EQ("before", TextOf(shell->Funds(), CGoldFundsdlg::kText));
}

TEST_F(FundsEvents, ChangeNothingWithoutARecordOrAfterAFailure) {
    g_dAvailable = 7;
    Send(EV_ACCOUNT_RESULT);
    SendFailed(EV_ACCOUNT_RESULT, Summary());
    EXPECT_EQ(7, g_dAvailable);
    EXPECT_EQ("", TakeLog({"Report", "SetFunds"}));
}

TEST_F(FundsEvents, ShowABankBalance) {
    CBankResult result{};
    result.dBalance = 1234.567;
    Send(EV_BANK_BALANCE, RecordBlock(result));
    EXPECT_EQ("1234.57", TextOf(Bank(), CTranAccountChildDlg::kBankBalance));
    SendFailed(EV_BANK_BALANCE, TextBlock("no"));
    Send(EV_BANK_BALANCE);
    EXPECT_EQ("1234.57", TextOf(Bank(), CTranAccountChildDlg::kBankBalance));
}

TEST_F(FundsEvents, EmptyTheAmountOnceATransferIsDone) {
    for (const int code : {EV_TRANSFER_KIND1_DONE, EV_TRANSFER_KIND2_DONE}) {
        Bank().SetDlgItemText(CTranAccountChildDlg::kAmount, "500");
        SendFailed(code, TextBlock("no"));
        EXPECT_EQ("500", TextOf(Bank(), CTranAccountChildDlg::kAmount));
        std::string while_box_is_open;
        on_box = [&] { while_box_is_open = TextOf(Bank(), CTranAccountChildDlg::kAmount); };
        Send(code, TextBlock("yes"));
        EXPECT_EQ("500", while_box_is_open);
        EXPECT_EQ("", TextOf(Bank(), CTranAccountChildDlg::kAmount));
        on_box = nullptr;
    }
}

}  // namespace
