#include "lists/trade_cell_rules.h"
#include "tests/lists/trades/trade_page_stage.h"

namespace tests {
namespace {

using testing::Each;
using testing::ElementsAre;

TEST_F(TradePage, PaintsEveryColumnInItsColor) {
    CZebTrade closing = MakeTrade("3", "31");
    closing.cDirection = '1';
    closing.cOffset = '1';
    CZebTrade spot = MakeTrade("2", "21", "Au99.99");
    spot.cOffset = '1';
    CZebTrade unknown = MakeTrade("1", "11", "Pt99.95");
    unknown.cDirection = 'x';
    unknown.cOffset = '2';
    Show({unknown, spot, closing});
    EXPECT_THAT(Row(0),
                ElementsAre("09:30:15", "Au(T+D)", "卖出", "平仓", "300.50", "2", "31", "3"));
    EXPECT_THAT(Row(1),
                ElementsAre("09:30:15", "Au99.99", "买入", "--", "300.500", "2", "21", "2"));
    EXPECT_THAT(Row(2), ElementsAre("09:30:15", "Pt99.95", "-", "平今", "300.500", "2", "11", "1"));
    EXPECT_THAT(Row(3), Each(""));
    const COLORREF kColors[3][kTradeColumns] = {
        {0x555555, 0xB26429, 0x019900, 0xC04AC1, 0x555555, 0x555555, 0x555555, 0x555555},
        {0x555555, 0xB26429, 0x0001F6, 0x555555, 0x555555, 0x555555, 0x555555, 0x555555},
        {0x555555, 0xB26429, 0x555555, 0x555555, 0x555555, 0x555555, 0x555555, 0x555555}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < kTradeColumns; ++column) {
            EXPECT_EQ(kColors[row][column], Cell(row, column).color) << row << " " << column;
            EXPECT_EQ(column == kTradeContractColumn, Cell(row, column).bold) << column;
        }
    }
}

TEST_F(TradePage, KeepsTextsOffTheLinesAndALongPriceWhole) {
    CZebTrade trade = MakeTrade("1");
    trade.dPrice = 172944;
    Show({trade});
    EXPECT_EQ(5, Cell(0, kTradeTimeColumn).rect.left);
    EXPECT_EQ(60 + 5, Cell(0, kTradeContractColumn).rect.left);
    EXPECT_EQ(5 * 60 - 3, Cell(0, kTradePriceColumn).rect.right);
    EXPECT_EQ(5 * 60 - 3 - 9 * 6, Cell(0, kTradePriceColumn).rect.left);
    EXPECT_EQ("172944.00", Cell(0, kTradePriceColumn).text);
    EXPECT_EQ(7 * 60 + 150 - 3, Cell(0, kTradeNumberColumn).rect.right);
}

TEST_F(TradePage, GivesItsLastColumnWhatIsLeftOfAWideList) {
    auto& list = *static_cast<COwerDrawListView*>(page_.GetDlgItem(CGoldTradeDlg::kList));
    page_.MoveWindow(0, 0, 580, 300);
    EXPECT_EQ(150, list.GetColumnWidth(kTradeNumberColumn));
    page_.MoveWindow(0, 0, 900, 300);
    EXPECT_EQ(900 - 28 - 7 * 60 - 1, list.GetColumnWidth(kTradeNumberColumn));
    page_.MoveWindow(0, 0, 580, 300);
    EXPECT_EQ(150, list.GetColumnWidth(kTradeNumberColumn));
}

TEST_F(TradePage, PaintsTradesWhoseContractsAreNotLoadedYet) {
    contracts_.Clear();
    Show({MakeTrade("1", "1", "Au99.99")});
    EXPECT_GBK_EQ("开仓", Cell(0, kTradeOffsetColumn).text);
    page_.Connect(nullptr);
    Show({MakeTrade("1", "1", "Au99.99")});
    EXPECT_EQ("300.500", Cell(0, kTradePriceColumn).text);
}

TEST_F(TradePage, ShowsTheNewestTradeFirst) {
    Show({MakeTrade("7"), MakeTrade("9", "2"), MakeTrade("8"), MakeTrade("9", "10")});
    EXPECT_EQ("9 9 8 7 ", ShownNumbers());
    EXPECT_EQ("10", Cell(0, kTradeOrderColumn).text);
}

TEST_F(TradePage, ShowsNoTradeThatDidNotCome) {
    core_.promised_too_many = 3;
    Show({MakeTrade("7"), MakeTrade("12")});
    EXPECT_EQ("7 12 ", ShownNumbers());
    Show({});
    EXPECT_EQ("", ShownNumbers());
}

}  // namespace
}  // namespace tests
