#include <limits>

#include "plugin/contract/core_access.h"
#include "plugin/settings/process_values.h"
#include "tests/lists/positions/position_page_stage.h"

// The list of the position page: what it shows, sums up, publishes and tells of its rows.

namespace tests {
namespace {

using Page = CGoldPositionDlg;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr COLORREF kRed = 0x0001F6;
constexpr COLORREF kGreen = 0x019900;
constexpr COLORREF kGrey = 0x555555;

TEST_F(PositionPage, BeginsWithTotalsAndNothingToClose) {
    EXPECT_GBK_EQ("持仓—分笔", Text(Page::kMode));
    EXPECT_GBK_EQ("平仓1%- 平仓30%- 平仓50%- 平仓70%- 平仓100%-", CloseButtons());
    EXPECT_GBK_EQ("止盈止损", Text(Page::kStop));
    EXPECT_TRUE(Visible(Page::kStop));
    EXPECT_FALSE(Enabled(Page::kStop));
    EXPECT_THAT(Titles(),
                ElementsAre("合约名称", "买卖", "持仓", "可用", "开仓均价", "开仓盈亏", ""));
}

TEST_F(PositionPage, GivesListAndModeTheirPlaces) {
    for (const CSize size : {CSize(900, 300), CSize(500, 120)}) {
        page.MoveWindow(0, 0, size.cx, size.cy);
        EXPECT_EQ(CRect(0, 24, 21, size.cy - 4), Place(Page::kMode));
        EXPECT_EQ(CRect(26, 26, size.cx - 2, size.cy - 1), Place(Page::kList));
    }
}

TEST_F(PositionPage, SharesItsWidthBetweenTheButtons) {
    const struct {
        int page;
        int button;
    } kRows[] = {{300, 56}, {450, 67}, {700, 84}, {1500, 84}};
    for (const auto& row : kRows) {
        page.MoveWindow(0, 0, row.page, 300);
        int left = 26;
        for (const int id : {Page::kClose1, Page::kClose30, Page::kClose50, Page::kClose70,
                             Page::kClose100, Page::kStop}) {
            EXPECT_EQ(CRect(left, 1, left + row.button, 23), Place(id)) << row.page;
            left += row.button + 4;
        }
    }
}

TEST_F(PositionPage, GivesTheStopsWhatIsLeftOfAWideListUntilTheyAreDragged) {
    const auto& list =
        dynamic_cast<const COwerDrawListView&>(*CWnd::FromHandle(Control(Page::kList)));
    HoldGoldAndSilver();
    ShowLots();
    // A pixel stays free: columns as wide as the list have a scroll bar.
    EXPECT_EQ(871 - 390, list.GetColumnWidth(6));
    page.MoveWindow(0, 0, 600, 300);
    EXPECT_EQ(400, list.GetColumnWidth(6));
    page.MoveWindow(0, 0, 880, 300);
    HoldLots(std::vector<PositionGroup>(40, core.position_details[0]));
    EXPECT_EQ(841 - 390, list.GetColumnWidth(6)) << "beside the vertical bar";
    EXPECT_EQ(0U, list.GetStyle() & WS_HSCROLL);
    const auto drag = [this](int from, int to) {
        const HWND header = Control(Page::kList);
        platform::testing::Drag(platform::testing::ScreenPoint(header, from, 10),
                                platform::testing::ScreenPoint(header, to, 10));
    };
    drag(390, 370);
    page.MoveWindow(0, 0, 900, 300);
    EXPECT_EQ(861 - 370, list.GetColumnWidth(6));
    drag(861, 801);
    page.MoveWindow(0, 0, 890, 300);
    EXPECT_EQ(801 - 370, list.GetColumnWidth(6));
}

TEST_F(PositionPage, ShowsTotals) {
    HoldGoldAndSilver();
    EXPECT_THAT(Row(0), ElementsAre("Au(T+D)", "买", "4", "3", "300.00", "4000.00", ""));
    EXPECT_THAT(Row(1), ElementsAre("Ag99.99", "卖", "2", "2", "4010.00", "300.00", ""));
    EXPECT_THAT(Row(2), ElementsAre("", "", "", "", "", "", ""));
    constexpr COLORREF kColors[] = {0xB26429, kRed, kGrey, kGrey, kGrey, kRed};
    for (int column = 0; column < 6; ++column) {
        SCOPED_TRACE(column);
        EXPECT_EQ(kColors[column], Cell(0, column).color);
        EXPECT_EQ(column == 0, Cell(0, column).bold);
    }
    EXPECT_EQ(kGreen, Cell(1, 1).color);
}

TEST_F(PositionPage, ShowsLotsWithTheirStops) {
    HoldGoldAndSilver();
    core.position_details[0].dStopLoss = 20;
    core.position_details[0].dLongTakeProfit = 310;
    HoldLots(core.position_details);
    ShowLots();
    EXPECT_GBK_EQ("分笔—持仓", Text(Page::kMode));
    EXPECT_THAT(Titles(), ElementsAre("合约名称", "买卖", "持仓", "可用", "开仓均价", "开仓盈亏",
                                      "止损止盈"));
    EXPECT_THAT(Row(0), ElementsAre("Au(T+D)", "买", "3", "2", "300.00", "3000.00",
                                    "止损：20 绝对值做多止盈：310.000 "));
    EXPECT_THAT(Row(2), ElementsAre("Ag99.99", "卖", "2", "2", "4010.00", "300.00", ""));
    ShowLots();
    EXPECT_GBK_EQ("持仓—分笔", Text(Page::kMode));
    EXPECT_THAT(Row(0), ElementsAre("Au(T+D)", "买", "4", "3", "300.00", "4000.00", ""));
}

TEST_F(PositionPage, KeepsTotalsThreePixelsOffTheirLines) {
    HoldGoldAndSilver();
    const RECT contract = Cell(0, 0).rect;
    const RECT volume = Cell(0, 2).rect;
    ShowLots();
    EXPECT_EQ(contract.left - 3, Cell(0, 0).rect.left);
    EXPECT_EQ(volume.left + 3, Cell(0, 2).rect.left);
}

TEST_F(PositionPage, HasNoColumnForStopsThatAreNotOffered) {
    g_bNeedShowStopLossAndProfit = 0;
    HoldGoldAndSilver();
    core.position_details[0].dStopLoss = 20;
    HoldLots(core.position_details);
    ShowLots();
    EXPECT_GBK_EQ("", Titles()[6]);
    EXPECT_GBK_EQ("", Cell(0, 6).text);
    EXPECT_FALSE(Visible(Page::kStop));
}

TEST_F(PositionPage, LeavesRowsOfUnknownContractsBlankUntilTheyAreKnown) {
    CContractManager::ClearContracts();
    HoldGoldAndSilver();
    EXPECT_THAT(Row(0), ElementsAre("", "", "", "", "", "", ""));
    EXPECT_EQ(0, page.m_dProfitOpen);
    CContractManager::AddContract(core.contracts[0]);
    page.Refresh(page.m_bDetail, false);
    platform::testing::Pump();
    EXPECT_GBK_EQ("Au(T+D)", Cell(0, 0).text);
    EXPECT_GBK_EQ("", Cell(1, 0).text);
    EXPECT_EQ(4000, page.m_dProfitOpen);
}

TEST_F(PositionPage, PaintsEachProfitByItsQuote) {
    HoldGoldAndSilver();
    const struct {
        double last;
        const char* total;
        const char* lot;
        COLORREF color;
    } kRows[] = {{299, "-4000.00", "-3000.00", kGreen},
                 {300, "0.00", "0.00", kGrey},
                 {301, "4000.00", "3000.00", kRed},
                 {0, "-", "", kGrey}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.last);
        host.SetQuote(kGold, MakeQuote(row.last));
        page.OnQuote(static_cast<unsigned>(kGold), {});
        platform::testing::Pump();
        EXPECT_GBK_EQ(row.total, Cell(0, 5).text);
        EXPECT_EQ(row.color, Cell(0, 5).color);
        ShowLots();
        EXPECT_GBK_EQ(row.lot, Cell(0, 5).text);
        ShowLots();
    }
}

TEST_F(PositionPage, ReadsTheListInTwoSteps) {
    core.positions.resize(2);
    page.Refresh(false, true);
    EXPECT_THAT(core.TakeCalls(), ElementsAre("GetPositionList(count)", "GetPositionList(read)",
                                              "GetPositionList(count)"));
    page.Refresh(true, true);
    EXPECT_THAT(core.TakeCalls(),
                ElementsAre("GetPositionDetailList(count)", "GetPositionDetailList(read)",
                            "GetPositionList(count)"));
    page.Refresh(false, false);
    EXPECT_THAT(core.TakeCalls(), ElementsAre("GetPositionList(count)"));
}

TEST_F(PositionPage, HasNoRowThatTheCoreOnlyPromised) {
    HoldGoldAndSilver();
    core.positions.resize(1);
    core.promised_too_many = 1;
    page.Refresh(false, true);
    EXPECT_NE(nullptr, page.GetPositionAt(0));
    EXPECT_EQ(nullptr, page.GetPositionAt(1));
    EXPECT_EQ(4000, page.m_dProfitOpen);
    EXPECT_EQ(0, page.GetOpenProfit(1));
    EXPECT_EQ(0, page.GetHoldProfit(-1));
}

TEST_F(PositionPage, AnswersForTheTotalsItHolds) {
    HoldGoldAndSilver();
    EXPECT_EQ(3, page.GetOppositeAvailable("Au(T+D)", '1'));
    EXPECT_EQ(0, page.GetOppositeAvailable("Au(T+D)", '0'));
    EXPECT_EQ(2, page.GetOppositeAvailable("Ag99.99", '0'));
    EXPECT_TRUE(page.HasPosition("Ag99.99"));
    EXPECT_FALSE(page.HasPosition("Ag99"));
    EXPECT_EQ(4, page.GetPositionAt(0)->nVolume);
}

TEST_F(PositionPage, PublishesWhatPositionsStandAt) {
    CZebPosition gold = MakePosition("Au(T+D)", '0', 1, 300);
    gold.dHoldProfit = -250.5;
    CZebPosition silver = MakePosition("Ag99.99", '1', 2, 4010);
    silver.dOpenProfit = -7;
    silver.dHoldProfit = 50;
    Hold({gold, silver});
    EXPECT_EQ(993, page.m_dProfitOpen);
    EXPECT_EQ(-200.5, page.m_dProfitHold);
    EXPECT_EQ(-250.5, page.m_dLossHold);
    EXPECT_THAT(funds.TakeShown(),
                ElementsAre("line 1000.00 299.50 993.00", "panels 1000.00 299.50 993.00"));
    core.positions[1].dHoldProfit = 900;
    page.Refresh(false, true);
    EXPECT_THAT(funds.TakeShown(),
                ElementsAre("line 1000.00 500.00 993.00", "panels 1000.00 500.00 993.00"));
    Hold({});
    EXPECT_EQ(0, page.m_dProfitOpen);
    EXPECT_EQ(0, page.m_dProfitHold);
    EXPECT_EQ(0, page.m_dLossHold);
    EXPECT_THAT(funds.TakeShown(),
                ElementsAre("line 1000.00 500.00 0.00", "panels 1000.00 500.00 0.00"));
}

TEST_F(PositionPage, CountsPositionsThatItHasNotReadYetAtTheNextRefresh) {
    HoldGoldAndSilver();
    core.positions.push_back(MakePosition("Au(T+D)", '0', 1, 300));
    page.Refresh(true, true);
    EXPECT_EQ(4300, page.m_dProfitOpen);
    page.Refresh(false, true);
    EXPECT_EQ(5300, page.m_dProfitOpen);
}

TEST_F(PositionPage, ReadsTheLotsOnceForEachTotalOfAQuote) {
    Hold({MakePosition("Au(T+D)", '0', 1, 300), MakePosition("Ag99.99", '0', 1, 4000),
          MakePosition("Au(T+D)", '1', 1, 300)});
    HoldLots({MakeLot(1, "Au(T+D)", '0', 1, 300)});
    core.ForgetCalls();
    page.OnQuote(static_cast<unsigned>(kGold), {});
    EXPECT_EQ(4U, core.CallsOf("GetPositionDetailList").size());
    core.ForgetCalls();
    // The same code on another market, and the same market.
    page.OnQuote(static_cast<unsigned>(SymbolKey(13, 1)), {});
    page.OnQuote(static_cast<unsigned>(SymbolKey(12, 2)), {});
    EXPECT_THAT(core.TakeCalls(), IsEmpty());
    EXPECT_THAT(funds.TakeShown(), testing::SizeIs(4 + 4));
}

TEST_F(PositionPage, ReadsNothingWhenTheModeChanges) {
    HoldGoldAndSilver();
    ShowLots();
    EXPECT_THAT(core.TakeCalls(), ElementsAre("GetPositionList(count)"));
}

TEST_F(PositionPage, ScrollsBackToTheTopWhenTheModeChanges) {
    std::vector<PositionGroup> lots;
    std::vector<CZebPosition> totals;
    for (int i = 0; i < 40; ++i) {
        totals.push_back(MakePosition("Au(T+D)", '0', i + 1, 300));
        lots.push_back(MakeLot(i, "Au(T+D)", '0', 100 + i, 300));
    }
    Hold(totals);
    HoldLots(lots);
    platform::testing::MovePointer(platform::testing::ScreenPoint(Control(Page::kList)));
    platform::testing::Wheel(-3);
    ASSERT_NE("1", Cell(0, 2).text);
    ShowLots();
    EXPECT_EQ("100", Cell(0, 2).text);
}

TEST_F(PositionPage, TellsTheOrderPageWhichContractIsSelected) {
    HoldGoldAndSilver();
    ClickRow(1);
    EXPECT_THAT(receiver.contracts, ElementsAre("Ag99.99"));
    ClickRow(2);  // the row behind the last is none
    ShowLots();
    ClickRow(0);
    EXPECT_THAT(receiver.contracts, ElementsAre("Ag99.99", "Au(T+D)"));
}

TEST_F(PositionPage, NamesTheContractThoughTheListIsGoneWhenTheMessageArrives) {
    HoldGoldAndSilver();
    page.SendMessage(WM_LIST_EVENT, kListRowChosen, 0);  // no row yet
    platform::testing::ClickAt(platform::testing::ScreenPoint(Control(Page::kList), 10, 33));
    page.SendMessage(WM_LIST_EVENT, kListRowChosen, 0);
    core.positions.clear();
    page.Refresh(false, true);
    platform::testing::Pump();
    EXPECT_THAT(receiver.contracts, ElementsAre("Au(T+D)", "Au(T+D)"));
}

TEST_F(PositionPage, HandsALotOverWholeAndATotalInPart) {
    HoldGoldAndSilver();
    DoubleClickRow(1);
    ShowLots();
    DoubleClickRow(1);
    ASSERT_EQ(2U, receiver.rows.size());
    PositionGroup total{};
    text::CopyText(total.szExchange, "SGE");
    text::CopyText(total.szContract, "Ag99.99");
    total.cDirection = '1';
    total.cHedge = '1';
    total.cDateType = 1;
    total.nVolume = 2;
    EXPECT_EQ(BytesOf(total), BytesOf(receiver.rows[0]));
    EXPECT_EQ(BytesOf(core.position_details[1]), BytesOf(receiver.rows[1]));
    DoubleClickRow(3);
    EXPECT_EQ(2U, receiver.rows.size());
}

TEST_F(PositionPage, AnswersEveryListEventWithZero) {
    HoldGoldAndSilver();
    ClickRow(0);
    receiver.contracts.clear();
    for (const WPARAM event : {kListCellPressed, kListEditEnds, ListEvent{7}}) {
        EXPECT_EQ(0, page.SendMessage(WM_LIST_EVENT, event, 0));
    }
    platform::testing::Pump();
    EXPECT_THAT(receiver.contracts, IsEmpty());
}

TEST_F(PositionPage, LivesWithoutACoreAndWithoutAnyone) {
    CGoldPositionDlg alone;
    alone.Create(CGoldPositionDlg::IDD, &frame);
    // Numbers that the sums must not take over.
    constexpr double kNonsense = std::numeric_limits<double>::quiet_NaN();
    core.positions = {MakePosition("Au(T+D)", '0', 1, kNonsense)};
    alone.Refresh(false, true);
    EXPECT_NE(nullptr, alone.GetPositionAt(0));
    EXPECT_EQ(0, alone.m_dProfitOpen) << "nobody knows the contract";
    EXPECT_EQ(0, alone.m_dProfitHold);
    EXPECT_EQ(0, alone.GetOpenProfit(0));
    EXPECT_EQ(0, alone.GetHoldProfit(0));
    g_pUICallBack = nullptr;
    alone.Refresh(false, true);
    alone.OnQuote(static_cast<unsigned>(kGold), {});
    EXPECT_NE(nullptr, alone.GetPositionAt(0));
}

}  // namespace
}  // namespace tests
