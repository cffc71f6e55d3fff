#pragma once

#include <map>
#include <optional>
#include <vector>

#include "papercore/matcher.h"

namespace papercore_tests {

/// The rules of matching in their plainest form: one list of orders, every one of them looked at
/// with every update. Continuous trading only.
class SlowMatcher {
public:
    explicit SlowMatcher(papercore::ShrinkRule rule) : rule_(rule) {}

    std::vector<papercore::Fill> Add(const papercore::Order& order);
    void Remove(papercore::OrderId order);
    std::vector<papercore::Fill> OnQuote(const papercore::Quote& quote);
    std::int64_t Ahead(papercore::OrderId order) const;

private:
    using Levels = std::map<papercore::Price, std::int64_t>;
    struct Waiting {
        papercore::OrderId id = 0;
        papercore::Side side = papercore::Side::kBuy;
        papercore::Price limit = 0;
        std::int64_t left = 0;
        std::optional<std::int64_t> ahead;  ///< in 1,024ths of a lot
    };

    static bool Better(papercore::Side side, papercore::Price a, papercore::Price b) {
        return side == papercore::Side::kBuy ? a > b : a < b;
    }
    const Levels& Of(papercore::Side side) const {
        return side == papercore::Side::kBuy ? bids_ : asks_;
    }
    static std::optional<papercore::Price> BestOf(const Levels& levels, papercore::Side side);
    static std::optional<std::int64_t> SizeAt(const Levels& levels, papercore::Side side,
                                              papercore::Price price);
    std::vector<Waiting*> InTurn(papercore::Side side);
    std::int64_t TakeShown(papercore::Side side, papercore::Price limit, std::int64_t most,
                           papercore::OrderId order, std::vector<papercore::Fill>* fills);
    void Trade(const papercore::Quote& quote, std::vector<papercore::Fill>& fills);
    void TradeSide(papercore::Side side, papercore::Price price, std::int64_t& volume,
                   std::vector<papercore::Fill>& fills);
    void Shrink(papercore::Side side, const Levels& before);
    void Meet(papercore::Side side, const Levels& others_before,
              std::vector<papercore::Fill>& fills);
    static Levels Shown(const std::array<papercore::Level, papercore::kLevels>& levels);

    papercore::ShrinkRule rule_;
    std::vector<Waiting> waiting_;
    Levels bids_;
    Levels asks_;
    Levels taken_bids_;
    Levels taken_asks_;
    bool seen_ = false;
    papercore::Price credit_price_ = 0;
    std::int64_t credit_ = 0;
};

}  // namespace papercore_tests
