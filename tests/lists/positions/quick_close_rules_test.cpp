#include "lists/quick_close_rules.h"

#include <bit>
#include <cstring>

#include "tests/lists/positions/positions_stage.h"

namespace {

using lists::CloseOffer;

/// A ratio as the 53 bits of its double and how far they are shifted.
struct RatioBits {
    std::uint64_t mantissa;
    int shift;
    int percent;
};
constexpr RatioBits kRatioBits[lists::kCloseRatioCount] = {
    {0x147AE147AE147B, 59, 1},  {0x13333333333333, 54, 30},  {0x10000000000000, 53, 50},
    {0x16666666666666, 53, 70}, {0x10000000000000, 52, 100},
};

/// Whole lots of a part, worked out in integers as a double has them: the product is rounded to 53
/// bits, half to even, and cut. So 0.7 of 90 are 62 lots.
int WholePart(int available, const RatioBits& ratio) {
    std::uint64_t product = ratio.mantissa * static_cast<std::uint64_t>(available);
    int shift = ratio.shift;
    while (product >> 53 != 0) {
        const int drop = static_cast<int>(std::bit_width(product)) - 53;
        const std::uint64_t half = std::uint64_t{1} << (drop - 1);
        const std::uint64_t rest = product & (2 * half - 1);
        product >>= drop;
        shift -= drop;
        if (rest > half || (rest == half && product % 2 != 0)) ++product;
    }
    return static_cast<int>(product >> shift);
}

TEST(CloseParts, OffersEveryPartOfEveryVolume) {
    for (int available = 0; available <= 300; ++available) {
        SCOPED_TRACE(available);
        const CloseOffer least = lists::OfferClose(available, lists::kCloseRatios[0]);
        const int part = WholePart(available, kRatioBits[0]);
        const int least_lots = available == 0 ? 0 : std::max(part, 1);
        EXPECT_EQ(least_lots, least.lots);
        EXPECT_EQ(available != 0, least.enabled);
        EXPECT_GBK_EQ("平仓" + std::to_string(least_lots) + "手", least.text);
        for (std::size_t i = 1; i < lists::kCloseRatioCount; ++i) {
            const CloseOffer offer = lists::OfferClose(available, lists::kCloseRatios[i]);
            const RatioBits& bits = kRatioBits[i];
            const int lots = WholePart(available, bits);
            EXPECT_EQ(lots >= 1, offer.enabled);
            EXPECT_EQ(lots >= 1 ? std::optional<int>(lots) : std::nullopt, offer.lots);
            EXPECT_GBK_EQ(lots >= 1 ? "平仓" + std::to_string(lots) + "手"
                                    : "平仓" + std::to_string(bits.percent) + "%",
                          offer.text);
        }
    }
}

struct OfferRow {
    int available;
    const char* texts[lists::kCloseRatioCount];
    bool enabled[lists::kCloseRatioCount];
};

constexpr OfferRow kOffers[] = {
    {0, {"平仓0手", "平仓30%", "平仓50%", "平仓70%", "平仓100%"}, {}},
    {1, {"平仓1手", "平仓30%", "平仓50%", "平仓70%", "平仓1手"}, {true, false, false, false, true}},
    {3, {"平仓1手", "平仓30%", "平仓1手", "平仓2手", "平仓3手"}, {true, false, true, true, true}},
    {90,
     {"平仓1手", "平仓27手", "平仓45手", "平仓62手", "平仓90手"},
     {true, true, true, true, true}},
    {100,
     {"平仓1手", "平仓30手", "平仓50手", "平仓70手", "平仓100手"},
     {true, true, true, true, true}},
    {250,
     {"平仓2手", "平仓75手", "平仓125手", "平仓175手", "平仓250手"},
     {true, true, true, true, true}},
    {-4,
     {"平仓1手", "平仓30%", "平仓50%", "平仓70%", "平仓100%"},
     {true, false, false, false, false}},
};

TEST(CloseParts, SaysOnTheButtonWhatItCloses) {
    for (const OfferRow& row : kOffers) {
        for (std::size_t i = 0; i < lists::kCloseRatioCount; ++i) {
            SCOPED_TRACE(std::to_string(row.available) + " lots, button " + std::to_string(i));
            const CloseOffer offer = lists::OfferClose(row.available, lists::kCloseRatios[i]);
            EXPECT_GBK_EQ(row.texts[i], offer.text);
            EXPECT_EQ(row.enabled[i], offer.enabled);
        }
    }
}

TEST(CloseParts, OffersNothingWithoutARow) {
    constexpr const char* kTexts[] = {"平仓1%", "平仓30%", "平仓50%", "平仓70%", "平仓100%"};
    for (std::size_t i = 0; i < lists::kCloseRatioCount; ++i) {
        const CloseOffer offer = lists::NoCloseOffer(lists::kCloseRatios[i]);
        EXPECT_GBK_EQ(kTexts[i], offer.text);
        EXPECT_FALSE(offer.enabled);
        EXPECT_EQ(i == 0 ? std::optional<int>(0) : std::nullopt, offer.lots);
    }
}

class CloseOrder : public tests::PositionsStage {
protected:
    CloseOrder() {
        JSDyn1 quote = tests::MakeQuote(300.01);
        quote.dAsk[0] = 300.02;
        quote.dBid[0] = 300.00;
        quote.fUpperLimit = 330;
        quote.fLowerLimit = 270;
        host.SetQuote(kGold, quote);
        host.SetQuote(kSilver, quote);
    }

