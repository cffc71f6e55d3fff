#pragma once

#include <string>

#include "papercore/facts.h"

namespace papercore {

/// Sums over the whole state, carried along fact by fact, because adding them up for each order
/// would be too slow; the check adds them up.
struct Totals {
    Fen margin = 0;      ///< of the lots
    Fen frozen = 0;      ///< of the working orders
    Fen trade_fees = 0;  ///< of all trades ever
    Fen trade_gain = 0;  ///< of all trades ever, against the open prices

    static Totals Of(const State& state);
    /// Called with the state as it is before a fact, and as it is after it.
    void Leave(const State& state, const Fact& fact);
    void Enter(const State& state, const Fact& fact);
};

/// Every sum that has to hold between events. Empty, or what is broken, for a programmer.
std::string BrokenSum(const State& state, const Totals& totals);

}  // namespace papercore
