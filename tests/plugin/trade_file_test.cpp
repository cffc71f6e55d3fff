#include "plugin/trade_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "platform/text/bounded_text.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

CZebTrade MakeTrade(char direction, char offset, char hedge) {
    CZebTrade trade{};
    text::CopyText(trade.szTime, "09:30:01");
    text::CopyText(trade.szOrderNo, "S0001");
    text::CopyText(trade.szTradeId, "not shown");
    text::CopyText(trade.szContract, "Au(T+D)");
    trade.cDirection = direction;
    trade.cOffset = offset;
    trade.cHedge = hedge;
    trade.dPrice = 300.1;
    trade.nVolume = 2;
    trade.nTradeDate = 20260803;
    return trade;
}

TEST(TradeFile, TellsATradeInALine) {
    struct Case {
        char direction;
        char offset;
        char hedge;
        const char* words;
    };
    const Case cases[] = {
        {'0', '0', '1', "买入\t开仓\t投机"},
        {'1', '1', '2', "卖出\t平仓\t套利"},
        {'2', '2', '3', "卖出\t平今\t保值"},
        {'\0', '9', '4', "卖出\t开仓\t投机"},
    };
    for (const Case& one : cases) {
        const std::string expected = std::string("<20260803 09:30:01> 成交ID：S0001\tAu(T+D)\t") +
                                     one.words + "\t价格：300.100\t数量：2\r\n";
        EXPECT_GBK_EQ(expected, TradeLine(MakeTrade(one.direction, one.offset, one.hedge)));
    }
}

TEST(TradeFile, KeepsToTheFieldsOfARecordFullOfBytes) {
    CZebTrade trade;
    std::memset(&trade, 'x', sizeof(trade));
    trade.dPrice = 1e308;
    trade.nVolume = -1;
    const std::string line = TradeLine(trade);
    EXPECT_TRUE(line.ends_with("\r\n"));
    EXPECT_EQ(std::count(line.begin(), line.end(), 'x'), 12 + 64 + 32);
}

TEST(TradeFile, GrowsByALineForEachTrade) {
    const testing_support::TempFolder folder;
    const CZebTrade first = MakeTrade('0', '0', '1');
    const CZebTrade second = MakeTrade('1', '1', '1');
    AppendTrade(first);
    AppendTrade(second);
    EXPECT_GBK_EQ(TradeLine(first) + TradeLine(second), folder.Read(u8"trade.txt"));
}

TEST(TradeFile, LosesALineRatherThanTheProgram) {
    const testing_support::TempFolder folder;
    folder.Write(u8"trade.txt/in_the_way", "");
    AppendTrade(MakeTrade('0', '0', '1'));
    EXPECT_EQ(folder.Read(u8"trade.txt/in_the_way"), "");
}

}  // namespace
