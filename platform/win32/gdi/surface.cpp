#include "platform/win32/gdi/surface.h"

#include <algorithm>
#include <utility>

namespace winbase {

namespace {

long long Area(const RECT& rect) {
    return static_cast<long long>(rect.right - rect.left) * (rect.bottom - rect.top);
}

RECT Around(const RECT& a, const RECT& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

/// Pixels that presenting both in one rectangle adds.
long long Waste(const RECT& a, const RECT& b) { return Area(Around(a, b)) - Area(a) - Area(b); }

}  // namespace

Surface::Surface(int width, int height, int scale, Damage damage, Rows rows)
    : scale_(std::clamp(scale, 1, 3)), collects_(damage == Damage::kCollect), rows_(rows) {
    Allocate(width, height);
}

void Surface::Allocate(int width, int height) {
    width_ = std::max(width, 1);
    height_ = std::max(height, 1);
    const auto row = static_cast<std::size_t>(device_width());
    const auto rows = static_cast<std::size_t>(device_height());
    pixels_ = std::make_unique<Pixel[]>(row * rows);
    const bool turned = rows_ == Rows::kBottomUp;
    top_row_ = pixels_.get() + (turned ? row * (rows - 1) : 0);
    stride_ = turned ? -static_cast<std::ptrdiff_t>(row) : static_cast<std::ptrdiff_t>(row);
}

void Surface::Resize(int width, int height) {
    if (std::max(width, 1) == width_ && std::max(height, 1) == height_) return;
    const std::unique_ptr<Pixel[]> old_pixels = std::move(pixels_);
    const Pixel* old_top = top_row_;
    const std::ptrdiff_t old_stride = stride_;
    const RECT shared = Intersection(Bounds(), {0, 0, std::max(width, 1), std::max(height, 1)});
    Allocate(width, height);
    for (int y = 0; y < shared.bottom * scale_; ++y) {
        std::copy_n(old_top + y * old_stride, shared.right * scale_, Row(y));
    }
    records_.CopyFrom(std::exchange(records_, {}).All(), shared, shared, Region(shared));
    if (!collects_) return;
    damage_count_ = 1;
    damage_[0] = Bounds();
}

Region Surface::TakeDamage() {
    Region region;
    for (std::size_t i = 0; i < damage_count_; ++i) region.Unite(damage_[i]);
    damage_count_ = 0;
    damage_[0] = {};
    return region;
}

void Surface::CollectDamage(const RECT& rect) {
    const RECT added = Intersection(rect, Bounds());
    if (IsEmpty(added)) return;
    std::size_t best = 0;
    for (std::size_t i = 0; i < damage_count_; ++i) {
        if (Waste(damage_[i], added) < Waste(damage_[best], added)) best = i;
    }
    const bool merge =
        damage_count_ == damage_.size() || (damage_count_ != 0 && Waste(damage_[best], added) <= 0);
    if (!merge) {
        damage_[damage_count_] = added;
        best = damage_count_++;
    } else {
        damage_[best] = Around(damage_[best], added);
    }
    // The latest comes first: what is drawn next mostly lies within it.
    std::swap(damage_[0], damage_[best]);
}

}  // namespace winbase
