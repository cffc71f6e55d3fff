#include <cstdlib>
#include <mutex>
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "host/market/market.h"
#include "papercore/engine.h"
#include "plugin/contract/market_records.h"

namespace {

using papercore::Engine;
using papercore::Price;
using papercore::Quote;

constexpr int kQuotes = 500;  // of one call
constexpr int kOrders = 1000;
constexpr int kStops = 100;
constexpr Price kTick = 100;
constexpr Price kMiddle = 900 * papercore::kPriceScale;

papercore::TermsTable Terms() {
    papercore::ContractTerms terms;
    terms.exchange = "SGE";
    terms.contract = "Au(T+D)";
    terms.from = 20240101;
    terms.unit = 1000;
    terms.tick = kTick;
    terms.digits = 2;
    terms.margin = 160'000;
    terms.limit = 150'000;
    terms.fee_open = terms.fee_close = terms.fee_close_today = 150;
    terms.largest_order = 1000;
    terms.sessions = {{1200, 2370, papercore::PhaseKind::kContinuous}};
    papercore::TermsTable table;
    table.Add(terms);
    return table;
}

Quote QuietQuote() {
    Quote quote;
    quote.contract = "Au(T+D)";
    quote.trading_day = 20240301;
    quote.last = kMiddle;
    quote.previous_settlement = quote.previous_close = kMiddle;
    quote.upper_limit = kMiddle + kMiddle / 100 * 15;
    quote.lower_limit = kMiddle - kMiddle / 100 * 15;
    for (std::size_t i = 0; i < papercore::kLevels; ++i) {
        const Price distance = static_cast<Price>(i + 1) * kTick;
        quote.bid[i] = {kMiddle - distance, 10};
        quote.ask[i] = {kMiddle + distance, 10};
    }
    return quote;
}

/// An account with orders on every shown level and far behind, and lots that are watched.
class Account {
public:
    Account() {
        engine_.OpenSession({"bench", "", ""}, 0);
        engine_.OnQuote(quote_);
        OpenLots();
        for (int i = 0; i < kOrders; ++i) Rest(i);
        engine_.TakeFacts();
        market_.Subscribe({[this](const Quote& quote) { engine_.OnQuote(quote); }, {}});
        Require(Working() == kOrders && Watched() == kStops);
    }

    void Run() {
        for (int i = 0; i < kQuotes; ++i) {
            quote_.time += 1;
            quote_.bid[static_cast<std::size_t>(i) % papercore::kLevels].volume ^= 1;
            market_.Publish(quote_);
        }
        Require(engine_.TakeFacts().empty());
    }

private:
    static papercore::EngineSettings Settings() {
        papercore::EngineSettings settings;
        settings.starting_funds = 100'000'000'000'000;
        return settings;
    }
    static void Require(bool holds) {
        if (!holds) std::abort();
    }

    void Insert(char direction, Price price, std::int64_t volume) {
        papercore::OrderRequest request;
        request.exchange = "SGE";
        request.contract = "Au(T+D)";
        request.price = std::to_string(papercore::YuanFromPrice(price));
        request.direction = direction;
        request.volume = volume;
        Require(engine_.Insert(request, 0).code == 0);
    }
    void OpenLots() {
        for (int i = 0; i < kStops; ++i) {
            quote_.ask[0].volume = 10 + i % 2;  // fresh for each
            engine_.OnQuote(quote_);
            Insert('0', kMiddle + kTick, 1);
        }
        CPresetStop stop{};
        stop.dStopTicks = 500;
        stop.dStopFloat = 10;
        stop.dProfitTicks = 300;
        stop.dProfitPullback = 5;
        std::vector<papercore::LotId> lots;
        for (const auto& [id, lot] : engine_.Kept().lots) lots.push_back(id);
        for (const papercore::LotId lot : lots) Require(engine_.SetLotStop(lot, stop).code == 0);
    }
    void Rest(int i) {
        const bool buys = i % 2 == 0;
        const Price distance = (1 + i / 2 % 250) * kTick;
        Insert(buys ? '0' : '1', buys ? kMiddle - distance : kMiddle + distance + kTick, 1);
    }
    int Working() const {
        int working = 0;
        for (const auto& [id, order] : engine_.Kept().orders) working += order.IsWorking() ? 1 : 0;
        return working;
    }
    int Watched() const {
        int watched = 0;
        for (const auto& [id, lot] : engine_.Kept().lots) watched += lot.has_stop ? 1 : 0;
        return watched;
    }

    papercore::TermsTable terms_ = Terms();
    Quote quote_ = QuietQuote();
    Engine engine_{terms_, Settings(), {}};
    market::Market market_{std::make_unique<market::ManualSource>(0)};
};

/// The least that hands a quote from one thread to another, without the threads.
class Queue {
public:
    void Run() {
        for (int i = 0; i < kQuotes; ++i) {
            record_.nBidVolume[0] ^= 1U;
            {
                const std::lock_guard lock(mutex_);
                waiting_.push_back(record_);
            }
            {
                const std::lock_guard lock(mutex_);
                taken_.swap(waiting_);
            }
            for (const JSDyn1& record : taken_) sum_ += record.nBidVolume[0];
            taken_.clear();
        }
    }

private:
    std::mutex mutex_;
    JSDyn1 record_{};
    std::vector<JSDyn1> waiting_;
    std::vector<JSDyn1> taken_;
    unsigned sum_ = 0;
};

RATIO("core.quote_over_queue") {
    static Account account;
    static Queue queue;
    return {[] { account.Run(); }, [] { queue.Run(); }};
}

}  // namespace
