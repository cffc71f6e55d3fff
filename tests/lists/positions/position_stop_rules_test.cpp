#include "lists/position_stop_rules.h"

#include "tests/lists/positions/positions_stage.h"

namespace {

class PositionStops : public tests::PositionsStage {};

TEST_F(PositionStops, AreAskedForInTheDirectionOfTheLot) {
    EXPECT_GBK_EQ("Au(T+D) 买入方向 设置止盈止损",
                  lists::StopTitle(tests::MakeLot(1, "Au(T+D)", '0', 1, 1)));
    EXPECT_GBK_EQ("Ag99.99 卖出方向 设置止盈止损",
                  lists::StopTitle(tests::MakeLot(1, "Ag99.99", '1', 1, 1)));
    EXPECT_GBK_EQ("Ag99.99 卖出方向 设置止盈止损",
                  lists::StopTitle(tests::MakeLot(1, "Ag99.99", 'x', 1, 1)));
}

TEST_F(PositionStops, AreReadForTheLotWithItsNames) {
    CPresetStop stored{};
    text::CopyText(stored.szContract, "another");
    stored.dLongStop = 290;
    core.group_stops[7] = stored;
    const CPresetStop stop = lists::ReadGroupStop(tests::MakeLot(7, "Au(T+D)", '0', 1, 1));
    EXPECT_STREQ("SGE", stop.szExchange);
    EXPECT_STREQ("Au(T+D)", stop.szContract);
    EXPECT_EQ(290, stop.dLongStop);
    const CPresetStop none = lists::ReadGroupStop(tests::MakeLot(8, "Au(T+D)", '0', 1, 1));
    EXPECT_EQ(0, none.dLongStop);
}

TEST_F(PositionStops, AreStoredOnLotsOfTheirContractOnly) {
    CPresetStop stop{};
    text::CopyText(stop.szContract, "Au(T+D)");
    stop.dShortStop = 310;
    lists::StoreGroupStop(tests::MakeLot(7, "Au(T+D)", '0', 1, 1), stop);
    lists::StoreGroupStop(tests::MakeLot(8, "Ag99.99", '0', 1, 1), stop);
    ASSERT_EQ(1U, core.group_stops.size());
    EXPECT_EQ(310, core.group_stops[7].dShortStop);
}

TEST_F(PositionStops, BelongToExchangeContractAndDirection) {
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