    /// The bytes that a close must have.
    CInsertOrderRequest Expected(char direction, char offset, int lots, const char* price) const {
        CInsertOrderRequest request{};
        text::CopyText(request.szExchange, "SGE");
        text::CopyText(request.szContract, "Au(T+D)");
        text::CopyText(request.szPrice, price);
        text::CopyText(request.szNote, "快捷平仓");
        request.cDirection = direction;
        request.cOffset = offset;
        request.cHedge = '3';
        request.cOrderType = '0';
        request.nVolume = lots;
        request.stAccount = core.login_account;
        request.wMarket = 12;
        request.wCode = 1;
        return request;
    }
};

struct SideRow {
    char direction;
    char date_type;
    char expected_direction;
    char expected_offset;
    const char* price;
};

// The other side of the book, two ticks over it.
constexpr SideRow kSides[] = {
    {'0', 1, '1', '1', "299.98"}, {'0', 2, '1', '2', "299.98"}, {'1', 1, '0', '1', "300.04"},
    {'1', 2, '0', '2', "300.04"}, {'0', 0, '1', '1', "299.98"}, {'0', '2', '1', '1', "299.98"},
    {'x', 2, '0', '2', "300.04"},
};

TEST_F(CloseOrder, OfATotalHasTheseBytes) {
    core.trade_param.nCloseOverTicks = 2;
    core.trade_param.nOverTicks = 50;  // of opening orders
    core.trade_param.bOverPrice = 1;
    for (const SideRow& side : kSides) {
        SCOPED_TRACE(testing::Message() << side.direction << int{side.date_type});
        CZebPosition position = tests::MakePosition("Au(T+D)", side.direction, 9, 300);
        position.cDateType = side.date_type;
        position.cHedge = '3';
        position.nSession = 70'000;
        const lists::PreparedClose close = lists::PrepareCloseTotal(position, 4);
        CInsertOrderRequest expected =
            Expected(side.expected_direction, side.expected_offset, 4, side.price);
        expected.nSession = 70'000;
        EXPECT_EQ(tests::BytesOf(expected), tests::BytesOf(close.request));
        EXPECT_EQ(tests::BytesOf(core.trade_param), tests::BytesOf(close.param));
        EXPECT_EQ(0, close.price_type);
        EXPECT_TRUE(close.is_close);
        EXPECT_GBK_EQ("", close.problem);
    }
}

TEST_F(CloseOrder, OfALotNamesTheLotAndNoPriceType) {
    core.trade_param.nCloseOverTicks = 2;
    core.trade_param.nClosePriceType = 0;
    for (const SideRow& side : kSides) {
        SCOPED_TRACE(testing::Message() << side.direction << int{side.date_type});
        PositionGroup lot = tests::MakeLot(4711, "Au(T+D)", side.direction, 9, 300);
        lot.cDateType = side.date_type;
        lot.cHedge = '3';
        lot.nSession = 0xFE;
        const lists::PreparedClose close = lists::PrepareCloseLot(lot, 4);
        CInsertOrderRequest expected =
            Expected(side.expected_direction, side.expected_offset, 4, side.price);
        expected.nSession = 0xFE;
        expected.nGroupID = 4711;
        EXPECT_EQ(tests::BytesOf(expected), tests::BytesOf(close.request));
        EXPECT_EQ(6, close.price_type);
        EXPECT_FALSE(close.is_close);
    }
}

struct PriceRow {
    int type;
    const char* sell;
    const char* buy;
};

TEST_F(CloseOrder, TakesThePriceTypeOfTheSettings) {
    constexpr PriceRow kRows[] = {
        {0, "299.99", "300.03"}, {1, "300.00", "300.02"}, {2, "300.01", "300.01"},
        {3, "329.99", "330.01"}, {4, "269.99", "270.01"}, {5, "-1.00", "-1.00"},
        {6, "-1.00", "-1.00"},   {200, "-1.00", "-1.00"},
    };
    core.trade_param.nCloseOverTicks = 1;
    for (const PriceRow& row : kRows) {
        SCOPED_TRACE(row.type);
        core.trade_param.nClosePriceType = static_cast<std::uint8_t>(row.type);
        const auto sell = lists::PrepareCloseTotal(tests::MakePosition("Au(T+D)", '0', 1, 1), 1);
        EXPECT_STREQ(row.sell, sell.request.szPrice);
        EXPECT_EQ(row.type, sell.price_type);
        const auto buy = lists::PrepareCloseLot(tests::MakeLot(1, "Au(T+D)", '1', 1, 1), 1);
        EXPECT_STREQ(row.buy, buy.request.szPrice);
        EXPECT_EQ(6, buy.price_type);
    }
}

TEST_F(CloseOrder, PrintsThePlacesOfTheContract) {
    constexpr const char* kPrices[] = {"300", "300.0", "300.00", "300.000"};
    for (int digits = 0; digits < 4; ++digits) {
        CContractManager::ClearContracts();
        CContractManager::AddContract(tests::MakeContract("Au(T+D)", 1000, digits, 0.001));
        const auto close = lists::PrepareCloseTotal(tests::MakePosition("Au(T+D)", '0', 1, 1), 1);
        EXPECT_STREQ(kPrices[digits], close.request.szPrice);
    }
}

TEST_F(CloseOrder, NamesTheContractThatItCannotClose) {
    const auto unknown = lists::PrepareCloseTotal(tests::MakePosition("Pt99.95", '0', 1, 1), 1);
    EXPECT_GBK_EQ("快捷平仓未发送：没有合约Pt99.95", unknown.problem);
    CContractManager::AddContract(tests::MakeContract("Pt99.95", 1, 2, 0.01));
    const auto no_symbol = lists::PrepareCloseLot(tests::MakeLot(1, "Pt99.95", '0', 1, 1), 1);
    EXPECT_GBK_EQ("快捷平仓未发送：没有合约Pt99.95", no_symbol.problem);
}

TEST_F(CloseOrder, NeverCutsAPrice) {
    JSDyn1 quote{};
    for (const double bid : {1e14, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
        quote.dBid[0] = bid;
        host.SetQuote(kGold, quote);
        const auto close = lists::PrepareCloseTotal(tests::MakePosition("Au(T+D)", '0', 1, 1), 1);
        EXPECT_GBK_EQ("快捷平仓未发送：Au(T+D)没有价格", close.problem) << bid;
    }
}

TEST_F(CloseOrder, CutsFieldsThatAreFullToTheLastByte) {
    PositionGroup lot = tests::MakeLot(1, "Au(T+D)", '0', 1, 1);
    std::memset(lot.szExchange, 'E', sizeof lot.szExchange);
    const auto close = lists::PrepareCloseLot(lot, 1);
    EXPECT_EQ(std::string(11, 'E'), close.request.szExchange);
}

}  // namespace
