#pragma once

#include <string>

#include "plugin/contract/order_records.h"

// The file through which past trades reach their event: each answer of the core adds a line, the
// event at the end reads the file and deletes it.

inline constexpr char kTradeFile[] = ".\\trade.txt";

/// The line of a trade, GBK, with CR LF at its end.
std::string TradeLine(const CZebTrade& trade);

/// Adds the line of a trade to the file in the current directory. A file that cannot be opened is
/// left alone, and the line is lost.
void AppendTrade(const CZebTrade& trade);
