#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "papercore/funds.h"
#include "tests/papercore/random_choices.h"
#include "tests/papercore/scenario.h"
#include "tests/support/gbk_text.h"

// Random streams of quotes, orders, cancellations, strategies, days and restarts. What has to hold
// is worked out a second time here, from the facts alone: money as bare purchases and sales.

namespace papercore_tests {
namespace {

constexpr Fen kStart = 100'000'000;

/// What the facts say, without lots, hold prices or settlements.
struct Books {
    Fen bought = 0;  ///< value of all purchases less that of all sales
    Fen fees = 0;
    Fen deferred = 0;
    std::map<std::string, std::int64_t> net;  ///< lots, below 0 short
    std::set<OrderId> ended;
    std::map<OrderId, Order> orders;  ///< as they are now
    std::map<OrderId, Fen> reserved;  ///< frozen when the event began
    std::map<OrderId, Fen> charged;   ///< in the event
    std::set<OrderId> arrived;        ///< in the event
    std::set<OrderId> bettered;       ///< got another price than their limit, or another limit
    int triggered = 0;
    int sent_by_stops = 0;
};

class Stream {
public:
    explicit Stream(std::uint64_t seed) : random_(seed) {
        settings_.starting_funds = kStart;
        settings_.shrink = static_cast<ShrinkRule>(random_.Below(3));
        Open(State());
        engine_->OpenSession({"10001", "s", "h"}, 0);
        for (const char* contract : kContracts) FirstQuote(contract);
        Check();
    }

    void Run(int events) {
        for (int i = 0; i < events && !::testing::Test::HasFailure(); ++i) {
            Step();
            Check();
        }
        State repeated;
        for (const Fact& fact : journal_) ASSERT_TRUE(Apply(repeated, fact));
        EXPECT_EQ(Figures(engine_->Kept()), Figures(repeated));
    }

private:
    static constexpr const char* kContracts[] = {kGold, kSilver, kSpot};

    void Open(State state) {
        engine_ = std::make_unique<Engine>(SampleTerms(), settings_, std::move(state));
    }

    const ContractTerms& Terms(const std::string& contract) const {
        return *SampleTerms().Find(contract, engine_->Kept().day);
    }

    std::string AnyContract() { return kContracts[random_.Below(3)]; }

    void FirstQuote(const std::string& contract) {
        Quote& quote = quotes_[contract];
        quote.contract = contract;
        quote.last = PriceFromYuan(contract == kSilver ? 7000 : 300);
        quote.previous_settlement = quote.previous_close = quote.last;
        SendQuote(quote);
    }

    void Step() {
        const std::int64_t kind = random_.Below(100);
        if (kind < 45) return SendQuote(quotes_[AnyContract()]);
        if (kind < 70) return SendOrder();
        if (kind < 78) return SendLargest();
        if (kind < 88) return CancelAny();
        if (kind < 93) return SetStop();
        if (kind < 95) return SetParam();
        if (kind < 97) return EndDay();
        if (kind < 98) return engine_->WakeStops();
        Restart();
    }

    void FillBook(Quote& quote) {
        const ContractTerms& terms = Terms(quote.contract);
        quote.bid = quote.ask = {};
        if (quote.phase == MarketPhase::kAuction) return;
        const auto fill = [&](std::array<Level, kLevels>& side, Price away) {
            const std::int64_t levels = random_.OneIn(12) ? 0 : random_.Between(1, kLevels);
            Price price = quote.last + away * random_.Between(0, 1);
            for (std::int64_t i = 0; i < levels; ++i) {
                side[static_cast<std::size_t>(i)] = {price, random_.Between(1, 6)};
                price += away * random_.Between(1, 2);
            }
        };
        fill(quote.bid, -terms.tick);
        fill(quote.ask, terms.tick);
        if (quote.bid[0].price > 0 && quote.bid[0].price == quote.ask[0].price) quote.bid = {};
    }

    void SendQuote(Quote& quote) {
        const ContractTerms& terms = Terms(quote.contract);
        const PriceLimits limits = LimitsOf(terms, quote);
        const std::int64_t stride = random_.OneIn(20) ? 200 : 4;
        quote.last += terms.tick * random_.Between(-stride, stride);
        quote.last =
            std::clamp(quote.last, limits.lower + 20 * terms.tick, limits.upper - 20 * terms.tick);
        quote.phase = random_.OneIn(25)   ? MarketPhase::kAuction
                      : random_.OneIn(40) ? MarketPhase::kClosed
                                          : MarketPhase::kContinuous;
        FillBook(quote);
        const bool traded = random_.OneIn(2) && quote.phase != MarketPhase::kClosed;
        quote.trade_price = traded ? quote.last : 0;
        quote.trade_volume = traded ? random_.Between(1, 8) : 0;
        quote.time = ++now_;
        quote.trading_day = day_;
        engine_->OnQuote(quote);
    }

