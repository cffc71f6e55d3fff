#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "papercore/stops.h"
#include "tests/papercore/quote_maker.h"

namespace papercore_tests {
namespace {

using papercore::BaseMove;
using papercore::Lot;
using papercore::LotId;
using papercore::Quote;
using papercore::Side;
using papercore::StopFire;
using papercore::StopRule;
using papercore::StopSettings;
using papercore::StopWatch;

constexpr papercore::Price kTick = 100;

Lot LotOf(Side side, double open, const CPresetStop& record, LotId id = 1) {
    Lot lot;
    lot.id = id;
    lot.contract = "Au(T+D)";
    lot.side = side;
    lot.volume = 1;
    lot.open_price = Yuan(open);
    lot.has_stop = true;
    lot.stop.record = record;
    return lot;
}

/// A watch over one contract, told last prices; answers the numbers of the lots that fire.
class Watch {
public:
    Watch() {
        settings_.stop_watch = 1;
        settings_.profit_watch = 1;
    }

    StopSettings& Settings() { return settings_; }
    void Set(const Lot& lot) { watch_.Set(lot, kTick); }
    void Remove(LotId lot) { watch_.Remove(lot); }

    std::vector<LotId> Show(const Quote& quote) {
        fires_.clear();
        moves_.clear();
        watch_.OnQuote(quote, settings_, fires_, moves_);
        std::vector<LotId> lots;
        for (const StopFire& fire : fires_) lots.push_back(fire.lot);
        return lots;
    }
    bool Fires(double last) { return !Show(Market().Last(last)).empty(); }
    /// Of the last update.
    const std::vector<StopFire>& Fired() const { return fires_; }
    const std::vector<BaseMove>& Moved() const { return moves_; }

private:
    StopWatch watch_;
    StopSettings settings_;
    std::vector<StopFire> fires_;
    std::vector<BaseMove> moves_;
};

struct Strategy {
    double profit_ticks = 0;
    double pullback = 0;
    double stop_ticks = 0;
    double step = 0;
    double profit = 0;
    double stop = 0;
};

CPresetStop RecordOf(const Strategy& strategy, Side side) {
    CPresetStop record{};
    record.dProfitTicks = strategy.profit_ticks;
    record.dProfitPullback = strategy.pullback;
    record.dStopTicks = strategy.stop_ticks;
    record.dStopFloat = strategy.step;
    (side == Side::kBuy ? record.dLongProfit : record.dShortProfit) = strategy.profit;
    (side == Side::kBuy ? record.dLongStop : record.dShortStop) = strategy.stop;
    return record;
}

/// Prices of which only the last one fires, for a lot opened at 300.00.
struct Walk {
    const char* what;
    Side side;
    Strategy strategy;
    std::vector<double> prices;
    StopRule rule;
};

TEST(StopRules, AStrategyFiresWhenItsPriceIsReachedAndNotBefore) {
    constexpr Side kLong = Side::kBuy;
    constexpr Side kShort = Side::kSell;
    const Walk walks[] = {
        {"fixed stop",
         kLong,
         {.stop_ticks = 10},
         {300, 299.91, 305, 299.90},
         StopRule::kRelativeStop},
        {"fixed stop, short",
         kShort,
         {.stop_ticks = 10},
         {300, 300.09, 280, 300.10},
         StopRule::kRelativeStop},
        {"fixed profit",
         kLong,
         {.profit_ticks = 10},
         {300, 300.09, 290, 300.10},
         StopRule::kRelativeProfit},
        {"fixed profit, short",
         kShort,
         {.profit_ticks = 10},
         {300, 299.91, 310, 299.90},
         StopRule::kRelativeProfit},
        {"a gap fires at the price behind it",
         kLong,
         {.stop_ticks = 10},
         {300, 250},
         StopRule::kRelativeStop},
        {"floating stop moves in whole steps",
         kLong,
         {.stop_ticks = 10, .step = 5},
         {300.04, 299.91, 300.09, 299.96, 300.10, 300.01, 300.00},
         StopRule::kRelativeStop},
        {"floating stop never goes back",
         kShort,
         {.stop_ticks = 10, .step = 5},
         {299.80, 299.89, 299.83, 299.90},
         StopRule::kRelativeStop},
        {"pull-back after the target",
         kLong,
         {.profit_ticks = 10, .pullback = 3},
         {300.09, 300.00, 300.10, 300.20, 300.18, 300.17},
         StopRule::kRelativeProfit},
        {"pull-back, short",
         kShort,
         {.profit_ticks = 10, .pullback = 3},
         {299.91, 300.00, 299.90, 299.92, 299.93},
         StopRule::kRelativeProfit},
        {"absolute stop", kLong, {.stop = 299.50}, {300, 299.51, 299.50}, StopRule::kAbsoluteStop},
        {"absolute stop, short",
         kShort,
         {.stop = 300.50},
         {300, 300.49, 300.50},
         StopRule::kAbsoluteStop},
        {"absolute profit",
         kLong,
         {.profit = 300.50},
         {300, 300.49, 300.50},
         StopRule::kAbsoluteProfit},
        {"absolute profit, short",
         kShort,
         {.profit = 299.50},
         {300, 299.51, 299.50},
         StopRule::kAbsoluteProfit},
        {"both stops: the nearer one",
         kLong,
         {.stop_ticks = 10, .stop = 299.95},
         {300, 299.95},
         StopRule::kAbsoluteStop},
        {"stop and profit at once",
         kLong,
         {.profit_ticks = 10, .stop = 301},
         {300.50},
         StopRule::kAbsoluteStop},
    };
    for (const Walk& walk : walks) {
        SCOPED_TRACE(walk.what);
        Watch watch;
        watch.Set(LotOf(walk.side, 300, RecordOf(walk.strategy, walk.side)));
        for (std::size_t i = 0; i + 1 < walk.prices.size(); ++i) {
            EXPECT_FALSE(watch.Fires(walk.prices[i])) << walk.prices[i];
        }
        ASSERT_TRUE(watch.Fires(walk.prices.back()));
        EXPECT_EQ(watch.Fired().front().rule, walk.rule);
        EXPECT_EQ(watch.Fired().front().watched, Yuan(walk.prices.back()));
        EXPECT_FALSE(watch.Fires(walk.prices.back())) << "once only";
    }
}

TEST(StopRules, ARuleThatIsOffNeverFires) {
    const double kOff[] = {0,  0.0001,       0.00005,
                           -5, std::nan(""), -std::numeric_limits<double>::infinity()};
    for (const double off : kOff) {
        Watch watch;
        CPresetStop record = RecordOf({off, 5, off, 5, off, off}, Side::kBuy);
        record.dShortProfit = 300;  // of the other side
        record.dShortStop = 300;
        watch.Set(LotOf(Side::kBuy, 300, record));
        for (const double price : {300.0, 0.01, 900.0}) EXPECT_FALSE(watch.Fires(price)) << off;
        EXPECT_TRUE(watch.Moved().empty()) << "a step alone follows nothing";
    }
}

TEST(StopRules, ValuesBeyondAllPricesAreHarmless) {
    for (const double value : {1e300, std::numeric_limits<double>::infinity()}) {
        Watch watch;
        watch.Set(
            LotOf(Side::kBuy, 300, RecordOf({value, value, value, value, value, 0}, Side::kBuy)));
        watch.Set(LotOf(Side::kSell, 300,
                        RecordOf({value, value, value, value, 0, value}, Side::kSell), 2));
        for (const double price : {300.0, 0.01, 90000.0}) EXPECT_FALSE(watch.Fires(price));
    }
}

TEST(StopRules, ThatManyUpdatesInARowHaveToReachThePrice) {
    Watch watch;
    watch.Settings().stop_count = 3;
    watch.Settings().profit_count = 2;
    watch.Set(LotOf(Side::kBuy, 300, RecordOf({.profit_ticks = 10, .stop_ticks = 10}, Side::kBuy)));
    for (const double price : {299.90, 299.80, 300.00, 299.90, 299.90}) {
        EXPECT_FALSE(watch.Fires(price));
    }
    EXPECT_TRUE(watch.Show(Market()).empty()) << "an update without the price is none";
    EXPECT_TRUE(watch.Fires(299.90));
}

TEST(StopRules, UpdatesOutsideContinuousTradingDoNotCount) {
    Watch watch;
    watch.Set(LotOf(Side::kBuy, 300, RecordOf({.stop_ticks = 10}, Side::kBuy)));
    EXPECT_TRUE(watch.Show(Market().Last(290).Closed()).empty());
    EXPECT_TRUE(watch.Show(Market().Last(290).Auction()).empty());
    EXPECT_FALSE(watch.Show(Market().Last(290)).empty());
}

TEST(StopRules, TheChosenPriceIsTheOneThatIsWatched) {
    const Quote quote = Market().Bid(299.90, 1).Ask(300.10, 1).Last(300.00).Limits(270, 330);
    struct Case {
        int row;
        double for_seller;
        double for_buyer;
    };
    const Case cases[] = {{0, 299.90, 300.10}, {1, 300, 300}, {2, 300.10, 299.90}, {3, 330, 330},
                          {4, 270, 270},       {5, 0, 0},     {-1, 0, 0}};
    for (const Case& row : cases) {
        EXPECT_EQ(ListedPrice(quote, row.row, Side::kSell), Yuan(row.for_seller));
        EXPECT_EQ(ListedPrice(quote, row.row, Side::kBuy), Yuan(row.for_buyer));
        EXPECT_EQ(ListedPrice(Market(), row.row, Side::kBuy), 0);
        if (row.for_seller == 0) continue;
        Watch watch;
        watch.Settings().stop_watch = row.row;
        watch.Settings().profit_watch = row.row;
        watch.Set(LotOf(Side::kBuy, 300, RecordOf({.stop = row.for_seller}, Side::kBuy), 1));
        watch.Set(LotOf(Side::kSell, 300, RecordOf({.profit = row.for_buyer}, Side::kSell), 2));
        watch.Set(LotOf(Side::kBuy, 300, RecordOf({.stop = row.for_seller - 0.01}, Side::kBuy), 3));
        EXPECT_EQ(watch.Show(quote), (std::vector<LotId>{1, 2})) << row.row;
    }
}

TEST(StopRules, SettingsAreLive) {
    Watch watch;
    watch.Settings().stop_watch = 2;
    watch.Set(LotOf(Side::kBuy, 300, RecordOf({.stop = 299.95}, Side::kBuy)));
    const Quote quote = Market().Bid(299.90, 1).Ask(300.10, 1).Last(300.00);
    EXPECT_TRUE(watch.Show(quote).empty());
    watch.Settings().stop_watch = 0;
    EXPECT_FALSE(watch.Show(quote).empty());
}

TEST(StopRules, TheBaseIsTheBestPriceSoFar) {
    Watch watch;
    watch.Settings().stop_watch = 0;
    Lot floats = LotOf(Side::kBuy, 300, RecordOf({.stop_ticks = 50, .step = 5}, Side::kBuy), 1);
    Lot pulls =
        LotOf(Side::kSell, 300, RecordOf({.profit_ticks = 90, .pullback = 5}, Side::kSell), 2);
    pulls.stop.float_base = Yuan(299.50);
    watch.Set(floats);
    watch.Set(pulls);
    watch.Set(LotOf(Side::kBuy, 300, RecordOf({.stop_ticks = 50}, Side::kBuy), 3));
    watch.Show(Market().Bid(300.20, 1).Last(299.60));
    ASSERT_EQ(watch.Moved().size(), 1U);
    EXPECT_EQ(watch.Moved()[0].lot, 1);
    EXPECT_EQ(watch.Moved()[0].base, Yuan(300.20));
    watch.Show(Market().Bid(300.10, 1).Last(299.40));
    ASSERT_EQ(watch.Moved().size(), 1U);
    EXPECT_EQ(watch.Moved()[0].lot, 2);
    EXPECT_EQ(watch.Moved()[0].base, Yuan(299.40));
    watch.Show(Market().Bid(300.10, 1).Last(299.40));
    EXPECT_TRUE(watch.Moved().empty());
}

TEST(StopRules, AKeptBaseGoesOnAfterARestart) {
    Lot lot = LotOf(Side::kBuy, 300, RecordOf({.stop_ticks = 10, .step = 5}, Side::kBuy));
    lot.stop.float_base = Yuan(300.50);
    Watch watch;
    watch.Set(lot);
    EXPECT_FALSE(watch.Fires(300.41));
    EXPECT_TRUE(watch.Fires(300.40));
}

TEST(StopRules, LotsFireInOrderOfTheirNumbers) {
    Watch watch;
    for (const LotId id : {7, 2, 9, 4}) {
        const Side side = id % 2 == 0 ? Side::kBuy : Side::kSell;
        watch.Set(LotOf(side, 300, RecordOf({.stop = 300}, side), id));
    }
    EXPECT_EQ(watch.Show(Market().Last(300)), (std::vector<LotId>{2, 4, 7, 9}));
}

TEST(StopRules, ALotIsWatchedUntilItIsTakenOutAsleepOrFired) {
    const Lot lot = LotOf(Side::kBuy, 300, RecordOf({.stop_ticks = 10}, Side::kBuy));
    Watch watch;
    watch.Set(lot);
    watch.Remove(1);
    watch.Remove(1);
    EXPECT_FALSE(watch.Fires(200));
    for (int why = 0; why < 3; ++why) {
        Lot quiet = lot;
        quiet.stop.asleep = why == 0;
        quiet.stop.triggered = why == 1;
        quiet.has_stop = why != 2;
        watch.Set(lot);
        watch.Set(quiet);
        EXPECT_FALSE(watch.Fires(200)) << why;
    }
    Quote other = Market().Last(200);
    other.contract = "Ag(T+D)";
    watch.Set(lot);
    EXPECT_TRUE(watch.Show(other).empty());
    EXPECT_TRUE(watch.Fires(200));
}

TEST(StopRules, ANewStrategyStartsItsCountAnew) {
    Watch watch;
    watch.Settings().stop_count = 2;
    const Lot lot = LotOf(Side::kBuy, 300, RecordOf({.stop_ticks = 10}, Side::kBuy));
    watch.Set(lot);
    EXPECT_FALSE(watch.Fires(299));
    watch.Set(lot);
    EXPECT_FALSE(watch.Fires(299));
    EXPECT_TRUE(watch.Fires(299));
}

TEST(StopOrderPrices, TheListedPriceMovesTowardsTheFillAndStaysInsideTheLimits) {
    const Quote quote = Market().Bid(299.90, 1).Ask(300.10, 1).Last(300.00).Limits(270, 330);
    papercore::ContractTerms terms;
    terms.tick = kTick;
    struct Case {
        int row;
        int adjust;
        Side side;
        double price;
    };
    const Case cases[] = {
        {0, 0, Side::kSell, 299.90},      {0, 3, Side::kSell, 299.87},
        {0, 3, Side::kBuy, 300.13},       {0, -3, Side::kSell, 299.93},
        {4, 5, Side::kSell, 270},         {3, 5, Side::kBuy, 330},
        {1, 1'000'000, Side::kSell, 270}, {1, 1'000'000, Side::kBuy, 330},
        {1, -1'000'000, Side::kBuy, 270}, {9, 0, Side::kBuy, 0},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(StopOrderPrice(quote, terms, row.row, row.adjust, row.side), Yuan(row.price))
            << row.row << " " << row.adjust;
    }
    EXPECT_EQ(StopOrderPrice(Market().Ask(300, 1), terms, 0, 3, Side::kSell), 0);
    EXPECT_EQ(StopOrderPrice(Market().Bid(0.02, 1), terms, 0, 3, Side::kSell), kTick)
        << "no price below a tick";
}

TEST(StopSettingsOfTheAccount, NumbersAreClippedToWhatTheyCanMean) {
    CTradeParam param{};
    const StopSettings empty = papercore::ReadStopSettings(param);
    EXPECT_EQ(empty.stop_count, 1);
    EXPECT_EQ(empty.profit_count, 1);
    EXPECT_EQ(empty.stop_watch, 0);
    EXPECT_FALSE(empty.chase);
    EXPECT_FALSE(empty.for_good);
    param.nStopTicks = -4;
    param.nProfitTicks = 7;
    param.nStopTriggerPrice = 4;
    param.nProfitTriggerPrice = 5;
    param.nStopOrderPrice = 255;
    param.nProfitOrderPrice = 3;
    param.nStopAdjust = INT32_MIN;
    param.nProfitAdjust = -2;
    param.bAutoChase = 2;
    param.nValidity = 1;
    const StopSettings read = papercore::ReadStopSettings(param);
    EXPECT_EQ(read.stop_count, 1);
    EXPECT_EQ(read.profit_count, 7);
    EXPECT_EQ(read.stop_watch, 4);
    EXPECT_EQ(read.profit_watch, 1);
    EXPECT_EQ(read.stop_order, 0);
    EXPECT_EQ(read.profit_order, 3);
    EXPECT_EQ(read.stop_adjust, -1'000'000);
    EXPECT_EQ(read.profit_adjust, -2);
    EXPECT_TRUE(read.chase);
    EXPECT_TRUE(read.for_good);
}

}  // namespace
}  // namespace papercore_tests
