#include "tests/papercore/slow_matcher.h"

#include <algorithm>

namespace papercore_tests {

using papercore::Fill;
using papercore::Level;
using papercore::Order;
using papercore::OrderId;
using papercore::OrderKind;
using papercore::Price;
using papercore::Quote;
using papercore::ShrinkRule;
using papercore::Side;

namespace {

constexpr std::int64_t kParts = 1024;

std::int64_t WholeLots(std::int64_t parts) { return (parts + kParts - 1) / kParts; }

}  // namespace

SlowMatcher::Levels SlowMatcher::Shown(const std::array<Level, papercore::kLevels>& levels) {
    Levels shown;
    for (const Level& level : levels) {
        if (level.price > 0 && level.volume > 0) shown[level.price] = level.volume;
    }
    return shown;
}

std::optional<Price> SlowMatcher::BestOf(const Levels& levels, Side side) {
    if (levels.empty()) return std::nullopt;
    return side == Side::kBuy ? levels.rbegin()->first : levels.begin()->first;
}

std::optional<std::int64_t> SlowMatcher::SizeAt(const Levels& levels, Side side, Price price) {
    if (levels.contains(price)) return levels.at(price);
    if (levels.empty()) return 0;
    const Price worst = side == Side::kBuy ? levels.begin()->first : levels.rbegin()->first;
    if (Better(side, worst, price)) return std::nullopt;
    return 0;
}

std::vector<SlowMatcher::Waiting*> SlowMatcher::InTurn(Side side) {
    std::vector<Waiting*> turn;
    for (Waiting& order : waiting_) {
        if (order.side == side) turn.push_back(&order);
    }
    std::stable_sort(turn.begin(), turn.end(), [&](const Waiting* a, const Waiting* b) {
        return Better(side, a->limit, b->limit);
    });
    return turn;
}

std::int64_t SlowMatcher::TakeShown(Side side, Price limit, std::int64_t most, OrderId order,
                                    std::vector<Fill>* fills) {
    const Side against = Opposite(side);
    Levels levels = Of(against);
    Levels& taken = against == Side::kBuy ? taken_bids_ : taken_asks_;
    std::int64_t sum = 0;
    while (const std::optional<Price> best = BestOf(levels, against)) {
        if (Better(side, *best, limit)) break;
        const std::int64_t part = std::min(levels.at(*best) - taken[*best], most - sum);
        if (part > 0) {
            taken[*best] += part;
            sum += part;
            if (fills != nullptr) fills->push_back({order, *best, part});
        }
        levels.erase(*best);
    }
    return sum;
}

std::vector<Fill> SlowMatcher::Add(const Order& order) {
    std::vector<Fill> fills;
    const Price limit = order.limit;
    if (order.kind == OrderKind::kFillOrKill) {
        const Levels bids = taken_bids_;
        const Levels asks = taken_asks_;
        if (TakeShown(order.side, limit, order.volume, order.id, &fills) == order.volume) {
            return fills;
        }
        taken_bids_ = bids;
        taken_asks_ = asks;
        return {};
    }
    const std::int64_t taken = TakeShown(order.side, limit, order.volume, order.id, &fills);
    if (taken == order.volume || order.kind != OrderKind::kLimit) return fills;
    Waiting waiting{order.id, order.side, limit, order.volume - taken, {}};
    if (seen_) {
        const auto size = SizeAt(Of(order.side), order.side, limit);
        if (size) waiting.ahead = *size * kParts;
    }
    waiting_.push_back(waiting);
    return fills;
}

void SlowMatcher::Remove(OrderId order) {
    std::erase_if(waiting_, [order](const Waiting& waiting) { return waiting.id == order; });
}

std::int64_t SlowMatcher::Ahead(OrderId order) const {
    for (const Waiting& waiting : waiting_) {
        if (waiting.id == order) return waiting.ahead ? WholeLots(*waiting.ahead) : -1;
    }
    return -1;
}

void SlowMatcher::TradeSide(Side side, Price price, std::int64_t& volume,
                            std::vector<Fill>& fills) {
    const std::optional<Price> other = BestOf(Of(Opposite(side)), Opposite(side));
    std::int64_t queue_used = 0;
    for (Waiting* order : InTurn(side)) {
        std::int64_t part = 0;
        if (Better(side, order->limit, price)) {
            const bool stands_in_front = other && Better(side, order->limit, *other);
            part = stands_in_front ? std::min(volume, order->left) : order->left;
        } else if (order->limit == price && order->ahead) {
            const std::int64_t before_it =
                std::max<std::int64_t>(WholeLots(*order->ahead) - queue_used, 0);
            const std::int64_t used = std::min(before_it, volume);
            queue_used += used;
            volume -= used;
            part = std::min(volume, order->left);
        }
        if (part == 0) continue;
        fills.push_back({order->id, order->limit, part});
        order->left -= part;
        order->ahead = 0;
        volume = std::max<std::int64_t>(volume - part, 0);
    }
    for (Waiting* order : InTurn(side)) {
        if (order->limit != price || !order->ahead) continue;
        order->ahead = std::max<std::int64_t>(*order->ahead - queue_used * kParts, 0);
    }
    std::erase_if(waiting_, [](const Waiting& order) { return order.left == 0; });
}

void SlowMatcher::Trade(const Quote& quote, std::vector<Fill>& fills) {
    std::int64_t volume = quote.trade_volume;
    TradeSide(Side::kBuy, quote.trade_price, volume, fills);
    TradeSide(Side::kSell, quote.trade_price, volume, fills);
    taken_bids_.erase(quote.trade_price);
    taken_asks_.erase(quote.trade_price);
    if (credit_price_ != quote.trade_price) credit_ = 0;
    credit_price_ = quote.trade_price;
    credit_ += quote.trade_volume;
}

void SlowMatcher::Shrink(Side side, const Levels& before) {
    Levels prices = before;
    prices.insert(Of(side).begin(), Of(side).end());
    for (const Waiting& order : waiting_) prices.insert({order.limit, 0});
    for (const auto& [price, unused] : prices) {
        const auto now = SizeAt(Of(side), side, price);
        if (!now) continue;
        const std::int64_t was = SizeAt(before, side, price).value_or(*now);
        std::int64_t gone = std::max<std::int64_t>(was - *now, 0);
        if (price == credit_price_) {
            const std::int64_t traded = std::min(gone, credit_);
            gone -= traded;
            credit_ = *now > was ? 0 : credit_ - traded;
        }
        for (Waiting& order : waiting_) {
            if (order.side != side || order.limit != price) continue;
            std::int64_t ahead = order.ahead.value_or(*now * kParts);
            if (order.ahead && gone > 0 && rule_ == ShrinkRule::kProRata) {
                ahead -= ahead / (*now + gone) * gone;
                ahead -= *order.ahead % (*now + gone) * gone / (*now + gone);
            }
            if (order.ahead && gone > 0 && rule_ == ShrinkRule::kAll) ahead -= gone * kParts;
            order.ahead = std::clamp<std::int64_t>(ahead, 0, *now * kParts);
        }
    }
}

void SlowMatcher::Meet(Side side, const Levels& others_before, std::vector<Fill>& fills) {
    const Side against = Opposite(side);
    for (Waiting* order : InTurn(side)) {
        const auto now = BestOf(Of(against), against);
        if (!now || Better(side, *now, order->limit)) continue;
        const auto before = BestOf(others_before, against);
        const bool stood_in_front = before && Better(side, order->limit, *before);
        const bool through = Better(side, order->limit, *now) && !stood_in_front;
        const std::int64_t shown = TakeShown(side, order->limit, order->left, order->id, nullptr);
        const std::int64_t part = through ? order->left : shown;
        if (part == 0) continue;
        fills.push_back({order->id, order->limit, part});
        order->left -= part;
        order->ahead = 0;
    }
    std::erase_if(waiting_, [](const Waiting& order) { return order.left == 0; });
}

std::vector<Fill> SlowMatcher::OnQuote(const Quote& quote) {
    std::vector<Fill> fills;
    if (quote.trade_volume > 0) Trade(quote, fills);
    const Levels bids = bids_;
    const Levels asks = asks_;
    bids_ = Shown(quote.bid);
    asks_ = Shown(quote.ask);
    std::erase_if(taken_bids_, [&](const auto& taken) {
        return !bids.contains(taken.first) || !bids_.contains(taken.first) ||
               bids.at(taken.first) != bids_.at(taken.first);
    });
    std::erase_if(taken_asks_, [&](const auto& taken) {
        return !asks.contains(taken.first) || !asks_.contains(taken.first) ||
               asks.at(taken.first) != asks_.at(taken.first);
    });
    seen_ = true;
    for (const Side side : {Side::kBuy, Side::kSell}) {
        Shrink(side, side == Side::kBuy ? bids : asks);
        Meet(side, side == Side::kBuy ? asks : bids, fills);
    }
    return fills;
}

}  // namespace papercore_tests
