#include "platform/win32/controls/edit_text.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/win32/controls/edit_layout.h"
#include "tests/support/gbk_text.h"

namespace winbase {
namespace {

TEST(EditText, AnyBytesComeBackAsTheyWentIn) {
    const std::string texts[] = {
        "", "abc", "中文ab", "\xD6", "ab\xD6", "\x80\xFF", "\x81 \x82\x40 \xFE\xFE\xFE"};
    for (const std::string& text : texts) {
        const Codes codes = CodesFromBytes(text);
        EXPECT_GBK_EQ(text, BytesFromCodes(codes));
        EXPECT_EQ(text.size(), ByteLength(codes));
    }
    EXPECT_EQ(4u, CodesFromBytes("中文ab").size());
}

TEST(EditText, LineEndsAreKeptInTheWayOfEachKind) {
    const struct {
        LineEnds ends;
        const char* set;
        std::size_t size;
        const char* bytes;
    } kCases[] = {
        {LineEnds::kSingleLine, "a\r\nb", 4, "a\r\nb"},
        {LineEnds::kPairs, "a\r\nb", 4, "a\r\nb"},
        {LineEnds::kPairs, "a\nb", 3, "a\nb"},
        {LineEnds::kReturns, "a\r\nb\r\n", 4, "a\r\nb\r\n"},
        {LineEnds::kReturns, "a\nb\rc", 5, "a\r\nb\r\nc"},
    };
    for (const auto& one : kCases) {
        EditText text(one.ends);
        text.Assign(one.set);
        EXPECT_EQ(one.size, text.size()) << one.set;
        EXPECT_EQ(one.bytes, text.Bytes());
    }
}

TEST(EditText, ForeignTextEndsASingleLineAtItsFirstLineEnd) {
    EXPECT_EQ(u"ab", EditText(LineEnds::kSingleLine).Convert("ab\r\ncd"));
    EXPECT_EQ(u"ab\r\ncd\r\n", EditText(LineEnds::kPairs).Convert("ab\ncd\r"));
    EXPECT_EQ(u"ab\rcd", EditText(LineEnds::kReturns).Convert("ab\r\ncd"));
}

TEST(EditText, TheCaretTreatsALineEndAsOneStep) {
    EditText text(LineEnds::kPairs);
    text.Assign("a\r\nb");
    EXPECT_EQ(3u, text.Behind(1));
    EXPECT_EQ(1u, text.Before(3));
    EXPECT_EQ(4u, text.Behind(4));
    EXPECT_EQ(0u, text.Before(0));
    text.Select(2, 2);
    EXPECT_EQ(1u, text.caret());
    text.Select(99, 1);
    EXPECT_EQ(4u, text.selection_end());
    EXPECT_EQ(1u, text.caret());
}

TEST(EditText, WordsEndAtBlanksAndWhereScriptsMeet) {
    EditText text(LineEnds::kSingleLine);
    text.Assign("one  two中文x");
    const struct {
        std::size_t from;
        std::size_t before;
        std::size_t behind;
    } kCases[] = {{0, 0, 5},  {1, 0, 5},  {4, 0, 5},   {5, 0, 8},
                  {8, 5, 10}, {9, 8, 10}, {10, 8, 11}, {99, 10, 11}};
    for (const auto& one : kCases) {
        EXPECT_EQ(one.before, text.WordBefore(one.from)) << one.from;
        EXPECT_EQ(one.behind, text.WordBehind(one.from)) << one.from;
    }
}

TEST(EditText, UndoTurnsTheLastChangeBackAndForth) {
    EditText text(LineEnds::kSingleLine);
    text.Assign("hello");
    EXPECT_FALSE(text.Undo());
    text.Select(1, 3);
    text.Replace(u"XYZ");
    EXPECT_EQ("hXYZlo", text.Bytes());
    EXPECT_TRUE(text.Undo());
    EXPECT_EQ("hello", text.Bytes());
    EXPECT_EQ(u"el", text.selected());
    EXPECT_TRUE(text.Undo());
    EXPECT_EQ("hXYZlo", text.Bytes());
    text.Assign("new");
    EXPECT_FALSE(text.can_undo());
}

class EditLayoutTest : public ::testing::Test {
protected:
    EditLayoutTest() {
        font_ = CreateFontA(-12, 0, 0, 0, FW_NORMAL, 0, 0, 0, GB2312_CHARSET, 0, 0, 0, 0, "宋体");
        widths_.SetFont(font_);
    }
    void TearDown() override { DeleteObject(font_); }

