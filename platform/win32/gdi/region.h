#pragma once

#include <windef.h>

#include <vector>

namespace winbase {

inline bool IsEmpty(const RECT& rect) { return rect.left >= rect.right || rect.top >= rect.bottom; }

inline RECT Intersection(const RECT& a, const RECT& b) {
    return {a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
            a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
}

inline bool Contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

inline RECT Moved(const RECT& rect, int x, int y) {
    return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y};
}

/// A set of pixels, kept as the fewest rectangles in bands: ordered by top, then by left; those of
/// one band share top and bottom; neighbouring bands with equal columns are one. So two regions
/// are equal exactly when their rectangles are.
class Region {
public:
    Region() = default;
    /// An empty or turned rectangle makes an empty region.
    explicit Region(const RECT& rect);

    bool Empty() const { return rects_.empty(); }
    /// The smallest rectangle around it, 0,0-0,0 when empty.
    const RECT& Bounds() const { return bounds_; }
    const std::vector<RECT>& Rects() const { return rects_; }
    bool Contains(POINT point) const;
    /// True when every pixel of the rectangle is in the region.
    bool Contains(const RECT& rect) const;
    bool Intersects(const RECT& rect) const;

    void Clear();
    void Unite(const Region& other);
    void Unite(const RECT& rect);
    void Intersect(const Region& other);
    void Intersect(const RECT& rect);
    void Subtract(const Region& other);
    void Subtract(const RECT& rect);
    void ExclusiveOr(const Region& other);
    void Offset(int x, int y);

    friend bool operator==(const Region& a, const Region& b);

private:
    enum class Operation { kUnite, kIntersect, kSubtract };
    static Region Combine(const Region& a, const Region& b, Operation operation);
    void AppendBand(const std::vector<int>& edges, int top, int bottom);
    void UpdateBounds();

    std::vector<RECT> rects_;
    RECT bounds_{};
};

}  // namespace winbase
