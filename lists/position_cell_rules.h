#pragma once

#include <cstddef>

#include "lists/list_cell.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/position_records.h"

// The texts and colours of the position lists. The contract is the row's; without one a row stays
// blank.

namespace lists {

enum PositionColumn : int {
    kPositionContract,
    kPositionDirection,
    kPositionVolume,
    kPositionAvailable,
    kPositionOpenPrice,
    kPositionProfit,
    kPositionStops,      ///< lots only
    kPositionOrderKind,  ///< lots only; not among the columns that are shown
    kPositionHoldProfit  ///< totals only; likewise
};

CellText TotalCell(const CZebPosition& position, const CZebContract& contract, int column);
CellText LotCell(const PositionGroup& lot, const CZebContract& contract, int column);
/// Yesterday's or today's; not among the columns that are shown.
CellText DateTypeCell(char date_type);

/// What PositionGroup::nOrderKind means.
const char* OrderKindText(int kind);

/// Writes the stop strategy of a lot, cut between two characters where it does not fit.
void DescribeStops(const PositionGroup& lot, char* text, std::size_t size);

}  // namespace lists
