#pragma once

#include <string>
#include <vector>

#include "papercore/state.h"

namespace papercore {

/// All lots of one contract and direction together.
struct Position {
    std::string exchange;
    std::string contract;
    Side side = Side::kBuy;
    char hedge = '1';         ///< of the oldest lot
    int session = 0;          ///< of the oldest lot
    std::int64_t volume = 0;  ///< available and frozen
    std::int64_t frozen = 0;  ///< by working closes
    std::int64_t today = 0;   ///< of the volume, opened today
    double open_price = 0;    ///< average, in yuan
    double hold_price = 0;    ///< average, in yuan
    Fen margin = 0;

    bool IsAllOfToday() const { return today == volume; }
    bool IsNoneOfToday() const { return today == 0; }
};

/// By contract, longs before shorts.
std::vector<Position> Positions(const State& state);

}  // namespace papercore
