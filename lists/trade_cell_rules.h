#pragma once

#include <string_view>

#include "lists/list_cell.h"
#include "orderentry/number_rules.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"

// What the trade list shows of a trade, and its file holds.

enum TradeColumn : int {
    kTradeTimeColumn,
    kTradeContractColumn,
    kTradeDirectionColumn,
    kTradeOffsetColumn,
    kTradePriceColumn,
    kTradeVolumeColumn,
    kTradeOrderColumn,
    kTradeNumberColumn,
    kTradeColumns,
    /// The text behind the direction, for which the list has no column.
    kTradeTextColumn = kTradeColumns,
};

/// Room for any number that a cell shows.
using TradeTextRoom = PriceRoom;

/// The text of a cell, which lies in the trade or in `room`. `contract` is the trade's, null if
/// nobody knows it. Columns that there are none of have no text.
std::string_view TradeText(const CZebTrade& trade, int column, const CZebContract* contract,
                           TradeTextRoom& room);

/// The same, dressed for the list.
lists::CellText TradeCell(const CZebTrade& trade, int column, const CZebContract* contract);
