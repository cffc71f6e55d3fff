#include "lists/position_profit_rules.h"

#include "tests/lists/positions/positions_stage.h"

namespace {

using Kind = lists::RowProfit::Kind;

class PositionProfit : public tests::PositionsStage {
protected:
    static lists::RowProfit Open(const CZebPosition& position) {
        lists::RowQuote quote(position);
        return lists::OpenProfitOf(position, 1000, quote);
    }
    static lists::RowProfit Hold(const CZebPosition& position) {
        lists::RowQuote quote(position);
        return lists::HoldProfitOf(position, 1000, quote);
    }
    static lists::RowProfit OfLot(const PositionGroup& lot) {
        lists::RowQuote quote(lot);
        return lists::ProfitOfLot(lot, 1000, quote);
    }
};

struct QuoteRow {
    const char* name;
    char direction;
    double last;
    double pre_close;
    Kind kind;
    double profit;
};

// Three lots of 1000 units, bought or sold at 300.
constexpr QuoteRow kQuoteRows[] = {
    {"long that rises", '0', 300.5, 290, Kind::kKnown, 1500},
    {"long that falls", '0', 299, 290, Kind::kKnown, -3000},
    {"short that rises", '1', 300.5, 290, Kind::kKnown, -1500},
    {"short that falls", '1', 299, 290, Kind::kKnown, 3000},
    {"unmoved", '0', 300, 290, Kind::kKnown, 0},
    {"no last price", '0', 0, 301, Kind::kKnown, 3000},
    {"last price at the threshold", '1', 0.0001, 301, Kind::kKnown, -3000},
    {"negative last price", '0', -5, 301, Kind::kKnown, 3000},
    {"no price at all", '0', 0, 0, Kind::kNoPrice, 0},
    {"price of the day before at the threshold", '0', 0, 0.0001, Kind::kNoPrice, 0},
    {"prices that are no numbers", '0', std::numeric_limits<double>::quiet_NaN(),
     std::numeric_limits<double>::quiet_NaN(), Kind::kNoPrice, 0},
};

TEST_F(PositionProfit, FollowsTheQuote) {
    for (const QuoteRow& row : kQuoteRows) {
        SCOPED_TRACE(row.name);
        host.SetQuote(kGold, tests::MakeQuote(row.last, row.pre_close));
        const CZebPosition total = tests::MakePosition("Au(T+D)", row.direction, 3, 300);
        const PositionGroup lot = tests::MakeLot(1, "Au(T+D)", row.direction, 3, 300);
        for (const lists::RowProfit& profit : {Open(total), Hold(total), OfLot(lot)}) {
            EXPECT_EQ(row.kind, profit.kind);
            EXPECT_DOUBLE_EQ(row.profit, profit.value);
        }
    }
}

TEST_F(PositionProfit, NeedsASymbolOfTheHost) {
    EXPECT_EQ(Kind::kNoSymbol, Open(tests::MakePosition("Pt99.95", '0', 1, 300)).kind);
    EXPECT_EQ(Kind::kNoSymbol, OfLot(tests::MakeLot(1, "Pt99.95", '0', 1, 300)).kind);
}

struct CoreRow {
    double core;
    double expected;
};

TEST_F(PositionProfit, IsTheCoresUnlessThatIsNextToZero) {
    host.SetQuote(kGold, tests::MakeQuote(301));
    constexpr CoreRow kRows[] = {{7.5, 7.5},           {-7.5, -7.5},   {0.00011, 0.00011},
                                 {-0.00011, -0.00011}, {0.0001, 1000}, {-0.0001, 1000},
                                 {0.00005, 1000},      {0, 1000}};
    for (const CoreRow& row : kRows) {
        SCOPED_TRACE(row.core);
        CZebPosition position = tests::MakePosition("Au(T+D)", '0', 1, 300);
        position.dOpenProfit = row.core;
        position.dHoldPrice = 302;
        EXPECT_DOUBLE_EQ(row.expected, Open(position).value);
        EXPECT_DOUBLE_EQ(-1000, Hold(position).value);
        position.dHoldProfit = row.core;
        position.dHoldPrice = 300;
        EXPECT_DOUBLE_EQ(row.expected, Hold(position).value);
    }
}

TEST_F(PositionProfit, AsksTheHostOnceAndOnlyWhenTheCoreHasNoFigure) {
    CZebPosition position = tests::MakePosition("Au(T+D)", '0', 1, 300);
    position.dOpenProfit = 5;
    Open(position);
    EXPECT_THAT(host.TakeCalls(), testing::IsEmpty());
    position.dOpenProfit = 0;
    lists::RowQuote quote(position);
    lists::OpenProfitOf(position, 1000, quote);
    lists::HoldProfitOf(position, 1000, quote);
    EXPECT_EQ(1U, host.CallsOf("HOST_FIND_SYMBOL").size());
    EXPECT_EQ(1U, host.CallsOf("HOST_GET_QUOTE").size());
}

TEST(ProfitSums, CountLossesApart) {
    lists::ProfitSums sums;
    lists::AddProfit(sums, 10, 20);
    lists::AddProfit(sums, -4, -30);
    lists::AddProfit(sums, 1, -0.0001);
    lists::AddProfit(sums, 0, -5);
    EXPECT_DOUBLE_EQ(7, sums.open);
    EXPECT_DOUBLE_EQ(-15.0001, sums.hold);
    EXPECT_DOUBLE_EQ(-35, sums.hold_loss);
}

TEST(ProfitSums, LowerTheFundsButNeverRaiseThem) {
    EXPECT_DOUBLE_EQ(900, lists::AvailableAfterLoss(1000, -100));
    EXPECT_DOUBLE_EQ(1000, lists::AvailableAfterLoss(1000, 100));
    EXPECT_DOUBLE_EQ(1000, lists::AvailableAfterLoss(1000, 0));
}

TEST(AvailableLots, NeverOverflow) {
    constexpr int kMost = std::numeric_limits<int>::max();
    CZebPosition position{};
    position.nVolume = kMost;
    position.nFrozen = -1;
    EXPECT_EQ(kMost, lists::AvailableLots(position));
    PositionGroup lot{};
    lot.nVolume = -kMost - 1;
    lot.nFrozen = 1;
    EXPECT_EQ(-kMost - 1, lists::AvailableLots(lot));
}

}  // namespace
