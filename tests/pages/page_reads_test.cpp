#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "funds/gold_funds_dlg.h"
#include "funds/settlement_dlg.h"
#include "funds/tran_account_child_dlg.h"
#include "lists/gold_order_dlg.h"
#include "lists/gold_position_dlg.h"
#include "lists/gold_trade_dlg.h"
#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "session/change_pwd_dlg.h"
#include "tests/pages/test_module.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

// What pages ask of the core for the shell.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string TextOf(CWnd& page, int id) {
    char text[256] = "";
    page.GetDlgItemText(id, text, sizeof(text));
    return text;
}

class PanelHostDouble : public PanelHost {
public:
    void ShowFundsOnPanels(double, double, double) override {}
    void ShowOrdersOnPanels(const CZebOrder* orders, int count) override {
        for (int i = 0; i < count; ++i) shown.emplace_back(orders[i].szOrderRef);
    }
    std::vector<std::string> shown;
};

class PageReads : public testing::Test {
protected:
    template <class Page>
    void Open(Page& page) {
        page.Create(Page::IDD, &frame);
        page.ShowWindow(SW_SHOW);
        core.ForgetCalls();
    }

    tests::RecordingCore core;
    tests::FrontEndDoors doors{core};
    tests::PageFrame frame;
};

TEST_F(PageReads, HandsOrdersToThePanelsWhenAsked) {
    CGoldOrderDlg page;
    PanelHostDouble panels;
    page.SetOwner(&panels);
    Open(page);
    core.orders.resize(2);
    text::CopyText(core.orders[0].szOrderRef, "12");
    text::CopyText(core.orders[1].szOrderRef, "7");
    page.Refresh(false);
    EXPECT_THAT(panels.shown, IsEmpty());
    page.Refresh(true);
    EXPECT_THAT(panels.shown, ElementsAre("12", "7"));
}

TEST_F(PageReads, NothingWithoutACore) {
    CGoldPositionDlg positions;
    CGoldOrderDlg orders;
    CGoldTradeDlg trades;
    CTranAccountChildDlg bank;
    CSettlementDlg settlement;
    CGoldFundsdlg funds;
    g_pUICallBack = nullptr;
    Open(positions);
    Open(orders);
    Open(trades);
    Open(bank);
    Open(settlement);
    Open(funds);
    positions.Refresh(true, true);
    orders.Refresh(true);
    trades.Refresh();
    bank.LoadBanks();
    settlement.Query("");
    funds.RequestFunds();
    platform::testing::Pump();
    EXPECT_EQ(positions.GetPositionAt(0), nullptr);
    EXPECT_THAT(core.TakeCalls(), IsEmpty());
}

TEST_F(PageReads, BanksIntoTheListAndEmptiesTheForm) {
    using Page = CTranAccountChildDlg;
    Page page;
    Open(page);
    for (const int id : {Page::kAmount, Page::kGoldFunds, Page::kBankBalance, Page::kBankPassword,
                         Page::kFundPassword}) {
        page.SetDlgItemText(id, "7");
    }
    core.banks.resize(2);
    text::CopyText(core.banks[0].szBankName, "工商银行");
    text::CopyText(core.banks[1].szBankName, "建设银行");
    page.LoadBanks();
    page.LoadBanks();
    ASSERT_EQ(page.SendDlgItemMessage(Page::kBank, CB_GETCOUNT), 2);
    char name[64] = "";
    page.SendDlgItemMessage(Page::kBank, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(name));
    EXPECT_GBK_EQ("建设银行", name);
    EXPECT_EQ(page.SendDlgItemMessage(Page::kBank, CB_GETITEMDATA, 1), 1);
    for (const int id : {Page::kAmount, Page::kGoldFunds, Page::kBankBalance, Page::kBankPassword,
                         Page::kFundPassword}) {
        EXPECT_EQ(TextOf(page, id), "") << id;
    }
}

TEST_F(PageReads, OneSettlementReportAtATime) {
    CSettlementDlg page;
    Open(page);
    page.Query("");
    page.Query("20260105");
    EXPECT_THAT(core.TakeCalls(), ElementsAre("SendFunctionRequest(9336, \"\")"));
    page.LoadReport("");
    HWND date = ::GetDlgItem(page, CSettlementDlg::kDate);
    SYSTEMTIME day{};
    day.wYear = 2026;
    day.wMonth = 1;
    day.wDay = 5;
    ::SendMessageA(date, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&day));
    page.SetDlgItemText(CSettlementDlg::kReport, "旧");
    platform::testing::Click(::GetDlgItem(page, CSettlementDlg::kQuery));
    platform::testing::Click(::GetDlgItem(page, CSettlementDlg::kQuery));
    EXPECT_THAT(core.TakeCalls(), ElementsAre("SendFunctionRequest(9336, \"20260105\")"));
    EXPECT_EQ(TextOf(page, CSettlementDlg::kReport), "");
    EXPECT_EQ(page.GetMarginCall(), "--");
}

TEST_F(PageReads, FundsOnlyForAnAccountAndShowsThemOnlyInSight) {
    CGoldFundsdlg page;
    page.ShowText("早");
    Open(page);
    page.RequestFunds();
    EXPECT_THAT(core.TakeCalls(), IsEmpty());
    core.logged_in = true;
    page.RequestFunds();
    EXPECT_THAT(core.TakeCalls(), ElementsAre("QueryAccount(0)"));
    page.ShowText("当前权益");
    page.ShowWindow(SW_HIDE);
    page.ShowText("晚");
    EXPECT_GBK_EQ("当前权益", TextOf(page, CGoldFundsdlg::kText));
}

TEST_F(PageReads, ForgetsPasswords) {
    CChangePwdDlg page;
    Open(page);
    const int fields[] = {CChangePwdDlg::kCurrentPassword, CChangePwdDlg::kNewPassword,
                          CChangePwdDlg::kRepeatedPassword};
    for (const int id : fields) page.SetDlgItemText(id, "secret");
    page.ClearPasswords();
    for (const int id : fields) EXPECT_EQ(TextOf(page, id), "") << id;
}

}  // namespace
