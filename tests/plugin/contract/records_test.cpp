#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "platform/text/bounded_text.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/parameter_records.h"
#include "plugin/contract/position_records.h"
#include "tests/support/gbk_text.h"

namespace {

template <class T>
T BytesAt(const void* record, std::size_t offset) {
    T value;
    std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof(value));
    return value;
}

TEST(Records, NumbersLieWhereOthersReadThem) {
    PositionGroup lot{};
    lot.dOpenPrice = 300.25;
    lot.nPlannedVolume = 0x01020304;
    EXPECT_EQ(BytesAt<double>(&lot, 190), 300.25);
    EXPECT_EQ(BytesAt<unsigned char>(&lot, 504), 4) << "little-endian";

    JSDyn1 quote{};
    for (int level = 0; level < 5; ++level) {
        quote.dAsk[level] = 300 + level;
        quote.nBidVolume[level] = static_cast<std::uint32_t>(10 * level);
    }
    EXPECT_EQ(BytesAt<double>(&quote, 180 + 4 * 8), 304);
    EXPECT_EQ(BytesAt<std::uint32_t>(&quote, 140 + 4 * 4), 40u);
    EXPECT_EQ(quote.dAsk[4], 304);

    CTradeParam param{};
    param.nPanelSell[1] = 9;
    EXPECT_EQ(BytesAt<std::uint8_t>(&param, 66), 9);
}

TEST(Records, StandAtAnyAddress) {
    alignas(8) char memory[sizeof(CZebPosition) + 8];
    for (int shift = 0; shift < 8; ++shift) {
        auto* position = new (memory + shift) CZebPosition{};
        position->dHoldProfit = -1.5;
        position->nSession = 7;
        EXPECT_EQ(position->dHoldProfit, -1.5);
        EXPECT_EQ(BytesAt<std::int32_t>(memory + shift, 624), 7);
    }
}

TEST(Records, CopyingCarriesReservedBytes) {
    CZebContract contract;
    std::memset(&contract, 0xA5, sizeof(contract));
    const CZebContract copy = contract;
    const std::string expected(sizeof(copy), '\xA5');
    EXPECT_EQ(std::string_view(reinterpret_cast<const char*>(&copy), sizeof(copy)), expected);
}

TEST(Records, FullTextFieldsAreReadToTheirEndOnly) {
    CZebTrade trade{};
    std::memset(trade.szTime, '9', sizeof(trade.szTime));
    trade.szTradeId[0] = 'x';
    EXPECT_GBK_EQ("999999999999", text::FieldText(trade.szTime));
    CInsertOrderRequest request{};
    request.cDirection = '0';
    EXPECT_FALSE(text::CopyText(request.szNote, "快捷平仓快捷平仓快捷平仓"));
    EXPECT_GBK_EQ("快捷平仓快捷平仓快捷平", text::FieldText(request.szNote));
    EXPECT_EQ(request.cDirection, '0');
}

}  // namespace
