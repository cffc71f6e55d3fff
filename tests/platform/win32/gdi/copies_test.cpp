#include <gtest/gtest.h>

#include <string>

#include "tests/platform/win32/gdi/canvas.h"

namespace {

/// Four by three: R G B # / # R G B / . . R G.
class Picture {
public:
    Picture() : canvas_(4, 3) {
        const char* rows[] = {"RGB#", "#RGB", "..RG"};
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < 4; ++x) SetPixelV(x, y, rows[y][x]);
        }
    }
    HDC dc() const { return canvas_.dc(); }

private:
    void SetPixelV(int x, int y, char letter) const {
        const COLORREF color = letter == 'R'   ? RGB(255, 0, 0)
                               : letter == 'G' ? RGB(0, 255, 0)
                               : letter == 'B' ? RGB(0, 0, 255)
                               : letter == '#' ? RGB(0, 0, 0)
                                               : RGB(255, 255, 255);
        SetPixel(canvas_.dc(), x, y, color);
    }
    Canvas canvas_;
};

struct CopyCase {
    const char* what;
    BOOL (*copy)(HDC target, HDC source);
    BOOL result;
    const char* rows;
};

const CopyCase kCopies[] = {
    {"inside", [](HDC dc, HDC from) { return BitBlt(dc, 1, 1, 4, 3, from, 0, 0, SRCCOPY); }, TRUE,
     "........ .RGB#... .#RGB... ...RG... ........ ........"},
    {"over the target's edge",
     [](HDC dc, HDC from) { return BitBlt(dc, 6, 4, 4, 3, from, 0, 0, SRCCOPY); }, TRUE,
     "........ ........ ........ ........ ......RG ......#R"},
    {"beyond the source",
     [](HDC dc, HDC from) { return BitBlt(dc, 0, 0, 4, 3, from, 2, 1, SRCCOPY); }, TRUE,
     "GB...... RG...... ........ ........ ........ ........"},
    {"from before the source",
     [](HDC dc, HDC from) { return BitBlt(dc, 0, 0, 4, 3, from, -1, -1, SRCCOPY); }, TRUE,
     "........ .RGB.... .#RG.... ........ ........ ........"},
    {"onto itself, one to the right",
     [](HDC dc, HDC from) {
         BitBlt(dc, 0, 0, 4, 3, from, 0, 0, SRCCOPY);
         return BitBlt(dc, 1, 0, 4, 3, dc, 0, 0, SRCCOPY);
     },
     TRUE, "RRGB#... ##RGB... ...RG... ........ ........ ........"},
    {"onto itself, one down, around a hole",
     [](HDC dc, HDC from) {
         BitBlt(dc, 0, 0, 4, 3, from, 0, 0, SRCCOPY);
         ExcludeClipRect(dc, 1, 2, 2, 3);
         return BitBlt(dc, 0, 1, 4, 3, dc, 0, 0, SRCCOPY);
     },
     TRUE, "RGB#.... RGB#.... #.GB.... ..RG.... ........ ........"},
    {"and, then or",
     [](HDC dc, HDC from) {
         BitBlt(dc, 0, 0, 4, 3, from, 0, 0, SRCAND);
         return BitBlt(dc, 0, 0, 4, 3, from, 0, 0, SRCPAINT);
     },
     TRUE, "RGB#.... #RGB.... ..RG.... ........ ........ ........"},
    {"no width", [](HDC dc, HDC from) { return BitBlt(dc, 0, 0, 0, 3, from, 0, 0, SRCCOPY); }, TRUE,
     "........ ........ ........ ........ ........ ........"},
    {"from nothing", [](HDC dc, HDC) { return BitBlt(dc, 0, 0, 4, 3, nullptr, 0, 0, SRCCOPY); },
     FALSE, "........ ........ ........ ........ ........ ........"},
};

BOOL Stretch(HDC dc, HDC from, int x, int width, int height) {
    SetStretchBltMode(dc, COLORONCOLOR);
    return StretchBlt(dc, x, 0, width, height, from, 0, 0, 4, 3, SRCCOPY);
}

