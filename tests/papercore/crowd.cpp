#include "tests/papercore/crowd.h"

#include <algorithm>
#include <cstdio>

namespace papercore_tests {

using papercore::Price;
using papercore::Quote;

namespace {

constexpr std::size_t kOrders = 1000;
constexpr std::size_t kStops = 100;
constexpr std::size_t kLots = 300;  // enough that there always are some to watch
constexpr int kAtOnce = 40;         // orders sent after one quote
constexpr int kReach = 200;         // ticks from the market
constexpr int kLooks = 50;          // quotes between two looks at all sums

papercore::EngineSettings Rich() {
    papercore::EngineSettings settings;
    settings.starting_funds = 1'000'000'000'000'000;
    return settings;
}

papercore::TermsTable TableOf(const papercore::ContractTerms& row) {
    papercore::TermsTable table;
    table.Add(row);
    return table;
}

}  // namespace

Crowd::Crowd(const papercore::ContractTerms& terms)
    : terms_(TableOf(terms)), row_(terms), engine_(terms_, Rich(), {}) {
    engine_.OpenSession({"crowd", "", ""}, 0);
    CTradeParam param{};
    param.nStopTriggerPrice = param.nProfitTriggerPrice = 1;
    param.nStopTicks = 2;
    param.nProfitTicks = 1;
    param.bAutoChase = 1;
    param.nValidity = 1;
    engine_.SetTradeParam(param);
}

void Crowd::OnQuote(const Quote& quote) {
    if (working_.size() >= kOrders && watched_.size() >= kStops) ++counts_.crowded;
    engine_.OnQuote(quote);
    Note();
    if (quote.phase == papercore::MarketPhase::kContinuous) Refill(quote);
    ++counts_.quotes;
    if (broken_.empty() && counts_.quotes % kLooks == 0) broken_ = engine_.BrokenInvariant();
}

void Crowd::OnDayEnd(const papercore::DayEnd& end) {
    engine_.OnDayEnd(end);
    engine_.WakeStops();
    Note();
    ++counts_.days;
    if (broken_.empty()) broken_ = engine_.BrokenInvariant();
}

void Crowd::Refill(const Quote& quote) {
    for (int i = 0; i < kAtOnce && working_.size() < kOrders; ++i) Insert(quote);
    Protect();
    Note();
}

/// On both sides of the market, near and far, now and then across it.
void Crowd::Insert(const Quote& quote) {
    const int number = next_++;
    const bool buys = number % 2 == 0;
    const Price middle = quote.last > 0 ? quote.last : quote.bid[0].price;
    const Price distance = (number * 7 % kReach - 2) * row_.tick;
    Price price = (buys ? middle - distance : middle + distance) / row_.tick * row_.tick;
    if (quote.upper_limit > 0) price = std::min(price, quote.upper_limit);
    if (quote.lower_limit > 0) price = std::max(price, quote.lower_limit);
    papercore::OrderRequest request;
    request.exchange = row_.exchange;
    request.contract = row_.contract;
    char text[48];
    std::snprintf(text, sizeof text, "%.4f", papercore::YuanFromPrice(price));
    request.price = text;
    request.direction = buys ? '0' : '1';
    request.offset = engine_.Kept().lots.size() < kLots ? '0' : '\0';
    request.volume = 1 + number % 4;
    engine_.Insert(request, quote.time);
    Note();
}

void Crowd::Protect() {
    while (watched_.size() < kStops && !bare_.empty()) {
        const papercore::LotId lot = *bare_.begin();
        CPresetStop stop{};
        stop.dStopTicks = 80 + lot % 120;
        stop.dStopFloat = lot % 3 * 5;
        stop.dProfitTicks = 60 + lot % 140;
        stop.dProfitPullback = lot % 2 * 4;
        engine_.SetLotStop(lot, stop);
        Note();
    }
}

void Crowd::Note() {
    for (const papercore::Fact& fact : engine_.TakeFacts()) Enter(fact);
}

void Crowd::Mix(std::int64_t value) {
    digest_ = (digest_ ^ static_cast<std::uint64_t>(value)) * 1099511628211U;
}

void Crowd::EnterFill(const papercore::OrderFilled& filled) {
    const auto order = engine_.Kept().orders.find(filled.order);
    if (order == engine_.Kept().orders.end() || !order->second.IsWorking()) {
        working_.erase(filled.order);
    }
    for (const auto& closed : filled.closed) {
        if (engine_.Kept().lots.contains(closed.lot)) continue;
        watched_.erase(closed.lot);
        bare_.erase(closed.lot);
    }
    if (filled.opened.id != 0) bare_.insert(filled.opened.id);
    ++counts_.fills;
    Mix(filled.order);
    Mix(filled.volume);
    Mix(filled.fee);
    for (const papercore::Trade& trade : filled.trades) Mix(trade.price);
}

void Crowd::Enter(const papercore::Fact& fact) {
    Mix(static_cast<std::int64_t>(fact.index()));
    if (const auto* accepted = std::get_if<papercore::OrderAccepted>(&fact)) {
        working_.insert(accepted->order.id);
        Mix(accepted->order.limit);
        Mix(accepted->order.frozen_margin);
    } else if (const auto* ended = std::get_if<papercore::OrderEnded>(&fact)) {
        working_.erase(ended->order);
        Mix(ended->order);
    } else if (const auto* filled = std::get_if<papercore::OrderFilled>(&fact)) {
        EnterFill(*filled);
    } else if (const auto* set = std::get_if<papercore::LotStopSet>(&fact)) {
        bare_.erase(set->lot);
        if (set->active) watched_.insert(set->lot);
        Mix(set->lot);
    } else if (const auto* triggered = std::get_if<papercore::StopTriggered>(&fact)) {
        watched_.erase(triggered->lot);
        ++counts_.stops;
        Mix(triggered->lot);
        Mix(triggered->watched);
    } else if (const auto* moved = std::get_if<papercore::FloatBaseMoved>(&fact)) {
        Mix(moved->base);
    } else if (const auto* settled = std::get_if<papercore::DaySettled>(&fact)) {
        for (const auto& lot : settled->lots) Mix(lot.profit - lot.deferred);
    }
}

}  // namespace papercore_tests
