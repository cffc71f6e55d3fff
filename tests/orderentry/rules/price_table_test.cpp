#include <gtest/gtest.h>

#include <string>

#include "orderentry/number_rules.h"
#include "orderentry/price_rules.h"
#include "tests/orderentry/rules/trading.h"

// The whole matrix of price words, sides, allowances, books and decimal places. What is expected
// stands here as printed prices that were worked out by hand.
//
// Tick 0.05. Full book: ask 300.10, bid 299.95, last 300.05, limits 330.5 and 269.5. The allowance
// is two ticks, 0.10; the closing one three, 0.15.

namespace {

enum Book { kFull, kNoAsk, kNoBid, kEmpty, kLockedUp, kLockedDown, kBooks };
constexpr const char* kBookNames[kBooks] = {"full",  "no ask",    "no bid",
                                            "empty", "locked up", "locked down"};

JSDyn1 QuoteOf(Book book) {
    JSDyn1 quote{};
    if (book == kEmpty) return quote;
    quote.dLast = book == kLockedUp ? 330.5 : book == kLockedDown ? 269.5 : 300.05;
    quote.fUpperLimit = 330.5F;
    quote.fLowerLimit = 269.5F;
    // At the upper limit everybody bids and nobody offers; at the lower one the reverse.
    if (book != kNoAsk && book != kLockedUp) quote.dAsk[0] = book == kLockedDown ? 269.5 : 300.10;
    if (book != kNoBid && book != kLockedDown) quote.dBid[0] = book == kLockedUp ? 330.5 : 299.95;
    return quote;
}

/// One word in one book: buy and sell without an allowance, then with it. "-" is refused.
struct Row {
    const char* word;
    Book book;
    const char* buy;
    const char* sell;
    const char* buy_over;
    const char* sell_over;
};

// A missing side is 0: what an allowance takes from it is negative, what it adds is a price.
constexpr Row kOrderPrices[] = {
    {"对手价", kFull, "300.10", "299.95", "300.20", "299.85"},
    {"对手价", kNoAsk, "-", "299.95", "0.10", "299.85"},
    {"对手价", kNoBid, "300.10", "-", "300.20", "-"},
    {"对手价", kEmpty, "-", "-", "0.10", "-"},
    {"对手价", kLockedUp, "-", "330.50", "0.10", "330.40"},
    {"对手价", kLockedDown, "269.50", "-", "269.60", "-"},
    {"挂单价", kFull, "299.95", "300.10", "300.05", "300.00"},
    {"挂单价", kNoAsk, "299.95", "-", "300.05", "-"},
    {"挂单价", kNoBid, "-", "300.10", "0.10", "300.00"},
    {"挂单价", kEmpty, "-", "-", "0.10", "-"},
    {"挂单价", kLockedUp, "330.50", "-", "330.60", "-"},
    {"挂单价", kLockedDown, "-", "269.50", "0.10", "269.40"},
    {"挂单价超一个价位", kFull, "300.00", "300.05", "300.10", "299.95"},
    {"挂单价超一个价位", kNoAsk, "300.00", "-", "300.10", "-"},
    {"挂单价超一个价位", kNoBid, "0.05", "300.05", "0.15", "299.95"},
    {"挂单价超一个价位", kEmpty, "0.05", "-", "0.15", "-"},
    {"挂单价超一个价位", kLockedUp, "330.55", "-", "330.65", "-"},
    {"挂单价超一个价位", kLockedDown, "0.05", "269.45", "0.15", "269.35"},
    {"涨停价", kFull, "330.50", "330.50", "330.60", "330.40"},
    {"涨停价", kNoAsk, "330.50", "330.50", "330.60", "330.40"},
    {"涨停价", kNoBid, "330.50", "330.50", "330.60", "330.40"},
    {"涨停价", kEmpty, "-", "-", "0.10", "-"},
    {"涨停价", kLockedUp, "330.50", "330.50", "330.60", "330.40"},
    {"涨停价", kLockedDown, "330.50", "330.50", "330.60", "330.40"},
    {"跌停价", kFull, "269.50", "269.50", "269.60", "269.40"},
    {"跌停价", kNoAsk, "269.50", "269.50", "269.60", "269.40"},
    {"跌停价", kNoBid, "269.50", "269.50", "269.60", "269.40"},
    {"跌停价", kEmpty, "-", "-", "0.10", "-"},
    {"跌停价", kLockedUp, "269.50", "269.50", "269.60", "269.40"},
    {"跌停价", kLockedDown, "269.50", "269.50", "269.60", "269.40"},
    {"最新价", kFull, "300.05", "300.05", "300.15", "299.95"},
    {"最新价", kNoAsk, "300.05", "300.05", "300.15", "299.95"},
    {"最新价", kNoBid, "300.05", "300.05", "300.15", "299.95"},
    {"最新价", kEmpty, "-", "-", "0.10", "-"},
    {"最新价", kLockedUp, "330.50", "330.50", "330.60", "330.40"},
    {"最新价", kLockedDown, "269.50", "269.50", "269.60", "269.40"},
    {"市价", kFull, "-", "-", "-", "-"},
    {"市价", kEmpty, "-", "-", "-", "-"},
    {"301.25", kFull, "301.25", "301.25", "301.25", "301.25"},
    {"301.25", kEmpty, "301.25", "301.25", "301.25", "301.25"},
    {"", kFull, "-", "-", "-", "-"},
    {"", kEmpty, "-", "-", "-", "-"},
    {"abc", kFull, "-", "-", "-", "-"},
};

/// The printed price at another number of decimal places: every price here ends on 0 or 5 at the
/// second, so only one place needs rounding. The half goes up, since each price has a bit more.
std::string AtDigits(std::string price, int digits) {
    if (price == "-" || digits == 2) return price;
    if (digits == 3) return price + "0";
    const bool up = price.back() == '5';
    price.pop_back();
    if (!up) return price;
    std::size_t at = price.size() - 1;
    while (price[at] == '9' || price[at] == '.') {
        if (price[at] == '9') price[at] = '0';
        --at;
    }
    ++price[at];
    return price;
}

std::string Printed(double price, int digits) {
    if (!IsUsablePrice(price)) return "-";
    char text[kPriceTextSize];
    FormatPrice(text, price, digits);
    return text;
}

class PriceTable : public tests::Trading {
protected:
    PriceTable() { contract.dPriceTick = 0.05; }

