#include "host/market/made_up.h"

#include <algorithm>

namespace market {
namespace {

using papercore::Level;
using papercore::Price;

constexpr std::size_t kKept = 8;
constexpr int kMostJoining = 40;
constexpr std::int64_t kLargest = 60;
constexpr int kLargestChange = 8;

}  // namespace

double Random::Uniform() {
    state_ += 0x9E3779B97F4A7C15ULL;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    mixed ^= mixed >> 31;
    return static_cast<double>(mixed >> 11) / 9007199254740992.0;
}

double Random::Bell() {
    double sum = 0;
    for (int part = 0; part < 4; ++part) sum += Uniform();
    return (sum - 2) * 1.7320508;
}

int Random::Whole(int least, int most) {
    return least + static_cast<int>(Uniform() * (most - least + 1));
}

void MadeBook::Clear() {
    bids_.clear();
    asks_.clear();
}

void MadeBook::Follow(const Prices& prices, Random& random) {
    const Price tick = prices.tick;
    const bool locked = prices.middle <= prices.lower_limit;
    const Price lowest = locked ? prices.middle + 1 : std::max<Price>(prices.lower_limit, 1);
    Join(bids_, prices.middle, -tick, lowest, random);
    Join(asks_, prices.middle + tick, tick, prices.upper_limit, random);
    for (int changes = random.Whole(1, 2); changes > 0; --changes) {
        ChangeSize(random.Uniform() < 0.5 ? bids_ : asks_, random);
    }
}

/// What is better than `best` is gone; newcomers fill the way there and behind the last level.
void MadeBook::Join(Levels& levels, Price best, Price away, Price last, Random& random) {
    const auto worse = [away](Price price, Price than) {
        return away > 0 ? price > than : price < than;
    };
    const auto stays = [&](const Level& level) {
        return !worse(best, level.price) && !worse(level.price, last);
    };
    levels.erase(levels.begin(), std::find_if(levels.begin(), levels.end(), stays));
    Price price = best + away * random.Whole(0, 1);
    if (worse(price, last)) price = best;
    Levels joined;
    while (joined.size() < kKept && !worse(price, last) &&
           (levels.empty() || worse(levels.front().price, price))) {
        joined.push_back({price, random.Whole(1, kMostJoining)});
        price += away * random.Whole(1, 2);
    }
    levels.insert(levels.begin(), joined.begin(), joined.end());
    levels.resize(std::min(levels.size(), kKept));
    while (!levels.empty() && levels.size() < kKept) {
        price = levels.back().price + away * random.Whole(1, 2);
        if (worse(price, last)) break;
        levels.push_back({price, random.Whole(1, kMostJoining)});
    }
}

void MadeBook::ChangeSize(Levels& levels, Random& random) {
    const int at = random.Whole(0, papercore::kLevels - 1);
    const int change = random.Whole(-kLargestChange, kLargestChange);
    if (static_cast<std::size_t>(at) >= levels.size()) return;
    std::int64_t& size = levels[static_cast<std::size_t>(at)].volume;
    size = std::clamp<std::int64_t>(size + change, 1, kLargest);
}

Level MadeBook::Take(papercore::Side from, std::int64_t volume) {
    Levels& levels = from == papercore::Side::kBuy ? bids_ : asks_;
    if (levels.empty()) return {};
    Level& best = levels.front();
    const Level taken{best.price, std::min(best.volume, volume)};
    best.volume -= taken.volume;
    if (best.volume == 0) levels.erase(levels.begin());
    return taken;
}

void MadeBook::Show(papercore::Quote& quote) const {
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        quote.bid[level] = level < bids_.size() ? bids_[level] : Level{};
        quote.ask[level] = level < asks_.size() ? asks_[level] : Level{};
    }
}

}  // namespace market
