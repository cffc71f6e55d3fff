#pragma once

#include <span>

#include "plugin/contract/order_records.h"

/// Newest first: by szTradeNo as far as both numbers go, then by the number in szOrderNo, as
/// bubbling leaves them.
void SortTrades(std::span<CZebTrade> trades);
