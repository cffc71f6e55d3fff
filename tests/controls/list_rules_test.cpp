// What a list does without a window: cutting texts, and what its scroll bars and keys lead to.

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <random>
#include <string>

#include "controls/list_records.h"
#include "controls/list_scroll.h"
#include "controls/list_text.h"
#include "platform/text/gbk.h"
#include "tests/support/gbk_text.h"

namespace {

using namespace list_scroll;

std::string Cut(std::string_view text, int characters) {
    char field[kCellTextSize];
    const std::size_t length = CopyWithDots(field, sizeof field, text, characters);
    EXPECT_EQ(length, std::strlen(field));
    return field;
}

TEST(ListText, IsCutBetweenCharacters) {
    const struct {
        const char* text;
        int characters;
        const char* cut;
    } kCases[] = {{"Au(T+D)", 3, "Au(..."},
                  {"黄金延期", 2, "黄金..."},
                  {"黄A金B", 3, "黄A金..."},
                  {"黄金", 0, "..."},
                  {"黄金", -5, "..."},
                  {"黄金", 9, "黄金..."},
                  {"", 4, "..."}};
    for (const auto& each : kCases) EXPECT_GBK_EQ(each.cut, Cut(each.text, each.characters));
    EXPECT_EQ(Cut("ab\xC4", 3), "ab\xC4...") << "half a character counts as one";
}

TEST(ListText, LeavesRoomForThreeCharactersOfDots) {
    const struct {
        int room;
        int characters;
    } kCases[] = {{120, 7}, {119, 6}, {36, 0}, {35, 0}, {0, 0}, {-50, 0}};
    for (const auto& each : kCases) {
        EXPECT_EQ(CharactersBeforeDots(each.room, 12), each.characters) << each.room;
    }
    EXPECT_EQ(CharactersBeforeDots(100, 0), 0);
}

// The longest text that a cell holds, in a room just too narrow for it, needs 251 bytes at most.
TEST(ListText, OfAnyCellFitsItsBufferWhole) {
    constexpr int kHalfWidth = 6;
    std::mt19937 random(7);
    std::size_t longest = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        while (text.size() < kCellTextSize - 1) {
            const bool wide = random() % 64 != 0 && text.size() + 2 < kCellTextSize;
            text += wide ? "\xBB\xC6" : "7";
        }
        const int width = static_cast<int>(text.size()) * kHalfWidth;
        const int room = round % 2 == 0 ? width - 1 : static_cast<int>(random() % 1530);
        const int characters = CharactersBeforeDots(room, 2 * kHalfWidth);
        const std::string cut = Cut(text, characters);
        longest = std::max(longest, cut.size());
        std::size_t kept = 0;
        for (int i = 0; i < characters; ++i) kept += text::CharLength(text.substr(kept));
        ASSERT_EQ(cut, text.substr(0, kept) + "...");
    }
    EXPECT_GT(longest, 245u);
    EXPECT_LE(longest, 251u);
}

TEST(ListText, NeverPassesItsField) {
    for (std::size_t size = 1; size < 12; ++size) {
        char field[16];
        std::memset(field, 'x', sizeof field);
        CopyWithDots(field, size, "黄金延期交收", 6);
        EXPECT_LT(std::strlen(field), size);
        EXPECT_EQ(field[size], 'x') << size;
    }
}

TEST(ListScroll, RangeOfTheVerticalBar) {
    const struct {
        Rows rows;
        bool overflows;
        int last;
    } kCases[] = {
        {{0, 22, 220}, false, 0},    // the header alone
        {{9, 22, 220}, false, 0},    // fills it exactly
        {{9, 22, 219}, true, 0},     // up to six hidden lines don't count
        {{9, 22, 214}, true, 0},     //
        {{9, 22, 213}, true, 1},     //
        {{10, 22, 220}, true, 1},    //
        {{100, 22, 220}, true, 91},  // 92 rows hidden, and 15 lines more
        {{1'000'000, 22, 600}, true, 999'974},
        {{INT_MAX, 22, 220}, true, INT_MAX - 9 + 0},
        {{INT_MAX, 1, 1}, true, INT_MAX},
    };
    for (const auto& each : kCases) {
        EXPECT_EQ(Overflows(each.rows), each.overflows) << each.rows.client_height;
        EXPECT_EQ(LastRow(each.rows), each.last) << each.rows.count;
    }
}

TEST(ListScroll, PullsUpOnlyWhenRoomWouldStayEmpty) {
    const struct {
        const char* what;
        int count;
        int first;
        int pulled;  ///< -1 for not
    } kCases[] = {
        {"at the top nothing is done", 2, 0, -1},    {"enough rows are left", 100, 50, -1},
        {"as many as shown, less one", 30, 21, -1},  {"one fewer", 30, 22, 20},
        {"the selection of rows shrank", 12, 50, 2}, {"not above the first", 3, 10, 0}};
    for (const auto& each : kCases) {
        EXPECT_EQ(PulledUp({each.count, 22, 220}, each.first).value_or(-1), each.pulled)
            << each.what;
    }
}

TEST(ListScroll, MessagesLeadWithinTheRange) {
    SCROLLINFO bar{};
    bar.nMax = 91;
    bar.nPos = 40;
    const struct {
        UINT code;
        int page;
        int given;
        int target;
    } kCases[] = {
        {SB_LINEUP, 9, 0, 39},    {SB_LINEDOWN, 9, 0, 41},        {SB_PAGEUP, 9, 0, 31},
        {SB_PAGEDOWN, 9, 0, 49},  {SB_PAGEDOWN, 380, 0, 91},      {SB_PAGEUP, 380, 0, 0},
        {SB_THUMBTRACK, 9, 7, 7}, {SB_THUMBPOSITION, 9, 500, 91}, {SB_THUMBPOSITION, 9, -5, 0},
        {SB_TOP, 9, 3, 0},        {SB_BOTTOM, 9, 3, 91},          {SB_ENDSCROLL, 9, 3, 40}};
    for (const auto& each : kCases) {
        EXPECT_EQ(Target(each.code, bar, each.page, each.given), each.target) << each.code;
    }
    EXPECT_EQ(OffsetOf(999'974, 22), 21'999'428);
    EXPECT_EQ(OffsetOf(INT_MAX, 22), INT_MAX);
}

TEST(ListScroll, KeysStayWithinTheRows) {
    const struct {
        UINT key;
        int selected;
        int row;
    } kCases[] = {{VK_DOWN, -1, 0},  {VK_UP, -1, 0},        {VK_DOWN, 4, 5},  {VK_DOWN, 19, 19},
                  {VK_UP, 0, 0},     {VK_UP, 20, 19},       {VK_NEXT, 3, 12}, {VK_NEXT, 15, 19},
                  {VK_PRIOR, 12, 3}, {VK_PRIOR, 2, 0},      {VK_HOME, 12, 0}, {VK_END, 3, 19},
                  {VK_UP, 5000, 19}, {VK_DOWN, INT_MAX, 19}};
    for (const auto& each : kCases) {
        EXPECT_EQ(RowByKey(each.key, each.selected, 20, 9), each.row)
            << each.key << " at " << each.selected;
    }
    EXPECT_FALSE(RowByKey(VK_LEFT, 3, 20, 9));
    EXPECT_FALSE(RowByKey('A', 3, 20, 9));
    EXPECT_EQ(FirstToShow(5, 8, 9), 5);
    EXPECT_EQ(FirstToShow(16, 8, 9), 8);
    EXPECT_EQ(FirstToShow(17, 8, 9), 9);
}

}  // namespace
