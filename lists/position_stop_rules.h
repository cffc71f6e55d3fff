#pragma once

#include <string>

#include "plugin/contract/parameter_records.h"
#include "plugin/contract/position_records.h"

// Stops of open positions: which lots they belong to, and how their dialog is called.

namespace lists {

/// "合约 方向 设置止盈止损".
std::string StopTitle(const PositionGroup& lot);

/// The core's strategy of a lot, with the lot's exchange and contract in it.
CPresetStop ReadGroupStop(const PositionGroup& lot);
/// Stores a strategy on a lot, if it is one of the lot's contract.
void StoreGroupStop(const PositionGroup& lot, CPresetStop stop);

/// Does the lot belong to the total?
bool IsLotOf(const PositionGroup& lot, const CZebPosition& total);
/// The same exchange, contract and direction?
bool IsSameSide(const PositionGroup& lot, const PositionGroup& other);

/// What the order page gets of a total that is double-clicked.
PositionGroup AsLot(const CZebPosition& total);

}  // namespace lists