const CopyCase kStretches[] = {
    {"twice as large", [](HDC dc, HDC from) { return Stretch(dc, from, 0, 8, 6); }, TRUE,
     "RRGGBB## RRGGBB## ##RRGGBB ##RRGGBB ....RRGG ....RRGG"},
    {"to two columns", [](HDC dc, HDC from) { return Stretch(dc, from, 0, 2, 3); }, TRUE,
     "G#...... RB...... .G...... ........ ........ ........"},
    {"to three columns", [](HDC dc, HDC from) { return Stretch(dc, from, 0, 3, 3); }, TRUE,
     "RB#..... #GB..... .RG..... ........ ........ ........"},
    {"to five columns", [](HDC dc, HDC from) { return Stretch(dc, from, 0, 5, 3); }, TRUE,
     "RGGB#... #RRGB... ...RG... ........ ........ ........"},
    {"mirrored", [](HDC dc, HDC from) { return Stretch(dc, from, 4, -4, 3); }, TRUE,
     "#BGR.... BGR#.... GR...... ........ ........ ........"},
    {"same size, default mode",
     [](HDC dc, HDC from) { return StretchBlt(dc, 0, 0, 4, 3, from, 0, 0, 4, 3, SRCCOPY); }, TRUE,
     "RGB#.... #RGB.... ..RG.... ........ ........ ........"},
};

BOOL WithoutGreen(HDC dc, HDC from, int width, int height, int source_x) {
    return TransparentBlt(dc, 0, 0, width, height, from, source_x, 0, 4, 3, RGB(0, 255, 0));
}

const CopyCase kTransparent[] = {
    {"same size", [](HDC dc, HDC from) { return WithoutGreen(dc, from, 4, 3, 0); }, TRUE,
     "R.B#.... #R.B.... ..R..... ........ ........ ........"},
    {"twice as large", [](HDC dc, HDC from) { return WithoutGreen(dc, from, 8, 6, 0); }, TRUE,
     "RR..BB## RR..BB## ##RR..BB ##RR..BB ....RR.. ....RR.."},
    {"beyond the source is black", [](HDC dc, HDC from) { return WithoutGreen(dc, from, 4, 3, 2); },
     TRUE, "B###.... .B##.... R.##.... ........ ........ ........"},
    {"negative width", [](HDC dc, HDC from) { return WithoutGreen(dc, from, -4, 3, 0); }, FALSE,
     "........ ........ ........ ........ ........ ........"},
};

template <std::size_t kCount>
void ExpectCopies(const CopyCase (&cases)[kCount]) {
    for (const CopyCase& one : cases) {
        const Picture picture;
        const Canvas canvas(8, 6);
        EXPECT_EQ(one.result, one.copy(canvas.dc(), picture.dc())) << one.what;
        EXPECT_EQ(one.rows, canvas.Rows()) << one.what;
    }
}

TEST(Copies, KeepSizeAndCombine) { ExpectCopies(kCopies); }
TEST(Copies, StretchByRepeatingOrLeavingOut) { ExpectCopies(kStretches); }
TEST(Copies, LeaveOutTheTransparentColor) { ExpectCopies(kTransparent); }

TEST(Copies, AlphaLaysOneOverTheOther) {
    const Canvas over(2, 1);
    const Canvas under(2, 1);
    SetPixel(over.dc(), 0, 0, RGB(0, 0, 0));
    const BLENDFUNCTION half{AC_SRC_OVER, 0, 128, 0};
    EXPECT_TRUE(AlphaBlend(under.dc(), 0, 0, 2, 1, over.dc(), 0, 0, 2, 1, half));
    EXPECT_NEAR(127, static_cast<int>(under.At(0, 0) & 0xFF), 1);
    EXPECT_EQ(0xFFFFFFu, under.At(1, 0));
    EXPECT_FALSE(AlphaBlend(under.dc(), 0, 0, 2, 1, over.dc(), 1, 0, 2, 1, half))
        << "beyond the source";
}

TEST(Copies, PixelsOfASectionAreTheProgramsOwn) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 2, 2, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(nullptr, bits);
    static_cast<DWORD*>(bits)[0] = 0xFF0000;  // the first row in memory is the bottom one
    const Canvas canvas(2, 2);
    const HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, bitmap);
    BitBlt(canvas.dc(), 0, 0, 2, 2, dc, 0, 0, SRCCOPY);
    EXPECT_EQ("## R#", canvas.Rows());
    BITMAP record{};
    EXPECT_EQ(static_cast<int>(sizeof record), GetObjectA(bitmap, sizeof record, &record));
    EXPECT_TRUE(record.bmBits == bits && record.bmWidth == 2 && record.bmHeight == 2);
    DeleteDC(dc);
    DeleteObject(bitmap);
}

TEST(Copies, BitmapsOfOtherFormatsAreRefused) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 0, 2, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = &info;
    EXPECT_EQ(nullptr, CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    EXPECT_EQ(nullptr, bits);
    EXPECT_EQ(nullptr, CreateDIBSection(nullptr, nullptr, DIB_RGB_COLORS, nullptr, nullptr, 0));
}

}  // namespace
