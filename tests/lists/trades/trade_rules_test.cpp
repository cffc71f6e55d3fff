#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "lists/trade_cell_rules.h"
#include "lists/trade_list_rules.h"
#include "tests/lists/trades/trade_samples.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using testing::ElementsAre;

CZebContract Contract(const char* market, int digits) {
    CZebContract contract{};
    text::CopyText(contract.szMarket, market);
    contract.nPriceDigits = digits;
    return contract;
}

struct Offset {
    char offset;
    const char* market;  ///< null for a contract that nobody knows
    const char* text;
    COLORREF color;
};

TEST(TradeCell, ShowsOffsetsButForSpot) {
    const Offset kCases[] = {
        {'0', "GT-T", "开仓", 0x555555},  {'1', "GT-T", "平仓", 0xC04AC1},
        {'2', "GT-T", "平今", 0x555555},  {'3', "GT-T", "--", 0x555555},
        {0, "GT-T", "--", 0x555555},      {'0', "GT-S", "--", 0x555555},
        {'1', "GT-S", "--", 0x555555},    {'2', "GT-S", "--", 0x555555},
        {'1', nullptr, "平仓", 0xC04AC1}, {'x', nullptr, "--", 0x555555},
    };
    for (const Offset& one : kCases) {
        CZebTrade trade = MakeTrade("1");
        trade.cOffset = one.offset;
        const CZebContract contract = Contract(one.market != nullptr ? one.market : "", 2);
        const auto cell =
            TradeCell(trade, kTradeOffsetColumn, one.market != nullptr ? &contract : nullptr);
        EXPECT_GBK_EQ(one.text, cell.text);
        EXPECT_EQ(one.color, cell.color) << one.offset;
    }
}

TEST(TradeCell, ShowsDirections) {
    const struct {
        char direction;
        const char* text;
        COLORREF color;
    } kCases[] = {
        {'0', "买入", 0x0001F6}, {'1', "卖出", 0x019900}, {'2', "-", 0x555555}, {0, "-", 0x555555}};
    for (const auto& one : kCases) {
        CZebTrade trade = MakeTrade("1");
        trade.cDirection = one.direction;
        const auto cell = TradeCell(trade, kTradeDirectionColumn, nullptr);
        EXPECT_GBK_EQ(one.text, cell.text);
        EXPECT_EQ(one.color, cell.color);
    }
}

TEST(TradeCell, PrintsPricesByTheContract) {
    constexpr int kUnknown = -100;
    const struct {
        int digits;
        double price;
        const char* text;
    } kCases[] = {{3, 300.5, "300.500"},    {2, 300.5, "300.50"}, {1, 300.5, "300"},
                  {1, 301.5, "302"},        {0, 300.9, "300"},    {4, 300.9, "300"},
                  {-1, -7.9, "-7"},         {2, 0, "0.00"},       {kUnknown, 1.0, "1.000"},
                  {2, 2.675, "2.67"},       {2, -1.0, "-1.00"},   {0, 1e30, "2147483647"},
                  {0, -1e30, "-2147483648"}};
    for (const auto& one : kCases) {
        CZebTrade trade = MakeTrade("1");
        trade.dPrice = one.price;
        const CZebContract contract = Contract("GT-T", one.digits);
        EXPECT_STREQ(
            one.text,
            TradeCell(trade, kTradePriceColumn, one.digits != kUnknown ? &contract : nullptr).text);
    }
}

TEST(TradeCell, EndsTextsWithTheirFields) {
    CZebTrade trade;
    std::memset(static_cast<void*>(&trade), '8', sizeof trade);
    const struct {
        int column;
        std::size_t length;
    } kCases[] = {{kTradeTimeColumn, 12},
                  {kTradeContractColumn, 32},
                  {kTradeOrderColumn, 64},
                  {kTradeNumberColumn, 69},
                  {kTradeTextColumn, 20},
                  {kTradeTextColumn + 1, 0},
                  {-1, 0}};
    for (const auto& [column, length] : kCases) {
        EXPECT_EQ(std::string(length, '8'), TradeCell(trade, column, nullptr).text) << column;
    }
    trade.dPrice = std::numeric_limits<double>::max();
    EXPECT_EQ(255U, std::strlen(TradeCell(trade, kTradePriceColumn, nullptr).text));
    TradeTextRoom room;
    EXPECT_EQ(309U + 4, TradeText(trade, kTradePriceColumn, nullptr, room).size());
}

std::vector<std::string> Sorted(const std::vector<std::pair<const char*, const char*>>& keys) {
    std::vector<CZebTrade> trades;
    for (const auto& [number, order] : keys) trades.push_back(MakeTrade(number, order));
    SortTrades(trades);
    std::vector<std::string> sorted;
    for (const CZebTrade& trade : trades) {
        sorted.push_back(std::string(trade.szTradeNo) + "/" + trade.szOrderNo);
    }
    return sorted;
}

TEST(SortTrades, PutsTheNewestFirst) {
    EXPECT_THAT(Sorted({{"101", "1"}, {"103", "2"}, {"102", "3"}}),
                ElementsAre("103/2", "102/3", "101/1"));
    // By their orders, as numbers; equal ones stay as they came.
    EXPECT_THAT(Sorted({{"5", "9"}, {"5", "10"}, {"5", "x"}, {"5", "9 "}}),
                ElementsAre("5/10", "5/9", "5/9 ", "5/x"));
    // A shorter number ties with all that begin like it.
    EXPECT_THAT(Sorted({{"12", "4"}, {"1", "5"}, {"19", "6"}}), ElementsAre("19/6", "1/5", "12/4"));
    // Bytes are signed: a Chinese character comes behind a digit.
    EXPECT_THAT(Sorted({{"\xD6\xD0", "1"}, {"1", "1"}}), ElementsAre("1/1", "\xD6\xD0/1"));
}

/// The comparison on whole records, byte for byte.
bool IsLess(const CZebTrade& a, const CZebTrade& b) {
    for (std::size_t i = 0; a.szTradeNo[i] != '\0' && b.szTradeNo[i] != '\0'; ++i) {
        const auto left = static_cast<signed char>(a.szTradeNo[i]);
        const auto right = static_cast<signed char>(b.szTradeNo[i]);
        if (left != right) return left < right;
    }
    return std::atoi(a.szOrderNo) < std::atoi(b.szOrderNo);
}

void Bubble(std::vector<CZebTrade>& trades) {
    for (bool moved = true; moved;) {
        moved = false;
        for (std::size_t i = 1; i < trades.size(); ++i) {
            if (!IsLess(trades[i - 1], trades[i])) continue;
            std::swap(trades[i - 1], trades[i]);
            moved = true;
        }
    }
}

TEST(SortTrades, LeavesRecordsWhereBubblingDoes) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        const auto any = [&random](int first, int last) {
            return std::uniform_int_distribution(first, last)(random);
        };
        std::vector<CZebTrade> trades;
        for (int left = any(1, 90); left > 0; --left) {
            // Few digits, so that many numbers begin with others.
            std::string number(static_cast<std::size_t>(any(0, 4)), '1');
            for (char& digit : number) digit = "1129"[any(0, 3)];
            trades.push_back(MakeTrade(number.c_str(), std::to_string(any(0, 30)).c_str()));
            trades.back().nVolume = left;
        }
        std::vector<CZebTrade> expected = trades;
        Bubble(expected);
        SortTrades(trades);
        ASSERT_EQ(0, std::memcmp(expected.data(), trades.data(), sizeof(CZebTrade) * trades.size()))
            << seed;
    }
}

}  // namespace
}  // namespace tests
