#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "papercore/units.h"

namespace papercore {

enum class PhaseKind : std::uint8_t { kAuction, kContinuous };

/// A stretch of the trading day, in minutes after 00:00 of the evening before it (so 20:00 of the
/// evening is 1200, 09:00 of the day itself 1980).
struct SessionSpan {
    int begin = 0;
    int end = 0;
    PhaseKind kind = PhaseKind::kContinuous;
};

enum class DeferredDirection : std::uint8_t { kNobodyPays, kLongPays, kShortPays };

/// What a contract is, on the days from `from` on.
struct ContractTerms {
    std::string exchange;
    std::string contract;
    std::string market;  ///< "GT-S": spot
    Day from = 0;
    int unit = 0;  ///< price units in a lot
    Price tick = 0;
    int digits = 0;
    Ppm margin = 0;  ///< of the turnover; 1,000,000: full payment
    Ppm limit = 0;   ///< around the previous settlement (spot: previous close)
    Ppm fee_open = 0;
    Ppm fee_close = 0;
    Ppm fee_close_today = 0;
    Ppm deferred = 0;  ///< of the position's value, each calendar day
    DeferredDirection deferred_direction = DeferredDirection::kNobodyPays;
    std::int64_t smallest_order = 1;
    std::int64_t largest_order = 0;
    std::vector<SessionSpan> sessions;  ///< rising

    bool IsSpot() const { return market == "GT-S"; }
};

/// The terms of all contracts, dated.
class TermsTable {
public:
    /// Reads `contract_terms.json` (UTF-8). On a fault the table stays as it was and the answer
    /// says, in one line of UTF-8, what is wrong and where; empty on success.
    std::string Parse(std::string_view json);

    /// Adds a row; one of the same contract and day is replaced.
    void Add(ContractTerms row);

    /// In force on a day: the newest row that is not later, else the oldest one. Null for a
    /// contract that is not in the table; stays valid as long as the table.
    const ContractTerms* Find(std::string_view contract, Day day) const;

    /// Names of the contracts, in the order of the file.
    const std::vector<std::string>& Contracts() const { return contracts_; }

private:
    std::vector<std::string> contracts_;
    std::map<std::string, std::vector<ContractTerms>, std::less<>> rows_;
};

}  // namespace papercore
