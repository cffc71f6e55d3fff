#include "platform/win32/gdi/region.h"

#include <algorithm>
#include <iterator>

namespace winbase {

namespace {

bool SameRect(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

/// All tops and bottoms of both, ascending, each once.
std::vector<int> RowEdges(const std::vector<RECT>& a, const std::vector<RECT>& b) {
    std::vector<int> edges;
    edges.reserve(2 * (a.size() + b.size()));
    for (const auto* rects : {&a, &b}) {
        for (const RECT& rect : *rects) {
            edges.push_back(rect.top);
            edges.push_back(rect.bottom);
        }
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}

/// Walks a region's bands from the top; rows are asked for in ascending order.
class BandCursor {
public:
    explicit BandCursor(const std::vector<RECT>& rects) : rects_(rects) {}

    /// The lefts and rights of the band that holds row `y`, ascending.
    const std::vector<int>& EdgesAt(int y) {
        while (at_ < rects_.size() && rects_[at_].bottom <= y) ++at_;
        edges_.clear();
        if (at_ == rects_.size()) return edges_;
        const int top = rects_[at_].top;
        if (top > y) return edges_;
        for (std::size_t i = at_; i < rects_.size() && rects_[i].top == top; ++i) {
            edges_.push_back(rects_[i].left);
            edges_.push_back(rects_[i].right);
        }
        return edges_;
    }

private:
    const std::vector<RECT>& rects_;
    std::size_t at_ = 0;
    std::vector<int> edges_;
};

/// Walks two ascending lists of edges and notes where `wanted(in a, in b)` changes.
template <class Wanted>
std::vector<int> CombineEdges(const std::vector<int>& a, const std::vector<int>& b, Wanted wanted) {
    std::vector<int> result;
    std::size_t i = 0;
    std::size_t j = 0;
    bool inside = false;
    while (i < a.size() || j < b.size()) {
        const int x = j == b.size() || (i < a.size() && a[i] <= b[j]) ? a[i] : b[j];
        while (i < a.size() && a[i] == x) ++i;
        while (j < b.size() && b[j] == x) ++j;
        const bool now = wanted(i % 2 == 1, j % 2 == 1);
        if (now != inside) result.push_back(x);
        inside = now;
    }
    return result;
}

}  // namespace

Region::Region(const RECT& rect) {
    if (IsEmpty(rect)) return;
    rects_.push_back(rect);
    bounds_ = rect;
}

bool Region::Contains(POINT point) const {
    return std::any_of(rects_.begin(), rects_.end(), [point](const RECT& rect) {
        return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
               point.y < rect.bottom;
    });
}

bool Region::Contains(const RECT& rect) const {
    if (IsEmpty(rect)) return true;
    if (!winbase::Contains(bounds_, rect)) return false;
    Region rest(rect);
    rest.Subtract(*this);
    return rest.Empty();
}

bool Region::Intersects(const RECT& rect) const {
    return std::any_of(rects_.begin(), rects_.end(),
                       [&rect](const RECT& own) { return !IsEmpty(Intersection(own, rect)); });
}

void Region::Clear() {
    rects_.clear();
    bounds_ = {};
}

void Region::Unite(const Region& other) {
    if (other.Empty() || (rects_.size() == 1 && winbase::Contains(bounds_, other.bounds_))) return;
    if (Empty() || (other.rects_.size() == 1 && winbase::Contains(other.bounds_, bounds_))) {
        *this = other;
    } else {
        *this = Combine(*this, other, Operation::kUnite);
    }
}

void Region::Unite(const RECT& rect) { Unite(Region(rect)); }

void Region::Intersect(const Region& other) {
    if (other.rects_.size() <= 1) {
        Intersect(other.bounds_);
    } else if (rects_.size() == 1 && winbase::Contains(bounds_, other.bounds_)) {
        *this = other;
    } else {
        *this = Combine(*this, other, Operation::kIntersect);
    }
}

void Region::Intersect(const RECT& rect) {
    if (winbase::Contains(rect, bounds_)) return;
    if (rects_.size() == 1) {
        *this = Region(Intersection(bounds_, rect));
    } else {
        *this = Combine(*this, Region(rect), Operation::kIntersect);
    }
}

void Region::Subtract(const Region& other) {
    if (IsEmpty(Intersection(bounds_, other.bounds_))) return;
    *this = Combine(*this, other, Operation::kSubtract);
}

void Region::Subtract(const RECT& rect) { Subtract(Region(rect)); }

void Region::ExclusiveOr(const Region& other) {
    Region rest = other;
    rest.Subtract(*this);
    Subtract(other);
    Unite(rest);
}

void Region::Offset(int x, int y) {
    if (Empty()) return;
    for (RECT& rect : rects_) rect = Moved(rect, x, y);
    bounds_ = Moved(bounds_, x, y);
}

bool operator==(const Region& a, const Region& b) {
    return std::equal(a.rects_.begin(), a.rects_.end(), b.rects_.begin(), b.rects_.end(), SameRect);
}

Region Region::Combine(const Region& a, const Region& b, Operation operation) {
    const auto wanted = [operation](bool in_a, bool in_b) {
        switch (operation) {
            case Operation::kUnite: return in_a || in_b;
            case Operation::kIntersect: return in_a && in_b;
            case Operation::kSubtract: break;
        }
        return in_a && !in_b;
    };
    const std::vector<int> rows = RowEdges(a.rects_, b.rects_);
    BandCursor cursor_a(a.rects_);
    BandCursor cursor_b(b.rects_);
    Region result;
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        const std::vector<int> edges =
            CombineEdges(cursor_a.EdgesAt(rows[i]), cursor_b.EdgesAt(rows[i]), wanted);
        result.AppendBand(edges, rows[i], rows[i + 1]);
    }
    result.UpdateBounds();
    return result;
}

void Region::AppendBand(const std::vector<int>& edges, int top, int bottom) {
    const std::size_t count = edges.size() / 2;
    if (count == 0) return;
    // The band above grows when it has the same columns and ends where this one begins.
    auto above = rects_.end();
    while (above != rects_.begin() && std::prev(above)->top == rects_.back().top) --above;
    bool same = static_cast<std::size_t>(rects_.end() - above) == count;
    for (std::size_t i = 0; same && i < count; ++i) {
        const RECT& rect = above[static_cast<std::ptrdiff_t>(i)];
        same = rect.bottom == top && rect.left == edges[2 * i] && rect.right == edges[2 * i + 1];
    }
    if (same) {
        for (; above != rects_.end(); ++above) above->bottom = bottom;
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        rects_.push_back({edges[2 * i], top, edges[2 * i + 1], bottom});
    }
}

void Region::UpdateBounds() {
    if (rects_.empty()) {
        bounds_ = {};
        return;
    }
    bounds_ = {rects_.front().left, rects_.front().top, rects_.front().right, rects_.back().bottom};
    for (const RECT& rect : rects_) {
        bounds_.left = std::min(bounds_.left, rect.left);
        bounds_.right = std::max(bounds_.right, rect.right);
    }
}

}  // namespace winbase
