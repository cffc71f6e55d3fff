#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "funds/gold_funds_dlg.h"
#include "funds/settlement_dlg.h"
#include "funds/tran_account_dlg.h"
#include "lists/gold_history_trade_dlg.h"
#include "lists/gold_reprot_dlg.h"
#include "orderentry/gold_bs_dlg.h"
#include "orderentry/panel_bs_dlg.h"
#include "platform/testing/input.h"
#include "session/gold_login_dlg.h"
#include "stops/auto_stop_loss_pup_base.h"
#include "tests/pages/layout.h"
#include "tests/pages/test_module.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

// Pages as they stand in a window: their code has moved the controls.

namespace {

using testing::IsEmpty;

CRect PlaceOf(CWnd& page, int id) {
    CRect place;
    ::GetWindowRect(::GetDlgItem(page, id), &place);
    page.ScreenToClient(&place);
    return place;
}

bool Visible(CWnd& page, int id) { return ::IsWindowVisible(::GetDlgItem(page, id)) != FALSE; }

class PageLayout : public testing::Test {
protected:
    /// Creates the page and looks at it in several sizes, the last of them the biggest.
    void ExpectFits(CDialog& page, UINT id, const std::vector<CSize>& sizes) {
        page.Create(id, &frame);
        page.ShowWindow(SW_SHOW);
        for (const CSize& size : sizes) {
            SCOPED_TRACE(std::to_string(size.cx) + " by " + std::to_string(size.cy));
            page.MoveWindow(0, 0, int{size.cx}, int{size.cy});
            EXPECT_THAT(tests::LayoutFaults(page), IsEmpty());
        }
    }

