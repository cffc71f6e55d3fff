#include "papercore/matcher_book.h"

#include <algorithm>
#include <limits>

namespace papercore {
namespace {

/// Whether one who takes at most (a buyer) or at least (a seller) `limit` trades at `price`.
bool Suits(Side taker, Price price, Price limit) {
    return taker == Side::kBuy ? price <= limit : price >= limit;
}

/// Strictly better than the limit of the taker.
bool Beats(Side taker, Price price, Price limit) {
    return price != limit && Suits(taker, price, limit);
}

Price AnyPrice(Side taker) { return taker == Side::kBuy ? std::numeric_limits<Price>::max() : 1; }

/// Whether what the market showed is already better than a resting order's limit: then the order
/// has taken what there was and stands in front of it.
bool IsCrossed(Side side, const ShownSide& other, Price limit) {
    return !other.IsEmpty() && Beats(side, other.Best(), limit);
}

/// The worst price at which an order trades; 0 for one that has to have a limit and has none.
Price ReachOf(const Order& order) {
    if (order.limit > 0) return order.limit;
    switch (order.kind) {
        case OrderKind::kMarket:
        case OrderKind::kBestFiveOrCancel:
        case OrderKind::kBestFiveThenLimit:
        case OrderKind::kFillAndKill:
        case OrderKind::kFillOrKill: return AnyPrice(order.side);
        default: return 0;
    }
}

}  // namespace

// -- Orders that come and go

std::vector<Fill> Book::Take(const Order& order, std::int64_t& left) {
    std::vector<Fill> fills;
    const Price reach = ReachOf(order);
    if (reach <= 0 || !open_ || last_.phase != MarketPhase::kContinuous) return fills;
    if (order.kind == OrderKind::kFillOrKill && LeftUpTo(order.side, reach) < left) return fills;
    left -= Walk(order.side, reach, left, order.id, &fills);
    return fills;
}

std::int64_t Book::LeftUpTo(Side side, Price limit) {
    const ShownSide& other = Other(side);
    std::int64_t sum = 0;
    for (int i = 0; i < other.Count() && Suits(side, other.PriceAt(i), limit); ++i) {
        sum += std::max<std::int64_t>(other.LeftAt(i), 0);
    }
    return sum;
}

/// Takes what the other side shows up to a price, best first; says in `fills` what came from where.
std::int64_t Book::Walk(Side side, Price limit, std::int64_t volume, OrderId order,
                        std::vector<Fill>* fills) {
    ShownSide& other = Other(side);
    std::int64_t sum = 0;
    for (int i = 0; i < other.Count() && Suits(side, other.PriceAt(i), limit); ++i) {
        const std::int64_t part = std::min(volume - sum, other.LeftAt(i));
        if (part <= 0) continue;
        other.Take(i, part);
        sum += part;
        if (fills != nullptr) fills->push_back({order, other.PriceAt(i), part});
    }
    return sum;
}

void Book::Rest(Side side, Price limit, OrderId order, std::int64_t volume) {
    Resting resting{order, volume, 0, false};
    if (open_) Join(resting, Own(side).SizeAt(limit));
    Ladder& ladder = Orders(side);
    ladder.All()[ladder.Key(limit)].push_back(resting);
    places_[order] = {side, limit};
}

void Book::Join(Resting& order, std::optional<std::int64_t> size) {
    if (!size) return;
    order.ahead = *size * kParts;
    order.placed = true;
}

void Book::Remove(OrderId order) {
    const auto place = places_.find(order);
    if (place == places_.end()) return;
    Ladder& ladder = Orders(place->second.side);
    const auto queue = ladder.All().find(ladder.Key(place->second.limit));
    std::erase_if(queue->second, [order](const Resting& resting) { return resting.id == order; });
    if (queue->second.empty()) ladder.All().erase(queue);
    places_.erase(place);
}

std::int64_t Book::QueueAhead(OrderId order) const {
    const auto place = places_.find(order);
    if (place == places_.end()) return -1;
    const Ladder& ladder = place->second.side == Side::kBuy ? buys_ : sells_;
    for (const Resting& resting : ladder.All().at(ladder.Key(place->second.limit))) {
        if (resting.id != order) continue;
        return resting.placed ? (resting.ahead + kParts - 1) / kParts : -1;
    }
    return -1;
}

void Book::Give(Resting& order, Price price, std::int64_t volume, std::vector<Fill>& fills) {
    if (volume <= 0) return;
    order.remaining -= volume;
    order.ahead = 0;
    order.placed = true;
    fills.push_back({order.id, price, volume});
}

Ladder::Queues::iterator Book::Sweep(Side side, Ladder::Queues::iterator queue) {
    std::erase_if(queue->second, [this](const Resting& order) {
        if (order.remaining > 0) return false;
        places_.erase(order.id);
        return true;
    });
    return queue->second.empty() ? Orders(side).All().erase(queue) : std::next(queue);
}

// -- Updates of the market

void Book::OnQuote(const Quote& quote, std::vector<Fill>& fills) {
    if (seen_ && quote.trading_day != last_.trading_day) StartAnew();
    if (quote.phase == MarketPhase::kAuction) {
        if (!in_auction_) StartAnew();
        in_auction_ = true;
        auction_ = quote;
    } else if (quote.phase == MarketPhase::kContinuous) {
        if (in_auction_) {
            LeaveAuction(quote, fills);
        } else {
            OnContinuous(quote, fills);
        }
        in_auction_ = false;
        open_ = true;
    }
    last_ = quote;
    seen_ = true;
}

/// The book of before tells nothing any more: nothing of it is taken, no place in it is known.
void Book::StartAnew() {
    shown_ = {};
    open_ = false;
    in_auction_ = false;
    credit_volume_ = 0;
    for (Ladder* ladder : {&buys_, &sells_}) {
        for (auto& [key, queue] : ladder->All()) {
            for (Resting& order : queue) order.placed = false;
        }
    }
}

void Book::Show(const Quote& quote) {
    shown_.bids.Show(quote.bid, Side::kBuy, quote.lower_limit, quote.upper_limit);
    shown_.asks.Show(quote.ask, Side::kSell, quote.lower_limit, quote.upper_limit);
}

void Book::OnContinuous(const Quote& quote, std::vector<Fill>& fills) {
    if (quote.trade_volume > 0 && quote.trade_price > 0) OnTrade(quote, fills);
    const Sides before = shown_;
    Show(quote);
    for (const Side side : {Side::kBuy, Side::kSell}) {
        MoveQueues(side, before.Own(side));
        MeetQuote(side, before.Own(Opposite(side)), fills);
    }
}

void Book::OnTrade(const Quote& quote, std::vector<Fill>& fills) {
    const Price price = quote.trade_price;
    const std::int64_t traded = std::min(quote.trade_volume, kMostVolume);
    std::int64_t volume = traded;
    for (const Side side : {Side::kBuy, Side::kSell}) {
        TradeThrough(side, price, volume, fills);
        TradeAt(side, price, volume, fills);
    }
    shown_.bids.Forget(price);
    shown_.asks.Forget(price);
    if (credit_price_ != price) credit_volume_ = 0;
    credit_price_ = price;
    credit_volume_ = std::min(credit_volume_ + traded, kMostVolume);
}

void Book::TradeThrough(Side side, Price price, std::int64_t& volume, std::vector<Fill>& fills) {
    Ladder& ladder = Orders(side);
    auto queue = ladder.All().begin();
    while (queue != ladder.All().end()) {
        const Price limit = ladder.PriceOf(queue->first);
        if (!Beats(side, price, limit)) break;
        const bool capped = IsCrossed(side, Other(side), limit);
        for (Resting& order : queue->second) {
            const std::int64_t part = capped ? std::min(volume, order.remaining) : order.remaining;
            Give(order, limit, part, fills);
            volume = std::max<std::int64_t>(volume - part, 0);
        }
        queue = Sweep(side, queue);
    }
}

void Book::TradeAt(Side side, Price price, std::int64_t& volume, std::vector<Fill>& fills) {
    Ladder& ladder = Orders(side);
    const auto queue = ladder.All().find(ladder.Key(price));
    if (queue == ladder.All().end()) return;
    std::int64_t used = 0;  // of the market's own orders, by this trade
    for (Resting& order : queue->second) {
        if (!order.placed) break;
        const std::int64_t ahead = (order.ahead + kParts - 1) / kParts;
        const std::int64_t passed = std::min(volume, std::max<std::int64_t>(ahead - used, 0));
        used += passed;
        volume -= passed;
        const std::int64_t part = std::min(volume, order.remaining);
        Give(order, price, part, fills);
        volume -= part;
    }
    for (Resting& order : queue->second) {
        order.ahead = std::max<std::int64_t>(order.ahead - used * kParts, 0);
    }
    Sweep(side, queue);
}

// -- Places in the queues

void Book::MoveQueues(Side side, const ShownSide& before) {
    const ShownSide& now = Own(side);
    for (int i = 0; i < now.Count(); ++i) {
        if (i < before.Count() && before.PriceAt(i) == now.PriceAt(i) &&
            before.VolumeAt(i) == now.VolumeAt(i)) {
            continue;
        }
        MoveLevel(side, now.PriceAt(i), before);
    }
    for (int i = 0; i < before.Count(); ++i) {
        if (i < now.Count() && before.PriceAt(i) == now.PriceAt(i)) continue;
        if (now.SizeAt(before.PriceAt(i)) == 0) MoveLevel(side, before.PriceAt(i), before);
    }
    PlaceUncovered(side, before);
}

void Book::MoveLevel(Side side, Price price, const ShownSide& before) {
    const std::int64_t now = *Own(side).SizeAt(price);
    const std::int64_t was = before.SizeAt(price).value_or(now);
    const std::int64_t cancelled = Cancelled(price, was, now);
    Ladder& ladder = Orders(side);
    const auto queue = ladder.All().find(ladder.Key(price));
    if (queue == ladder.All().end()) return;
    for (Resting& order : queue->second) {
        if (!order.placed) {
            Join(order, now);
            continue;
        }
        order.ahead = ShrunkBy(order.ahead, cancelled, now + cancelled);
        order.ahead = std::min(order.ahead, now * kParts);
    }
}

/// What went from a level without being traded. The size of a trade may leave the book in a later
/// update than the trade's own: it is not counted twice.
std::int64_t Book::Cancelled(Price price, std::int64_t before, std::int64_t now) {
    const bool traded = price == credit_price_ && credit_volume_ > 0;
    if (now >= before) {
        if (traded && now > before) credit_volume_ = 0;
        return 0;
    }
    if (!traded) return before - now;
    const std::int64_t used = std::min(credit_volume_, before - now);
    credit_volume_ -= used;
    return before - now - used;
}

std::int64_t Book::ShrunkBy(std::int64_t ahead, std::int64_t cancelled, std::int64_t before) const {
    if (cancelled <= 0) return ahead;
    switch (rule_) {
        case ShrinkRule::kNone: return ahead;
        case ShrinkRule::kProRata:
            // ahead * cancelled / before, in two steps that can't overflow
            return ahead - ahead / before * cancelled - ahead % before * cancelled / before;
        case ShrinkRule::kAll: return std::max<std::int64_t>(ahead - cancelled * kParts, 0);
    }
    return ahead;
}

/// Orders behind the last level learn their place when the market shows deeper ones: no more can be
/// ahead than is shown, and at a price between levels nobody is.
void Book::PlaceUncovered(Side side, const ShownSide& before) {
    const ShownSide& now = Own(side);
    Ladder& ladder = Orders(side);
    auto queue = ladder.All().begin();
    if (open_) {
        if (before.IsEmpty()) return;
        if (!now.IsEmpty() && !now.IsBehind(now.Worst(), before.Worst())) return;
        queue = ladder.All().upper_bound(ladder.Key(before.Worst()));
    }
    for (; queue != ladder.All().end(); ++queue) {
        const std::optional<std::int64_t> size = now.SizeAt(ladder.PriceOf(queue->first));
        if (!size) break;
        for (Resting& order : queue->second) {
            if (!order.placed) Join(order, size);
            order.ahead = std::min(order.ahead, *size * kParts);
        }
    }
}

// -- Resting orders that the quote meets

/// Orders that the market has come to trade at their own price: whole where it has gone through
/// the price, else by what is shown and not taken yet.
void Book::MeetQuote(Side side, const ShownSide& before, std::vector<Fill>& fills) {
    const ShownSide& other = Other(side);
    if (other.IsEmpty()) return;
    Ladder& ladder = Orders(side);
    auto queue = ladder.All().begin();
    while (queue != ladder.All().end()) {
        const Price limit = ladder.PriceOf(queue->first);
        if (!Suits(side, other.Best(), limit)) break;
        const bool whole = Beats(side, other.Best(), limit) && !IsCrossed(side, before, limit);
        for (Resting& order : queue->second) {
            const std::int64_t shown = Walk(side, limit, order.remaining, order.id, nullptr);
            Give(order, limit, whole ? order.remaining : shown, fills);
        }
        queue = Sweep(side, queue);
    }
}

}  // namespace papercore
