#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "papercore/quote.h"
#include "papercore/state.h"

namespace papercore {

/// What becomes of resting orders when the size at their price shrinks without a trade.
enum class ShrinkRule : std::uint8_t { kNone, kProRata, kAll };

/// A fill that the market would have given.
struct Fill {
    OrderId order = 0;
    Price price = 0;
    std::int64_t volume = 0;
};

/// Matches the account's orders against what the market shows. Keeps, per contract, the last
/// quote, what the account took from each displayed level, and the queue ahead of each resting
/// order. It knows no money: it says what fills, the engine books it. Own orders never trade with
/// each other. Nothing of it is stored: after a restart orders queue behind the first quote's size.
class Matcher {
public:
    explicit Matcher(ShrinkRule rule);
    ~Matcher();

    /// An order arrives. What it takes at once is answered in order of price; the rest rests if
    /// its kind rests (`limit` above 0 and a limit kind), else the caller ends it. A fill-or-kill
    /// that can't be filled whole takes nothing. An order that rests already comes anew.
    std::vector<Fill> Add(const Order& order);

    /// Takes an order out: filled, cancelled. An unknown one is no matter.
    void Remove(const std::string& contract, OrderId order);

    /// The fills of resting orders that an update causes, price first, then time of arrival.
    /// An update that changes nothing for any order costs no more than a look at its levels.
    /// Orders filled whole are out of the matcher afterwards.
    std::vector<Fill> OnQuote(const Quote& quote);

    /// Null before the first update of a contract.
    const Quote* LastQuote(const std::string& contract) const;

    /// Size of the book ahead of a resting order; -1 for one that isn't resting, or that waits
    /// where the market hasn't shown anything yet.
    std::int64_t QueueAhead(OrderId order) const;

private:
    struct Books;
    std::unique_ptr<Books> books_;
};

}  // namespace papercore
