#pragma once

#include <optional>
#include <string>

#include "plugin/contract/market_records.h"
#include "plugin/contract/position_records.h"

// What a position has won or lost, in the account's currency. A direction other than '0' is short.

namespace lists {

/// A profit, or why there is none.
struct RowProfit {
    enum class Kind {
        kKnown,
        kNoSymbol,  ///< the host does not know the contract
        kNoPrice,   ///< it has neither a last price nor one of the day before
    };
    Kind kind = Kind::kKnown;
    double value = 0;  ///< 0 unless known
};

/// The price that positions are valued at: the last one, else that of the day before; 0 without.
double ValuationPrice(const JSDyn1& quote);
/// Null for a contract that the host does not know.
RowProfit ProfitAtQuote(char direction, double from_price, int volume, int unit,
                        const JSDyn1* quote);

/// The quote of a row's contract. The host is asked at most once, when it is needed.
class RowQuote {
public:
    explicit RowQuote(const CZebPosition& position);
    explicit RowQuote(const PositionGroup& lot);

    /// Null for a contract that the host does not know.
    const JSDyn1* Get();

private:
    std::string contract_;
    bool asked_ = false;
    bool known_ = false;
    JSDyn1 quote_;
};

/// The core's own figure, unless it is next to 0: then the quote decides. Without a unit, when
/// nobody knows the contract, the profit is 0 whatever the quote and the record say.
RowProfit OpenProfitOf(const CZebPosition& position, std::optional<int> unit, RowQuote& quote);
/// The same against the holding price.
RowProfit HoldProfitOf(const CZebPosition& position, std::optional<int> unit, RowQuote& quote);
/// A lot has no figure of the core's.
RowProfit ProfitOfLot(const PositionGroup& lot, int unit, RowQuote& quote);

/// Sums over positions.
struct ProfitSums {
    double open = 0;
    double hold = 0;
    double hold_loss = 0;  ///< of the losing ones only, 0 or less
};
void AddProfit(ProfitSums& sums, double open, double hold);

/// `available` less a loss; a gain does not raise it.
double AvailableAfterLoss(double available, double hold_profit);

/// What is not frozen. May be negative if the core says so.
int AvailableLots(const CZebPosition& position);
int AvailableLots(const PositionGroup& lot);

}  // namespace lists
