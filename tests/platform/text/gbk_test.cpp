#include "platform/text/gbk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

#include "platform/text/letter_case.h"
#include "tests/support/gbk_text.h"

namespace {

struct Decoding {
    std::string_view gbk;
    std::u16string_view utf16;
    bool replaced;
};

constexpr std::u16string_view kNul(u"\0", 1);

TEST(Gbk, DecodesAsCodePage936) {
    const Decoding cases[] = {
        {"", u"", false},
        {"abc", u"abc", false},
        {"\xD6\xD0\xCE\xC4", u"\u4E2D\u6587", false},
        {"\x80", u"\u20AC", false},
        {"\xD6\x61", u"\u8B05", false},
        {"\xD6", u"?", true},
        {"a\xD6", u"a?", true},
        {"\xD6 b", u"?b", true},
        {"\x81\x30", u"?", true},
        {"\x81\xFF", u"?", true},
        {"\x81\x7F", u"?", true},
        {"\xA0", u"?", true},
        {"\xFF", u"\uF8F5", true},
        {"\xFF\xD6\xD0", u"\uF8F5\u4E2D", true},
        {{"\xD6\0b", 3}, {u"?\0b", 3}, true},
        {{"\0", 1}, kNul, false},
        {"\xA1\xAB\xA1\xA4\xA8\xA6", u"\uFF5E\u00B7\u00E9", false},
        // The ends of the user-defined areas and of the stretches between assigned characters.
        {"\xAA\xA1\xAF\xFE", u"\uE000\uE233", false},
        {"\xF8\xA1\xFE\xFE", u"\uE234\uE4C5", false},
        {"\xA1\x40\xA1\x7E\xA1\x80\xA7\xA0", u"\uE4C6\uE504\uE505\uE765", false},
        {"\xA2\xA0", u"\uE585", false},
        {"\xA2\xAB\xFE\x50\xFE\xA0", u"\uE766\uE815\uE864", false},
    };
    for (const Decoding& c : cases) {
        bool replaced = !c.replaced;
        EXPECT_EQ(text::Utf16FromGbk(c.gbk, &replaced), c.utf16)
            << testing_support::Readable(c.gbk);
        EXPECT_EQ(replaced, c.replaced) << testing_support::Readable(c.gbk);
    }
}

TEST(Gbk, EncodesWithoutGuessing) {
    const Decoding cases[] = {
        {"\x80", u"\u20AC", false},  {"\xA8\xA6", u"\u00E9", false}, {"?", u"\xD83D", true},
        {"??", u"\U0001F600", true}, {"?", u"\u00A0", true},         {"?", u"\u2022", true},
        {"?", u"\u3400", true},      {"\xA1\xAB", u"\uFF5E", false}, {"\xFE\xA0", u"\uE864", false},
        {{"\0", 1}, kNul, false},
    };
    for (const Decoding& c : cases) {
        bool replaced = !c.replaced;
        EXPECT_GBK_EQ(c.gbk, text::GbkFromUtf16(c.utf16, &replaced));
        EXPECT_EQ(replaced, c.replaced) << testing_support::Readable(c.gbk);
    }
}

TEST(Gbk, EveryCodeComesBackFromBothUnicodeForms) {
    int pairs = 0;
    for (unsigned code = 1; code < 0xFFFF; ++code) {
        if (text::Utf16ByGbkCode()[code] == 0 || code == 0xFF) continue;
        std::string gbk;
        if (code > 0xFF) gbk.push_back(static_cast<char>(code >> 8));
        gbk.push_back(static_cast<char>(code & 0xFF));
        ASSERT_EQ(text::GbkFromUtf16(text::Utf16FromGbk(gbk)), gbk) << std::hex << code;
        ASSERT_EQ(text::GbkFromUtf8(text::Utf8FromGbk(gbk)), gbk) << std::hex << code;
        pairs += code > 0xFF;
    }
    EXPECT_EQ(pairs, 126 * 190);
}

TEST(Gbk, LiteralsOfTheProgramAreGbk) {
    EXPECT_STREQ("中文", "\xD6\xD0\xCE\xC4");
    EXPECT_EQ(text::Utf8FromGbk("买入：ａ"), "\xE4\xB9\xB0\xE5\x85\xA5\xEF\xBC\x9A\xEF\xBD\x81");
}

TEST(Gbk, BrokenUtf8IsReplacedAndReported) {
    const struct {
        std::string_view utf8;
        std::string_view gbk;
    } cases[] = {
        {"\xE4\xB8", "?"},            // breaks off
        {"\xE4\xB8x", "?x"},          // broken by a letter, which stays
        {"\x80", "?"},                // starts in the middle
        {"\xC0\xAF", "??"},           // overlong
        {"\xE0\x80\xAF", "?"},        // overlong
        {"\xED\xA0\x80", "?"},        // surrogate
        {"\xF4\x90\x80\x80", "?"},    // past the end of Unicode
        {"\xF0\x9F\x98\x80!", "?!"},  // not in GBK
        {"\xFF\xFE", "??"},
    };
    for (const auto& c : cases) {
        bool replaced = false;
        EXPECT_GBK_EQ(c.gbk, text::GbkFromUtf8(c.utf8, &replaced));
        EXPECT_TRUE(replaced);
    }
}

TEST(Gbk, SteppingNeverPassesTheEnd) {
    const char text[] = "a中\xD6";
    const char* position = text;
    std::vector<std::ptrdiff_t> offsets;
    for (int i = 0; i < 5; ++i) {
        position = text::NextChar(position);
        offsets.push_back(position - text);
    }
    EXPECT_EQ(offsets, (std::vector<std::ptrdiff_t>{1, 3, 4, 4, 4}));
    EXPECT_EQ(text::CharLength(""), 0u);
    EXPECT_EQ(text::CharLength("\xD6"), 1u);
    EXPECT_EQ(text::CharLength(std::string_view("\xD6\0", 2)), 1u);
}

TEST(Gbk, PrefixEndsWhereSteppingPasses) {
    // Trails that look like lead bytes, like letters and like separators; single high bytes.
    const std::string_view texts[] = {"中文abc中",
                                      "\x81\x40\x81\x81\x40\x40",
                                      "\x95\x5C\x95\x5C",
                                      "\x80\x81\x80\xFF\xFE\xFE",
                                      "\xD6",
                                      "a\xD6\xD6\xD6",
                                      "\x81\x30\x81",
                                      ""};
    for (const std::string_view text : texts) {
        for (std::size_t limit = 0; limit <= text.size() + 1; ++limit) {
            std::size_t stepped = 0;
            while (stepped < text.size()) {
                const std::size_t length = text::CharLength(text.substr(stepped));
                if (stepped + length > limit) break;
                stepped += length;
            }
            EXPECT_EQ(text::PrefixLength(text, limit), stepped)
                << testing_support::Readable(text) << " cut to " << limit;
        }
    }
}

TEST(LetterCase, IsIgnoredInLettersOnly) {
    const struct {
        std::string_view left;
        std::string_view right;
        bool equal;
    } cases[] = {
        {"AbC", "aBc", true},
        {"ａＢ", "Ａｂ", true},
        {"Ωλ", "ωΛ", true},
        {"Жё", "жЁ", true},
        {"a", "ab", false},
        {"[", "{", false},
        {"×", "÷", false},
        // Second bytes that are the letters 'A' and 'a'.
        {"\x81\x41", "\x81\x61", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text::EqualNoCase(c.left, c.right), c.equal) << testing_support::Readable(c.left);
    }
}

TEST(Gbk, TablesMayBeAskedFromAnyThread) {
    std::vector<std::thread> threads;
    std::vector<std::string> results(8);
    threads.reserve(results.size());
    for (std::string& result : results) {
        threads.emplace_back([&result] { result = text::GbkFromUtf8(text::Utf8FromGbk("中文")); });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::string& result : results) EXPECT_GBK_EQ("中文", result);
}

TEST(GbkTestMacro, ShowsUtf8AndHex) {
    const auto result = testing_support::GbkEqual("wanted", "got", "买入", "卖\xD6\r");
    EXPECT_FALSE(result);
    const std::string message = result.message();
    EXPECT_NE(message.find("\xE5\x8D\x96<D6><0D>"), std::string::npos) << message;
    EXPECT_NE(message.find("\xE4\xB9\xB0\xE5\x85\xA5"), std::string::npos) << message;
}

}  // namespace
