#include "tests/papercore/scenario.h"

#include <sstream>

#include "tests/support/gbk_text.h"

namespace papercore_tests {
namespace {

Quote FirstQuote(const std::string& contract, double price) {
    Quote quote;
    quote.contract = contract;
    quote.last = PriceFromYuan(price);
    quote.previous_settlement = quote.last;
    quote.previous_close = quote.last;
    return quote;
}

}  // namespace

FeedVerb::FeedVerb(Scenario& scenario, const std::string& contract)
    : scenario_(scenario), quote_(scenario.quotes[contract]) {
    quote_.trade_price = 0;
    quote_.trade_volume = 0;
}

FeedVerb::~FeedVerb() {
    scenario_.now += 500;
    quote_.time = scenario_.now;
    quote_.trading_day = scenario_.day;
    scenario_.engine->OnQuote(quote_);
    scenario_.Note();
}

void FeedVerb::Add(std::array<Level, kLevels>& side, bool& touched, double price,
                   std::int64_t volume) {
    if (!touched) side = {};
    touched = true;
    for (Level& level : side) {
        if (level.price != 0) continue;
        level = {PriceFromYuan(price), volume};
        return;
    }
}

FeedVerb& FeedVerb::Ask(double price, std::int64_t volume) {
    Add(quote_.ask, asks_touched_, price, volume);
    return *this;
}

FeedVerb& FeedVerb::Bid(double price, std::int64_t volume) {
    Add(quote_.bid, bids_touched_, price, volume);
    return *this;
}

FeedVerb& FeedVerb::NoAsk() {
    quote_.ask = {};
    return *this;
}

FeedVerb& FeedVerb::NoBid() {
    quote_.bid = {};
    return *this;
}

FeedVerb& FeedVerb::Last(double price) {
    quote_.last = PriceFromYuan(price);
    return *this;
}

FeedVerb& FeedVerb::Trade(double price, std::int64_t volume) {
    quote_.last = PriceFromYuan(price);
    quote_.trade_price = quote_.last;
    quote_.trade_volume = volume;
    quote_.volume += volume;
    return *this;
}

FeedVerb& FeedVerb::Previous(double settlement) {
    quote_.previous_settlement = PriceFromYuan(settlement);
    quote_.previous_close = quote_.previous_settlement;
    return *this;
}

FeedVerb& FeedVerb::Limits(double lower, double upper) {
    quote_.lower_limit = PriceFromYuan(lower);
    quote_.upper_limit = PriceFromYuan(upper);
    return *this;
}

FeedVerb& FeedVerb::Phase(MarketPhase phase) {
    quote_.phase = phase;
    return *this;
}

FeedVerb& FeedVerb::Day(papercore::Day day) {
    scenario_.day = day;
    return *this;
}

OrderVerb::OrderVerb(Scenario& scenario, char direction, std::int64_t volume)
    : scenario_(scenario) {
    request_.contract = kGold;
    request_.direction = direction;
    request_.volume = volume;
    request_.price = "0";
}

OrderVerb::~OrderVerb() {
    scenario_.answer = scenario_.engine->Insert(request_, ++scenario_.now);
    scenario_.Note();
}

OrderVerb& OrderVerb::At(double price) { return Price(PriceText(PriceFromYuan(price), 2)); }

OrderVerb& OrderVerb::AtMarket() { return Price("市价", 5).Type('1'); }

OrderVerb& OrderVerb::Price(const std::string& text, int code) {
    request_.price = text;
    request_.price_code = code;
    return *this;
}

OrderVerb& OrderVerb::Of(const std::string& contract) {
    request_.contract = contract;
    return *this;
}

OrderVerb& OrderVerb::Close() { return Offset('1'); }
OrderVerb& OrderVerb::CloseToday() { return Offset('2'); }
OrderVerb& OrderVerb::Net() { return Offset('\0'); }

OrderVerb& OrderVerb::Offset(char offset) {
    request_.offset = offset;
    return *this;
}

OrderVerb& OrderVerb::Type(char type) {
    request_.order_type = type;
    return *this;
}

OrderVerb& OrderVerb::Lot(LotId lot) {
    request_.lot = lot;
    return *this;
}

OrderVerb& OrderVerb::Source(int source) {
    request_.source = source;
    return *this;
}

OrderVerb& OrderVerb::Hedge(char hedge) {
    request_.hedge = hedge;
    return *this;
}

OrderVerb& OrderVerb::Note(const std::string& note) {
    request_.note = note;
    return *this;
}

Scenario::Scenario() {
    quotes[kGold] = FirstQuote(kGold, 300.00);
    quotes[kSilver] = FirstQuote(kSilver, 7000.0);
    quotes[kSpot] = FirstQuote(kSpot, 300.00);
    quotes[kMini] = FirstQuote(kMini, 300.00);
    Start(FenFromYuan(1'000'000.0));
}

void Scenario::Start(Fen funds, bool front_end_counts_profit) {
    settings.starting_funds = funds;
    settings.front_end_counts_profit = front_end_counts_profit;
    journal.clear();
    engine = std::make_unique<Engine>(SampleTerms(), settings, State());
    engine->OpenSession({"10001", "salt", "hash"}, now);
    Note();
}

void Scenario::Restart() {
    State state;
    for (const Fact& fact : journal) ASSERT_TRUE(Apply(state, fact));
    engine = std::make_unique<Engine>(SampleTerms(), settings, std::move(state));
}

void Scenario::Note() {
    for (Fact& fact : engine->TakeFacts()) journal.push_back(std::move(fact));
    EXPECT_EQ("", engine->BrokenInvariant());
}

Answer Scenario::CancelOrder(OrderId order) {
    answer = engine->Cancel(order != 0 ? order : LastOrder(), ++now);
    Note();
    return answer;
}

void Scenario::EndDay(papercore::Day next, const std::map<std::string, double>& settlements) {
    DayEnd end;
    end.time = ++now;
    end.trading_day = day;
    end.next_trading_day = next;
    for (const auto& [contract, price] : settlements) {
        end.settlements.push_back({contract, PriceFromYuan(price)});
        quotes[contract].previous_settlement = PriceFromYuan(price);
        quotes[contract].previous_close = PriceFromYuan(price);
    }
    engine->OnDayEnd(end);
    day = next;
    Note();
}

const Order& Scenario::OrderNow(OrderId id) const {
    return state().orders.at(id != 0 ? id : LastOrder());
}

std::vector<Lot> Scenario::Lots() const {
    std::vector<Lot> lots;
    for (const auto& [id, lot] : state().lots) lots.push_back(lot);
    return lots;
}

void Scenario::ExpectFilled(std::int64_t volume, OrderId order) const {
    EXPECT_EQ(volume, OrderNow(order).filled);
}

void Scenario::ExpectWorking(std::int64_t volume, OrderId order) const {
    EXPECT_TRUE(OrderNow(order).IsWorking());
    EXPECT_EQ(volume, OrderNow(order).Remaining());
}

void Scenario::ExpectEnded(OrderStatus status, const std::string& remark, OrderId order) const {
    EXPECT_EQ(status, OrderNow(order).status);
    EXPECT_GBK_EQ(remark, OrderNow(order).remark);
}

void Scenario::ExpectRefused(const std::string& text) const {
    EXPECT_NE(0, answer.code);
    EXPECT_GBK_EQ(text, answer.text);
}

void Scenario::ExpectAccepted() const {
    EXPECT_EQ(0, answer.code);
    EXPECT_GBK_EQ("", answer.text);
}

void Scenario::ExpectPosition(Side side, std::int64_t volume, std::int64_t frozen,
                              const std::string& contract) const {
    std::int64_t held = 0;
    std::int64_t bound = 0;
    for (const Lot& lot : Lots()) {
        if (lot.contract != contract || lot.side != side) continue;
        held += lot.volume;
        bound += lot.frozen;
    }
    EXPECT_EQ(volume, held);
    EXPECT_EQ(frozen, bound);
}

std::string Yuan(Fen amount) { return MoneyText(amount); }

std::string Figures(const State& state) {
    std::ostringstream text;
    const Ledger& money = state.ledger;
    text << state.login.account << ' ' << state.day << ' ' << state.sessions << ' '
         << state.last_order << ' ' << state.last_lot << ' ' << state.last_trade << '\n';
    text << money.deposits << ' ' << money.withdrawals << ' ' << money.realised << ' '
         << money.settled << ' ' << money.fees << ' ' << money.deferred << ' ' << money.fees_today
         << '\n';
    for (const auto& [id, order] : state.orders) {
        text << "order " << id << ' ' << order.filled << ' ' << static_cast<int>(order.status)
             << ' ' << order.limit << ' ' << order.opening << ' ' << order.frozen_margin << ' '
             << order.frozen_fee << ' ' << order.remark;
        for (const FrozenSlice& slice : order.closing) {
            text << ' ' << slice.lot << ':' << slice.volume;
        }
        text << '\n';
    }
    for (const auto& [id, lot] : state.lots) {
        text << "lot " << id << ' ' << lot.volume << ' ' << lot.frozen << ' ' << lot.open_price
             << ' ' << lot.hold_price << ' ' << lot.margin << ' ' << lot.has_stop << ' '
             << lot.stop.asleep << ' ' << lot.stop.triggered << ' ' << lot.stop.float_base << '\n';
    }
    for (const auto* trades : {&state.history, &state.trades}) {
        for (const Trade& trade : *trades) {
            text << "trade " << trade.id << ' ' << trade.price << ' ' << trade.volume << ' '
                 << trade.fee << ' ' << trade.realised << '\n';
        }
        text << '\n';
    }
    return text.str();
}

}  // namespace papercore_tests
