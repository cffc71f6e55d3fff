#include "papercore/contract_terms.h"

#include <algorithm>
#include <utility>

namespace papercore {

void TermsTable::Add(ContractTerms row) {
    std::vector<ContractTerms>& rows = rows_[row.contract];
    if (rows.empty()) contracts_.push_back(row.contract);
    const auto place =
        std::lower_bound(rows.begin(), rows.end(), row.from,
                         [](const ContractTerms& other, Day from) { return other.from < from; });
    if (place != rows.end() && place->from == row.from) {
        *place = std::move(row);
    } else {
        rows.insert(place, std::move(row));
    }
}

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
