#include "lists/export_trade_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/lists/trades/trade_samples.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

const char* const kTitles[] = {"时间",     "合约", "买卖",   "开平",
                               "成交价格", "数量", "委托号", "成交号"};
constexpr char kHeader[] = "时间,合约,买卖,开平,成交价格,数量,委托号,成交号,\n";

TradedContracts Contracts() {
    TradedContracts contracts;
    contracts.Add("Au(T+D)", "GT-T", 2);
    contracts.Add("Au99.99", "GT-S", 3);
    return contracts;
}

std::string TradeExport(std::span<const char* const> titles, std::span<const CZebTrade> trades,
                        const ContractSource* contracts) {
    std::string content;
    EXPECT_TRUE(WriteTradeExport(titles, trades, contracts, [&content](std::string_view bytes) {
        content += bytes;
        return true;
    }));
    return content;
}

TEST(TradeExport, WritesALineForEachTrade) {
    CZebTrade spot = MakeTrade("0815", "", "Au99.99");
    spot.cDirection = '1';
    CZebTrade unknown = MakeTrade("", "12", "Pt99.95");
    unknown.cDirection = 'x';
    unknown.cOffset = '1';
    const std::vector<CZebTrade> trades = {MakeTrade("00012345"), spot, unknown};
    const TradedContracts contracts = Contracts();
    EXPECT_GBK_EQ(std::string(kHeader) +
                      "09:30:15,Au(T+D),买入,开仓,300.50,2,7,\t00012345\t,\n"
                      "09:30:15,Au99.99,卖出,--,300.500,2,,\t0815\t,\n"
                      "09:30:15,Pt99.95,-,平仓,300.500,2,12,\t\t,\n",
                  TradeExport(kTitles, trades, &contracts));
    EXPECT_GBK_EQ(kHeader, TradeExport(kTitles, {}, nullptr));
}

TEST(TradeExport, KeepsTheTableWholeWhateverTextsHold) {
    CZebTrade trade = MakeTrade("1,\n2", "\n,7");
    text::CopyText(trade.szTime, "09,30\r\n15\t");
    const CZebTrade before = trade;
    const std::string file = TradeExport(kTitles, std::span(&trade, 1), nullptr);
    EXPECT_GBK_EQ(std::string(kHeader) + "09 30\r 15\t,Au(T+D),买入,开仓,300.500,2,  7,\t1  2\t,\n",
                  file);
    EXPECT_STREQ(before.szTime, trade.szTime);
}

TEST(TradeExport, FindsSeparatorsWhereverTheyStand) {
    for (const std::size_t length : {1U, 2U, 3U, 4U, 5U, 7U, 8U, 9U, 12U, 15U, 16U, 17U, 60U}) {
        for (std::size_t at = 0; at < length; ++at) {
            std::string clean(length, '7');
            std::string text = clean;
            text[at] = at % 2 == 0 ? ',' : '\n';
            clean[at] = ' ';
            const CZebTrade trade = MakeTrade(text.c_str(), ",");
            const std::string file = TradeExport(kTitles, std::span(&trade, 1), nullptr);
            EXPECT_TRUE(file.ends_with(",2, ,\t" + clean + "\t,\n")) << length << " " << at;
        }
    }
}

TEST(TradeExport, WritesAsManyColumnsAsThereAreTitles) {
    CZebTrade trade = MakeTrade("1");
    text::CopyText(trade.reserved45, "x,y");
    const char* const more[] = {"a", "b", "c", "d", "e", "f", "g", "h", "i"};
    EXPECT_GBK_EQ("a,b,c,d,e,f,g,h,i,\n09:30:15,Au(T+D),买入,开仓,300.500,2,7,\t1\t,x y,\n",
                  TradeExport(more, std::span(&trade, 1), nullptr));
    EXPECT_EQ("a,b,\n09:30:15,Au(T+D),\n",
              TradeExport(std::span(more).first(2), std::span(&trade, 1), nullptr));
}

TEST(TradeExport, HoldsTenThousandTrades) {
    std::vector<CZebTrade> trades;
    for (int number = 0; number < 10'000; ++number) {
        trades.push_back(MakeTrade(std::to_string(number).c_str()));
        trades.back().nVolume = -number;
    }
    const TradedContracts contracts = Contracts();
    const std::string file = TradeExport(kTitles, trades, &contracts);
    EXPECT_EQ(10'001, std::count(file.begin(), file.end(), '\n'));
    EXPECT_EQ(10'001 * 8, std::count(file.begin(), file.end(), ','));
    constexpr std::string_view kLast = ",-9999,7,\t9999\t,\n";
    EXPECT_TRUE(file.ends_with(kLast));
}

TEST(TradeExport, AsksNoMoreOnceSomethingFoundNoRoom) {
    const std::vector<CZebTrade> trades(30'000, MakeTrade("1"));
    for (const int room : {0, 1, 3}) {
        int asked = 0;
        EXPECT_FALSE(WriteTradeExport(kTitles, trades, nullptr,
                                      [&](std::string_view) { return asked++ < room; }));
        EXPECT_EQ(room + 1, asked);
    }
}

TEST(TradeExport, NamesItsFileByTheDay) {
    EXPECT_GBK_EQ("2026年3月9日黄金成交报表.csv", ExportName(2026, 3, 9));
}

}  // namespace
}  // namespace tests
