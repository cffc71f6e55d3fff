#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/platform/win32/gdi/canvas.h"

namespace {

HFONT MakeFont(int height, const char* face, int weight = FW_NORMAL, int width = 0) {
    return CreateFontA(height, width, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, face);
}

class TextTest : public testing::Test {
protected:
    TextTest() : canvas_(60, 24), font_(canvas_.dc(), MakeFont(12, "宋体")) {
        SetBkMode(canvas_.dc(), TRANSPARENT);
    }
    HDC dc() const { return canvas_.dc(); }
    RECT InkAfter(UINT align, int x, int y) {
        canvas_.Clear();
        SetTextAlign(dc(), align);
        TextOutA(dc(), x, y, "H", 1);
        return canvas_.Ink();
    }

    Canvas canvas_;
    Selected font_;
};

int Width(HDC dc, const std::string& text) {
    SIZE size{};
    GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

TEST_F(TextTest, ExtentsAreSumsOfAdvances) {
    EXPECT_EQ(Width(dc(), "a") + Width(dc(), "&") + Width(dc(), "b"), Width(dc(), "a&b"));
    EXPECT_EQ(3 * Width(dc(), "i"), Width(dc(), "iii"));
    EXPECT_EQ(2 * Width(dc(), "中"), Width(dc(), "中文"));
    SIZE size{1, 1};
    EXPECT_TRUE(GetTextExtentPoint32A(dc(), "", 0, &size));
    EXPECT_TRUE(size.cx == 0 && size.cy == 0);
    EXPECT_FALSE(GetTextExtentPoint32A(dc(), "a", -1, &size));
}

TEST_F(TextTest, PricesFitTheirColumnsAndDigitsHaveOneWidth) {
    EXPECT_LE(Width(dc(), "172944.00"), 60);
    for (const char* face : {"宋体", "Arial", "Tahoma"}) {
        const Selected font(dc(), MakeFont(12, face));
        for (char digit = '1'; digit <= '9'; ++digit) {
            EXPECT_EQ(Width(dc(), "0"), Width(dc(), std::string(1, digit))) << face;
        }
    }
}

TEST_F(TextTest, PartialExtentsTellHowMuchFits) {
    const int one = Width(dc(), "a");
    const int two = Width(dc(), "a中");
    int fit = -1;
    int partial[4] = {-1, -1, -1, -1};
    SIZE size{};
    ASSERT_TRUE(GetTextExtentExPointA(dc(), "a中b", 4, two, &fit, partial, &size));
    EXPECT_EQ(3, fit);
    EXPECT_EQ(one, partial[0]);
    EXPECT_EQ(two, partial[2]);
    EXPECT_EQ(-1, partial[3]);
    EXPECT_EQ(Width(dc(), "a中b"), size.cx);
    GetTextExtentExPointA(dc(), "a中b", 4, two - 1, &fit, nullptr, &size);
    EXPECT_EQ(1, fit) << "no half character fits";
}

TEST_F(TextTest, AlignmentPutsTheCellBesideThePoint) {
    const RECT plain = InkAfter(TA_LEFT, 20, 4);
    const int width = Width(dc(), "H");
    TEXTMETRICA metrics;
    GetTextMetricsA(dc(), &metrics);
    struct {
        UINT align;
        int x;
        int y;
    } const cases[] = {{TA_RIGHT, 20 + width, 4},
                       {TA_CENTER, 20 + width / 2, 4},
                       {TA_BASELINE, 20, 4 + metrics.tmAscent},
                       {TA_BOTTOM, 20, 4 + metrics.tmHeight},
                       {TA_RIGHT | TA_BOTTOM, 20 + width, 4 + metrics.tmHeight}};
    for (const auto& one : cases) {
        EXPECT_EQ(Text(plain), Text(InkAfter(one.align, one.x, one.y))) << one.align;
    }
    MoveToEx(dc(), 20, 4, nullptr);
    EXPECT_EQ(Text(plain), Text(InkAfter(TA_UPDATECP, 0, 0)));
    POINT position{};
    GetCurrentPositionEx(dc(), &position);
    EXPECT_TRUE(position.x == 20 + width && position.y == 4);
}

TEST_F(TextTest, OpaqueTextFillsItsCell) {
    SetBkMode(dc(), OPAQUE);
    SetBkColor(dc(), RGB(255, 0, 0));
    EXPECT_TRUE(TextOutA(dc(), 4, 2, "H", 1));
    TEXTMETRICA metrics;
    GetTextMetricsA(dc(), &metrics);
    const RECT cell{4, 2, 4 + Width(dc(), "H"), 2 + metrics.tmHeight};
    EXPECT_EQ(Text(cell), Text(canvas_.Ink()));
}

TEST_F(TextTest, RectanglesFillAndCut) {
    SetBkColor(dc(), RGB(0, 0, 255));
    const RECT rect{10, 4, 50, 20};
    EXPECT_TRUE(ExtTextOutA(dc(), 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr));
    EXPECT_EQ(Text(rect), Text(canvas_.Ink()));
    canvas_.Clear();
    const RECT narrow{4, 2, 8, 24};
    ExtTextOutA(dc(), 4, 2, ETO_CLIPPED, &narrow, "HHH", 3, nullptr);
    const RECT ink = canvas_.Ink();
    EXPECT_TRUE(ink.left >= 4 && ink.right <= 8 && ink.right > ink.left) << Text(ink);
}

TEST_F(TextTest, AdvancesMayBeGiven) {
    const int advances[] = {20, 15, 15, 5};
    TextOutA(dc(), 20, 2, "H", 1);
    const RECT second = canvas_.Ink();
    canvas_.Clear();
    ExtTextOutA(dc(), 0, 2, 0, nullptr, " H", 2, advances);
    EXPECT_EQ(Text(second), Text(canvas_.Ink()));
}

TEST_F(TextTest, HeightsAreOfTheCellOrOfTheCharacter) {
    for (const char* face : {"宋体", "Arial", "Tahoma", "微软雅黑"}) {
        for (const int height : {9, 12, 13, 15, 24}) {
            TEXTMETRICA metrics;
            const Selected cell(dc(), MakeFont(height, face));
            GetTextMetricsA(dc(), &metrics);
            EXPECT_EQ(height, metrics.tmHeight) << face;
            EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent) << face;
            const Selected character(dc(), MakeFont(-height, face));
            GetTextMetricsA(dc(), &metrics);
            EXPECT_EQ(height, metrics.tmHeight - metrics.tmInternalLeading) << face;
        }
    }
    const Selected wide(dc(), MakeFont(16, "Arial", FW_NORMAL, 8));
    TEXTMETRICA metrics;
    GetTextMetricsA(dc(), &metrics);
    EXPECT_EQ(8, metrics.tmAveCharWidth);
}

TEST_F(TextTest, WeightAndUnderlineShow) {
    const auto darkness = [this] {
        int sum = 0;
        for (int y = 0; y < 24; ++y) {
            for (int x = 0; x < 60; ++x) sum += 255 - static_cast<int>(canvas_.At(x, y) & 0xFF);
        }
        return sum;
    };
    TextOutA(dc(), 2, 2, "买入", 4);
    const int regular = darkness();
    canvas_.Clear();
    const Selected bold(dc(), MakeFont(12, "宋体", FW_BOLD));
    TextOutA(dc(), 2, 2, "买入", 4);
    EXPECT_GT(darkness(), regular * 5 / 4);
    LOGFONTA log{};
    GetObjectA(GetCurrentObject(dc(), OBJ_FONT), sizeof log, &log);
    log.lfUnderline = 1;
    const Selected underlined(dc(), CreateFontIndirectA(&log));
    canvas_.Clear();
    TextOutA(dc(), 2, 2, "   ", 3);
    const RECT line = canvas_.Ink();
    EXPECT_TRUE(line.left == 2 && line.right == 2 + Width(dc(), "   ")) << Text(line);
}

TEST_F(TextTest, AnyBytesCanBeDrawn) {
    std::string bytes;
    for (int first = 0; first < 256; ++first) {
        for (const int second : {0x00, 0x20, 0x40, 0x7F, 0x80, 0xA1, 0xFE, 0xFF}) {
            bytes += static_cast<char>(first);
            bytes += static_cast<char>(second);
        }
    }
    for (std::size_t at = 0; at < bytes.size(); at += 5) {
        const std::string part = bytes.substr(at, 9);
        const int length = static_cast<int>(part.size());
        EXPECT_TRUE(TextOutA(dc(), 0, 0, part.data(), length));
        RECT rect{0, 0, 30, 24};
        for (const UINT format : {36u, 36u | DT_END_ELLIPSIS, UINT{DT_WORDBREAK | DT_EXPANDTABS}}) {
            DrawTextA(dc(), part.data(), length, &rect, format);
        }
        EXPECT_GT(Width(dc(), part), 0);
    }
}

}  // namespace
