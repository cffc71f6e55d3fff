#pragma once

#include <span>
#include <string>

#include "lists/export_file_rules.h"
#include "plugin/contract/order_records.h"

class ContractSource;

// The file of trades: a line of titles and one for each trade. A cell ends with a comma, a line
// with a comma and a line feed; nothing is quoted, commas and line feeds in a text become blanks.
// GBK.

/// Name that is proposed for a file written on this day.
std::string ExportName(int year, int month, int day);

/// Hands the whole file on, with one column for each title; `contracts` may be null. False if the
/// sink has refused something; it is asked no more then.
bool WriteTradeExport(std::span<const char* const> titles, std::span<const CZebTrade> trades,
                      const ContractSource* contracts, const ExportSink& sink);
