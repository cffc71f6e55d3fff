#include "platform/text/file_format.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/gbk_text.h"

namespace {

std::string Formatted(std::string_view format, std::string_view argument) {
    char field[512];
    text::FormatFromFile(field, format, argument);
    return field;
}

TEST(FileFormat, InterpretsOneTextAndPercent) {
    const struct {
        std::string_view format;
        std::string_view argument;
        std::string_view expected;
    } cases[] = {
        {"%s", "中文", "中文"},
        {"", "x", ""},
        {"no conversion", "x", "no conversion"},
        {"%6s|", "中", "    中|"},
        {"%-6s|", "中", "中    |"},
        {"%--6s|", "中", "中    |"},
        {"%2s", "longer", "longer"},
        {"%.3s", "中文", "中"},
        {"%5.3s|", "中文", "   中|"},
        {"%.s|", "中文", "|"},
        {"当前权益：%10s 元\n", "100.00", "当前权益：    100.00 元\n"},
        {"100%%", "x", "100%"},
        {"%%s", "x", "%s"},
        {"%%%s%%", "x", "%x%"},
        {"%s", "%s%n", "%s%n"},
    };
    for (const auto& c : cases) {
        EXPECT_GBK_EQ(c.expected, Formatted(c.format, c.argument));
    }
}

TEST(FileFormat, PrintsAnythingElseAsItStands) {
    // Each of these stays as it is; the one that follows is still interpreted.
    const std::string_view hostile[] = {"%n",  "%d",  "%*d",     "%*s",   "%lls", "%ls",
                                        "%hs", "%S",  "%99999d", "%f",    "%1$s", "%+s",
                                        "% s", "%#s", "%05s",    "%-0s",  "%x",   "%.*s",
                                        "%5",  "%-",  "%\xD6",   "%-.*s", "%.5d", "% %s"};
    for (const std::string_view format : hostile) {
        if (format == "% %s") {
            EXPECT_GBK_EQ("% x", Formatted(format, "x"));
            continue;
        }
        EXPECT_GBK_EQ(format, Formatted(format, "x"));
        EXPECT_GBK_EQ(std::string(format) + "|  x", Formatted(std::string(format) + "|%3s", "x"));
    }
    EXPECT_GBK_EQ("x%s%s", Formatted("%s%s%s", "x"));
    EXPECT_GBK_EQ("x%", Formatted("%s%", "x"));
    EXPECT_GBK_EQ("x%999", Formatted("%s%999", "x"));
}

TEST(FileFormat, IsCutToTheFieldBetweenCharacters) {
    const struct {
        std::string format;
        std::string argument;
        std::string_view expected;
        bool whole;
    } cases[] = {
        {"%7s", "中文字", " 中文字", true},
        {"%8s", "中文字", "  中文", false},
        {"%-9s", "ab", "ab     ", false},
        {"%99999s", "x", "       ", false},
        {"%-99999s", "x", "x      ", false},
        {"%99999999999999999999999999s", "x", "       ", false},
        {"%.99999999999999999999999999s", "ab", "ab", true},
        {"123456%s", "中", "123456", false},
        {"123456%sz", "中", "123456", false},
        {std::string(100000, '%'), "x", "%%%%%%%", false},
        {"%s", std::string(100000, 'y'), "yyyyyyy", false},
        {std::string("ab\0%s", 5), "x", "ab", true},
        {"%s|", std::string("a\0b", 3), "a|", true},
    };
    for (const auto& c : cases) {
        struct {
            char field[8];
            char guard = 'g';
        } g{};
        EXPECT_EQ(text::FormatFromFile(g.field, c.format, c.argument), c.whole) << c.expected;
        EXPECT_GBK_EQ(c.expected, static_cast<const char*>(g.field));
        EXPECT_EQ(g.guard, 'g');
    }
    EXPECT_FALSE(text::FormatFromFile(nullptr, 0, "%s", "x"));
    char smallest[1];
    EXPECT_FALSE(text::FormatFromFile(smallest, "%s", "x"));
    EXPECT_EQ(smallest[0], '\0');
}

}  // namespace
