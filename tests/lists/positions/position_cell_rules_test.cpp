#include "lists/position_cell_rules.h"

#include <cstring>

#include "tests/lists/positions/positions_stage.h"

namespace {

using lists::CellText;
using lists::CellWeight;

constexpr COLORREF kRed = 0x0001F6;
constexpr COLORREF kGreen = 0x019900;
constexpr COLORREF kGrey = 0x555555;

void ExpectCell(const char* text, COLORREF color, UINT format, const CellText& cell) {
    EXPECT_GBK_EQ(text, cell.text);
    EXPECT_EQ(color, cell.color);
    EXPECT_EQ(format, cell.format);
    EXPECT_EQ(color == 0xB26429 ? CellWeight::kBold : CellWeight::kNormal, cell.weight);
}

class PositionCells : public tests::PositionsStage {
protected:
    const CZebContract& Gold() const { return core.contracts[0]; }
};

TEST_F(PositionCells, AreTheSameForTotalsAndLotsUpToThePrice) {
    for (int digits = 0; digits < 4; ++digits) {
        CZebContract contract = Gold();
        contract.nPriceDigits = digits;
        CZebPosition total = tests::MakePosition("Au(T+D)", '0', 12, 300.456);
        total.nFrozen = 5;
        PositionGroup lot = tests::MakeLot(1, "Au(T+D)", '0', 12, 300.456);
        lot.nFrozen = 5;
        for (const bool of_lot : {false, true}) {
            const auto cell = [&](int column) {
                return of_lot ? lists::LotCell(lot, contract, column)
                              : lists::TotalCell(total, contract, column);
            };
            ExpectCell("Au(T+D)", 0xB26429, 36, cell(0));
            ExpectCell("买", kRed, 37, cell(1));
            ExpectCell("12", kGrey, 38, cell(2));
            ExpectCell("7", kGrey, 38, cell(3));
            ExpectCell("300.46", kGrey, 38, cell(4));
        }
    }
}

TEST_F(PositionCells, SayTheDirectionInAWord) {
    constexpr struct {
        char direction;
        const char* word;
        COLORREF color;
    } kRows[] = {{'0', "买", kRed}, {'1', "卖", kGreen}, {'2', "-", kGrey}, {0, "-", kGrey}};
    for (const auto& row : kRows) {
        const CZebPosition total = tests::MakePosition("Au(T+D)", row.direction, 1, 1);
        ExpectCell(row.word, row.color, 37, lists::TotalCell(total, Gold(), 1));
    }
}

struct ProfitRow {
    const char* name;
    const char* contract;
    double core;
    double last;
    const char* total;
    COLORREF total_color;
    const char* lot;
    COLORREF lot_color;
};

// One lot bought at 300.
constexpr ProfitRow kProfits[] = {
    {"gain", "Au(T+D)", 0, 301, "1000.00", kRed, "1000.00", kRed},
    {"loss", "Au(T+D)", 0, 299.5, "-500.00", kGreen, "-500.00", kGreen},
    {"none", "Au(T+D)", 0, 300, "0.00", kGrey, "0.00", kGrey},
    {"figure of the core", "Au(T+D)", -8.125, 301, "-8.12", kGreen, "1000.00", kRed},
    {"figure next to zero", "Au(T+D)", 0.00005, 301, "1000.00", kRed, "1000.00", kRed},
    {"no price", "Au(T+D)", 0, 0, "-", kGrey, "", kGrey},
    {"no symbol", "Pt99.95", 0, 301, "", kGrey, "-", kGrey},
    {"figure without a symbol", "Pt99.95", 3, 301, "3.00", kRed, "-", kGrey},
};

TEST_F(PositionCells, ShowTheProfitByItsSign) {
    for (const ProfitRow& row : kProfits) {
        SCOPED_TRACE(row.name);
        host.SetQuote(kGold, tests::MakeQuote(row.last));
        CZebPosition total = tests::MakePosition(row.contract, '0', 1, 300);
        total.dOpenProfit = row.core;
        ExpectCell(row.total, row.total_color, 38, lists::TotalCell(total, Gold(), 5));
        total.dHoldProfit = row.core;
        ExpectCell(row.total, row.total_color, 38, lists::TotalCell(total, Gold(), 8));
        const PositionGroup lot = tests::MakeLot(1, row.contract, '0', 1, 300);
        ExpectCell(row.lot, row.lot_color, 38, lists::LotCell(lot, Gold(), 5));
    }
}

TEST_F(PositionCells, NameTheKindOfALot) {
    constexpr struct {
        int kind;
        const char* text;
    } kRows[] = {{1, "普通单"}, {4, "组合单"},   {7, "程序化下单"}, {8, "套利单"},
                 {0, "普通单"}, {255, "普通单"}, {2, "普通单"}};
    for (const auto& row : kRows) {
        PositionGroup lot = tests::MakeLot(1, "Au(T+D)", '0', 1, 1);
        lot.nOrderKind = static_cast<std::uint8_t>(row.kind);
        ExpectCell(row.text, kGrey, 37, lists::LotCell(lot, Gold(), lists::kPositionOrderKind));
    }
}

TEST_F(PositionCells, NameTheDay) {
    ExpectCell("昨仓", 0xC04AC1, 37, lists::DateTypeCell(1));
    ExpectCell("今仓", 0xCC4058, 37, lists::DateTypeCell(2));
    ExpectCell("-", kGrey, 37, lists::DateTypeCell('2'));
}

TEST_F(PositionCells, StayBlankInColumnsThatThereAreNot) {
    const CZebPosition total = tests::MakePosition("Au(T+D)", '0', 1, 1);
    const PositionGroup lot = tests::MakeLot(1, "Au(T+D)", '0', 1, 1);
    for (const int column : {-1, 6, 7, 9}) {
        EXPECT_STREQ("", lists::TotalCell(total, Gold(), column).text) << column;
    }
    for (const int column : {-1, 8, 9}) {
        EXPECT_STREQ("", lists::LotCell(lot, Gold(), column).text) << column;
    }
}

TEST_F(PositionCells, HoldTextsThatFillTheirFields) {
    CZebPosition total = tests::MakePosition("", '0', 1, 1e300);
    std::memset(total.szContract, 'x', sizeof total.szContract);
    EXPECT_EQ(std::string(32, 'x'), lists::TotalCell(total, Gold(), 0).text);
    EXPECT_EQ(255U, std::strlen(lists::TotalCell(total, Gold(), 4).text));
}

PositionGroup WithStops(char direction, bool percent) {
    PositionGroup lot = tests::MakeLot(1, "Au(T+D)", direction, 1, 300);
    lot.bPercent = percent;
    lot.dTakeProfit = 12.9;
    lot.dPullback = 3;
    lot.dStopLoss = 20.5;
    lot.dFloat = 2.125;
    lot.dFloatBase = 301.5;
    lot.dLongTakeProfit = 310;
    lot.dLongStopLoss = 290.25;
    lot.dShortTakeProfit = 280;
    lot.dShortStopLoss = 315.125;
    return lot;
}

std::string Stops(const PositionGroup& lot) {
    char text[256];
    lists::DescribeStops(lot, text, sizeof text);
    return text;
}

TEST(StopText, NamesEachPartInOrder) {
    EXPECT_GBK_EQ(
        "止盈：12 回落：3 止损：20 浮动：2(301.500) "
        "绝对值做多止盈：310.000 绝对值做多止损：290.250 ",
        Stops(WithStops('0', false)));
    EXPECT_GBK_EQ(
        "止盈：12.90% 回落：3.00% 止损：20.50% 浮动：2.12%(301.500) "
        "绝对值做空止盈：280.000 绝对值做空止损：315.125 ",
        Stops(WithStops('1', true)));
    EXPECT_GBK_EQ("止盈：12 回落：3 止损：20 浮动：2(301.500) ", Stops(WithStops('x', false)));
}

TEST(StopText, LeavesOutWhatIsSwitchedOff) {
    PositionGroup lot = tests::MakeLot(1, "Au(T+D)", '0', 1, 300);
    EXPECT_GBK_EQ("", Stops(lot));
    lot.dTakeProfit = 1e-5;
    lot.dPullback = -4;
    lot.dFloatBase = 301;
    lot.dShortStopLoss = 310;
    EXPECT_GBK_EQ("", Stops(lot));
    lot.dTakeProfit = 0.00002;
    EXPECT_GBK_EQ("止盈：0 ", Stops(lot));
    lot.dTakeProfit = 1e12;
    EXPECT_GBK_EQ("止盈：2147483647 ", Stops(lot));
}

TEST(StopText, IsCutBetweenTwoCharacters) {
    PositionGroup lot = WithStops('0', true);
    // The number fills the text so far that a character of the next word would be split, or not.
    for (int exponent = 200; exponent < 260; ++exponent) {
        lot.dTakeProfit = std::stod("1e" + std::to_string(exponent));
        const std::string text = Stops(lot);
        ASSERT_LE(text.size(), 255U);
        ASSERT_GE(text.size(), 254U) << exponent;
        bool replaced = false;
        text::Utf8FromGbk(text, &replaced);
        ASSERT_FALSE(replaced) << exponent;
    }
    EXPECT_GBK_EQ("止盈：", Stops(lot).substr(0, std::string("止盈：").size()));
}

TEST_F(PositionCells, CutTheStopTextOfALot) {
    PositionGroup lot = WithStops('0', false);
    lot.dLongTakeProfit = 1e299;
    const CellText cell = lists::LotCell(lot, Gold(), lists::kPositionStops);
    EXPECT_EQ(255U, std::strlen(cell.text));
    EXPECT_EQ(kGrey, cell.color);
    EXPECT_EQ(37U, cell.format);
}

}  // namespace