    OrderRequest AnyOrder() {
        OrderRequest request;
        request.contract = AnyContract();
        const ContractTerms& terms = Terms(request.contract);
        request.direction = random_.OneOf("01");
        request.offset =
            random_.OneOf(std::string_view("\0"
                                           "00112",
                                           6));
        request.order_type = random_.OneOf("00000001abcdef");
        request.volume = random_.Between(0, random_.OneIn(10) ? 40 : 8);
        const Price price = quotes_[request.contract].last + terms.tick * random_.Between(-6, 6);
        request.price = PriceText(price, 2);
        if (random_.OneIn(5)) {
            const char* words[] = {"对手价", "挂单价", "市价", "最新价", "涨停价", "跌停价"};
            request.price = words[random_.Below(6)];
        }
        if (random_.OneIn(6)) request.lot = static_cast<LotId>(random_.Between(1, 12));
        return request;
    }

    void SendOrder() { engine_->Insert(AnyOrder(), ++now_); }

    /// One lot more than the preview is refused, the preview itself is not.
    void SendLargest() {
        OrderRequest request = AnyOrder();
        request.order_type = '0';
        request.lot = 0;
        Price limit = 0;
        if (!ReadPrice(request.price, limit)) return;
        const std::int64_t most =
            engine_->MaxVolume(request.contract, request.direction, request.offset, limit);
        request.volume = most + 1;
        ASSERT_NE(0, engine_->Insert(request, ++now_).code);
        const Quote& quote = *engine_->LastQuote(request.contract);
        const bool closed = quote.phase == MarketPhase::kClosed;
        if (most == 0 || closed || quote.trading_day != engine_->Kept().day) return;
        request.volume = most;
        const Answer answer = engine_->Insert(request, ++now_);
        ASSERT_EQ(0, answer.code) << testing_support::Readable(answer.text);
    }

    void CancelAny() {
        const OrderId last = engine_->Kept().last_order;
        const auto id = static_cast<OrderId>(last - random_.Below(5));
        const auto found = engine_->Kept().orders.find(id);
        const bool works = found != engine_->Kept().orders.end() && found->second.IsWorking();
        EXPECT_EQ(works, engine_->Cancel(id, ++now_).code == 0);
    }

    void SetStop() {
        CPresetStop stop{};
        stop.dStopTicks = static_cast<double>(random_.Between(0, 8));
        stop.dStopFloat = static_cast<double>(random_.Below(3));
        stop.dProfitTicks = static_cast<double>(random_.Between(0, 8));
        stop.dProfitPullback = static_cast<double>(random_.Below(3));
        if (random_.OneIn(3)) {
            engine_->SetPreset("SGE", AnyContract(), stop);
            return;
        }
        engine_->SetLotStop(static_cast<LotId>(random_.Between(1, engine_->Kept().last_lot + 1)),
                            stop);
    }

    void SetParam() {
        CTradeParam param{};
        param.nStopTicks = static_cast<std::int32_t>(random_.Between(0, 2));
        param.nStopTriggerPrice = static_cast<std::uint8_t>(random_.Below(5));
        param.nStopOrderPrice = static_cast<std::uint8_t>(random_.Below(5));
        param.nProfitOrderPrice = static_cast<std::uint8_t>(random_.Below(5));
        param.nStopAdjust = static_cast<std::int32_t>(random_.Between(0, 3));
        param.bAutoChase = random_.OneIn(2) ? 1 : 0;
        param.nValidity = random_.OneIn(2) ? 1 : 0;
        engine_->SetTradeParam(param);
    }

    void EndDay() {
        DayEnd end;
        end.time = ++now_;
        end.trading_day = day_;
        end.next_trading_day = day_ + 1;
        for (const char* contract : kContracts) {
            Quote& quote = quotes_[contract];
            end.settlements.push_back({contract, quote.last});
            quote.previous_settlement = quote.previous_close = quote.last;
        }
        if (random_.OneIn(3)) end.settlements.clear();
        if (!random_.OneIn(4)) engine_->OnDayEnd(end);
        day_ += 1;
    }

    void Restart() {
        Collect();
        Open(engine_->Kept());
        for (const char* contract : kContracts) SendQuote(quotes_[contract]);
    }

    void Collect() {
        event_.clear();
        for (Fact& fact : engine_->TakeFacts()) {
            event_.push_back(fact);
            journal_.push_back(std::move(fact));
        }
        for (const Fact& fact : event_) {
            std::visit([this](const auto& one) { Follow(one); }, fact);
        }
    }

    template <class Other>
    void Follow(const Other&) {}

