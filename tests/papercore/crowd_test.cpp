#include "tests/papercore/crowd.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/papercore/quote_maker.h"

namespace papercore_tests {
namespace {

using papercore::Price;
using papercore::Quote;

papercore::ContractTerms Gold() {
    papercore::ContractTerms terms;
    terms.exchange = "SGE";
    terms.contract = "Au(T+D)";
    terms.from = 20240101;
    terms.unit = 1000;
    terms.tick = 100;
    terms.digits = 2;
    terms.margin = 160'000;
    terms.limit = 150'000;
    terms.fee_open = terms.fee_close = terms.fee_close_today = 150;
    terms.deferred = 175;
    terms.deferred_direction = papercore::DeferredDirection::kLongPays;
    terms.largest_order = 1000;
    terms.sessions = {{1200, 2370, papercore::PhaseKind::kContinuous}};
    return terms;
}

/// Days of a wandering price, with gaps between them.
void Trade(Crowd& crowd, int days, int quotes) {
    std::mt19937 random(7);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution(low, high)(random);
    };
    Price middle = Yuan(300);
    for (int day = 1; day <= days; ++day) {
        Quote quote = Market().Day(20240300 + day);
        quote.previous_settlement = middle;
        middle += pick(-100, 100) * 100;
        for (int i = 0; i < quotes; ++i) {
            middle += pick(-2, 2) * 100;
            quote.time = day * 86'400'000 + i;
            quote.last = middle;
            for (std::size_t level = 0; level < papercore::kLevels; ++level) {
                const Price distance = static_cast<Price>(level + 1) * 100;
                quote.bid.at(level) = {middle - distance, pick(1, 30)};
                quote.ask.at(level) = {middle + distance, pick(1, 30)};
            }
            quote.trade_price = middle;
            quote.trade_volume = pick(0, 6);
            crowd.OnQuote(quote);
        }
        papercore::DayEnd end;
        end.trading_day = 20240300 + day;
        end.next_trading_day = 20240301 + day;
        end.settlements = {{"Au(T+D)", middle}};
        crowd.OnDayEnd(end);
    }
}

TEST(Crowd, AFullBookOfOrdersAndStopsKeepsItsSumsAndRepeatsItself) {
    Crowd first(Gold());
    Trade(first, 3, 1000);
    EXPECT_EQ(first.Broken(), "");
    EXPECT_GT(first.Result().crowded, 2500) << "of 3,000 quotes";
    EXPECT_GT(first.Result().fills, 500);
    EXPECT_GT(first.Result().stops, 50);
    Crowd second(Gold());
    Trade(second, 3, 1000);
    EXPECT_TRUE(first.Result() == second.Result());
    EXPECT_EQ(first.Digest(), second.Digest());
}

}  // namespace
}  // namespace papercore_tests
