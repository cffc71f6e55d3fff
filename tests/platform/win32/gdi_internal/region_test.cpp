#include "platform/win32/gdi/region.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

namespace winbase {
namespace {

constexpr int kSide = 24;

/// The same sets, pixel by pixel.
class Grid {
public:
    template <class Keep>
    void Apply(const RECT& rect, Keep keep) {
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x) {
                const bool inside =
                    x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
                At(x, y) = keep(At(x, y), inside);
            }
        }
    }
    bool& At(int x, int y) { return cells_[static_cast<std::size_t>(y * kSide + x)]; }

private:
    std::array<bool, kSide * kSide> cells_{};
};

std::string Difference(const Region& region, Grid grid) {
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            if (region.Contains(POINT{x, y}) != grid.At(x, y)) {
                return "at " + std::to_string(x) + "," + std::to_string(y);
            }
        }
    }
    return "";
}

/// Bands ordered, apart, and as few as possible.
bool IsCanonical(const Region& region) {
    const auto& rects = region.Rects();
    for (std::size_t i = 0; i < rects.size(); ++i) {
        if (IsEmpty(rects[i])) return false;
        if (i == 0) continue;
        const RECT& former = rects[i - 1];
        const bool same_band = former.top == rects[i].top && former.bottom == rects[i].bottom;
        if (same_band ? former.right >= rects[i].left : former.bottom > rects[i].top) return false;
    }
    return true;
}

TEST(RegionTest, AgreesWithSetsOfPixels) {
    std::mt19937 random(7);
    const auto pick = [&random] { return static_cast<int>(random() % (kSide + 1)); };
    for (int round = 0; round < 200; ++round) {
        Region region;
        Grid grid;
        for (int step = 0; step < 12; ++step) {
            const RECT rect{pick(), pick(), pick(), pick()};
            switch (random() % 4) {
                case 0:
                    region.Subtract(rect);
                    grid.Apply(rect, [](bool a, bool b) { return a && !b; });
                    break;
                case 1:
                    region.ExclusiveOr(Region(rect));
                    grid.Apply(rect, [](bool a, bool b) { return a != b; });
                    break;
                default:
                    region.Unite(rect);
                    grid.Apply(rect, [](bool a, bool b) { return a || b; });
                    break;
            }
            ASSERT_EQ("", Difference(region, grid)) << "round " << round << ", step " << step;
            ASSERT_TRUE(IsCanonical(region)) << "round " << round << ", step " << step;
        }
        const RECT window{pick(), pick(), pick(), pick()};
        region.Intersect(window);
        grid.Apply(window, [](bool a, bool b) { return a && b; });
        ASSERT_EQ("", Difference(region, grid)) << "round " << round;
    }
}

TEST(RegionTest, EqualSetsAreEqualHoweverTheyWereMade) {
    Region halves(RECT{0, 0, 10, 5});
    halves.Unite(RECT{0, 5, 10, 10});
    EXPECT_TRUE(halves == Region(RECT{0, 0, 10, 10}));
    EXPECT_EQ(1u, halves.Rects().size());
    Region ring(RECT{0, 0, 10, 10});
    ring.Subtract(RECT{3, 3, 6, 6});
    EXPECT_EQ(4u, ring.Rects().size());
    EXPECT_FALSE(ring.Contains(RECT{2, 2, 4, 4}));
    EXPECT_TRUE(ring.Contains(RECT{0, 0, 10, 3}));
    EXPECT_TRUE(ring.Intersects(RECT{5, 5, 7, 7}));
    EXPECT_FALSE(ring.Intersects(RECT{4, 4, 6, 6}));
    ring.Offset(5, -5);
    EXPECT_EQ(15, ring.Bounds().right);
    EXPECT_EQ(-5, ring.Bounds().top);
    EXPECT_TRUE(Region(RECT{5, 5, 5, 9}).Empty());
}

}  // namespace
}  // namespace winbase
