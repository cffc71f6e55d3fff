#pragma once

#include <string>

#include "plugin/contract/order_records.h"

// The lines that the host's status line and log show for an order and a trade, GBK.

std::string OrderStatusLine(const CZebOrder& order);
std::string TradeStatusLine(const CZebTrade& trade);
