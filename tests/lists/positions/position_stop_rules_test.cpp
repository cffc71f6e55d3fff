#include "lists/position_stop_rules.h"

#include "tests/lists/positions/positions_stage.h"

namespace {

TEST(PositionStops, BelongToExchangeContractAndDirection) {
    const CZebPosition total = tests::MakePosition("Au(T+D)", '1', 1, 1);
    PositionGroup lot = tests::MakeLot(7, "Au(T+D)", '1', 1, 1);
    EXPECT_TRUE(lists::IsLotOf(lot, total));
    EXPECT_FALSE(lists::IsLotOf(tests::MakeLot(7, "Au(T+D)", '0', 1, 1), total));
    EXPECT_FALSE(lists::IsLotOf(tests::MakeLot(7, "Ag99.99", '1', 1, 1), total));
    text::CopyText(lot.szExchange, "SHFE");
    EXPECT_FALSE(lists::IsLotOf(lot, total));
    EXPECT_FALSE(lists::IsSameSide(lot, tests::MakeLot(8, "Au(T+D)", '1', 1, 1)));
}

TEST(PositionRow, CarriesOnlyWhatATotalKnows) {
    CZebPosition total = tests::MakePosition("Au(T+D)", '1', 9, 300);
    total.cHedge = '3';
    total.cDateType = 2;
    total.nFrozen = 4;
    total.nSession = 5;
    total.dOpenProfit = 6;
    PositionGroup expected{};
    text::CopyText(expected.szExchange, "SGE");
    text::CopyText(expected.szContract, "Au(T+D)");
    expected.cDirection = '1';
    expected.cHedge = '3';
    expected.cDateType = 2;
    expected.nVolume = 9;
    expected.nFrozen = 4;
    EXPECT_EQ(tests::BytesOf(expected), tests::BytesOf(lists::AsLot(total)));
}

}  // namespace
