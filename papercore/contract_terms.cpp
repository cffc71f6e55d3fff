#include "papercore/contract_terms.h"

namespace papercore {

const ContractTerms* TermsTable::Find(std::string_view contract, Day day) const {
    const auto rows = rows_.find(contract);
    if (rows == rows_.end() || rows->second.empty()) return nullptr;
    const ContractTerms* found = &rows->second.front();
    for (const ContractTerms& row : rows->second) {
        if (row.from <= day) found = &row;
    }
    return found;
}

}  // namespace papercore
