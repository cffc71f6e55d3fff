#include "papercore/stops.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "papercore/watched_lot.h"

namespace papercore {
namespace {

constexpr int kMostUpdates = 1'000'000;
constexpr int kMostTicks = 1'000'000;
constexpr int kLastRow = 4;

int RowOf(std::uint8_t row, int otherwise) { return row <= kLastRow ? row : otherwise; }

/// Prices that the market shows to the lots of one side, in their favour.
struct Seen {
    Price stop_price = 0;
    Price profit_price = 0;
    Favour stop = kNotShown;
    Favour profit = kNotShown;
};

Favour FavourOf(Price price, Side held) {
    if (price <= 0) return kNotShown;
    return held == Side::kBuy ? price : -price;
}

Seen Look(const Quote& quote, const StopSettings& settings, Side held) {
    Seen seen;
    seen.stop_price = ListedPrice(quote, settings.stop_watch, Opposite(held));
    seen.profit_price = ListedPrice(quote, settings.profit_watch, Opposite(held));
    seen.stop = FavourOf(seen.stop_price, held);
    seen.profit = FavourOf(seen.profit_price, held);
    return seen;
}

bool IsStop(StopRule rule) {
    return rule == StopRule::kRelativeStop || rule == StopRule::kAbsoluteStop;
}

bool CountsAlike(const StopSettings& a, const StopSettings& b) {
    return a.stop_count == b.stop_count && a.profit_count == b.profit_count &&
           a.stop_watch == b.stop_watch && a.profit_watch == b.profit_watch;
}

/// The lots of one side of a contract.
class Flock {
public:
    void Set(const WatchedLot& lot) {
        const auto place = Find(lot.Id());
        if (place != lots_.end() && place->Id() == lot.Id()) {
            *place = lot;
        } else {
            lots_.insert(place, lot);
        }
        stale_ = true;
    }

    void Remove(LotId lot) {
        const auto place = Find(lot);
        if (place == lots_.end() || place->Id() != lot) return;
        lots_.erase(place);
        stale_ = true;
    }

    /// Asks no lot while the prices are between those at which something happens to one of them.
    void OnQuote(const Seen& seen, const StopSettings& settings, std::vector<StopFire>& fires,
                 std::vector<BaseMove>& moves) {
        if (lots_.empty()) return;
        if (!stale_ && CountsAlike(settings, settings_) && calm_.Holds(seen.stop, seen.profit)) {
            return;
        }
        for (WatchedLot& lot : lots_) {
            if (lot.Follow(seen.stop, seen.profit)) moves.push_back({lot.Id(), lot.Base()});
            const std::optional<StopRule> rule =
                lot.Count(seen.stop, seen.profit, settings.stop_count, settings.profit_count);
            if (!rule) continue;
            fires.push_back({lot.Id(), *rule, IsStop(*rule) ? seen.stop_price : seen.profit_price});
        }
        settings_ = settings;
        Settle();
    }

private:
    std::vector<WatchedLot>::iterator Find(LotId lot) {
        return std::lower_bound(
            lots_.begin(), lots_.end(), lot,
            [](const WatchedLot& watched, LotId id) { return watched.Id() < id; });
    }

    /// A lot that counts updates has to see every one of them.
    void Settle() {
        calm_ = {};
        stale_ = false;
        for (const WatchedLot& lot : lots_) {
            calm_.Narrow(lot.Quiet());
            stale_ = stale_ || lot.IsCounting();
        }
    }

