#include "lists/bubble_order_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <string>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The sort itself, neighbour by neighbour.
std::vector<int> Bubbled(int count, const std::function<bool(int, int)>& wants_swap) {
    std::vector<int> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    for (bool moved = true; moved;) {
        moved = false;
        for (std::size_t i = 1; i < order.size(); ++i) {
            if (wants_swap(order[i - 1], order[i])) {
                std::swap(order[i - 1], order[i]);
                moved = true;
            }
        }
    }
    return order;
}

struct Numbered {
    std::string text;
    int number;
};

bool IsLess(const Numbered& a, const Numbered& b) {
    for (std::size_t i = 0; i < a.text.size() && i < b.text.size(); ++i) {
        const auto left = static_cast<signed char>(a.text[i]);
        const auto right = static_cast<signed char>(b.text[i]);
        if (left != right) return left < right;
    }
    return a.number < b.number;
}

class RandomOrders : public testing::TestWithParam<int> {
protected:
    int Any(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }

    std::mt19937 random_{static_cast<unsigned>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOrders, testing::Range(1, 41));

TEST_P(RandomOrders, KeysEndWhereBubblingPutsThem) {
    std::vector<int> keys(static_cast<std::size_t>(Any(0, 120)));
    const int most = Any(0, 1) == 0 ? 5 : 1000;  // many equal ones, or hardly any
    for (int& key : keys) key = Any(-most, most);
    const auto less = [&keys](int a, int b) {
        return keys[static_cast<std::size_t>(a)] < keys[static_cast<std::size_t>(b)];
    };
    EXPECT_EQ(Bubbled(static_cast<int>(keys.size()), less), BubbleOrderOfKeys(keys));
}

TEST_P(RandomOrders, WishesThatContradictEachOtherEndAsInBubbling) {
    // Of each two records one wants to be in front, or neither: nothing else is promised.
    const int count = Any(0, 60);
    std::vector<int> wish(static_cast<std::size_t>(count * count));
    const auto at = [count](int a, int b) { return static_cast<std::size_t>(a * count + b); };
    for (int a = 0; a < count; ++a) {
        for (int b = 0; b < a; ++b) {
            const int who = Any(0, 2);
            wish[at(a, b)] = who == 0;
            wish[at(b, a)] = who == 1;
        }
    }
    const auto wants_swap = [&](int a, int b) { return wish[at(a, b)] != 0; };
    EXPECT_EQ(Bubbled(count, wants_swap), BubbleOrder(count, wants_swap));
}

TEST_P(RandomOrders, TextsOfDifferentLengthEndAsInBubbling) {
    std::vector<Numbered> records(static_cast<std::size_t>(Any(0, 150)));
    const std::string beginning(static_cast<std::size_t>(Any(0, 1) * Any(5, 10)), 'T');
    const int longest = Any(1, 5);
    const int numbers = Any(0, 1) == 0 ? 4 : 1000;
    for (Numbered& record : records) {
        if (Any(0, 9) != 0) record.text = beginning;
        for (int length = Any(Any(0, 1), longest); length > 0; --length) {
            record.text += "0129\x80\xFF"[static_cast<std::size_t>(Any(0, 5))];
        }
        record.number = Any(0, numbers);
    }
    std::vector<TextKey> keys;
    keys.reserve(records.size());
    for (const Numbered& record : records) keys.push_back({record.text, record.number});
    const auto wants_swap = [&records](int a, int b) {
        return IsLess(records[static_cast<std::size_t>(a)], records[static_cast<std::size_t>(b)]);
    };
    EXPECT_EQ(Bubbled(static_cast<int>(records.size()), wants_swap), BubbleOrderOfTexts(keys));
}

TEST_P(RandomOrders, RecordsFollowTheirIndicesAndLeaveTheirTailsBehind) {
    struct Record {
        std::array<char, 5> head;
        std::array<char, 3> tail;
    };
    std::vector<int> order(static_cast<std::size_t>(Any(0, 40)));
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), random_);
    std::vector<Record> records;
    for (std::size_t i = 0; i < order.size(); ++i) {
        Record record{};
        record.head.fill(static_cast<char>(i));
        record.tail.fill(static_cast<char>(i));
        records.push_back(record);
    }
    ReorderRecords(records.data(), sizeof(Record), sizeof(Record::head), order);
    for (std::size_t i = 0; i < order.size(); ++i) {
        EXPECT_THAT(records[i].head, testing::Each(static_cast<char>(order[i])));
        EXPECT_THAT(records[i].tail, testing::Each(static_cast<char>(i)));
    }
}

TEST(BubbleOrder, TakesTheExtremesOfKeysAsTheyAre) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    EXPECT_THAT(BubbleOrderOfKeys(std::array{0, kLeast, kMost, -1, kMost}),
                ElementsAre(2, 4, 0, 3, 1));
    EXPECT_THAT(BubbleOrderOfKeys({}), IsEmpty());
    EXPECT_THAT(BubbleOrderOfTexts({}), IsEmpty());
}

TEST(BubbleOrder, HasNothingForCountsBelowOne) {
    const auto never = [](int, int) { return false; };
    EXPECT_THAT(BubbleOrder(0, never), IsEmpty());
    EXPECT_THAT(BubbleOrder(-3, never), IsEmpty());
    EXPECT_THAT(BubbleOrder(-3, never, never, never), IsEmpty());
}

}  // namespace
