#include "lists/order_cell_rules.h"
#include "platform/text/bounded_text.h"
#include "tests/lists/orders/order_page_stage.h"

namespace tests {
namespace {

using platform::testing::Pump;
using testing::Each;
using testing::ElementsAre;

TEST_F(OrderPage, PaintsEveryColumnInItsColor) {
    CZebOrder closing = MakeOrder("3", '0');
    closing.cDirection = '1';
    closing.cOffset = '1';
    CZebOrder spot = MakeOrder("2", '3', "Au99.99");
    spot.cOffset = '1';
    spot.dPrice = 0;
    CZebOrder unknown = MakeOrder("1", '?', "Pt99.95");
    unknown.cDirection = 'x';
    unknown.cOffset = '2';
    Show({unknown, spot, closing});
    EXPECT_THAT(Row(0), ElementsAre("09:30:15", "Au(T+D)", "卖出", "平仓", "280.25", "3", "0",
                                    "正在申报", "CTP", "3"));
    EXPECT_THAT(Row(1), ElementsAre("09:30:15", "Au99.99", "买入", "-", "市价", "3", "0",
                                    "全部成交", "CTP", "2"));
    EXPECT_THAT(Row(2), ElementsAre("09:30:15", "Pt99.95", "-", "平今", "280.250", "3", "0", "未知",
                                    "CTP", "1"));
    EXPECT_THAT(Row(3), Each(""));
    const COLORREF kColors[3][kOrderColumns] = {{0x555555, 0xB26429, 0x019900, 0xC04AC1, 0x555555,
                                                 0x555555, 0x555555, 0x555555, 0x555555, 0x555555},
                                                {0x555555, 0xB26429, 0x0001F6, 0x555555, 0x555555,
                                                 0x555555, 0x555555, 0x555555, 0x555555, 0x555555},
                                                {0x555555, 0xB26429, 0x555555, 0x555555, 0x555555,
                                                 0x555555, 0x555555, 0x555555, 0x555555, 0x555555}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < kOrderColumns; ++column) {
            EXPECT_EQ(kColors[row][column], Cell(row, column).color) << row << " " << column;
            EXPECT_EQ(column == kOrderContractColumn, Cell(row, column).bold) << column;
        }
    }
}

TEST_F(OrderPage, HasItsColumns) {
    const struct {
        const char* title;
        int width;
        UINT format;
    } kColumns[kOrderColumns] = {{"委托时间", 60, 0}, {"合约", 60, 0},     {"买卖", 60, 0},
                                 {"开平", 60, 0},     {"委托价格", 80, 6}, {"委手", 60, 6},
                                 {"成手", 60, 6},     {"状态", 120, 5},    {"备注", 120, 5},
                                 {"委托号", 60, 5}};
    page_.MoveWindow(0, 0, 740 + 28, 300);
    Pump();
    ASSERT_EQ(std::size_t{kOrderColumns}, List().m_columns.size());
    for (int column = 0; column < kOrderColumns; ++column) {
        const auto& [title, width, format] = kColumns[column];
        EXPECT_GBK_EQ(title, Cell(-1, column).text);
        EXPECT_EQ(width, List().GetColumnWidth(column)) << column;
        const ListColumn& made = List().m_columns[static_cast<std::size_t>(column)];
        EXPECT_EQ(format, made.nCellFormat) << column;
        EXPECT_EQ(37U, made.nHeaderFormat) << column;
        EXPECT_FALSE(made.bSortable || made.bHasIcon) << column;
    }
}

TEST_F(OrderPage, GivesRemarksWhatIsLeftOfAWideList) {
    const auto remarks = [this] { return List().GetColumnWidth(kOrderRemarkColumn); };
    EXPECT_EQ(871 - 620, remarks());
    page_.MoveWindow(0, 0, 600, 300);
    EXPECT_EQ(120, remarks());
    page_.MoveWindow(0, 0, 900, 300);
    Show(std::vector<CZebOrder>(40, MakeOrder("1")));
    EXPECT_EQ(871 - ::GetSystemMetrics(SM_CXVSCROLL) - 620, remarks());
    EXPECT_EQ(0U, List().GetStyle() & WS_HSCROLL);
    Show({MakeOrder("1")});
    EXPECT_EQ(871 - 620, remarks());
    page_.DestroyWindow();
    page_.Create(CGoldOrderDlg::IDD, &frame_);
    page_.MoveWindow(0, 0, 900, 300);
    EXPECT_EQ(871 - 620, remarks());
}

TEST_F(OrderPage, PaintsWhatItReadThoughItsRowsStayAsMany) {
    page_.MoveWindow(0, 0, 500, 300);  // narrower than the columns
    Show({MakeOrder("1", '0')});
    core_.orders[0].nFilled = 2;
    page_.Refresh(false);
    Pump();
    EXPECT_EQ("2", Cell(0, kOrderFilledColumn).text);
}

TEST_F(OrderPage, KeepsTextsOffTheLines) {
    Show({MakeOrder("1")});
    EXPECT_EQ(5, Cell(0, kOrderTimeColumn).rect.left);
    EXPECT_EQ(60 + 5, Cell(0, kOrderContractColumn).rect.left);
    EXPECT_EQ(4 * 60 + 80 - 3, Cell(0, kOrderPriceColumn).rect.right);
    EXPECT_EQ(4 * 60 + 80 + 60 - 3, Cell(0, kOrderVolumeColumn).rect.right);
}

TEST_F(OrderPage, PaintsNoRowThatThereIsNot) {
    Show({MakeOrder("9"), MakeOrder("8"), MakeOrder("7")});
    Show({MakeOrder("9")});
    const auto painted = [this](int row) {
        const std::size_t before = platform::testing::SeenTexts(frame_).size();
        RECT rect{0, 270, 60, 292};  // below the page
        const CClientDC dc(&frame_);
        List().m_pfnDrawCell(dc, row, kOrderVolumeColumn, &rect, nullptr, &page_,
                             List().m_pContext);
        return platform::testing::SeenTexts(frame_).size() != before;
    };
    page_.MoveWindow(0, 0, 900, 200);
    Pump();
    for (const int row : {-1, 1, 2, 3}) EXPECT_FALSE(painted(row)) << row;
    EXPECT_TRUE(painted(0));
}

TEST_F(OrderPage, PaintsOrdersWhoseContractsAreNotLoadedYet) {
    contracts_.Clear();
    Show({MakeOrder("1", '1', "Au99.99")});
    EXPECT_GBK_EQ("开仓", Cell(0, kOrderOffsetColumn).text);
    EXPECT_EQ("280.250", Cell(0, kOrderPriceColumn).text);
    page_.Connect(nullptr);
    Show({MakeOrder("1", '1', "Au99.99")});
    EXPECT_EQ("280.250", Cell(0, kOrderPriceColumn).text);
}

TEST_F(OrderPage, ShowsTheNewestOrderFirstHereAndOnThePanels) {
    Show({MakeOrder("7"), MakeOrder("12"), MakeOrder("9")});
    EXPECT_EQ("12 9 7 ", ShownRefs());
    EXPECT_THAT(panels_.shown, ElementsAre("12 9 7 "));
}

TEST_F(OrderPage, ShowsNoOrderThatDidNotCome) {
    core_.promised_too_many = 3;
    Show({MakeOrder("7"), MakeOrder("12")});
    EXPECT_EQ("12 7 ", ShownRefs());
    EXPECT_THAT(panels_.shown, ElementsAre("12 7 "));
    EXPECT_EQ(2, List().GetRowCount());
}

TEST_F(OrderPage, SwitchesBetweenAllOrdersAndThoseThatCanBeCancelled) {
    Show({MakeOrder("1", '3'), MakeOrder("2", '0'), MakeOrder("3", '4'), MakeOrder("4", '2')});
    panels_.shown.clear();
    EXPECT_GBK_EQ("委托—可撤", Text(CGoldOrderDlg::kMode));
    Press(CGoldOrderDlg::kMode);
    EXPECT_GBK_EQ("可撤—委托", Text(CGoldOrderDlg::kMode));
    EXPECT_EQ("4 2 ", ShownRefs());
    Show({MakeOrder("1", '3'), MakeOrder("2", '4')});
    EXPECT_EQ("", ShownRefs());
    EXPECT_FALSE(Enabled(CGoldOrderDlg::kCancel));
    EXPECT_FALSE(Enabled(CGoldOrderDlg::kCancelAll));
    Press(CGoldOrderDlg::kMode);
    EXPECT_GBK_EQ("委托—可撤", Text(CGoldOrderDlg::kMode));
    EXPECT_EQ("2 1 ", ShownRefs());
    // The panels were told by Show alone, of what this page shows.
    EXPECT_THAT(panels_.shown, ElementsAre(""));
}

TEST_F(OrderPage, ScrollsToTheTopWhenItSwitches) {
    std::vector<CZebOrder> orders;
    for (int ref = 1; ref <= 40; ++ref) orders.push_back(MakeOrder(std::to_string(ref).c_str()));
    Show(orders);
    ::SendMessageA(Control(CGoldOrderDlg::kList), WM_VSCROLL, SB_BOTTOM, 0);
    Pump();
    ASSERT_NE("40", Cell(0, kOrderNumberColumn).text);
    Press(CGoldOrderDlg::kMode);
    EXPECT_EQ("40", Cell(0, kOrderNumberColumn).text);
}

TEST_F(OrderPage, OffersToCancelWhatIsSelected) {
    Show({MakeOrder("9", '1'), MakeOrder("8", '3'), MakeOrder("7", '2')});
    EXPECT_FALSE(Enabled(CGoldOrderDlg::kCancel));
    EXPECT_TRUE(Enabled(CGoldOrderDlg::kCancelAll));
    const struct {
        int row;
        bool enabled;
    } kCases[] = {{0, true}, {1, false}, {2, true}, {3, false}};  // 3 lies behind the last
    for (const auto& [row, enabled] : kCases) {
        Click(row);
        EXPECT_EQ(enabled, Enabled(CGoldOrderDlg::kCancel)) << row;
    }
}

TEST_F(OrderPage, HeedsNothingElseThatTheListTells) {
    Show({MakeOrder("9", '1'), MakeOrder("8", '3')});
    Click(0);
    core_.orders[0].cStatus = '3';
    page_.Refresh(false);
    ASSERT_FALSE(Enabled(CGoldOrderDlg::kCancel));
    Show({MakeOrder("8", '3'), MakeOrder("9", '1')});
    ASSERT_FALSE(Enabled(CGoldOrderDlg::kCancel));
    for (const WPARAM event : {1U, 2U, 3U, 77U}) page_.SendMessage(WM_LIST_EVENT, event, 0);
    EXPECT_FALSE(Enabled(CGoldOrderDlg::kCancel));
    page_.SendMessage(WM_LIST_EVENT, kListRowChosen, 0);
    EXPECT_TRUE(Enabled(CGoldOrderDlg::kCancel));
}

TEST_F(OrderPage, AnswersNoughtToWhatTheListTells) {
    NMHDR header{Control(CGoldOrderDlg::kList), CGoldOrderDlg::kList, NM_DBLCLK};
    EXPECT_EQ(0, page_.SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header)));
    EXPECT_EQ(0, page_.SendMessage(WM_LIST_EVENT, kListRowChosen, 0));
}