    std::vector<WatchedLot> lots_;  ///< by number
    Calm calm_;
    StopSettings settings_;
    bool stale_ = true;
};

struct Flocks {
    Flock longs;
    Flock shorts;
};

}  // namespace

StopSettings ReadStopSettings(const CTradeParam& param) {
    StopSettings settings;
    settings.stop_count = std::clamp<int>(param.nStopTicks, 1, kMostUpdates);
    settings.profit_count = std::clamp<int>(param.nProfitTicks, 1, kMostUpdates);
    settings.stop_watch = RowOf(param.nStopTriggerPrice, 1);
    settings.profit_watch = RowOf(param.nProfitTriggerPrice, 1);
    settings.stop_order = RowOf(param.nStopOrderPrice, 0);
    settings.profit_order = RowOf(param.nProfitOrderPrice, 0);
    settings.stop_adjust = std::clamp<int>(param.nStopAdjust, -kMostTicks, kMostTicks);
    settings.profit_adjust = std::clamp<int>(param.nProfitAdjust, -kMostTicks, kMostTicks);
    settings.chase = param.bAutoChase != 0;
    settings.for_good = param.nValidity != 0;
    return settings;
}

struct StopWatch::Watches {
    std::map<std::string, Flocks, std::less<>> by_contract;
    std::unordered_map<LotId, Flock*> by_lot;
};

StopWatch::StopWatch() : watches_(std::make_unique<Watches>()) {}

StopWatch::~StopWatch() = default;

void StopWatch::Set(const Lot& lot, Price tick) {
    Remove(lot.id);
    if (!lot.has_stop || lot.stop.asleep || lot.stop.triggered) return;
    Flocks& flocks = watches_->by_contract[lot.contract];
    Flock& flock = lot.side == Side::kBuy ? flocks.longs : flocks.shorts;
    flock.Set(WatchedLot(lot, tick));
    watches_->by_lot[lot.id] = &flock;
}

void StopWatch::Remove(LotId lot) {
    const auto found = watches_->by_lot.find(lot);
    if (found == watches_->by_lot.end()) return;
    found->second->Remove(lot);
    watches_->by_lot.erase(found);
}

void StopWatch::Clear() {
    watches_->by_lot.clear();
    watches_->by_contract.clear();
}

void StopWatch::OnQuote(const Quote& quote, const StopSettings& settings,
                        std::vector<StopFire>& fires, std::vector<BaseMove>& moves) {
    if (quote.phase != MarketPhase::kContinuous) return;
    const auto found = watches_->by_contract.find(quote.contract);
    if (found == watches_->by_contract.end()) return;
    const std::size_t first = fires.size();
    found->second.longs.OnQuote(Look(quote, settings, Side::kBuy), settings, fires, moves);
    found->second.shorts.OnQuote(Look(quote, settings, Side::kSell), settings, fires, moves);
    const auto begin = fires.begin() + static_cast<std::ptrdiff_t>(first);
    std::sort(begin, fires.end(),
              [](const StopFire& a, const StopFire& b) { return a.lot < b.lot; });
    for (std::size_t i = first; i < fires.size(); ++i) Remove(fires[i].lot);
}

Price ListedPrice(const Quote& quote, int row, Side side) {
    const bool buys = side == Side::kBuy;
    switch (row) {
        case 0: return buys ? quote.ask[0].price : quote.bid[0].price;
        case 1: return quote.last;
        case 2: return buys ? quote.bid[0].price : quote.ask[0].price;
        case 3: return quote.upper_limit;
        case 4: return quote.lower_limit;
        default: return 0;
    }
}

Price StopOrderPrice(const Quote& quote, const ContractTerms& terms, int row, int adjust,
                     Side side) {
    const Price listed = ListedPrice(quote, row, side);
    if (listed <= 0) return 0;
    Price moved = 0;
    if (__builtin_mul_overflow(Price{adjust}, side == Side::kBuy ? terms.tick : -terms.tick,
                               &moved) ||
        __builtin_add_overflow(listed, moved, &moved)) {
        moved = listed;
    }
    if (quote.lower_limit > 0) moved = std::max(moved, quote.lower_limit);
    if (quote.upper_limit > 0) moved = std::min(moved, quote.upper_limit);
    return std::max(moved, std::max<Price>(terms.tick, 1));
}

}  // namespace papercore