    std::string Lines(EditText& text, const char* bytes, int wrap) {
        text.Assign(bytes);
        layout_.Break(text, widths_, wrap);
        std::string lines;
        for (const TextLine& line : layout_.lines()) {
            const auto codes = std::u16string_view(text.codes());
            lines += "[" + BytesFromCodes(codes.substr(line.start, line.end - line.start)) + "]";
        }
        return lines;
    }

    HFONT font_;
    CharacterWidths widths_;
    EditLayout layout_;
};

TEST_F(EditLayoutTest, BreaksAtLineEndsAndWhereTheWidthEnds) {
    EditText pairs(LineEnds::kPairs);
    EditText returns(LineEnds::kReturns);
    EditText single(LineEnds::kSingleLine);
    EXPECT_EQ("[]", Lines(pairs, "", 0));
    EXPECT_EQ("[one][two][]", Lines(pairs, "one\r\ntwo\r\n", 0));
    EXPECT_EQ("[a][b]", Lines(pairs, "a\nb", 0));
    EXPECT_EQ("[a][b][]", Lines(returns, "a\r\nb\r\n", 0));
    EXPECT_EQ("[a\r\nb]", Lines(single, "a\r\nb", 0));
    EXPECT_EQ("[one ][two ][three]", Lines(pairs, "one two three", 36));
    EXPECT_EQ("[abcdef][gh]", Lines(pairs, "abcdefgh", 36));
    EXPECT_GBK_EQ("[中文字][符]", Lines(pairs, "中文字符", 36));
    EXPECT_GBK_EQ("[中][a]", Lines(pairs, "中a", 1));
}

TEST_F(EditLayoutTest, EveryPositionStandsInTheLineThatStartsBeforeIt) {
    EditText text(LineEnds::kPairs);
    Lines(text, "one\r\ntwo\r\n", 0);
    const std::size_t lines[] = {0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 2};
    for (std::size_t at = 0; at < std::size(lines); ++at) {
        EXPECT_EQ(lines[at], layout_.LineOf(at)) << at;
    }
}

TEST_F(EditLayoutTest, MeasuresTheMaskInsteadOfTheCharacters) {
    EXPECT_EQ(12, widths_.Of(CodesFromBytes("中")));
    widths_.SetMask(u'*');
    EXPECT_EQ(12, widths_.Of(CodesFromBytes("中a")));
}

// Whatever the text and the width: the lines cover all of it, in order and without a gap.
TEST_F(EditLayoutTest, LinesCoverAnyText) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::string bytes;
        const auto length = random() % 60;
        for (unsigned at = 0; at < length; ++at) {
            bytes.push_back("ab \r\n\t\xD6\xD0\xCE"[random() % 9]);
        }
        EditText text(round % 2 == 0 ? LineEnds::kPairs : LineEnds::kReturns);
        text.Assign(bytes);
        layout_.Break(text, widths_, static_cast<int>(random() % 80));
        std::size_t next = 0;
        for (const TextLine& line : layout_.lines()) {
            ASSERT_EQ(next, line.start);
            ASSERT_LE(line.start, line.end);
            ASSERT_LE(line.end, line.next);
            next = line.next;
        }
        ASSERT_EQ(text.size(), next);
    }
}

}  // namespace
}  // namespace winbase
