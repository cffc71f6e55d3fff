#include "papercore/engine.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

#include "papercore/funds.h"
#include "papercore/order_rules.h"

namespace papercore {
namespace {

constexpr std::int64_t kNoBound = std::numeric_limits<std::int32_t>::max();

}  // namespace

Engine::Engine(const TermsTable& terms, const EngineSettings& settings, State state)
    : terms_(terms),
      settings_(settings),
      state_(std::move(state)),
      totals_(Totals::Of(state_)),
      matcher_(settings.shrink) {
    if (state_.trade_param_set) {
        stop_settings_ = ReadStopSettings(std::bit_cast<CTradeParam>(state_.trade_param));
    }
    for (const auto& [id, order] : state_.orders) {
        // An order whose contract is in the terms no more waits for its cancellation.
        if (!order.IsWorking() || !TermsToday(order.contract)) continue;
        matcher_.Add(order);
        if (order.session == kCoreSession) stop_orders_.push_back(id);
    }
    for (const auto& [id, lot] : state_.lots) WatchStop(lot);
}

std::vector<Fact> Engine::TakeFacts() { return std::exchange(facts_, {}); }

void Engine::Record(Fact fact) {
    totals_.Leave(state_, fact);
    const bool applied = Apply(state_, fact);
    assert(applied && "the engine decides nothing that can't follow on the state");
    static_cast<void>(applied);
    totals_.Enter(state_, fact);
    sums_moved_ = true;
    facts_.push_back(std::move(fact));
}

void Engine::CheckSums() {
    if (!sums_moved_) return;
    sums_moved_ = false;
    assert(BrokenInvariant().empty() && "money and lots add up after every event");
}

std::string Engine::BrokenInvariant() const { return BrokenSum(state_, totals_); }

Answer Engine::TakeRefusal() {
    Answer answer;
    if (refuse_next_.empty()) return answer;
    answer.code = kRefused;
    answer.text = std::exchange(refuse_next_, {});
    return answer;
}

Answer Engine::OpenSession(const Login& created, Instant now) {
    if (state_.login.account.empty()) {
        Record(AccountCreated{created, settings_.starting_funds});
    } else if (state_.login.account != created.account) {
        return {kRefused, "账户文件属于" + state_.login.account + "，不能用于" + created.account};
    }
    Record(SessionOpened{state_.sessions + 1, now});
    CheckSums();
    return {};
}

void Engine::ChangePassword(const std::string& salt, const std::string& hash) {
    Record(PasswordChanged{salt, hash});
}

void Engine::SetTradeParam(const CTradeParam& param) {
    TradeParamSet fact;
    fact.bytes = std::bit_cast<decltype(fact.bytes)>(param);
    Record(fact);
    stop_settings_ = ReadStopSettings(param);
}

void Engine::OnQuote(const Quote& quote) {
    if (!IsSane(quote)) return;
    if (quote.trading_day > 0 && quote.trading_day != state_.day) ChangeDay(quote);
    for (const Fill& fill : matcher_.OnQuote(quote)) Book(fill, quote.time);
    if (quote.phase == MarketPhase::kContinuous) {
        EvaluateStops(quote);
        if (stop_settings_.chase && !stop_orders_.empty()) Chase(quote);
    }
    CheckSums();
}

Price Engine::PresentPrice(const Lot& lot) const {
    const Quote* quote = LastQuote(lot.contract);
    return quote && quote->last > 0 ? quote->last : lot.hold_price;
}

Fen Engine::Spendable() const {
    std::map<std::pair<std::string_view, Side>, Fen> profits;
    for (const auto& [id, lot] : state_.lots) {
        const ContractTerms* terms = TermsToday(lot.contract);
        // Metal that is paid in full can lose value, but no money beyond what was paid.
        if (terms && terms->IsSpot()) continue;
        profits[{lot.contract, lot.side}] +=
            ProfitOf(lot.side, lot.unit, lot.hold_price, PresentPrice(lot), lot.volume);
    }
    Fen spendable = state_.ledger.Cash() - totals_.margin - totals_.frozen;
    for (const auto& [position, profit] : profits) spendable += std::min<Fen>(profit, 0);
    return spendable;
}

Funds Engine::FundsNow() const {
    Funds funds;
    for (const auto& [id, lot] : state_.lots) {
        const Price price = PresentPrice(lot);
        funds.open_profit += ProfitOf(lot.side, lot.unit, lot.open_price, price, lot.volume);
        funds.holding_profit += ProfitOf(lot.side, lot.unit, lot.hold_price, price, lot.volume);
    }
    const Fen cash = state_.ledger.Cash();
    funds.balance = cash + funds.holding_profit;
    funds.margin = totals_.margin;
    funds.frozen = totals_.frozen;
    funds.commission = state_.ledger.fees_today;
    funds.available =
        settings_.front_end_counts_profit ? cash - funds.margin - funds.frozen : Spendable();
    return funds;
}

std::int64_t Engine::MaxVolume(const std::string& contract, char direction, char offset,
                               Price price) const {
    const ContractTerms* terms = TermsToday(contract);
    if (!terms) return 0;
    Order order;
    order.contract = contract;
    order.side = direction == '0' ? Side::kBuy : Side::kSell;
    const Use use = UseOf(*terms, order.side, offset, 0);
    const std::int64_t closable =
        use == Use::kOpen ? 0 : Closable(state_, contract, order.side, use);
    const std::int64_t largest = terms->largest_order > 0 ? terms->largest_order : kNoBound;
    const auto allowed = [&](std::int64_t most) {
        const std::int64_t volume = std::min(most, largest);
        return volume >= terms->smallest_order ? volume : 0;
    };
    if (use == Use::kClose || use == Use::kCloseToday) return allowed(closable);
    const Quote* quote = LastQuote(contract);
    const Price freeze = quote ? FreezePrice(*quote, order.side, price) : price;
    if (freeze <= 0) return allowed(closable);
    Fen spendable = Spendable();
    if (closable > 0) {
        OrderRequest request;
        request.offset = 0;
        order.volume = closable;
        Allocate(state_, *terms, request, order);
        spendable -= FreezeOf(state_, *terms, order, freeze).Total();
    }
    order.closing.clear();
    order.opening = 1;
    const Fen cost = std::max<Fen>(FreezeOf(state_, *terms, order, freeze).Total(), 1);
    return allowed(closable + std::max<Fen>(spendable, 0) / cost);
}

}  // namespace papercore
