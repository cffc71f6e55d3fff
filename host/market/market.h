#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/market/source.h"
#include "papercore/quote.h"

namespace market {

/// As fast as the source goes.
inline constexpr double kMaximumSpeed = -1;

struct Trade {
    papercore::Instant time = 0;
    papercore::Price price = 0;
    std::int64_t volume = 0;
};

/// Called in the market's order on the thread that steps it, never while the market is locked: it
/// may read the market and end subscriptions, its own too. It must not step it.
struct Subscriber {
    std::function<void(const papercore::Quote&)> on_quote;
    std::function<void(const papercore::DayEnd&)> on_day_end;
};

/// The market feed: one source, one clock. One thread at a time steps it; everything that is read
/// may be read on any thread. The market's time is the source's and never that of a wall clock.
class Market {
public:
    explicit Market(std::unique_ptr<Source> source);

    /// The answer ends the subscription.
    int Subscribe(Subscriber subscriber);
    /// Nothing is told any more once it returns: on another thread it waits for a call under way,
    /// so the caller must hold no lock that the subscriber takes.
    void Unsubscribe(int subscription);

    /// Lets market time pass and tells what happens in it. The quotes are the same however the time
    /// is cut into steps. Below 1: nothing passes.
    void Step(std::int64_t milliseconds);

    /// Lets `milliseconds` of the user's time pass: as much market time as the speed makes of it,
    /// at maximum speed as many events as `most_events`. Answers the number of events told.
    std::size_t Pass(std::int64_t milliseconds, std::size_t most_events = 20'000);

    /// 0: only steps move it; 1, N: so many times as fast; kMaximumSpeed. Anything else is 0.
    void SetSpeed(double speed);
    double Speed() const;

    /// Tells a quote of somebody else's making, at once; the clock goes on to its time.
    void Publish(papercore::Quote quote);
    void EndDay(papercore::DayEnd end);

    papercore::Instant Now() const;
    papercore::Day TradingDay() const;
    papercore::MarketPhase Phase() const;
    bool AtEnd() const;  ///< a file that has been read to its end
    /// "YYYY-MM-DD HH:MM:SS" and the phase in a word; GBK.
    std::string ClockText() const;

    std::optional<papercore::Quote> Last(std::string_view contract) const;
    std::vector<papercore::Quote> LastQuotes() const;
    /// The newest last; at most 200.
    std::vector<Trade> RecentTrades(std::string_view contract) const;
    /// Bars of 1, 5, 15, 60 or any number of minutes of this trading day and the one before, the
    /// newest last. 0: the line of the present day (until it has a price, of the one before), one
    /// bar a minute.
    std::vector<Bar> Bars(std::string_view name, int minutes) const;

private:
    struct Contract {
        papercore::Quote last;
        std::deque<Trade> trades;
        std::deque<Bar> minutes;
        std::size_t of_previous_day = 0;  ///< how many of them
    };

    struct Subscription {
        Subscriber subscriber;
        std::recursive_mutex calling;  ///< recursive: it may be ended in its own call
        bool ended = false;
    };

    bool TakeNext(papercore::Instant& until, Event& event);
    void Tell(const Event& event);
    void Remember(const papercore::Quote& quote);
    static void AddMinute(Contract& contract);

    mutable std::mutex mutex_;
    std::unique_ptr<Source> source_;
    std::map<std::string, Contract, std::less<>> contracts_;
    std::map<int, std::shared_ptr<Subscription>> subscriptions_;
    papercore::Instant now_ = 0;
    papercore::Day day_ = 0;
    papercore::MarketPhase phase_ = papercore::MarketPhase::kClosed;
    double speed_ = 1;
    double owed_ = 0;  ///< part of a millisecond that a step left over
    int next_subscription_ = 1;
    std::optional<Event> pending_;
    bool at_end_ = false;
};

}  // namespace market
