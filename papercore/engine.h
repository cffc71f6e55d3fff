#pragma once

#include <string>
#include <vector>

#include "papercore/contract_terms.h"
#include "papercore/engine_requests.h"
#include "papercore/facts.h"
#include "papercore/matcher.h"
#include "papercore/stops.h"
#include "papercore/totals.h"

namespace papercore {

struct Frozen;

struct EngineSettings {
    ShrinkRule shrink = ShrinkRule::kProRata;
    Fen starting_funds = 100'000'000;
    bool front_end_counts_profit = false;  ///< available excludes holding profit
};

/// The account's rules: what is asked for becomes facts or a refusal. One thread; time comes with
/// every call; nothing random. Facts are applied at once and gathered until they are taken to be
/// stored; nobody is told anything before that.
class Engine {
public:
    Engine(const TermsTable& terms, const EngineSettings& settings, State state);

    /// Working orders and strategies come from the state.
    const State& Kept() const { return state_; }
    std::vector<Fact> TakeFacts();

    Answer OpenSession(const Login& created, Instant now);
    void ChangePassword(const std::string& salt, const std::string& hash);
    Answer Insert(const OrderRequest& request, Instant now);
    /// A fill may have won: the answer says so.
    Answer Cancel(OrderId order, Instant now);
    void SetTradeParam(const CTradeParam& param);
    Answer SetPreset(const std::string& exchange, const std::string& contract,
                     const CPresetStop& record);
    Answer SetLotStop(LotId lot, const CPresetStop& record);
    /// Permanent strategies that sleep are watched again.
    void WakeStops();
    /// A quote with a price that can't be one counts as none.
    void OnQuote(const Quote& quote);
    void OnDayEnd(const DayEnd& end);
    /// Everything of the next request is refused with this reason, once.
    void RefuseNext(const std::string& reason) { refuse_next_ = reason; }

    Funds FundsNow() const;
    /// Lots that could be traded at a price (0: at the market's), as Insert would freeze them.
    std::int64_t MaxVolume(const std::string& contract, char direction, char offset,
                           Price price) const;
    const Quote* LastQuote(const std::string& contract) const {
        return matcher_.LastQuote(contract);
    }

    /// Empty while every sum holds; else what is broken. Debug builds ask after every event.
    std::string BrokenInvariant() const;

private:
    void Record(Fact fact);
    /// Ends an event: debug builds look whether all sums still hold.
    void CheckSums();
    Answer TakeRefusal();
    const ContractTerms* TermsToday(const std::string& contract) const {
        return terms_.Find(contract, state_.day);
    }
    Price PresentPrice(const Lot& lot) const;
    /// What new orders may freeze: floating losses count, floating gains don't.
    Fen Spendable() const;

    std::string Prepare(const OrderRequest& request, const ContractTerms& terms, Order& order);
    void Accept(const Order& order, Instant now);
    void Match(OrderId id, Instant now);
    void Book(const Fill& fill, Instant now);
    void EndOrder(OrderId id, OrderStatus status, const std::string& remark, Instant now);
    void EndRest(OrderId id, Instant now);
    void GoOnAsLimit(OrderId id, Price limit);
    Frozen FrozenAt(Order order, Price limit) const;
    Price RestLimit(const Order& order) const;
    Price FreezeNow(const Order& order) const;
    void ApplyPreset(Lot& lot) const;
    void OpenLot(const Order& order, const ContractTerms& terms, Price price, std::int64_t volume,
                 Lot& lot) const;
    std::int64_t CloseSlices(const ContractTerms& terms, std::int64_t volume, Price price,
                             Order& rest, Trade& trade, OrderFilled& fact) const;
    void FollowFill(const OrderFilled& fact);

    void WatchStop(const Lot& lot);
    void EvaluateStops(const Quote& quote);
    void Fire(const StopFire& fire, const Quote& quote);
    Order StopOrder(const Lot& lot, const StopFire& fire, const Quote& quote) const;
    Price StopPrice(const Order& order, const Quote& quote) const;
    void Chase(const Quote& quote);

    void ChangeDay(const Quote& quote);
    void EndDay(const DayEnd& end);
    DaySettled::Marked Mark(const Lot& lot, const DayEnd& end) const;

    const TermsTable& terms_;
    EngineSettings settings_;
    State state_;
    Totals totals_;
    Matcher matcher_;
    StopWatch stops_;
    StopSettings stop_settings_;
    std::vector<OrderId> stop_orders_;  ///< those that the core sent and that still work
    std::vector<StopFire> fires_;
    std::vector<BaseMove> moves_;
    std::vector<Fact> facts_;
    bool sums_moved_ = false;
    std::string refuse_next_;
};

}  // namespace papercore
