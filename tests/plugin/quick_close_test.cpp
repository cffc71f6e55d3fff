#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/shell_test.h"

// Positions that are closed and protected in the whole front end, with the dialogs of other folders
// that this needs.

namespace {

using Page = CGoldPositionDlg;

class PositionsInTheShell : public tests::ShellTest {
protected:
    PositionsInTheShell() {
        AddContract("Au(T+D)", 12, 1);
        Send(EV_CONTRACTS_READY);
        JSDyn1 quote{};
        quote.dBid[0] = 300;
        host.SetQuote(12, 1, quote);
        CZebPosition total{};
        text::CopyText(total.szExchange, "SGE");
        text::CopyText(total.szContract, "Au(T+D)");
        total.cDirection = '0';
        total.nVolume = 4;
        PositionGroup lot{};
        lot.nGroupID = 9;
        text::CopyText(lot.szExchange, "SGE");
        text::CopyText(lot.szContract, "Au(T+D)");
        lot.cDirection = '0';
        lot.nVolume = 4;
        core.positions = {total};
        core.position_details = {lot};
        Send(EV_POSITION_LIST);
        Send(EV_POSITION_GROUP_LIST);
    }

    void ShowLots() { shell->Positions().SendMessage(WM_COMMAND, Page::kMode, 0); }
    void Choose() {
        platform::testing::Click(*shell->Positions().GetDlgItem(Page::kList), 10, 33);
        log.clear();
    }
    void Press(int button) {
        shell->Positions().SendMessage(WM_COMMAND, static_cast<WPARAM>(button), 0);
    }
    void OnBox(HWND box) override {
        boxes.push_back(box);
        PressButton(box, answer);
    }

    std::vector<HWND> boxes;
    int answer = IDOK;
};

struct SettingsRow {
    bool no_order_question;
    bool no_close_question;
    bool lots;
    bool asks;
};

TEST_F(PositionsInTheShell, AreClosedWithoutAQuestionOnlyIfTheSettingsSaySo) {
    constexpr SettingsRow kRows[] = {
        {false, false, false, true}, {true, false, false, true}, {false, true, false, true},
        {true, true, false, false},  {false, false, true, true}, {true, false, true, false},
        {false, true, true, true},   {true, true, true, false},
    };
    for (const SettingsRow& row : kRows) {
        SCOPED_TRACE(testing::Message()
                     << row.no_order_question << row.no_close_question << row.lots);
        core.trade_param.bNoOrderConfirm = row.no_order_question;
        core.trade_param.bNoCloseConfirm = row.no_close_question;
        if (shell->Positions().m_bDetail != row.lots) ShowLots();
        Choose();
        boxes.clear();
        core.inserts.clear();
        answer = IDOK;
        Press(Page::kClose50);
        EXPECT_EQ(row.asks ? 1U : 0U, boxes.size());
        ASSERT_EQ(1U, core.inserts.size());
        EXPECT_EQ(2, core.inserts[0].request.nVolume);
        EXPECT_EQ(row.lots ? 9 : 0, core.inserts[0].request.nGroupID);
        answer = IDCANCEL;
        Press(Page::kClose50);
        EXPECT_EQ(row.asks ? 1U : 2U, core.inserts.size());
    }
}

TEST_F(PositionsInTheShell, GetTheirStopsFromTheDialogOfTheStops) {
    g_bNeedShowStopLossAndProfit = 1;
    ShowLots();
    Choose();
    answer = IDCANCEL;
    Press(Page::kStop);
    EXPECT_EQ(1U, boxes.size());
    EXPECT_EQ("GetGroupStop(9)", TakeLog({"GetGroupStop", "SetGroupStop"}));
}

TEST_F(PositionsInTheShell, GoToTheOrderPageWithADoubleClick) {
    Choose();
    platform::testing::PumpFor(::GetDoubleClickTime() + 1);
    platform::testing::DoubleClick(*shell->Positions().GetDlgItem(Page::kList), 10, 33);
    const CZebContract* const chosen = shell->BSBase().OrderPage().Contract();
    ASSERT_NE(nullptr, chosen);
    EXPECT_STREQ("Au(T+D)", chosen->szContract);
    EXPECT_EQ("4", TextOf(shell->BSBase().OrderPage(), CGoldBsDlg::kMaxVolume));
}

}  // namespace