TEST_F(OrderPage, LooksUpTheSelectedRowInTheCoresOrder) {
    Show({MakeOrder("1", '3'), MakeOrder("2", '0')});
    Click(0);
    EXPECT_TRUE(Enabled(CGoldOrderDlg::kCancel));  // 2 is shown first
    page_.Refresh(false);
    EXPECT_FALSE(Enabled(CGoldOrderDlg::kCancel));  // 1 comes first
}

TEST_F(OrderPage, HandsTheFocusOnWhenItsButtonIsDisabled) {
    Show({MakeOrder("1", '0')});
    ::SetFocus(Control(CGoldOrderDlg::kCancelAll));
    Show({MakeOrder("1", '3')});
    EXPECT_EQ(Control(CGoldOrderDlg::kList), ::GetFocus());
}

TEST_F(OrderPage, MakesRoomForItsButtons) {
    EXPECT_TRUE(Visible(CGoldOrderDlg::kCancel));
    EXPECT_TRUE(Visible(CGoldOrderDlg::kCancelAll));
    EXPECT_EQ(CRect(0, 25, 21, 25 + 300 - 4 - 23), Place(CGoldOrderDlg::kMode));
    EXPECT_EQ(CRect(26, 25, 26 + 900 - 28, 25 + 300 - 2 - 23), Place(CGoldOrderDlg::kList));
    page_.ShowToolbar(false);
    EXPECT_FALSE(Visible(CGoldOrderDlg::kCancel));
    EXPECT_FALSE(Visible(CGoldOrderDlg::kCancelAll));
    EXPECT_EQ(CRect(0, 2, 21, 2 + 300 - 4), Place(CGoldOrderDlg::kMode));
    EXPECT_EQ(CRect(26, 2, 26 + 900 - 28, 2 + 300 - 2), Place(CGoldOrderDlg::kList));
}

