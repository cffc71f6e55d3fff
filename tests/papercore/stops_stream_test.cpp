#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>

#include "papercore/stops.h"
#include "tests/papercore/quote_maker.h"

// The watch asks no lot while prices are calm; here every lot is asked with every update, rule by
// rule from its whole history.

namespace papercore_tests {
namespace {

using papercore::Lot;
using papercore::LotId;
using papercore::Price;
using papercore::Quote;
using papercore::Side;
using papercore::StopRule;
using papercore::StopSettings;

constexpr Price kTick = 100;

class PlainLot {
public:
    explicit PlainLot(const Lot& lot) : lot_(lot), base_(lot.open_price) {}

    LotId Id() const { return lot_.id; }
    Price Base() const { return base_; }

    /// Whether it fires.
    bool See(const Quote& quote, const StopSettings& settings, StopRule& rule) {
        const CPresetStop& record = lot_.stop.record;
        const Price stop = Watched(quote, settings.stop_watch);
        const Price profit = Watched(quote, settings.profit_watch);
        const bool floats = record.dStopTicks > 0 && record.dStopFloat > 0;
        const bool pulls = record.dProfitTicks > 0 && record.dProfitPullback > 0;
        const Price followed = floats ? stop : profit;
        if ((floats || pulls) && followed > 0 && Gain(followed) > Gain(base_)) base_ = followed;
        const bool is_long = lot_.side == Side::kBuy;
        const double absolute_stop = is_long ? record.dLongStop : record.dShortStop;
        const double absolute_profit = is_long ? record.dLongProfit : record.dShortProfit;
        Price allowed = -Ticks(record.dStopTicks);
        if (floats) allowed += Gain(base_) / Ticks(record.dStopFloat) * Ticks(record.dStopFloat);
        const Price target = Ticks(record.dProfitTicks);
        const bool taken = pulls ? Gain(base_) >= target &&
                                       Gain(profit) <= Gain(base_) - Ticks(record.dProfitPullback)
                                 : Gain(profit) >= target;
        const std::array<bool, 4> reached = {
            record.dProfitTicks > 0 && taken,
            record.dStopTicks > 0 && Gain(stop) <= allowed,
            absolute_profit > 0 && Gain(profit) >= Gain(Yuan(absolute_profit)),
            absolute_stop > 0 && Gain(stop) <= Gain(Yuan(absolute_stop)),
        };
        for (const StopRule each : {StopRule::kRelativeStop, StopRule::kAbsoluteStop,
                                    StopRule::kRelativeProfit, StopRule::kAbsoluteProfit}) {
            const auto index = static_cast<std::size_t>(each);
            const bool is_stop = index % 2 == 1;
            if ((is_stop ? stop : profit) == 0) continue;
            in_a_row_.at(index) = reached.at(index) ? in_a_row_.at(index) + 1 : 0;
        }
        for (const StopRule each : {StopRule::kRelativeStop, StopRule::kAbsoluteStop,
                                    StopRule::kRelativeProfit, StopRule::kAbsoluteProfit}) {
            const auto index = static_cast<std::size_t>(each);
            const bool is_stop = index % 2 == 1;
            if ((is_stop ? stop : profit) == 0) continue;
            rule = each;
            if (in_a_row_.at(index) >= (is_stop ? settings.stop_count : settings.profit_count)) {
                return true;
            }
        }
        return false;
    }

private:
    Price Watched(const Quote& quote, int row) const {
        return papercore::ListedPrice(quote, row, Opposite(lot_.side));
    }
    static Price Ticks(double ticks) { return static_cast<Price>(ticks) * kTick; }
    Price Gain(Price price) const {
        return lot_.side == Side::kBuy ? price - lot_.open_price : lot_.open_price - price;
    }

    Lot lot_;
    Price base_;
    std::array<int, 4> in_a_row_{};
};

class Stream {
public:
    explicit Stream(unsigned seed) : random_(seed) {}

    int Pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

