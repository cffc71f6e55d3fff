#include "platform/win32/controls/list_items.h"

#include <gtest/gtest.h>

namespace winbase {
namespace {

ListItems Items(std::initializer_list<const char*> texts) {
    ListItems items;
    for (const char* const text : texts) items.Insert(-1, {text, 0});
    return items;
}

TEST(ListItems, FindsFromBehindAPlaceAndGoesRound) {
    const ListItems items = Items({"Au(T+D)", "Ag(T+D)", "mAu(T+D)", "Au99.99"});
    const struct {
        const char* text;
        LRESULT after;
        int prefix;
        int whole;
    } kCases[] = {
        {"au", -1, 0, -1},    {"ag", -1, 1, -1},    {"A", -1, 0, -1}, {"x", -1, -1, -1},
        {"", -1, -1, -1},     {"au", 0, 3, -1},     {"au", 3, 0, -1}, {"ag", 99, 1, -1},
        {"ag(t+d)", 1, 1, 1}, {"AU99.99", 3, 3, 3},
    };
    for (const auto& one : kCases) {
        EXPECT_EQ(one.prefix, items.Find(one.text, one.after, ListItems::Match::kPrefix))
            << one.text;
        EXPECT_EQ(one.whole, items.Find(one.text, one.after, ListItems::Match::kWhole)) << one.text;
    }
    EXPECT_EQ(-1, ListItems().Find("a", -1, ListItems::Match::kPrefix));
}

// The second byte of many characters is an ASCII letter; its case tells characters apart.
TEST(ListItems, KeepsTheBytesOfChineseCharacters) {
    const ListItems items = Items({"\x81\x41", "\x81\x61"});
    EXPECT_EQ(1, items.Find("\x81\x61", -1, ListItems::Match::kWhole));
    EXPECT_EQ(0, items.Find("\x81\x41", -1, ListItems::Match::kWhole));
}

TEST(ListItems, SortedPlacesStandBeforeEquals) {
    ListItems items;
    int places[5];
    int* place = places;
    for (const char* const text : {"b", "a", "B", "中", "1"}) {
        *place = items.SortedPlace(text);
        items.Insert(*place++, {text, 0});
    }
    EXPECT_EQ((std::vector<int>{0, 0, 1, 3, 0}), std::vector<int>(places, place));
    EXPECT_EQ("B", items.at(2).text);
}

TEST(ListItems, InsertsOnlyWithinTheList) {
    ListItems items = Items({"a", "b"});
    EXPECT_FALSE(items.Insert(99, {"c", 0}));
    EXPECT_FALSE(items.Insert(-2, {"c", 0}));
    EXPECT_TRUE(items.Insert(2, {"c", 0}));
    EXPECT_EQ(3, items.count());
    EXPECT_FALSE(items.Has(3));
    EXPECT_FALSE(items.Has(-1));
}

}  // namespace
}  // namespace winbase