TEST_F(OrderPage, FramesTheListWhereItStands) {
    core_.skin_color = RGB(200, 100, 50);
    for (const bool buttons : {false, true, false}) {
        page_.ShowToolbar(buttons);
        Pump();
        const int frame = buttons ? 24 : 1;
        const CClientDC page(&page_);
        EXPECT_EQ(RGB(140, 70, 35), page.GetPixel(400, frame));
        for (int y = 0; y < frame; ++y) EXPECT_EQ(core_.skin_color, page.GetPixel(400, y)) << y;
    }
}

TEST_F(OrderPage, DressesItsButtonsAndShowsThemWhereSomebodyAsked) {
    core_.Omit({});
    CGoldOrderDlg plain;
    plain.Create(CGoldOrderDlg::IDD, &frame_);
    CGoldOrderDlg asked;
    asked.ShowToolbar(true);
    asked.Create(CGoldOrderDlg::IDD, &frame_);
    EXPECT_THAT(core_.CallsOf("GetSkinBitmap"),
                ElementsAre("GetSkinBitmap(0, 14)", "GetSkinBitmap(0, 14)"));
    for (CGoldOrderDlg* const page : {&plain, &asked}) {
        page->ShowWindow(SW_SHOW);
        for (const int id : {CGoldOrderDlg::kCancel, CGoldOrderDlg::kCancelAll}) {
            EXPECT_EQ(page == &asked, ::IsWindowVisible(::GetDlgItem(*page, id)) != FALSE) << id;
            EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(*page, id))) << id;
        }
    }
}

}  // namespace
}  // namespace tests