    void Follow(const OrderAccepted& fact) {
        books_.orders[fact.order.id] = fact.order;
        books_.reserved[fact.order.id] = fact.order.frozen_margin + fact.order.frozen_fee;
        books_.arrived.insert(fact.order.id);
        if (fact.order.session == kCoreSession) ++books_.sent_by_stops;
    }
    void Follow(const OrderEnded& fact) { EXPECT_TRUE(books_.ended.insert(fact.order).second); }
    void Follow(const OrderBecameLimit& fact) {
        books_.orders[fact.order].limit = fact.limit;
        books_.bettered.insert(fact.order);
        books_.reserved[fact.order] =
            books_.charged[fact.order] + fact.frozen_margin + fact.frozen_fee;
    }
    void Follow(const StopTriggered&) { ++books_.triggered; }
    void Follow(const DaySettled& fact) {
        for (const DaySettled::Marked& marked : fact.lots) books_.deferred += marked.deferred;
    }
    void Follow(const OrderFilled& fact) {
        EXPECT_FALSE(books_.ended.contains(fact.order)) << "a fill after the end was confirmed";
        Order& order = books_.orders[fact.order];
        order.filled += fact.volume;
        EXPECT_LE(order.filled, order.volume);
        books_.charged[fact.order] += fact.fee + fact.opened.margin;
        std::int64_t volume = 0;
        for (const Trade& trade : fact.trades) {
            volume += trade.volume;
            Follow(trade, order);
            if (trade.price != order.limit) books_.bettered.insert(order.id);
        }
        EXPECT_EQ(fact.volume, volume);
        if (fact.opened.id == 0) return;
        const ContractTerms& terms = Terms(order.contract);
        const Fen value = fact.opened.open_price * terms.unit / 100;
        EXPECT_EQ((value * terms.margin + 500'000) / 1'000'000 * fact.opened.volume,
                  fact.opened.margin);
    }

    void Follow(const Trade& trade, const Order& order) {
        const bool buys = trade.side == Side::kBuy;
        if (order.limit > 0) {
            EXPECT_TRUE(buys ? trade.price <= order.limit : trade.price >= order.limit);
        }
        const Quote& quote = quotes_[trade.contract];
        const Level& shown = buys ? quote.ask[0] : quote.bid[0];
        const bool level =
            shown.price > 0 && (buys ? shown.price <= trade.price : shown.price >= trade.price);
        const bool print = quote.trade_volume > 0 && (buys ? quote.trade_price <= trade.price
                                                           : quote.trade_price >= trade.price);
        EXPECT_TRUE(level || print) << "a fill outside the book";
        const std::int64_t unit = Terms(trade.contract).unit;
        const Fen value = trade.price * unit / 100 * trade.volume;
        books_.bought += buys ? value : -value;
        books_.net[trade.contract] += buys ? trade.volume : -trade.volume;
        books_.fees += trade.fee;
    }

    /// A resting buyer who fills at the limit is charged what was frozen, to the cent, and nobody
    /// more: but an auction may give a seller more than the limit, and takes the margin of that.
    void CheckCharges() {
        for (const auto& [id, charged] : books_.charged) {
            const Order& order = engine_->Kept().orders.at(id);
            const bool arrived = books_.arrived.contains(id);
            const bool bettered = books_.bettered.contains(id);
            const Fen used = charged + order.frozen_margin + order.frozen_fee;
            const bool buys = order.side == Side::kBuy;
            if (buys && !arrived && !bettered) {
                EXPECT_EQ(used, books_.reserved[id]);
            } else if (buys || arrived || !bettered) {
                EXPECT_LE(used, books_.reserved[id]);
            }
        }
        books_.arrived.clear();
        books_.bettered.clear();
        books_.charged.clear();
        for (const auto& [id, order] : engine_->Kept().orders) {
            books_.reserved[id] = order.frozen_margin + order.frozen_fee;
        }
    }

    void Check() {
        Collect();
        CheckCharges();
        ASSERT_EQ("", engine_->BrokenInvariant());
        EXPECT_EQ(books_.triggered, books_.sent_by_stops);
        Fen worth = 0;
        for (const auto& [contract, lots] : books_.net) {
            worth += quotes_[contract].last * Terms(contract).unit / 100 * lots;
        }
        const Fen equity = kStart - books_.bought + worth - books_.fees - books_.deferred;
        const Funds funds = engine_->FundsNow();
        ASSERT_EQ(equity, funds.balance);
        Fen frozen = 0;
        for (const auto& [id, order] : engine_->Kept().orders) {
            frozen += order.frozen_margin + order.frozen_fee;
        }
        ASSERT_EQ(frozen, funds.frozen);
    }

    Random random_;
    EngineSettings settings_;
    std::unique_ptr<Engine> engine_;
    std::map<std::string, Quote> quotes_;
    std::vector<Fact> event_;
    std::vector<Fact> journal_;
    Books books_;
    Instant now_ = 0;
    Day day_ = 20260105;
};

TEST(EngineStreams, KeepEverySumWhateverHappens) {
    const std::int64_t streams = Setting("PAPERCORE_STREAMS", 500);
    const std::int64_t first = Setting("PAPERCORE_SEED", 1);
    for (std::int64_t seed = first; seed < first + streams; ++seed) {
        SCOPED_TRACE("stream " + std::to_string(seed));
        Stream(static_cast<std::uint64_t>(seed)).Run(60);
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace papercore_tests