    void Show(Book book) { host.SetQuote(kKey, QuoteOf(book)); }
    void Allow(int ticks) {
        core.trade_param.bOverPrice = ticks != 0;
        core.trade_param.nOverTicks = ticks != 0 ? ticks : 7;  // 7 must not count
    }
    std::string Order(const char* word, char direction, int digits) {
        return Printed(GetOrderPrice(word, direction, &contract, kMarket, kCode), digits);
    }
    std::string ByType(int type, char direction) {
        return Printed(GetOrderPriceByType(type, direction, &contract, kMarket, kCode), 2);
    }
    std::string Panel(const char* word, char direction, int digits) {
        return Printed(GetPanelPrice(word, direction, &contract), digits);
    }
};

TEST_F(PriceTable, EveryWordHasItsPriceOnEachSide) {
    for (const Row& row : kOrderPrices) {
        Show(row.book);
        for (int digits = 1; digits <= 3; ++digits) {
            SCOPED_TRACE(testing_support::Readable(row.word) + ", " + kBookNames[row.book] + ", " +
                         std::to_string(digits));
            Allow(0);
            EXPECT_EQ(AtDigits(row.buy, digits), Order(row.word, '0', digits));
            EXPECT_EQ(AtDigits(row.sell, digits), Order(row.word, '1', digits));
            EXPECT_EQ(AtDigits(row.sell, digits), Order(row.word, '2', digits));
            Allow(2);
            EXPECT_EQ(AtDigits(row.buy_over, digits), Order(row.word, '0', digits));
            EXPECT_EQ(AtDigits(row.sell_over, digits), Order(row.word, '1', digits));
        }
    }
}

TEST_F(PriceTable, ThePanelKnowsNoAllowanceAndNotTheWordThatGoesOver) {
    Allow(2);
    core.trade_param.nCloseOverTicks = 3;
    for (const Row& row : kOrderPrices) {
        Show(row.book);
        const bool unknown = std::string_view(row.word) == "挂单价超一个价位";
        for (int digits = 1; digits <= 3; ++digits) {
            SCOPED_TRACE(testing_support::Readable(row.word) + ", " + kBookNames[row.book]);
            EXPECT_EQ(unknown ? "-" : AtDigits(row.buy, digits), Panel(row.word, '0', digits));
            EXPECT_EQ(unknown ? "-" : AtDigits(row.sell, digits), Panel(row.word, '1', digits));
        }
    }
}

struct TypeRow {
    int type;
    Book book;
    const char* buy;
    const char* sell;
};

TEST_F(PriceTable, ClosingByTypeAlwaysGoesOverByItsOwnTicks) {
    constexpr TypeRow kPrices[] = {
        {0, kFull, "300.25", "299.80"},
        {0, kNoAsk, "0.15", "299.80"},
        {0, kNoBid, "300.25", "-"},
        {0, kEmpty, "0.15", "-"},
        {0, kLockedUp, "0.15", "330.35"},
        {0, kLockedDown, "269.65", "-"},
        {1, kFull, "300.20", "299.90"},
        {1, kEmpty, "0.15", "-"},
        {1, kLockedUp, "330.65", "330.35"},
        {1, kLockedDown, "269.65", "269.35"},
        {2, kFull, "300.10", "299.95"},
        {2, kNoAsk, "300.10", "-"},
        {2, kNoBid, "0.15", "299.95"},
        {2, kEmpty, "0.15", "-"},
        {2, kLockedUp, "330.65", "-"},
        {2, kLockedDown, "0.15", "269.35"},
        {3, kFull, "330.65", "330.35"},
        {3, kEmpty, "0.15", "-"},
        {4, kFull, "269.65", "269.35"},
        {4, kLockedUp, "269.65", "269.35"},
        {5, kFull, "-", "-"},
        {6, kFull, "-", "-"},
        {-1, kFull, "-", "-"},
        {255, kFull, "-", "-"},
    };
    core.trade_param.nCloseOverTicks = 3;
    for (const int manual : {0, 2}) {
        Allow(manual);
        for (const TypeRow& row : kPrices) {
            SCOPED_TRACE(std::to_string(row.type) + ", " + kBookNames[row.book]);
            Show(row.book);
            EXPECT_EQ(row.buy, ByType(row.type, '0'));
            EXPECT_EQ(row.sell, ByType(row.type, '1'));
        }
    }
}

}  // namespace
