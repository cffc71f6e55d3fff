#pragma once

#include <span>
#include <string>

#include "plugin/contract/order_records.h"

class ContractSource;

// The file of trades: a line of titles and one for each trade. A cell ends with a comma, a line
// with a comma and a line feed; nothing is quoted. GBK.

/// Name that is proposed for a file written on this day.
std::string ExportName(int year, int month, int day);

/// Adds a cell to a line. Commas and line feeds in its text become blanks.
void AppendExportCell(std::string& line, std::string_view text);

/// The whole content of the file, with one column for each title. `contracts` may be null.
std::string TradeExport(std::span<const char* const> titles, std::span<const CZebTrade> trades,
                        const ContractSource* contracts);
