#include "host/market/simulator.h"

#include <algorithm>
#include <cmath>

#include "host/market/civil_time.h"
#include "host/market/made_history.h"

namespace market {
namespace {

using papercore::Instant;
using papercore::MarketPhase;
using papercore::Price;
using papercore::Quote;

constexpr Instant kStep = 500;
constexpr int kOpening = 33 * 60;
constexpr int kFirstMinute = 18 * 60;
constexpr int kLastMinute = 48 * 60;
/// Share of the steps in which a contract moves: calm, and in the busiest minutes.
constexpr double kCalm = 0.15;
constexpr double kBusy = 0.42;

}  // namespace

Simulator::Simulator(const papercore::TermsTable& terms, SimulatorOptions options)
    : terms_(terms), options_(options), random_(options.seed) {
    gold_.price = options_.gold;
    silver_.price = options_.silver;
    for (const std::string& name : terms_.Contracts()) {
        Contract contract;
        contract.quote.contract = name;
        contract.silver = name.starts_with("Ag");
        const Price base =
            papercore::PriceFromYuan(contract.silver ? options_.silver : options_.gold);
        contract.quote.previous_close = contract.quote.previous_settlement = base;
        contracts_.push_back(contract);
    }
    BeginDay(options_.first_day);
    time_ = Start();
}

Instant Simulator::Start() const { return MomentOf(options_.first_day, kOpening); }

History Simulator::Before() const {
    return MakeHistory(terms_, PreviousBusinessDay(options_.first_day), options_);
}

std::optional<Event> Simulator::Next() {
    if (contracts_.empty()) return std::nullopt;
    while (ready_.empty()) MakeTicks();
    Event event = std::move(ready_.front());
    ready_.pop_front();
    return event;
}

void Simulator::BeginDay(papercore::Day day) {
    day_ = day;
    int begin = kLastMinute;
    int end = kFirstMinute;
    for (Contract& contract : contracts_) {
        contract.terms = terms_.Find(contract.quote.contract, day);
        Quote& quote = contract.quote;
        const Price tick = contract.terms->tick;
        const Price base =
            contract.terms->IsSpot() ? quote.previous_close : quote.previous_settlement;
        const Price range = papercore::Share(base, contract.terms->limit) / tick * tick;
        quote.upper_limit = base / tick * tick + range;
        quote.lower_limit = base / tick * tick - range;
        quote.trading_day = day;
        quote.open = quote.high = quote.low = quote.volume = quote.turnover = 0;
        quote.last = quote.previous_close;
        quote.phase = MarketPhase::kClosed;
        contract.book.Clear();
        if (contract.terms->sessions.empty()) continue;
        begin = std::min(begin, contract.terms->sessions.front().begin);
        end = std::max(end, contract.terms->sessions.back().end);
    }
    if (end <= begin) begin = kOpening, end = kOpening + 1;
    time_ = MomentOf(day, begin);
    end_ = MomentOf(day, end);
}

MarketPhase Simulator::PhaseOf(const Contract& contract) const {
    for (const papercore::SessionSpan& span : contract.terms->sessions) {
        if (time_ < MomentOf(day_, span.begin) ||
            time_ >= MomentOf(day_, span.begin) + (span.end - span.begin) * kMinute) {
            continue;
        }
        return span.kind == papercore::PhaseKind::kAuction ? MarketPhase::kAuction
                                                           : MarketPhase::kContinuous;
    }
    return MarketPhase::kClosed;
}

void Simulator::Walk(Metal& metal) {
    if (random_.Uniform() < 0.0008) metal.burst = 6;
    metal.burst += (1 - metal.burst) * 0.01;
    metal.away +=
        -0.00005 * metal.away + 0.00002 * options_.volatility * metal.burst * random_.Bell();
}

void Simulator::MakeTicks() {
    if (time_ >= end_) {
        FinishDay();
        return;
    }
    Walk(gold_);
    Walk(silver_);
    for (Contract& contract : contracts_) {
        const MarketPhase phase = PhaseOf(contract);
        const bool changed = phase != contract.quote.phase;
        contract.quote.phase = phase;
        const Metal& metal = contract.silver ? silver_ : gold_;
        const double activity = std::min(kBusy, kCalm + 0.08 * (metal.burst - 1));
        if (phase == MarketPhase::kAuction) Collect(contract);
        if (phase == MarketPhase::kContinuous) {
            if (changed || random_.Uniform() < activity) Tick(contract);
        } else if (changed || (phase == MarketPhase::kAuction && random_.Uniform() < 0.02)) {
            contract.quote.trade_price = 0;
            contract.quote.trade_volume = 0;
            contract.quote.bid = {};
            contract.quote.ask = {};
            contract.quote.time = time_;
            ready_.emplace_back(contract.quote);
        }
    }
    time_ += kStep;
}

void Simulator::Tick(Contract& contract) {
    Quote& quote = contract.quote;
    contract.away += -0.01 * contract.away + 0.000008 * random_.Bell();
    contract.book.Follow(
        {MiddleOf(contract), contract.terms->tick, quote.lower_limit, quote.upper_limit}, random_);
    quote.trade_price = 0;
    quote.trade_volume = 0;
    if (!Open(contract) && random_.Uniform() < 0.45) Trade(contract);
    contract.book.Show(quote);
    quote.time = time_;
    ready_.emplace_back(quote);
}

Price Simulator::MiddleOf(const Contract& contract) const {
    const Metal& metal = contract.silver ? silver_ : gold_;
    const double value = metal.price * (1 + metal.away + contract.away);
    const Price tick = contract.terms->tick;
    return std::clamp(papercore::PriceFromYuan(value) / tick * tick, contract.quote.lower_limit,
                      contract.quote.upper_limit);
}

/// Somebody joins the auction, with a price around the value.
void Simulator::Collect(Contract& contract) {
    if (random_.Uniform() >= 0.1) return;
    papercore::Interest interest;
    interest.side = random_.Uniform() < 0.5 ? papercore::Side::kBuy : papercore::Side::kSell;
    interest.price = MiddleOf(contract) + contract.terms->tick * random_.Whole(-8, 8);
    interest.price =
        std::clamp(interest.price, contract.quote.lower_limit, contract.quote.upper_limit);
    interest.volume = random_.Whole(1, 20);
    contract.crowd.push_back(interest);
}

/// The auction's end: its one trade, if an auction was held and buyers met sellers.
bool Simulator::Open(Contract& contract) {
    if (contract.crowd.empty()) return false;
    const auto result = papercore::Uncross(contract.crowd, contract.quote.previous_close);
    contract.crowd.clear();
    if (result.volume <= 0) return false;
    Print(contract, result.price, result.volume);
    return true;
}

/// Somebody takes from the book what he finds.
void Simulator::Trade(Contract& contract) {
    const auto from = random_.Uniform() < 0.5 ? papercore::Side::kSell : papercore::Side::kBuy;
    const papercore::Level taken = contract.book.Take(from, random_.Whole(1, 12));
    if (taken.volume > 0) Print(contract, taken.price, taken.volume);
}

void Simulator::Print(Contract& contract, Price price, std::int64_t volume) {
    Quote& quote = contract.quote;
    quote.trade_price = quote.last = price;
    quote.trade_volume = volume;
    if (quote.open == 0) quote.open = quote.last;
    quote.high = std::max(quote.high, quote.last);
    quote.low = quote.low == 0 ? quote.last : std::min(quote.low, quote.last);
    quote.volume += quote.trade_volume;
    quote.turnover += papercore::Turnover(quote.last, contract.terms->unit, quote.trade_volume);
}

void Simulator::FinishDay() {
    papercore::DayEnd end;
    end.time = end_;
    end.trading_day = day_;
    end.next_trading_day = NextBusinessDay(day_);
    for (Contract& contract : contracts_) {
        Quote& quote = contract.quote;
        const std::int64_t units = quote.volume * contract.terms->unit;
        Price price = quote.previous_settlement;
        if (units > 0) {
            const Price tick = contract.terms->tick;
            const double average = static_cast<double>(quote.turnover) / static_cast<double>(units);
            price = (std::llround(average * 100) + tick / 2) / tick * tick;
        }
        quote.previous_settlement = price;
        if (quote.last > 0) quote.previous_close = quote.last;
        end.settlements.push_back({quote.contract, price});
    }
    ready_.emplace_back(std::move(end));
    BeginDay(NextBusinessDay(day_));
}

}  // namespace market
