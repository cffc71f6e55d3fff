#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "papercore/engine.h"

namespace papercore_tests {

/// An account that always has 1,000 working orders around the market and 100 watched lots. Told
/// quotes, it trades without any luck of its own: the same quotes give the same account.
class Crowd {
public:
    explicit Crowd(const papercore::ContractTerms& terms);

    void OnQuote(const papercore::Quote& quote);
    void OnDayEnd(const papercore::DayEnd& end);

    struct Counts {
        std::int64_t quotes = 0;
        std::int64_t fills = 0;
        std::int64_t stops = 0;  ///< that fired
        std::int64_t days = 0;
        std::int64_t crowded = 0;  ///< quotes that met all orders and all watched lots
        friend bool operator==(const Counts&, const Counts&) = default;
    };
    const Counts& Result() const { return counts_; }
    /// Of all facts in their order, so that two runs that differ anywhere differ here.
    std::uint64_t Digest() const { return digest_; }
    /// Empty, or what the first broken sum was.
    const std::string& Broken() const { return broken_; }

private:
    void Refill(const papercore::Quote& quote);
    void Insert(const papercore::Quote& quote);
    void Protect();
    void Note();
    void EnterFill(const papercore::OrderFilled& filled);
    void Enter(const papercore::Fact& fact);
    void Mix(std::int64_t value);

    papercore::TermsTable terms_;
    papercore::ContractTerms row_;
    papercore::Engine engine_;
    std::set<papercore::OrderId> working_;
    std::set<papercore::LotId> watched_;
    std::set<papercore::LotId> bare_;  ///< lots without a strategy
    Counts counts_;
    std::uint64_t digest_ = 14695981039346656037U;
    std::string broken_;
    int next_ = 0;
};

}  // namespace papercore_tests