    Lot NextLot() {
        Lot lot;
        lot.id = ++last_;
        lot.contract = "Au(T+D)";
        lot.side = Pick(0, 1) ? Side::kBuy : Side::kSell;
        lot.open_price = middle_;
        lot.has_stop = true;
        CPresetStop& record = lot.stop.record;
        const double middle = papercore::YuanFromPrice(middle_);
        if (Pick(0, 1)) record.dProfitTicks = Pick(1, 20);
        if (Pick(0, 1)) record.dProfitPullback = Pick(1, 8);
        if (Pick(0, 1)) record.dStopTicks = Pick(1, 20);
        if (Pick(0, 1)) record.dStopFloat = Pick(1, 8);
        if (Pick(0, 3) == 0) record.dLongStop = record.dShortProfit = middle - Pick(1, 30) * 0.01;
        if (Pick(0, 3) == 0) record.dLongProfit = record.dShortStop = middle + Pick(1, 30) * 0.01;
        return lot;
    }

    Quote NextQuote() {
        middle_ += Pick(-3, 3) * kTick;
        if (Pick(0, 30) == 0) middle_ += Pick(-40, 40) * kTick;
        Quote quote = Market();
        quote.last = middle_;
        if (Pick(0, 9) > 0) quote.bid[0] = {middle_ - Pick(0, 2) * kTick, 5};
        if (Pick(0, 9) > 0) quote.ask[0] = {middle_ + Pick(1, 2) * kTick, 5};
        if (Pick(0, 20) == 0) quote.phase = papercore::MarketPhase::kClosed;
        return quote;
    }

    StopSettings NextSettings() {
        StopSettings settings;
        settings.stop_count = Pick(1, 3);
        settings.profit_count = Pick(1, 3);
        settings.stop_watch = Pick(0, 2);
        settings.profit_watch = Pick(0, 2);
        return settings;
    }

private:
    std::mt19937 random_;
    Price middle_ = Yuan(300);
    LotId last_ = 0;
};

void PlayTo(unsigned seed) {
    Stream stream(seed);
    papercore::StopWatch watch;
    std::map<LotId, PlainLot> plain;
    StopSettings settings = stream.NextSettings();
    for (int step = 0; step < 80; ++step) {
        if (stream.Pick(0, 4) == 0) {
            const Lot lot = stream.NextLot();
            watch.Set(lot, kTick);
            plain.emplace(lot.id, lot);
        }
        if (stream.Pick(0, 20) == 0) settings = stream.NextSettings();
        const Quote quote = stream.NextQuote();
        std::vector<papercore::StopFire> fires;
        std::vector<papercore::BaseMove> moves;
        watch.OnQuote(quote, settings, fires, moves);
        if (quote.phase != papercore::MarketPhase::kContinuous) {
            ASSERT_TRUE(fires.empty() && moves.empty());
            continue;
        }
        std::map<LotId, Price> moved;
        for (const papercore::BaseMove& move : moves) moved[move.lot] = move.base;
        std::size_t fired = 0;
        for (auto lot = plain.begin(); lot != plain.end();) {
            const Price base = lot->second.Base();
            StopRule rule{};
            const bool fires_now = lot->second.See(quote, settings, rule);
            ASSERT_EQ(moved.contains(lot->first), base != lot->second.Base());
            if (base != lot->second.Base()) {
                ASSERT_EQ(moved[lot->first], lot->second.Base());
            }
            if (fires_now) {
                ASSERT_LT(fired, fires.size()) << "lot " << lot->first;
                ASSERT_EQ(fires[fired].lot, lot->first);
                ASSERT_EQ(fires[fired].rule, rule);
                ++fired;
            }
            lot = fires_now ? plain.erase(lot) : std::next(lot);
        }
        ASSERT_EQ(fired, fires.size());
    }
}

TEST(StopStreams, TheWatchMissesNothingThatAskingEveryLotWouldFind) {
    for (unsigned seed = 0; seed < 1500; ++seed) {
        PlayTo(seed);
        ASSERT_FALSE(HasFatalFailure()) << "stream " << seed;
    }
}

}  // namespace
}  // namespace papercore_tests
