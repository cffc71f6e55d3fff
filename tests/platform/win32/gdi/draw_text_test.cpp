#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/platform/win32/gdi/canvas.h"

namespace {

constexpr int kWidth = 120;
constexpr int kHeight = 40;

/// White, with a 12 pixel font and transparent ground. Expectations are made of the font's own
/// measures, so that they hold with any installed face.
class DrawTextTest : public testing::Test {
protected:
    DrawTextTest()
        : canvas_(kWidth, kHeight),
          font_(canvas_.dc(),
                CreateFontA(12, 0, 0, 0, 400, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体")) {
        SetBkMode(canvas_.dc(), TRANSPARENT);
        TEXTMETRICA metrics;
        GetTextMetricsA(canvas_.dc(), &metrics);
        cell_ = metrics.tmHeight;
        ascent_ = metrics.tmAscent;
        average_ = metrics.tmAveCharWidth;
    }

    HDC dc() const { return canvas_.dc(); }
    int WidthOf(const std::string& text) const {
        SIZE size{};
        GetTextExtentPoint32A(dc(), text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }
    /// The ink alone of a drawing.
    RECT Draw(const std::string& text, RECT rect, UINT format) {
        canvas_.Clear();
        result_ = DrawTextA(dc(), text.c_str(), -1, &rect, format);
        return canvas_.Ink();
    }
    RECT Calculate(const std::string& text, RECT rect, UINT format) {
        result_ = DrawTextA(dc(), text.c_str(), -1, &rect, format | DT_CALCRECT);
        return rect;
    }
    /// Columns that a text inks when it begins at 0.
    RECT InkOf(const std::string& text) { return Draw(text, {0, 0, kWidth, kHeight}, DT_NOCLIP); }

    Canvas canvas_;
    Selected font_;
    int cell_ = 0;
    int ascent_ = 0;
    int average_ = 0;
    int result_ = 0;
};

TEST_F(DrawTextTest, OneLineStandsWhereTheFormatSays) {
    struct {
        const char* what;
        UINT format;
        RECT rect;
    } const cases[] = {
        {"left", 36, {10, 5, 110, 35}},
        {"left, odd rest", 36, {10, 5, 110, 34}},
        {"centred", 37, {10, 5, 110, 35}},
        {"centred, odd rest", 37, {11, 5, 110, 35}},
        {"right", 38, {10, 5, 110, 35}},
        {"right, odd rest", 38, {10, 4, 109, 35}},
        {"bottom", DT_SINGLELINE | DT_BOTTOM, {10, 5, 110, 35}},
        {"top", DT_SINGLELINE, {10, 5, 110, 35}},
    };
    const std::string text = "HHH";
    const int width = WidthOf(text);
    const RECT ink = InkOf(text);
    for (const auto& one : cases) {
        int x = one.rect.left;
        if (one.format & DT_CENTER) x += (one.rect.right - one.rect.left - width) / 2;
        if (one.format & DT_RIGHT) x = one.rect.right - width;
        const int room = one.rect.bottom - one.rect.top - cell_;
        const int y = one.format & DT_VCENTER ? room / 2 : one.format & DT_BOTTOM ? room : 0;
        const RECT expected{ink.left + x, ink.top + one.rect.top + y, ink.right + x,
                            ink.bottom + one.rect.top + y};
        EXPECT_EQ(Text(expected), Text(Draw(text, one.rect, one.format))) << one.what;
        EXPECT_EQ(y + cell_, result_) << one.what;
        const RECT calculated{one.rect.left, one.rect.top, one.rect.left + width,
                              one.rect.top + y + cell_};
        EXPECT_EQ(Text(calculated), Text(Calculate(text, one.rect, one.format))) << one.what;
    }
}

TEST_F(DrawTextTest, TheRectangleCutsUnlessToldOtherwise) {
    const RECT narrow{40, 5, 60, 35};
    for (const UINT format : {36u, 37u, 38u}) {
        const RECT ink = Draw("HHHHHHHH", narrow, format);
        EXPECT_TRUE(ink.left >= 40 && ink.right <= 60 && ink.right - ink.left > 10) << Text(ink);
        const RECT whole = Draw("HHHHHHHH", narrow, format | DT_NOCLIP);
        EXPECT_GT(whole.right - whole.left, 20);
    }
    const RECT low{10, 15, 110, 21};
    const RECT ink = Draw("HHH", low, 36);
    EXPECT_TRUE(ink.top >= 15 && ink.bottom <= 21 && ink.bottom > ink.top) << Text(ink);
    EXPECT_EQ((6 - cell_) / 2 + cell_, result_);
}

TEST_F(DrawTextTest, RectanglesWithoutAreaShowNothing) {
    EXPECT_EQ("0,0-0,0", Text(Draw("HHH", {110, 35, 10, 5}, 36)));
    EXPECT_EQ((-30 - cell_) / 2 + cell_, result_);
    EXPECT_EQ("0,0-0,0", Text(Draw("HHH", {10, 10, 10, 10}, 36)));
    EXPECT_EQ(-cell_ / 2 + cell_, result_);
}

TEST_F(DrawTextTest, AmpersandsUnderlineOrDouble) {
    const RECT rect{10, 5, 110, 35};
    const int top = 5 + (30 - cell_) / 2;
    struct {
        const char* text;
        const char* shown;
        UINT format;
        bool underlined;
    } const cases[] = {{"a&H", "aH", 36, true},
                       {"H&&H", "H&H", 36, false},
                       {"HH&", "HH", 36, false},
                       {"a&H", "a&H", 36 | DT_NOPREFIX, false}};
    for (const auto& one : cases) {
        EXPECT_EQ(10 + WidthOf(one.shown), Calculate(one.text, rect, one.format).right) << one.text;
        const RECT ink = Draw(one.text, rect, one.format);
        const RECT plain = Draw(one.shown, rect, 36 | DT_NOPREFIX);
        EXPECT_EQ(one.underlined ? top + ascent_ + 2 : plain.bottom, ink.bottom) << one.text;
    }
}

TEST_F(DrawTextTest, EmptyTextsDifferFromNoText) {
    RECT rect{10, 5, 110, 35};
    EXPECT_EQ(0, DrawTextA(dc(), "HHH", 0, &rect, 36 | DT_CALCRECT));
    EXPECT_EQ("10,5-110,35", Text(rect));
    const RECT calculated{10, 5, 10, 5 + cell_};
    EXPECT_EQ(Text(calculated), Text(Calculate("", rect, 36)));
    EXPECT_EQ(cell_, result_);
    EXPECT_EQ(0, DrawTextA(dc(), nullptr, -1, &rect, 36));
    EXPECT_EQ(0, DrawTextA(dc(), "H", -1, nullptr, 36));
    EXPECT_EQ(0, DrawTextA(nullptr, "H", -1, &rect, 36));
}

TEST_F(DrawTextTest, LinesEndAtLineFeedsAndReturns) {
    const RECT rect{10, 5, 110, 40};
    const std::string texts[] = {"H\r\nH", "H\nH", "H\rH"};
    for (const std::string& text : texts) {
        const RECT expected{10, 5, 10 + WidthOf("H"), 5 + 2 * cell_};
        EXPECT_EQ(Text(expected), Text(Calculate(text, rect, DT_LEFT)));
        EXPECT_EQ(2 * cell_, result_);
    }
    // The middle is for one line only.
    Calculate("H", rect, DT_VCENTER);
    EXPECT_EQ(cell_, result_);
}

TEST_F(DrawTextTest, WordsBreakAtBlanksAndChineseAnywhere) {
    const int two = WidthOf("HHH HHH") + 1;
    Calculate("HHH HHH HHH", {10, 0, 10 + two, 40}, DT_WORDBREAK);
    EXPECT_EQ(2 * cell_, result_);
    Calculate("HHH HHH HHH", {10, 0, 10 + WidthOf("HHH") + 1, 40}, DT_WORDBREAK);
    EXPECT_EQ(3 * cell_, result_);
    const RECT chinese =
        Calculate("中文中文中文", {10, 0, 10 + WidthOf("中文中") + 2, 40}, DT_WORDBREAK);
    const RECT expected{10, 0, 10 + WidthOf("中文中"), 2 * cell_};
    EXPECT_EQ(Text(expected), Text(chinese));
    // A word that fits nowhere stays whole.
    Calculate("HHHHHHHHHH", {10, 0, 20, 40}, DT_WORDBREAK);
    EXPECT_EQ(cell_, result_);
}

TEST_F(DrawTextTest, EllipsisStandsForWhatDoesNotFit) {
    const std::string text = "HHHHHHHHHH";
    const int room = WidthOf("HHHH...") + 2;
    const RECT rect{10, 5, 10 + room, 35};
    const RECT calculated = Calculate(text, rect, 36 | DT_END_ELLIPSIS);
    EXPECT_EQ(10 + WidthOf("HHHH..."), calculated.right);
    EXPECT_EQ(Text(Draw("HHHH...", rect, 36)), Text(Draw(text, rect, 36 | DT_END_ELLIPSIS)));
    EXPECT_EQ(10 + WidthOf("HHHH"), Calculate("HHHH", rect, 36 | DT_END_ELLIPSIS).right);
    const RECT chinese{0, 0, WidthOf("中文...") + 3, 20};
    EXPECT_EQ(WidthOf("中文..."), Calculate("中文中文中文", chinese, 36 | DT_END_ELLIPSIS).right);
}

TEST_F(DrawTextTest, TabsReachTheNextEighthCharacter) {
    const RECT rect{0, 5, 120, 35};
    EXPECT_EQ(8 * average_ + WidthOf("H"), Calculate("H\tH", rect, 36 | DT_EXPANDTABS).right);
    EXPECT_EQ(16 * average_ + WidthOf("H"),
              Calculate("HHHHHHHH\tH", rect, 36 | DT_EXPANDTABS).right);
    const RECT ink = Draw("\tH", rect, 36 | DT_EXPANDTABS);
    EXPECT_GE(ink.left, 8 * average_);
}

TEST_F(DrawTextTest, AHalfCharacterShowsNothing) {
    RECT rect{10, 5, 110, 35};
    canvas_.Clear();
    DrawTextA(dc(), "中文", 3, &rect, 36);
    const RECT cut = canvas_.Ink();
    EXPECT_EQ(Text(Draw("中", rect, 36)), Text(cut));
}

TEST_F(DrawTextTest, ExtentsAgreeWithWhatIsPainted) {
    SetBkMode(dc(), OPAQUE);
    SetBkColor(dc(), RGB(255, 0, 0));
    const std::string texts[] = {"172944.00", "黄金延期", "Au(T+D) 买入", "iiii", "，。“”"};
    const char* const faces[] = {"宋体", "Arial", "Tahoma", "微软雅黑", "nobody knows this one"};
    for (const char* face : faces) {
        const Selected font(
            dc(), CreateFontA(13, 0, 0, 0, 700, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, face));
        for (const std::string& text : texts) {
            canvas_.Clear();
            SIZE size{};
            const int length = static_cast<int>(text.size());
            ASSERT_TRUE(GetTextExtentPoint32A(dc(), text.c_str(), length, &size));
            ASSERT_LE(size.cx + 4, kWidth);
            TextOutA(dc(), 4, 2, text.c_str(), length);
            const RECT ink = canvas_.Ink();
            const RECT cell{4, 2, 4 + size.cx, 2 + size.cy};
            RECT both;
            UnionRect(&both, &ink, &cell);
            // Ink may reach a pixel over the cell, the ground fills all of it.
            EXPECT_TRUE(both.left >= 3 && both.right <= cell.right + 1) << face << Text(ink);
            EXPECT_EQ(RGB(255, 0, 0), GetPixel(dc(), 4 + size.cx - 1, 2 + size.cy - 1)) << face;
            RECT calculated{};
            DrawTextA(dc(), text.c_str(), -1, &calculated, DT_CALCRECT | DT_SINGLELINE);
            EXPECT_TRUE(calculated.right == size.cx && calculated.bottom == size.cy) << face;
        }
    }
}

}  // namespace