    tests::RecordingCore core;
    tests::FrontEndDoors doors{core};
    tests::PageFrame frame{1300, 800};
};

const std::vector<CSize> kPageSizes = {{760, 330}, {980, 400}, {1300, 800}};

TEST_F(PageLayout, OfThePagesThatFillTheMainDialog) {
    CSettlementDlg settlement;
    ExpectFits(settlement, CSettlementDlg::IDD, kPageSizes);
    CGoldFundsdlg funds;
    ExpectFits(funds, CGoldFundsdlg::IDD, kPageSizes);
    CGoldHistoryTradeDlg history;
    ExpectFits(history, CGoldHistoryTradeDlg::IDD, kPageSizes);
    CTranAccountDlg bank;
    ExpectFits(bank, CTranAccountDlg::IDD, kPageSizes);
    EXPECT_THAT(tests::LayoutFaults(bank.Child()), IsEmpty());
}

TEST_F(PageLayout, OfTheOrderPageAndTheTicket) {
    CGoldBsDlg order;
    ExpectFits(order, CGoldBsDlg::IDD, {{220, 248}, {220, 700}});
    CPanelBSDlg ticket;
    ExpectFits(ticket, CPanelBSDlg::IDD, {{280, 195}});
}

TEST_F(PageLayout, OfTheLists) {
    CGoldPositionDlg positions;
    ExpectFits(positions, CGoldPositionDlg::IDD, {{384, 120}, {900, 400}});
    EXPECT_EQ(tests::PlaceText(PlaceOf(positions, CGoldPositionDlg::kList)), "26,26-898,399");
    CGoldTradeDlg trades;
    ExpectFits(trades, CGoldTradeDlg::IDD, {{300, 120}, {900, 400}});
    EXPECT_EQ(tests::PlaceText(PlaceOf(trades, CGoldTradeDlg::kList)), "26,31-898,399");
    EXPECT_EQ(tests::PlaceText(PlaceOf(trades, CGoldTradeDlg::kExport)), "838,5-898,25");
}

TEST_F(PageLayout, OfTheOrdersWithAndWithoutTheirButtons) {
    CGoldOrderDlg orders;
    ExpectFits(orders, CGoldOrderDlg::IDD, {{300, 120}, {900, 400}});
    EXPECT_EQ(tests::PlaceText(PlaceOf(orders, CGoldOrderDlg::kList)), "26,2-898,400");
    EXPECT_FALSE(Visible(orders, CGoldOrderDlg::kCancel));
    orders.ShowToolbar(true);
    EXPECT_THAT(tests::LayoutFaults(orders), IsEmpty());
    EXPECT_EQ(tests::PlaceText(PlaceOf(orders, CGoldOrderDlg::kList)), "26,25-898,400");
    EXPECT_TRUE(Visible(orders, CGoldOrderDlg::kCancelAll));
    orders.ShowToolbar(false);
    EXPECT_EQ(tests::PlaceText(PlaceOf(orders, CGoldOrderDlg::kList)), "26,2-898,400");
}

TEST_F(PageLayout, OfTheReportPageByItsView) {
    struct View {
        int page;
        bool position;
        bool order;
        bool trade;
        bool toolbar;
        const char* first;  ///< which list begins at the left edge
    };
    const View views[] = {
        {0, true, true, false, false, "position"}, {1, false, true, false, true, "order"},
        {2, false, false, true, true, "trade"},    {3, true, false, false, false, "position"},
        {17, false, false, false, false, ""},
    };
    CGoldReprotDlg report;
    report.Create(CGoldReprotDlg::IDD, &frame);
    report.ShowWindow(SW_SHOW);
    report.MoveWindow(0, 0, 900, 300);
    for (const View& view : views) {
        SCOPED_TRACE(view.page);
        report.SetPage(view.page);
        EXPECT_EQ(report.m_position.IsWindowVisible() != FALSE, view.position);
        EXPECT_EQ(report.m_order.IsWindowVisible() != FALSE, view.order);
        EXPECT_EQ(report.m_trade.IsWindowVisible() != FALSE, view.trade);
        EXPECT_EQ(Visible(report.m_order, CGoldOrderDlg::kCancel), view.order && view.toolbar);
        EXPECT_THAT(tests::LayoutFaults(report), IsEmpty());
        for (CWnd* list :
             {static_cast<CWnd*>(&report.m_position), static_cast<CWnd*>(&report.m_order),
              static_cast<CWnd*>(&report.m_trade)}) {
            CRect place;
            list->GetWindowRect(&place);
            report.ScreenToClient(&place);
            const bool alone = view.page != 0 && list->IsWindowVisible();
            if (alone) {
                EXPECT_EQ(tests::PlaceText(place), "6,0-894,300");
            }
        }
    }
    report.SetPage(5);
    EXPECT_FALSE(report.m_position.IsWindowVisible());
}

TEST_F(PageLayout, OfTheLogin) {
    CGoldLoginDlg login;
    login.Create(CGoldLoginDlg::IDD, &frame);
    CRect window;
    CRect client;
    login.GetWindowRect(&window);
    login.GetClientRect(&client);
    EXPECT_EQ(window.Width(), 518);
    EXPECT_EQ(window.Height(), 346);
    EXPECT_EQ(tests::PlaceText(PlaceOf(login, CGoldLoginDlg::kServers)), "30,120-220,275");
    EXPECT_EQ(tests::PlaceText(PlaceOf(login, CGoldLoginDlg::kAccount)), "295,149-446,171");
    EXPECT_EQ(tests::PlaceText(PlaceOf(login, CGoldLoginDlg::kPassword)), "295,178-446,200");
    EXPECT_EQ(PlaceOf(login, IDOK).top, client.bottom - 25);
    EXPECT_EQ(PlaceOf(login, IDCANCEL).top, client.bottom - 25);
    EXPECT_EQ(::SendMessageA(::GetDlgItem(login, CGoldLoginDlg::kServers), LB_GETITEMHEIGHT, 0, 0),
              18);
}

TEST_F(PageLayout, OfTheStopDialogsPages) {
    CPresetStop stop{};
    CGOLDAutoStopLossPupBase dialog(nullptr, &stop, "Au(T+D)预设止盈止损", &frame);
    dialog.Create(CGOLDAutoStopLossPupBase::IDD, &frame);
    EXPECT_THAT(tests::LayoutFaults(dialog), IsEmpty());
    HWND tabs = ::GetDlgItem(dialog, CGOLDAutoStopLossPupBase::kTabs);
    HWND second = ::GetWindow(::GetWindow(tabs, GW_CHILD), GW_HWNDNEXT);
    HWND first = ::GetWindow(tabs, GW_CHILD);
    dialog.ShowWindow(SW_SHOW);
    EXPECT_NE(::IsWindowVisible(first), ::IsWindowVisible(second));
    for (HWND page : {first, second}) EXPECT_THAT(tests::LayoutFaults(page), IsEmpty());
    const BOOL shown = ::IsWindowVisible(first);
    platform::testing::Click(tabs, 90, 8);
    EXPECT_NE(::IsWindowVisible(first), shown);
    EXPECT_NE(::IsWindowVisible(first), ::IsWindowVisible(second));
}

TEST_F(PageLayout, OfTheBankPageByItsTab) {
    using Child = CTranAccountChildDlg;
    CTranAccountDlg bank;
    bank.Create(CTranAccountDlg::IDD, &frame);
    bank.ShowWindow(SW_SHOW);
    bank.MoveWindow(0, 0, 900, 400);
    EXPECT_TRUE(Visible(bank.Child(), Child::kTransfer));
    EXPECT_FALSE(Visible(bank.Child(), Child::kQueryTransfers));
    platform::testing::Click(::GetDlgItem(bank, CTranAccountDlg::kTabs), 120, 10);
    EXPECT_FALSE(Visible(bank.Child(), Child::kTransfer));
    EXPECT_TRUE(Visible(bank.Child(), Child::kQueryTransfers));
    EXPECT_TRUE(Visible(bank.Child(), Child::kBank));
    EXPECT_THAT(tests::LayoutFaults(bank.Child()), IsEmpty());
    bank.Child().ShowView(Child::View::kNothing);
    for (HWND control = ::GetWindow(bank.Child(), GW_CHILD); control != nullptr;
         control = ::GetWindow(control, GW_HWNDNEXT)) {
        EXPECT_FALSE(::IsWindowVisible(control)) << ::GetDlgCtrlID(control);
    }
}

}  // namespace
