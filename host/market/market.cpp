#include "host/market/market.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "host/market/civil_time.h"

namespace market {
namespace {

using papercore::Instant;
using papercore::Quote;

constexpr std::size_t kMostTrades = 200;
constexpr std::size_t kMostMinutes = 3000;
/// Nobody wants to wait through a night: the clock leaps over what is longer.
constexpr Instant kLongestPause = 10 * kMinute;
/// Where it lands before the next event: at the event itself, a step without time left would tell
/// it, and so on through a file of rare rows.
constexpr Instant kAfterLeap = 1000;
constexpr Instant kEndOfTime = std::numeric_limits<Instant>::max() / 4;

const char* PhaseText(papercore::MarketPhase phase) {
    switch (phase) {
        case papercore::MarketPhase::kAuction: return "集合竞价";
        case papercore::MarketPhase::kContinuous: return "连续交易";
        case papercore::MarketPhase::kClosed: break;
    }
    return "休市";
}

Instant BeginOfBar(Instant time, int minutes) {
    const Instant length = minutes * kMinute;
    return time - (time % length + length) % length;
}

void AddTo(Bar& bar, const Bar& more) {
    bar.high = std::max(bar.high, more.high);
    bar.low = std::min(bar.low, more.low);
    bar.close = more.close;
    bar.volume += more.volume;
}

/// What a chart shows of a quote: its trade, else the last price of the day, else the middle.
papercore::Price PriceOf(const Quote& quote) {
    if (quote.trade_volume > 0 && quote.trade_price > 0) return quote.trade_price;
    if (quote.phase != papercore::MarketPhase::kContinuous) return 0;
    const bool of_today = quote.volume > 0 || quote.last != quote.previous_close;
    if (quote.last > 0 && of_today) return quote.last;
    const papercore::Price bid = quote.bid[0].price;
    const papercore::Price ask = quote.ask[0].price;
    return bid > 0 && ask > 0 ? (bid + ask) / 2 : std::max(bid, ask);
}

}  // namespace

Market::Market(std::unique_ptr<Source> source)
    : source_(std::move(source)), now_(source_->Start()), day_(TradingDayOf(now_)) {
    for (const auto& [name, bars] : source_->Before()) {
        contracts_[name].minutes.assign(bars.begin(), bars.end());
    }
    pending_ = source_->Next();
    at_end_ = !pending_;
}

int Market::Subscribe(Subscriber subscriber) {
    const std::lock_guard lock(mutex_);
    auto subscription = std::make_shared<Subscription>();
    subscription->subscriber = std::move(subscriber);
    subscriptions_[next_subscription_] = std::move(subscription);
    return next_subscription_++;
}

void Market::Unsubscribe(int subscription) {
    std::shared_ptr<Subscription> ended;
    {
        const std::lock_guard lock(mutex_);
        const auto found = subscriptions_.find(subscription);
        if (found == subscriptions_.end()) return;
        ended = std::move(found->second);
        subscriptions_.erase(found);
    }
    const std::lock_guard call(ended->calling);
    ended->ended = true;
}

bool Market::TakeNext(Instant& until, Event& event) {
    {
        const std::lock_guard lock(mutex_);
        if (!pending_ || TimeOf(*pending_) > until) {
            now_ = std::max(now_, until);
            return false;
        }
    }
    // Unlocked: a source may read a file, and who hears of its faults may read the market.
    std::optional<Event> next = source_->Next();
    const std::lock_guard lock(mutex_);
    event = std::move(*pending_);
    pending_ = std::move(next);
    at_end_ = !pending_;
    now_ = std::max(now_, TimeOf(event));
    if (pending_ && TimeOf(*pending_) - now_ > kLongestPause && until < kEndOfTime) {
        const Instant leap = TimeOf(*pending_) - kAfterLeap - now_;
        until += leap;
        now_ += leap;
    }
    return true;
}

void Market::Step(std::int64_t milliseconds) {
    if (milliseconds < 1) return;
    Instant until = Now() + std::min(milliseconds, kEndOfTime / 2);
    for (Event event; TakeNext(until, event);) Tell(event);
}

std::size_t Market::Pass(std::int64_t milliseconds, std::size_t most_events) {
    const double speed = Speed();
    if (speed == 0 || milliseconds < 1) return 0;
    Instant until = kEndOfTime;
    if (speed > 0) {
        const std::lock_guard lock(mutex_);
        owed_ += static_cast<double>(milliseconds) * speed;
        const double whole = std::floor(std::min(owed_, 1e15));
        owed_ = std::min(owed_ - whole, 1.0);
        until = now_ + static_cast<Instant>(whole);
    }
    std::size_t told = 0;
    Event event;
    // At maximum speed the clock stays at the last event, so an end of the file is no end of time.
    while ((speed > 0 || (told < most_events && !AtEnd())) && TakeNext(until, event)) {
        Tell(event);
        ++told;
    }
    return told;
}

void Market::SetSpeed(double speed) {
    const std::lock_guard lock(mutex_);
    const bool known = speed == kMaximumSpeed || (speed > 0 && speed <= 1e6);
    speed_ = known ? speed : 0;
    owed_ = 0;
}

double Market::Speed() const {
    const std::lock_guard lock(mutex_);
    return speed_;
}

void Market::Publish(Quote quote) {
    {
        const std::lock_guard lock(mutex_);
        quote.time = std::max(quote.time, now_);
        now_ = quote.time;
        if (quote.trading_day == 0) quote.trading_day = TradingDayOf(quote.time);
    }
    Tell(std::move(quote));
}

void Market::EndDay(papercore::DayEnd end) {
    {
        const std::lock_guard lock(mutex_);
        end.time = std::max(end.time, now_);
        now_ = end.time;
        if (end.trading_day == 0) end.trading_day = day_;
        if (end.next_trading_day == 0) end.next_trading_day = NextBusinessDay(end.trading_day);
    }
    Tell(std::move(end));
}

void Market::Tell(const Event& event) {
    std::vector<std::shared_ptr<Subscription>> told;
    const auto* quote = std::get_if<Quote>(&event);
    {
        const std::lock_guard lock(mutex_);
        if (quote) {
            Remember(*quote);
        } else {
            phase_ = papercore::MarketPhase::kClosed;
            day_ = std::get<papercore::DayEnd>(event).next_trading_day;
        }
        for (const auto& [id, subscription] : subscriptions_) told.push_back(subscription);
    }
    for (const auto& subscription : told) {
        const std::lock_guard call(subscription->calling);
        if (subscription->ended) continue;
        const Subscriber& subscriber = subscription->subscriber;
        if (quote && subscriber.on_quote) subscriber.on_quote(*quote);
        if (!quote && subscriber.on_day_end) {
            subscriber.on_day_end(std::get<papercore::DayEnd>(event));
        }
    }
}

void Market::Remember(const Quote& quote) {
    Contract& contract = contracts_[quote.contract];
    if (contract.last.trading_day != quote.trading_day) {
        const auto begin = contract.minutes.begin();
        contract.minutes.erase(begin,
                               begin + static_cast<std::ptrdiff_t>(contract.of_previous_day));
        contract.of_previous_day = contract.minutes.size();
    }
    contract.last = quote;
    day_ = quote.trading_day;
    phase_ = quote.phase;
    AddMinute(contract);
    if (quote.trade_volume <= 0 || quote.trade_price <= 0) return;
    contract.trades.push_back({quote.time, quote.trade_price, quote.trade_volume});
    if (contract.trades.size() > kMostTrades) contract.trades.pop_front();
}

void Market::AddMinute(Contract& contract) {
    const Quote& quote = contract.last;
    const papercore::Price price = PriceOf(quote);
    if (price <= 0) return;
    const std::int64_t volume =
        quote.trade_price > 0 ? std::max<std::int64_t>(0, quote.trade_volume) : 0;
    const Bar bar{BeginOfBar(quote.time, 1), price, price, price, price, volume};
    if (!contract.minutes.empty() && contract.minutes.back().time == bar.time) {
        AddTo(contract.minutes.back(), bar);
    } else {
        contract.minutes.push_back(bar);
    }
    if (contract.minutes.size() > kMostMinutes) {
        contract.minutes.pop_front();
        if (contract.of_previous_day > 0) --contract.of_previous_day;
    }
}

Instant Market::Now() const {
    const std::lock_guard lock(mutex_);
    return now_;
}

papercore::Day Market::TradingDay() const {
    const std::lock_guard lock(mutex_);
    return day_;
}

papercore::MarketPhase Market::Phase() const {
    const std::lock_guard lock(mutex_);
    return phase_;
}

bool Market::AtEnd() const {
    const std::lock_guard lock(mutex_);
    return at_end_;
}

std::string Market::ClockText() const {
    const std::lock_guard lock(mutex_);
    return TimeText(now_) + " " + PhaseText(phase_);
}

std::optional<Quote> Market::Last(std::string_view contract) const {
    const std::lock_guard lock(mutex_);
    const auto found = contracts_.find(contract);
    if (found == contracts_.end() || found->second.last.contract.empty()) return std::nullopt;
    return found->second.last;
}

std::vector<Quote> Market::LastQuotes() const {
    const std::lock_guard lock(mutex_);
    std::vector<Quote> result;
    for (const auto& [name, contract] : contracts_) {
        if (!contract.last.contract.empty()) result.push_back(contract.last);
    }
    return result;
}

std::vector<Trade> Market::RecentTrades(std::string_view contract) const {
    const std::lock_guard lock(mutex_);
    const auto found = contracts_.find(contract);
    if (found == contracts_.end()) return {};
    return {found->second.trades.begin(), found->second.trades.end()};
}

std::vector<Bar> Market::Bars(std::string_view name, int minutes) const {
    const std::lock_guard lock(mutex_);
    const auto found = contracts_.find(name);
    std::vector<Bar> result;
    if (found == contracts_.end()) return result;
    const int length = std::clamp(minutes, 1, 24 * 60);
    const Contract& contract = found->second;
    const bool of_today = minutes == 0 && contract.of_previous_day < contract.minutes.size();
    for (std::size_t at = of_today ? contract.of_previous_day : 0; at < contract.minutes.size();
         ++at) {
        const Bar& minute = contract.minutes[at];
        const Instant begin = BeginOfBar(minute.time, length);
        if (!result.empty() && result.back().time == begin) {
            AddTo(result.back(), minute);
        } else {
            result.push_back(minute);
            result.back().time = begin;
        }
    }
    return result;
}

}  // namespace market
