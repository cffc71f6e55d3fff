#include "papercore/watched_lot.h"

#include <algorithm>
#include <cmath>

namespace papercore {
namespace {

constexpr double kOff = 0.0001;
constexpr Price kMostPrice = 1'000'000'000'000'000;

/// Distance of a number of ticks; 0 if it is switched off.
Price Distance(double ticks, Price tick) {
    if (!(ticks > kOff) || tick <= 0) return 0;
    const double distance = ticks * static_cast<double>(tick);
    return std::clamp<Price>(std::llround(std::min(distance, 1e15)), 1, kMostPrice);
}

/// 0 if it is switched off.
Price Absolute(double yuan) {
    if (!(yuan > kOff)) return 0;
    return PriceFromYuan(std::min(yuan, YuanFromPrice(kMostPrice)));
}

std::size_t IndexOf(StopRule rule) { return static_cast<std::size_t>(rule); }

}  // namespace

void Calm::Narrow(const Calm& other) {
    stop_low = std::max(stop_low, other.stop_low);
    stop_high = std::min(stop_high, other.stop_high);
    profit_low = std::max(profit_low, other.profit_low);
    profit_high = std::min(profit_high, other.profit_high);
}

bool Calm::Holds(Favour stop, Favour profit) const {
    return (stop == kNotShown || (stop_low < stop && stop < stop_high)) &&
           (profit == kNotShown || (profit_low < profit && profit < profit_high));
}

WatchedLot::WatchedLot(const Lot& lot, Price tick)
    : id_(lot.id),
      sign_(lot.side == Side::kBuy ? 1 : -1),
      open_(sign_ * std::clamp<Price>(lot.open_price, 0, kMostPrice)),
      base_(open_) {
    const CPresetStop& record = lot.stop.record;
    if (lot.stop.float_base > 0) base_ = sign_ * std::min(lot.stop.float_base, kMostPrice);
    if (const Price distance = Distance(record.dStopTicks, tick)) {
        stop_ = open_ - distance;
        step_ = Distance(record.dStopFloat, tick);
    }
    if (const Price distance = Distance(record.dProfitTicks, tick)) {
        profit_ = open_ + distance;
        pullback_ = Distance(record.dProfitPullback, tick);
    }
    const bool is_long = lot.side == Side::kBuy;
    const Price stop = Absolute(is_long ? record.dLongStop : record.dShortStop);
    const Price profit = Absolute(is_long ? record.dLongProfit : record.dShortProfit);
    if (stop > 0) absolute_stop_ = sign_ * stop;
    if (profit > 0) absolute_profit_ = sign_ * profit;
}

bool WatchedLot::Follow(Favour stop, Favour profit) {
    const Favour price = FloatsOnStop() ? stop : profit;
    if (!Follows() || price == kNotShown || price <= base_) return false;
    base_ = price;
    return true;
}

Favour WatchedLot::StopLevel() const {
    if (step_ == 0 || base_ <= open_) return stop_;
    return stop_ + (base_ - open_) / step_ * step_;
}

bool WatchedLot::ProfitReached(Favour profit) const {
    if (pullback_ == 0) return profit >= profit_;
    return base_ >= profit_ && profit <= base_ - pullback_;
}

std::optional<StopRule> WatchedLot::Count(Favour stop, Favour profit, int stop_count,
                                          int profit_count) {
    std::optional<StopRule> fired;
    const auto look = [&](StopRule rule, Favour price, bool reached, int needed) {
        if (price == kNotShown) return;
        int& count = counts_[IndexOf(rule)];
        count = reached ? count + 1 : 0;
        if (count >= needed && reached && !fired) fired = rule;
    };
    look(StopRule::kRelativeStop, stop, stop <= StopLevel(), stop_count);
    look(StopRule::kAbsoluteStop, stop, stop <= absolute_stop_, stop_count);
    look(StopRule::kRelativeProfit, profit, ProfitReached(profit), profit_count);
    look(StopRule::kAbsoluteProfit, profit, profit >= absolute_profit_, profit_count);
    return fired;
}

bool WatchedLot::IsCounting() const {
    return std::any_of(counts_.begin(), counts_.end(), [](int count) { return count > 0; });
}

Calm WatchedLot::Quiet() const {
    Calm calm;
    calm.stop_low = std::max(StopLevel(), absolute_stop_);
    calm.profit_high = absolute_profit_;
    if (pullback_ == 0) {
        calm.profit_high = std::min(calm.profit_high, profit_);
    } else if (base_ >= profit_) {
        calm.profit_low = base_ - pullback_;
    }
    if (Follows()) {
        Favour& high = FloatsOnStop() ? calm.stop_high : calm.profit_high;
        high = std::min(high, base_ + 1);
    }
    return calm;
}

}  // namespace papercore
