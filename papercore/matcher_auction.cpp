#include <algorithm>

#include "papercore/auction.h"
#include "papercore/matcher_book.h"

// A book that leaves an auction.

namespace papercore {
namespace {

void AddLevels(const ShownSide& side, Side of, std::vector<Interest>& interests) {
    for (int i = 0; i < side.Count(); ++i) {
        interests.push_back({of, side.PriceAt(i), side.VolumeAt(i), 0});
    }
}

void AddOrders(const Ladder& ladder, Side side, std::vector<Interest>& interests) {
    for (const auto& [key, queue] : ladder.All()) {
        for (const Resting& order : queue) {
            interests.push_back({side, ladder.PriceOf(key), order.remaining, order.id});
        }
    }
}

}  // namespace

/// The market's interest is what its last update of the auction showed; where auctions are not
/// shown, the opening trade.
std::vector<Interest> Book::Interests(const Quote& quote) const {
    Sides sides;
    sides.bids.Show(auction_.bid, Side::kBuy, auction_.lower_limit, auction_.upper_limit);
    sides.asks.Show(auction_.ask, Side::kSell, auction_.lower_limit, auction_.upper_limit);
    std::vector<Interest> interests;
    AddLevels(sides.bids, Side::kBuy, interests);
    AddLevels(sides.asks, Side::kSell, interests);
    if (interests.empty() && quote.trade_volume > 0 && quote.trade_price > 0) {
        const std::int64_t volume = std::min(quote.trade_volume, kMostVolume);
        interests.push_back({Side::kBuy, quote.trade_price, volume, 0});
        interests.push_back({Side::kSell, quote.trade_price, volume, 0});
    }
    AddOrders(buys_, Side::kBuy, interests);
    AddOrders(sells_, Side::kSell, interests);
    return interests;
}

void Book::LeaveAuction(const Quote& quote, std::vector<Fill>& fills) {
    const Price reference =
        quote.previous_close > 0 ? quote.previous_close : quote.previous_settlement;
    Settle(Uncross(Interests(quote), reference).fills, fills);
    Show(quote);
    for (const Side side : {Side::kBuy, Side::kSell}) Arrive(side, fills);
}

void Book::Settle(const std::vector<Fill>& traded, std::vector<Fill>& fills) {
    for (const Fill& fill : traded) {
        const Place place = places_.at(fill.order);
        Ladder& ladder = Orders(place.side);
        const auto queue = ladder.All().find(ladder.Key(place.limit));
        for (Resting& order : queue->second) {
            if (order.id == fill.order) Give(order, fill.price, fill.volume, fills);
        }
        Sweep(place.side, queue);
    }
}

/// What an auction has left goes on as if it came with the first continuous update.
void Book::Arrive(Side side, std::vector<Fill>& fills) {
    Ladder& ladder = Orders(side);
    auto queue = ladder.All().begin();
    while (queue != ladder.All().end()) {
        const Price limit = ladder.PriceOf(queue->first);
        for (Resting& order : queue->second) {
            order.remaining -= Walk(side, limit, order.remaining, order.id, &fills);
            order.placed = false;
            Join(order, Own(side).SizeAt(limit));
        }
        queue = Sweep(side, queue);
    }
}

}  // namespace papercore
