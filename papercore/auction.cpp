#include "papercore/auction.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <tuple>

namespace papercore {
namespace {

bool Accepts(const Interest& interest, Price price) {
    return interest.side == Side::kBuy ? interest.price >= price : interest.price <= price;
}

struct Volumes {
    std::int64_t buys = 0;
    std::int64_t sells = 0;
    std::int64_t market_buys = 0;
    std::int64_t market_sells = 0;

    /// Own buys need sellers of the market and own sells its buyers, so that no more can trade
    /// than the market has on both sides together.
    std::int64_t Traded() const { return std::min({buys, sells, market_buys + market_sells}); }
    std::int64_t Remainder() const { return std::abs(buys - sells); }
};

Volumes VolumesAt(const std::vector<Interest>& interests, Price price) {
    Volumes volumes;
    for (const Interest& interest : interests) {
        if (!Accepts(interest, price)) continue;
        const bool buys = interest.side == Side::kBuy;
        (buys ? volumes.buys : volumes.sells) += interest.volume;
        if (interest.order != 0) continue;
        (buys ? volumes.market_buys : volumes.market_sells) += interest.volume;
    }
    return volumes;
}

Price BestPrice(const std::vector<Interest>& interests, Price reference) {
    std::set<Price> prices;
    for (const Interest& interest : interests) prices.insert(interest.price);
    using Rank = std::tuple<std::int64_t, std::int64_t, Price, Price>;
    Rank best{};
    Price found = 0;
    for (const Price price : prices) {
        const Volumes volumes = VolumesAt(interests, price);
        if (volumes.Traded() <= 0) continue;
        const Price distance = reference > 0 ? std::abs(price - reference) : 0;
        const Rank rank{-volumes.Traded(), volumes.Remainder(), distance, price};
        if (found != 0 && !(rank < best)) continue;
        best = rank;
        found = price;
    }
    return found;
}

/// The interests of a side that trade at the price, the first to be served first.
std::vector<Interest> Served(const std::vector<Interest>& interests, Side side, Price price) {
    std::vector<Interest> served;
    for (const Interest& interest : interests) {
        if (interest.side == side && Accepts(interest, price)) served.push_back(interest);
    }
    std::stable_sort(served.begin(), served.end(), [side](const Interest& a, const Interest& b) {
        if (a.price != b.price) return side == Side::kBuy ? a.price > b.price : a.price < b.price;
        return a.order == 0 && b.order != 0;
    });
    return served;
}

void Serve(const std::vector<Interest>& served, Price price, std::int64_t volume,
           std::vector<Fill>& fills) {
    for (const Interest& interest : served) {
        const std::int64_t part = std::min(volume, interest.volume);
        if (part <= 0) break;
        volume -= part;
        if (interest.order != 0) fills.push_back({interest.order, price, part});
    }
}

/// Own orders trade with the market only: takes back, from the end, what is more than it has.
void TakeBack(std::vector<Fill>& fills, std::int64_t most) {
    for (Fill& fill : fills) {
        fill.volume = std::min(fill.volume, most);
        most -= fill.volume;
    }
    std::erase_if(fills, [](const Fill& fill) { return fill.volume <= 0; });
}

}  // namespace

AuctionResult Uncross(const std::vector<Interest>& interests, Price reference) {
    AuctionResult result;
    result.price = BestPrice(interests, reference);
    if (result.price == 0) return result;
    const Volumes volumes = VolumesAt(interests, result.price);
    result.volume = volumes.Traded();
    for (const Side side : {Side::kBuy, Side::kSell}) {
        std::vector<Fill> fills;
        Serve(Served(interests, side, result.price), result.price, result.volume, fills);
        TakeBack(fills, side == Side::kBuy ? volumes.market_sells : volumes.market_buys);
        result.fills.insert(result.fills.end(), fills.begin(), fills.end());
    }
    return result;
}

}  // namespace papercore
