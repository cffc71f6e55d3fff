#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "papercore/contract_terms.h"
#include "plugin/contract/market_records.h"

namespace terminal {

/// One contract of the terminal's table and the key under which the front end knows it.
struct Symbol {
    std::string exchange;
    std::string contract;
    std::uint16_t market = 0;
    std::uint16_t code = 0;
    int digits = 2;

    unsigned Key() const { return market | static_cast<unsigned>(code) << 16; }
};

/// The contracts in the order in which they are shown. Keys count from 1; no half of one is 0xFFFF.
class SymbolTable {
public:
    SymbolTable() = default;
    explicit SymbolTable(std::vector<Symbol> symbols) : symbols_(std::move(symbols)) {}
    /// One symbol for each contract of the terms, as of a day.
    SymbolTable(const papercore::TermsTable& terms, papercore::Day day);

    const std::vector<Symbol>& All() const { return symbols_; }
    /// -1 for one that is not in the table.
    int IndexOf(std::string_view contract) const;
    int IndexOfKey(unsigned key) const;

    /// Fills the front end's record; the answer is that of the host's function, 0 for found.
    int Fill(int index, CHostSymbol& record) const;

private:
    std::vector<Symbol> symbols_;
};

}  // namespace terminal
