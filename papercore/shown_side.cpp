#include <algorithm>

#include "papercore/matcher_book.h"

namespace papercore {

void ShownSide::Show(const std::array<Level, kLevels>& levels, Side side, Price lower,
                     Price upper) {
    const ShownSide before = *this;
    descending_ = side == Side::kBuy;
    count_ = 0;
    for (const Level& level : levels) {
        if (level.price <= 0 || level.volume <= 0) continue;
        if ((lower > 0 && level.price < lower) || (upper > 0 && level.price > upper)) continue;
        if (count_ > 0 && !IsBehind(level.price, Worst())) continue;
        const Level kept{level.price, std::min(level.volume, kMostVolume)};
        taken_[Index(count_)] = before.TakenOf(kept, count_);
        levels_[Index(count_)] = kept;
        ++count_;
    }
}

std::int64_t ShownSide::TakenOf(const Level& level, int likely) const {
    if (likely < count_ && levels_[Index(likely)] == level) return taken_[Index(likely)];
    for (int i = 0; i < count_; ++i) {
        if (levels_[Index(i)] == level) return taken_[Index(i)];
    }
    return 0;
}

void ShownSide::Forget(Price price) {
    for (int i = 0; i < count_; ++i) {
        if (PriceAt(i) == price) taken_[Index(i)] = 0;
    }
}

std::optional<std::int64_t> ShownSide::SizeAt(Price price) const {
    if (IsEmpty()) return 0;
    if (IsBehind(price, Worst())) return std::nullopt;
    for (int i = 0; i < count_; ++i) {
        if (PriceAt(i) == price) return VolumeAt(i);
    }
    return 0;
}

}  // namespace papercore
