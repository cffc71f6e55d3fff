#include "host/terminal/symbol_table.h"

#include "platform/text/bounded_text.h"

namespace terminal {
namespace {

constexpr std::uint16_t kMarket = 1;
constexpr std::size_t kMostSymbols = 0xFFFE;

}  // namespace

SymbolTable::SymbolTable(const papercore::TermsTable& terms, papercore::Day day) {
    for (const std::string& contract : terms.Contracts()) {
        const papercore::ContractTerms* found = terms.Find(contract, day);
        if (!found || symbols_.size() >= kMostSymbols) continue;
        const auto code = static_cast<std::uint16_t>(symbols_.size() + 1);
        symbols_.push_back({found->exchange, contract, kMarket, code, found->digits});
    }
}

int SymbolTable::IndexOf(std::string_view contract) const {
    for (std::size_t index = 0; index < symbols_.size(); ++index) {
        if (symbols_[index].contract == contract) return static_cast<int>(index);
    }
    return -1;
}

int SymbolTable::IndexOfKey(unsigned key) const {
    const unsigned code = key >> 16;
    if ((key & 0xFFFF) != kMarket || code == 0 || code > symbols_.size()) return -1;
    return static_cast<int>(code) - 1;
}

int SymbolTable::Fill(int index, CHostSymbol& record) const {
    if (index < 0 || static_cast<std::size_t>(index) >= symbols_.size()) return 1;
    const Symbol& symbol = symbols_[static_cast<std::size_t>(index)];
    record = {};
    record.wMarket = symbol.market;
    record.wCode = symbol.code;
    text::CopyText(record.szCode, symbol.contract);
    record.nDigits = symbol.digits;
    return 0;
}

}  // namespace terminal
