#pragma once

#include <array>
#include <limits>
#include <optional>

#include "papercore/stops.h"

namespace papercore {

/// A price counted in a lot's favour: the price of a long, the negative price of a short, so that
/// more is better for both.
using Favour = std::int64_t;
inline constexpr Favour kNever = std::numeric_limits<Favour>::max();
inline constexpr Favour kNotShown = std::numeric_limits<Favour>::min();

/// Prices between which (both left out) nothing happens to a strategy.
struct Calm {
    Favour stop_low = -kNever;
    Favour stop_high = kNever;
    Favour profit_low = -kNever;
    Favour profit_high = kNever;

    void Narrow(const Calm& other);
    bool Holds(Favour stop, Favour profit) const;
};

/// The strategy of one lot.
class WatchedLot {
public:
    WatchedLot(const Lot& lot, Price tick);

    LotId Id() const { return id_; }
    Price Base() const { return sign_ * base_; }

    /// Moves the base; whether it moved.
    bool Follow(Favour stop, Favour profit);
    /// Counts an update; the rule that fires, if one does. Stops go before profits.
    std::optional<StopRule> Count(Favour stop, Favour profit, int stop_count, int profit_count);

    bool IsCounting() const;
    Calm Quiet() const;

private:
    bool FloatsOnStop() const { return step_ > 0; }
    bool Follows() const { return step_ > 0 || pullback_ > 0; }
    Favour StopLevel() const;
    bool ProfitReached(Favour profit) const;

    LotId id_;
    Price sign_;
    Favour open_;
    Favour base_;             ///< best price so far
    Favour stop_ = -kNever;   ///< relative, before it floats
    Price step_ = 0;          ///< of the floating stop; 0: fixed
    Favour profit_ = kNever;  ///< relative
    Price pullback_ = 0;      ///< 0: fixed
    Favour absolute_stop_ = -kNever;
    Favour absolute_profit_ = kNever;
    std::array<int, 4> counts_{};  ///< updates in a row, by rule
};

}  // namespace papercore
