#include <gtest/gtest.h>

#include <climits>

#include "tests/platform/win32/gdi/canvas.h"

namespace {

TEST(Rectangles, ContainTheirLeftAndTopOnly) {
    const RECT rect{0, 0, 5, 5};
    EXPECT_TRUE(PtInRect(&rect, {0, 0}));
    EXPECT_TRUE(PtInRect(&rect, {4, 4}));
    EXPECT_FALSE(PtInRect(&rect, {5, 4}));
    EXPECT_FALSE(PtInRect(&rect, {4, 5}));
    const RECT turned{5, 5, 0, 0};
    EXPECT_TRUE(IsRectEmpty(&turned));
    EXPECT_FALSE(PtInRect(&turned, {3, 3}));
}

struct PairCase {
    const char* what;
    BOOL(WINAPI* function)(LPRECT, const RECT*, const RECT*);
    RECT first;
    RECT second;
    BOOL result;
    const char* rect;
};

TEST(Rectangles, CombineInPairs) {
    const PairCase cases[] = {
        {"common part", IntersectRect, {0, 0, 5, 5}, {3, 3, 8, 8}, TRUE, "3,3-5,5"},
        {"touching", IntersectRect, {0, 0, 5, 5}, {5, 0, 8, 5}, FALSE, "0,0-0,0"},
        {"empty second", IntersectRect, {0, 0, 5, 5}, {3, 3, 3, 9}, FALSE, "0,0-0,0"},
        {"around both", UnionRect, {0, 0, 5, 5}, {7, 7, 8, 8}, TRUE, "0,0-8,8"},
        {"around one", UnionRect, {0, 0, 5, 5}, {9, 9, 9, 9}, TRUE, "0,0-5,5"},
        {"around none", UnionRect, {5, 5, 5, 5}, {9, 9, 9, 9}, FALSE, "0,0-0,0"},
        {"left part away", SubtractRect, {0, 0, 9, 5}, {-1, 0, 4, 5}, TRUE, "4,0-9,5"},
        {"bottom away", SubtractRect, {0, 0, 9, 5}, {0, 3, 9, 9}, TRUE, "0,0-9,3"},
        {"a hole stays", SubtractRect, {0, 0, 9, 5}, {3, 1, 4, 4}, TRUE, "0,0-9,5"},
        {"a corner stays", SubtractRect, {0, 0, 9, 5}, {-1, -1, 4, 4}, TRUE, "0,0-9,5"},
        {"all away", SubtractRect, {0, 0, 9, 5}, {0, 0, 9, 5}, FALSE, "0,0-0,0"},
    };
    for (const PairCase& one : cases) {
        RECT rect{7, 7, 7, 7};
        EXPECT_EQ(one.result, one.function(&rect, &one.first, &one.second)) << one.what;
        EXPECT_EQ(one.rect, Text(rect)) << one.what;
        RECT own = one.first;
        EXPECT_EQ(one.result, one.function(&own, &own, &one.second)) << one.what;
        EXPECT_EQ(one.rect, Text(own)) << one.what << ", into itself";
    }
}

TEST(Rectangles, MoveAndGrow) {
    RECT rect;
    EXPECT_TRUE(SetRect(&rect, 1, 2, 3, 4));
    OffsetRect(&rect, 10, -2);
    EXPECT_EQ("11,0-13,2", Text(rect));
    InflateRect(&rect, 1, 2);
    EXPECT_EQ("10,-2-14,4", Text(rect));
    InflateRect(&rect, -2, -3);
    EXPECT_TRUE(IsRectEmpty(&rect));
    RECT copy;
    EXPECT_TRUE(CopyRect(&copy, &rect));
    EXPECT_TRUE(EqualRect(&copy, &rect));
    SetRectEmpty(&copy);
    EXPECT_FALSE(EqualRect(&copy, &rect));
    EXPECT_TRUE(SetRect(&rect, INT_MIN, INT_MIN, INT_MAX, INT_MAX));
    EXPECT_TRUE(InflateRect(&rect, INT_MIN, INT_MAX)) << "wraps, and nothing else";
    EXPECT_TRUE(OffsetRect(&rect, INT_MAX, INT_MIN));
    EXPECT_FALSE(SetRect(nullptr, 0, 0, 0, 0));
}

}  // namespace
