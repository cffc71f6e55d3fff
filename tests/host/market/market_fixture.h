#pragma once

#include <cstdlib>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/market/civil_time.h"
#include "host/market/market.h"
#include "papercore/contract_terms.h"

// What several tests of the market need.

namespace market {

inline constexpr const char* kGold = "Au(T+D)";
inline constexpr papercore::Instant kSecond = 1000;

/// Terms with an auction, a night and a day.
inline papercore::ContractTerms TermsOf(const std::string& name) {
    papercore::ContractTerms terms;
    terms.contract = name;
    terms.unit = 1000;
    terms.tick = 100;
    terms.digits = 2;
    terms.limit = 150'000;
    terms.sessions = {{1190, 1200, papercore::PhaseKind::kAuction},
                      {1200, 1590, papercore::PhaseKind::kContinuous},
                      {1980, 2370, papercore::PhaseKind::kContinuous}};
    return terms;
}

inline papercore::TermsTable TableOf(const std::vector<std::string>& names) {
    papercore::TermsTable table;
    for (const std::string& name : names) table.Add(TermsOf(name));
    return table;
}

/// One quote a beat, whose trade volume is its number, from 1.
class Metronome : public Source {
public:
    Metronome(papercore::Instant start, papercore::Instant beat, int beats)
        : start_(start), beat_(beat), beats_(beats) {}
    std::optional<Event> Next() override {
        if (told_ == beats_) return std::nullopt;
        papercore::Quote quote;
        quote.contract = kGold;
        quote.trade_price = quote.last = 100;
        quote.trade_volume = ++told_;
        quote.time = start_ + told_ * beat_;
        quote.trading_day = TradingDayOf(quote.time);
        return quote;
    }
    papercore::Instant Start() const override { return start_; }

private:
    papercore::Instant start_;
    papercore::Instant beat_;
    int beats_;
    int told_ = 0;
};

/// A test's usual number of rounds, or the variable's.
inline int Rounds(const char* variable, int usual) {
    const char* value = std::getenv(variable);
    return value ? std::atoi(value) : usual;
}

}  // namespace market
