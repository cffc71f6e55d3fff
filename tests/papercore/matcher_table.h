#pragma once

#include <memory>
#include <string>
#include <vector>

#include "papercore/matcher.h"
#include "tests/papercore/quote_maker.h"

namespace papercore_tests {

/// A matcher and the orders of one contract, asked and answered in words: fills read as
/// "1: 3@300.00", several with ", " between.
class MatcherTable {
public:
    explicit MatcherTable(papercore::ShrinkRule rule = papercore::ShrinkRule::kProRata)
        : matcher_(rule) {}

    /// Orders are numbered from 1.
    std::string Buy(std::int64_t volume, double limit,
                    papercore::OrderKind kind = papercore::OrderKind::kLimit) {
        return Add(papercore::Side::kBuy, volume, limit, kind);
    }
    std::string Sell(std::int64_t volume, double limit,
                     papercore::OrderKind kind = papercore::OrderKind::kLimit) {
        return Add(papercore::Side::kSell, volume, limit, kind);
    }
    std::string Show(const papercore::Quote& quote) { return Words(matcher_.OnQuote(quote)); }
    void Cancel(papercore::OrderId order) { matcher_.Remove("Au(T+D)", order); }
    std::int64_t Ahead(papercore::OrderId order) const { return matcher_.QueueAhead(order); }

    static std::string Words(const std::vector<papercore::Fill>& fills);

private:
    std::string Add(papercore::Side side, std::int64_t volume, double limit,
                    papercore::OrderKind kind);

    papercore::Matcher matcher_;
    papercore::OrderId last_ = 0;
};

}  // namespace papercore_tests
