#pragma once

#include <string>
#include <vector>

#include "papercore/contract_terms.h"
#include "papercore/facts.h"
#include "papercore/matcher.h"
#include "papercore/stops.h"

namespace papercore {

/// What a request came to, in words for the user (GBK). Code 0: done.
struct Answer {
    int code = 0;
    std::string text;
    OrderId order = 0;
};

/// An order as it is asked for; texts are bounded and clean by now.
struct OrderRequest {
    std::string exchange;
    std::string contract;
    std::string price;  ///< a number, or one of the price words
    std::string note;
    char direction = '0';
    char offset = '0';  ///< 0: net position
    char hedge = '1';
    char order_type = '0';
    std::int64_t volume = 0;
    LotId lot = 0;
    int source = 1;
    int price_code = 6;
    std::string bytes;  ///< of the request, kept as given
};

/// Figures of the account at the present prices.
struct Funds {
    Fen balance = 0;  ///< equity with holding profit
    Fen margin = 0;
    Fen frozen = 0;  ///< margin and fees of working orders
    Fen available = 0;
    Fen commission = 0;      ///< today's
    Fen open_profit = 0;     ///< from the open prices
    Fen holding_profit = 0;  ///< from the hold prices
};

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
    void SetPreset(const std::string& exchange, const std::string& contract,
                   const CPresetStop& record);
    Answer SetLotStop(LotId lot, const CPresetStop& record);
    /// Permanent strategies that sleep are watched again.
    void WakeStops();
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

    const TermsTable& terms_;
    EngineSettings settings_;
    State state_;
    Matcher matcher_;
    StopWatch stops_;
    std::vector<Fact> facts_;
    std::string refuse_next_;
};

}  // namespace papercore
