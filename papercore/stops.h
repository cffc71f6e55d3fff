#pragma once

#include <memory>
#include <vector>

#include "papercore/contract_terms.h"
#include "papercore/quote.h"
#include "papercore/state.h"

namespace papercore {

/// How the account's parameters say that stops are watched and ordered.
struct StopSettings {
    int stop_count = 1;  ///< updates in a row; below 1 counts as 1
    int profit_count = 1;
    int stop_watch =
        1;  ///< row of the price list: 0 opponent, 1 last, 2 own side, 3 up limit, 4 down limit
    int profit_watch = 1;
    int stop_order = 0;  ///< row of the price list for the order
    int profit_order = 0;
    int stop_adjust = 0;  ///< ticks added to the order's price, towards the fill
    int profit_adjust = 0;
    bool chase = false;  ///< an unfilled stop order follows the market
    bool for_good = false;
};

/// Reads them out of the record, every number clipped to what it can mean.
StopSettings ReadStopSettings(const CTradeParam& param);

/// A strategy that fires.
struct StopFire {
    LotId lot = 0;
    StopRule rule = StopRule::kRelativeStop;
    Price watched = 0;
};

struct BaseMove {
    LotId lot = 0;
    Price base = 0;
};

/// Watches the strategies of the open lots. The counts of updates in a row live here and start anew
/// after a restart; everything else is in the state.
class StopWatch {
public:
    /// Takes a lot with an active, wakeful, untriggered strategy; a lot that is known is replaced
    /// (its count starts anew).
    void Set(const Lot& lot, Price tick);
    void Remove(LotId lot);
    void Clear();

    /// Which strategies fire on this update, lowest lot first, each at most once, and which float
    /// bases moved. The first update after a gap counts at its real price. A fired lot is out.
    void OnQuote(const Quote& quote, const StopSettings& settings, std::vector<StopFire>& fires,
                 std::vector<BaseMove>& moves);

    StopWatch();
    ~StopWatch();

private:
    struct Watches;
    std::unique_ptr<Watches> watches_;
};

/// Price of a row of the price list for one who would sell (a long's stop) or buy; 0 if the market
/// does not show it.
Price ListedPrice(const Quote& quote, int row, Side side);

/// Price of the order that a fired strategy sends: the listed price moved by the adjustment towards
/// the fill, kept inside the limits; 0 if the market does not show it.
Price StopOrderPrice(const Quote& quote, const ContractTerms& terms, int row, int adjust,
                     Side side);

}  // namespace papercore
