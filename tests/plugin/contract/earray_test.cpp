#include "plugin/contract/earray.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <type_traits>
#include <vector>

#include "plugin/contract/order_records.h"
#include "plugin/contract/position_records.h"

namespace {

static_assert(std::has_virtual_destructor_v<EArray<char>>);
static_assert(!std::is_copy_constructible_v<EArray<int>>);

/// Elements that the array's block has room for.
template <class T>
int Room(EArray<T>& array) {
    return TaggedBlockSize(array.GetData()) / static_cast<int>(sizeof(T));
}

TEST(EArray, StartsAndGrowsByItsStep) {
    const struct {
        int grow;
        int first;  ///< capacity of the new array
        int asked;
        int after;  ///< capacity when that many were asked for
    } cases[] = {
        {0, 128, 129, 129}, {-5, 128, 200, 200}, {INT_MIN, 128, 129, 129}, {1, 1, 2, 3},
        {16, 16, 17, 33},   {10, 10, 10, 10},    {16, 16, 0, 16},
    };
    for (const auto& c : cases) {
        EArray<int> array(c.grow);
        EXPECT_EQ(Room(array), c.first) << c.grow;
        EXPECT_EQ(array.GetCount(), 0);
        EXPECT_EQ(array.SetSize(c.asked), c.asked);
        EXPECT_EQ(Room(array), c.after) << c.grow;
    }
}

TEST(EArray, KeepsWhatStandsBehindTheCount) {
    EArray<int> array(4);
    array.SetSize(4);
    for (int i = 0; i < 4; ++i) array.GetData()[i] = i + 1;
    EXPECT_EQ(array.SetSize(1), 1);
    EXPECT_EQ(array.SetSize(4), 4);
    EXPECT_EQ(array.GetData()[3], 4);
    array.SetSize(2);
    array.SetSize(9);
    EXPECT_EQ(array.GetData()[1], 2);
    EXPECT_EQ(array.GetData()[3], 0) << "growing copies the elements in use only";
}

TEST(EArray, RemoveAllZeroesTheUsedElements) {
    EArray<int> array(4);
    array.SetSize(4);
    for (int i = 0; i < 4; ++i) array.GetData()[i] = 7;
    array.SetSize(3);
    array.RemoveAll();
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_EQ(Room(array), 4);
    EXPECT_EQ(array.GetData()[2], 0);
    EXPECT_EQ(array.GetData()[3], 7);
    array.RemoveAll();
    EXPECT_EQ(array.GetCount(), 0);
}

TEST(EArray, NegativeAndImpossibleSizesLeaveItWhole) {
    EArray<CZebOrder> array(16);
    array.SetSize(2);
    array.GetData()[1].nVolume = 5;
    EXPECT_EQ(array.SetSize(-1), 0);
    EXPECT_EQ(array.SetSize(INT_MIN), 0);
    for (const int n : {INT_MAX, INT_MAX - 16, INT_MAX / 1032 + 1}) {
        EXPECT_EQ(array.SetSize(n), 16) << n;
        EXPECT_EQ(array.GetCount(), 16);
    }
    EXPECT_EQ(Room(array), 16);
    EXPECT_EQ(array.GetData()[1].nVolume, 5);
}

TEST(EArray, WithoutMemoryItIsEmptyButUsable) {
    EArray<CZebOrder> array(INT_MAX);
    EXPECT_EQ(array.GetData(), nullptr);
    EXPECT_EQ(array.SetSize(1), 0);
    array.RemoveAll();
    EXPECT_EQ(array.GetCount(), 0);
}

TEST(EArray, HoldsPackedRecords) {
    EArray<PositionGroup> lots(1);
    EXPECT_EQ(lots.SetSize(3), 3);
    lots.GetData()[2].dOpenPrice = 300.5;
    lots.SetSize(30);
    EXPECT_EQ(lots.GetData()[2].dOpenPrice, 300.5);
    EArray<char> text(0);
    EXPECT_EQ(Room(text), 128);
}

TEST(EArray, AgreesWithAVectorOverRandomSizes) {
    std::mt19937 random(20260115);
    EArray<int> array(3);
    std::vector<int> model;
    for (int step = 0; step < 5000; ++step) {
        const auto size = static_cast<int>(random() % 300);
        const auto before = static_cast<int>(model.size());
        ASSERT_EQ(array.SetSize(size), size);
        model.resize(static_cast<std::size_t>(size));
        for (int i = before; i < size; ++i) {
            model[static_cast<std::size_t>(i)] = array.GetData()[i] = static_cast<int>(random());
        }
        ASSERT_TRUE(std::equal(model.begin(), model.end(), array.GetData()));
    }
}

}  // namespace
