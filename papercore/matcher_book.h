#pragma once

#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

#include "papercore/auction.h"

namespace papercore {

/// More lots than this are read as this many.
inline constexpr std::int64_t kMostVolume = 0x7FFFFFFF;

/// Shares of a lot in which the queue ahead is counted, so that many small shrinks add up.
inline constexpr std::int64_t kParts = 1024;

/// What one side of the market shows, and what the account has taken of it.
class ShownSide {
public:
    /// Keeps the levels that can be traded at: a price inside the limits that is worse than the
    /// one before it, and a size. A level that shows the same size as before stays as far taken
    /// as it was.
    void Show(const std::array<Level, kLevels>& levels, Side side, Price lower, Price upper);
    void Clear() { count_ = 0; }

    /// A trade printed at a price: whatever stands there now is new.
    void Forget(Price price);

    bool IsEmpty() const { return count_ == 0; }
    int Count() const { return count_; }
    Price PriceAt(int level) const { return levels_[Index(level)].price; }
    std::int64_t VolumeAt(int level) const { return levels_[Index(level)].volume; }
    std::int64_t LeftAt(int level) const { return VolumeAt(level) - taken_[Index(level)]; }
    void Take(int level, std::int64_t volume) { taken_[Index(level)] += volume; }
    Price Best() const { return levels_[0].price; }
    Price Worst() const { return levels_[Index(count_ - 1)].price; }

    /// Size at a price: 0 between levels, on an empty side and before its best price; nothing is
    /// known of prices behind the last level.
    std::optional<std::int64_t> SizeAt(Price price) const;

    /// Worse for those who would trade against this side.
    bool IsBehind(Price price, Price other) const {
        return descending_ ? price < other : price > other;
    }

private:
    std::int64_t TakenOf(const Level& level, int likely) const;
    static std::size_t Index(int level) { return static_cast<std::size_t>(level); }
    std::array<Level, kLevels> levels_;
    std::array<std::int64_t, kLevels> taken_{};
    int count_ = 0;
    bool descending_ = false;  ///< bids
};

/// An order that waits, at one price.
struct Resting {
    OrderId id = 0;
    std::int64_t remaining = 0;
    std::int64_t ahead = 0;  ///< parts of a lot, see kParts
    bool placed = false;     ///< the size ahead is known
};

/// The account's orders of one side, by price. The key is smaller for the better price on both
/// sides, so that one code serves both.
class Ladder {
public:
    explicit Ladder(Side side) : sign_(side == Side::kBuy ? -1 : 1) {}

    /// Orders of one price, the first to come first.
    using Queue = std::vector<Resting>;
    using Queues = std::map<Price, Queue>;

    Price Key(Price price) const { return sign_ * price; }
    Price PriceOf(Price key) const { return sign_ * key; }
    Queues& All() { return queues_; }
    const Queues& All() const { return queues_; }

private:
    Price sign_;
    Queues queues_;
};

/// One contract: the last quote, what was taken of it, and the orders that wait.
class Book {
public:
    explicit Book(ShrinkRule rule) : rule_(rule) {}

    /// What an order takes at once, best price first. `left` is what remains of it.
    std::vector<Fill> Take(const Order& order, std::int64_t& left);
    void Rest(Side side, Price limit, OrderId order, std::int64_t volume);
    void Remove(OrderId order);
    void OnQuote(const Quote& quote, std::vector<Fill>& fills);

    const Quote* Last() const { return seen_ ? &last_ : nullptr; }
    /// -1: not known.
    std::int64_t QueueAhead(OrderId order) const;

private:
    struct Place {
        Side side = Side::kBuy;
        Price limit = 0;
    };
    struct Sides {
        ShownSide bids;
        ShownSide asks;
        const ShownSide& Own(Side side) const { return side == Side::kBuy ? bids : asks; }
        ShownSide& Own(Side side) { return side == Side::kBuy ? bids : asks; }
    };

    /// What the market shows of orders like those of a side, and of those against them.
    ShownSide& Own(Side side) { return shown_.Own(side); }
    ShownSide& Other(Side side) { return shown_.Own(Opposite(side)); }
    Ladder& Orders(Side side) { return side == Side::kBuy ? buys_ : sells_; }

    std::int64_t Walk(Side side, Price limit, std::int64_t volume, OrderId order,
                      std::vector<Fill>* fills);
    std::int64_t LeftUpTo(Side side, Price limit);
    void Show(const Quote& quote);
    void StartAnew();
    static void Join(Resting& order, std::optional<std::int64_t> size);
    void Give(Resting& order, Price price, std::int64_t volume, std::vector<Fill>& fills);
    Ladder::Queues::iterator Sweep(Side side, Ladder::Queues::iterator queue);

    void OnContinuous(const Quote& quote, std::vector<Fill>& fills);
    void LeaveAuction(const Quote& quote, std::vector<Fill>& fills);
    std::vector<Interest> Interests(const Quote& quote) const;
    void Settle(const std::vector<Fill>& traded, std::vector<Fill>& fills);
    void Arrive(Side side, std::vector<Fill>& fills);

    void OnTrade(const Quote& quote, std::vector<Fill>& fills);
    void TradeThrough(Side side, Price price, std::int64_t& volume, std::vector<Fill>& fills);
    void TradeAt(Side side, Price price, std::int64_t& volume, std::vector<Fill>& fills);

    void MoveQueues(Side side, const ShownSide& before);
    void MoveLevel(Side side, Price price, const ShownSide& before);
    void PlaceUncovered(Side side, const ShownSide& before);
    std::int64_t ShrunkBy(std::int64_t ahead, std::int64_t cancelled, std::int64_t before) const;
    std::int64_t Cancelled(Price price, std::int64_t before, std::int64_t now);
    void MeetQuote(Side side, const ShownSide& before, std::vector<Fill>& fills);

    ShrinkRule rule_;
    Ladder buys_{Side::kBuy};
    Ladder sells_{Side::kSell};
    Sides shown_;
    std::unordered_map<OrderId, Place> places_;
    Quote last_;
    Quote auction_;  ///< the last one of the auction
    bool seen_ = false;
    bool open_ = false;  ///< the shown sides are those of continuous trading
    bool in_auction_ = false;
    Price credit_price_ = 0;          ///< of a trade whose size the book may still have to lose
    std::int64_t credit_volume_ = 0;  ///< of that size
};

}  // namespace papercore
