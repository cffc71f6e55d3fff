#pragma once

#include "lists/list_cell.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"

// What the order list shows of an order.

enum OrderColumn : int {
    kOrderTimeColumn,
    kOrderContractColumn,
    kOrderDirectionColumn,
    kOrderOffsetColumn,
    kOrderPriceColumn,
    kOrderVolumeColumn,
    kOrderFilledColumn,
    kOrderStatusColumn,
    kOrderRemarkColumn,
    kOrderNumberColumn,
    kOrderColumns,
};

/// `contract` is the order's, null if nobody knows it. Columns that there are none of stay blank.
lists::CellText OrderCell(const CZebOrder& order, int column, const CZebContract* contract);
