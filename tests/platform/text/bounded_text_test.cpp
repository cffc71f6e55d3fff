#include "platform/text/bounded_text.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/gbk_text.h"

namespace {

/// A field of 8 bytes between guards.
struct Guarded {
    char before = 'g';
    char field[8] = "#######";
    char after = 'g';

    void ExpectText(std::string_view text) const {
        EXPECT_GBK_EQ(text, text::FieldText(field));
        EXPECT_EQ(before, 'g');
        EXPECT_EQ(after, 'g');
    }
};

TEST(BoundedText, CopyEndsBetweenCharacters) {
    const struct {
        std::string source;
        std::string_view expected;
        bool whole;
    } cases[] = {
        {"", "", true},
        {"1234567", "1234567", true},
        {"12345678", "1234567", false},
        {"中文字", "中文字", true},
        {"中文字体", "中文字", false},
        {"1中文字", "1中文字", true},
        {"12中文字", "12中文", false},
        {std::string("ab\0cd", 5), "ab", true},
        {std::string(100000, 'x'), "xxxxxxx", false},
        {std::string(99999, '\xD6'), "\xD6\xD6\xD6\xD6\xD6\xD6", false},
    };
    for (const auto& c : cases) {
        Guarded g;
        EXPECT_EQ(text::CopyText(g.field, c.source), c.whole);
        g.ExpectText(c.expected);
    }
}

TEST(BoundedText, CopyTakesNullAndSmallestFields) {
    Guarded g;
    const char* none = nullptr;
    EXPECT_TRUE(text::CopyText(g.field, none));
    g.ExpectText("");
    EXPECT_FALSE(text::CopyText(g.field, 1, "a"));
    g.ExpectText("");
    EXPECT_FALSE(text::CopyText(g.field + 8, 0, "a"));
    EXPECT_FALSE(text::CopyText(nullptr, 0, "a"));
    g.ExpectText("");
}

TEST(BoundedText, CopyWithinOneField) {
    Guarded g;
    text::CopyText(g.field, "ab中文");
    text::CopyText(g.field, static_cast<const char*>(g.field + 2));
    g.ExpectText("中文");
}

TEST(BoundedText, AppendFillsWhatIsLeft) {
    Guarded g;
    text::CopyText(g.field, "买入");
    EXPECT_TRUE(text::AppendText(g.field, "|"));
    EXPECT_FALSE(text::AppendText(g.field, "中文"));
    g.ExpectText("买入|中");
    EXPECT_TRUE(text::AppendText(g.field, ""));
    EXPECT_FALSE(text::AppendText(g.field, "x"));
}

TEST(BoundedText, AppendLeavesAFieldWithoutEndAlone) {
    Guarded g;
    std::memset(g.field, 'x', sizeof(g.field));
    EXPECT_FALSE(text::AppendText(g.field, "y"));
    EXPECT_FALSE(text::AppendFormat(g.field, sizeof(g.field), "%d", 1));
    g.ExpectText("xxxxxxxx");
}

TEST(BoundedText, FormatEndsBetweenCharacters) {
    Guarded g;
    EXPECT_TRUE(text::FormatText(g.field, sizeof(g.field), "%s%d", "中文", 123));
    g.ExpectText("中文123");
    EXPECT_FALSE(text::FormatText(g.field, sizeof(g.field), "%d%s", 12, "中文字"));
    g.ExpectText("12中文");
    EXPECT_FALSE(text::FormatText(g.field, sizeof(g.field), "%.2f", 1e300));
    g.ExpectText("1000000");
    EXPECT_FALSE(text::FormatText(nullptr, 0, "%d", 1));
    EXPECT_TRUE(text::FormatText(g.field, sizeof(g.field), "%s|", "ab"));
    EXPECT_TRUE(text::AppendFormat(g.field, sizeof(g.field), "%02d", 7));
    EXPECT_FALSE(text::AppendFormat(g.field, sizeof(g.field), "%s", "中文"));
    g.ExpectText("ab|07中");
}

}  // namespace
