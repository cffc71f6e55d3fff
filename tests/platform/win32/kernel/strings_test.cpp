#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/support/gbk_text.h"

namespace {

TEST(Strings, CopyIsCutToBytesAndTerminated) {
    const struct {
        const char* source;
        int size;
        const char* expected;
    } cases[] = {{"hello", 4, "hel"},
                 {"hello", 6, "hello"},
                 {"\xD6\xD0\xCE\xC4", 4, "\xD6\xD0\xCE"},
                 {"hello", 1, ""},
                 {"hello", 0, "zzzzzzz"}};
    for (const auto& c : cases) {
        char buffer[8] = "zzzzzzz";
        EXPECT_EQ(lstrcpynA(buffer, c.source, c.size), buffer);
        EXPECT_GBK_EQ(c.expected, buffer) << c.size;
    }
    char buffer[8] = "zzzzzzz";
    EXPECT_EQ(lstrcpynA(buffer, nullptr, 4), nullptr);
}

TEST(Strings, Comparison) {
    const struct {
        const char* left;
        const char* right;
        int exact;
        int without_case;
    } cases[] = {{"a", "a", 0, 0},   {"a", "B", -1, -1},         {"a", "A", -1, 0},
                 {"B", "a", 1, 1},   {"ab", "a", 1, 1},          {"", "a", -1, -1},
                 {"9", "a", -1, -1}, {"对手价", "对手价", 0, 0}, {"Au(T+D)", "AU(T+D)", -1, 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(lstrcmpA(c.left, c.right), c.exact) << c.left << ' ' << c.right;
        EXPECT_EQ(lstrcmpiA(c.left, c.right), c.without_case) << c.left << ' ' << c.right;
    }
    EXPECT_NE(lstrcmpiA("\xC1\x41", "\xC1\x61"), 0);
}

TEST(Strings, Length) {
    EXPECT_EQ(lstrlenA(nullptr), 0);
    EXPECT_EQ(lstrlenA("\xD6\xD0\x61"), 3);
}

TEST(Strings, LeadBytes) {
    for (const char byte : {'\x81', '\xA0', '\xFE'}) {
        EXPECT_TRUE(IsDBCSLeadByte(static_cast<BYTE>(byte))) << int{byte};
    }
    for (const char byte : {'\0', 'a', '\x7F', '\x80', '\xFF'}) {
        EXPECT_FALSE(IsDBCSLeadByte(static_cast<BYTE>(byte))) << int{byte};
    }
}

TEST(Strings, NumbersAreScaledWithRounding) {
    const struct {
        int number;
        int numerator;
        int denominator;
        int result;
    } cases[] = {{7, 3, 2, 11}, {-7, 3, 2, -11}, {7, 3, -2, -11},       {10, 96, 72, 13},
                 {1, 1, 0, -1}, {0, 5, 7, 0},    {2147483647, 2, 1, -1}};
    for (const auto& c : cases) {
        EXPECT_EQ(MulDiv(c.number, c.numerator, c.denominator), c.result)
            << c.number << " * " << c.numerator << " / " << c.denominator;
    }
}

}  // namespace
