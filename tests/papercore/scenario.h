#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "papercore/engine.h"
#include "papercore/texts.h"

// An account and a market in verbs:
//
//     Feed("Au(T+D)").Ask(300.00, 3);
//     Buy(10).At(300.00);
//     ExpectFilled(3);

namespace papercore_tests {

using namespace papercore;

/// Terms with round figures: Au(T+D) 1,000 g, margin 16 %, limits 15 %, fee 0.015 %; Ag(T+D) with
/// fees of its own for opening, closing and closing today, and a higher margin from February 2026
/// on; the spot Au99.99; mAu(T+D) as Au(T+D) with 100 g, 3 to 20 lots an order.
const TermsTable& SampleTerms();

inline constexpr char kGold[] = "Au(T+D)";
inline constexpr char kSilver[] = "Ag(T+D)";
inline constexpr char kSpot[] = "Au99.99";
inline constexpr char kMini[] = "mAu(T+D)";

class Scenario;

/// What the market shows from now on; sent when the statement ends.
class FeedVerb {
public:
    FeedVerb(Scenario& scenario, const std::string& contract);
    ~FeedVerb();
    FeedVerb(const FeedVerb&) = delete;
    FeedVerb& operator=(const FeedVerb&) = delete;

    /// The first call of a statement empties the side, the next ones add levels.
    FeedVerb& Ask(double price, std::int64_t volume);
    FeedVerb& Bid(double price, std::int64_t volume);
    FeedVerb& NoAsk();
    FeedVerb& NoBid();
    FeedVerb& Last(double price);
    FeedVerb& Trade(double price, std::int64_t volume);
    FeedVerb& Previous(double settlement);
    FeedVerb& Limits(double lower, double upper);
    FeedVerb& Phase(MarketPhase phase);
    FeedVerb& Day(papercore::Day day);

private:
    void Add(std::array<Level, kLevels>& side, bool& touched, double price, std::int64_t volume);

    Scenario& scenario_;
    Quote& quote_;
    bool bids_touched_ = false;
    bool asks_touched_ = false;
};

/// An order; sent when the statement ends.
class OrderVerb {
public:
    OrderVerb(Scenario& scenario, char direction, std::int64_t volume);
    ~OrderVerb();
    OrderVerb(const OrderVerb&) = delete;
    OrderVerb& operator=(const OrderVerb&) = delete;

    OrderVerb& At(double price);
    OrderVerb& AtMarket();
    OrderVerb& Price(const std::string& text, int code = 6);
    OrderVerb& Of(const std::string& contract);
    OrderVerb& Close();
    OrderVerb& CloseToday();
    OrderVerb& Net();
    OrderVerb& Offset(char offset);
    OrderVerb& Type(char type);
    OrderVerb& Lot(LotId lot);
    OrderVerb& Source(int source);
    OrderVerb& Hedge(char hedge);
    OrderVerb& Note(const std::string& note);

private:
    Scenario& scenario_;
    OrderRequest request_;
};

class Scenario : public ::testing::Test {
public:
    Scenario();

    /// Begins anew with another account.
    void Start(Fen funds, bool front_end_counts_profit = false);
    /// Writes down all facts, starts again with nothing but them.
    void Restart();

    FeedVerb Feed(const std::string& contract = kGold) { return {*this, contract}; }
    OrderVerb Buy(std::int64_t volume) { return {*this, '0', volume}; }
    OrderVerb Sell(std::int64_t volume) { return {*this, '1', volume}; }
    Answer CancelOrder(OrderId order = 0);
    void EndDay(papercore::Day next, const std::map<std::string, double>& settlements);

    OrderId LastOrder() const { return state().last_order; }
    const Order& OrderNow(OrderId id = 0) const;
    const State& state() const { return engine->Kept(); }
    std::vector<Lot> Lots() const;

    void ExpectFilled(std::int64_t volume, OrderId order = 0) const;
    void ExpectWorking(std::int64_t volume, OrderId order = 0) const;
    void ExpectEnded(OrderStatus status, const std::string& remark, OrderId order = 0) const;
    void ExpectRefused(const std::string& text) const;
    void ExpectAccepted() const;
    /// Lots held and frozen on a side of a contract.
    void ExpectPosition(Side side, std::int64_t volume, std::int64_t frozen,
                        const std::string& contract = kGold) const;

    /// Moves on with everything that happened written down.
    void Note();

    std::unique_ptr<Engine> engine;
    EngineSettings settings;
    std::map<std::string, Quote> quotes;
    std::vector<Fact> journal;
    Answer answer;  ///< to the last order or cancellation
    Instant now = 0;
    papercore::Day day = 20260105;
};

/// Yuan as they are read.
std::string Yuan(Fen amount);

/// The figures of a state, one line each.
std::string Figures(const State& state);

}  // namespace papercore_tests
