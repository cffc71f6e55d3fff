#include "host/skin/skin_bitmaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <set>
#include <utility>
#include <vector>

#include "host/skin/menu_icons.h"
#include "host/skin/palette.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/ui_callback.h"

namespace {

using skin::SkinBitmaps;

struct Served {
    int group;
    int index;
    int pictures;  ///< side by side
    int width;     ///< of one
    int height;
};

constexpr Served kServed[] = {
    {kSkinPages, 1, 4, 60, 20},   {kSkinPages, 3, 4, 72, 25},
    {kSkinPages, 4, 4, 60, 20},   {kSkinPages, 7, static_cast<int>(skin::MenuIcon::kCount), 16, 16},
    {kSkinPages, 8, 1, 518, 104}, {kSkinPages, 9, 3, 24, 40},
    {kSkinPages, 12, 1, 16, 36},  {kSkinPages, 13, 4, 20, 20},
    {kSkinPages, 14, 4, 21, 160}, {kSkinPages, 18, 1, 16, 16},
    {kSkinPages, 28, 2, 7, 9},    {kSkinPages, 68, 4, 22, 22},
    {kSkinPages, 69, 4, 22, 22},  {kSkinPages, 73, 8, 14, 14},
    {kSkinPages, 74, 8, 14, 14},  {kSkinPanels, 0, 1, 8, 2},
    {kSkinPanels, 1, 4, 96, 48},  {kSkinPanels, 2, 4, 96, 48},
    {kSkinPanels, 3, 4, 48, 22},  {kSkinPanels, 4, 4, 48, 22},
    {kSkinPanels, 5, 4, 48, 22},  {kSkinPanels, 6, 1, 14, 30},
    {kSkinPanels, 7, 4, 40, 20},
};

std::ostream& operator<<(std::ostream& out, const Served& served) {
    return out << '(' << served.group << ", " << served.index << ')';
}

/// The colours of one of the pictures, row by row, on a ground.
std::vector<COLORREF> PixelsOf(HBITMAP bitmap, int picture, int width, int height) {
    CDC dc;
    CClientDC desktop(nullptr);
    dc.CreateCompatibleDC(&desktop);
    const toolkit::ScopedSelect select(dc, bitmap);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) pixels.push_back(dc.GetPixel(picture * width + x, y));
    }
    return pixels;
}

/// Relative luminance, and the contrast of two colours by it.
double Luminance(COLORREF color) {
    const auto part = [](int value) {
        const double v = value / 255.0;
        return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(GetRValue(color)) + 0.7152 * part(GetGValue(color)) +
           0.0722 * part(GetBValue(color));
}

double Contrast(COLORREF a, COLORREF b) {
    const double x = Luminance(a);
    const double y = Luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

TEST(SkinBitmaps, EveryNumberHasPicturesOfItsSize) {
    SkinBitmaps skin;
    for (const Served& served : kServed) {
        BITMAP info{};
        HBITMAP const bitmap = skin.Get(served.group, served.index);
        ASSERT_NE(bitmap, nullptr) << served;
        ASSERT_NE(::GetObjectA(bitmap, sizeof(info), &info), 0) << served;
        EXPECT_EQ(info.bmWidth, served.pictures * served.width) << served;
        EXPECT_EQ(info.bmHeight, served.height) << served;
        EXPECT_EQ(info.bmBitsPixel, 32) << served;
    }
}

TEST(SkinBitmaps, OtherNumbersHaveNone) {
    SkinBitmaps skin;
    std::set<std::pair<int, int>> known;
    for (const Served& served : kServed) known.insert({served.group, served.index});
    for (int group = -1; group <= 3; ++group) {
        for (int index = -1; index <= 100; ++index) {
            EXPECT_EQ(skin.Get(group, index) != nullptr, known.contains({group, index}))
                << group << ", " << index;
        }
    }
}

TEST(SkinBitmaps, EveryPictureOfABitmapDiffersFromTheOthers) {
    SkinBitmaps skin;
    for (const Served& served : kServed) {
        HBITMAP const bitmap = skin.Get(served.group, served.index);
        std::set<std::vector<COLORREF>> pictures;
        for (int i = 0; i < served.pictures; ++i)
            pictures.insert(PixelsOf(bitmap, i, served.width, served.height));
        EXPECT_EQ(static_cast<int>(pictures.size()), served.pictures) << served;
    }
}

TEST(SkinBitmaps, AreDrawnOnceAndGoWithTheirOwner) {
    HBITMAP first = nullptr;
    BITMAP info{};
    {
        SkinBitmaps skin;
        first = skin.Get(kSkinPages, 1);
        EXPECT_EQ(skin.Get(kSkinPages, 1), first);
        EXPECT_NE(skin.Get(kSkinPages, 3), first);
        EXPECT_NE(::GetObjectA(first, sizeof(info), &info), 0);
    }
    EXPECT_EQ(::GetObjectA(first, sizeof(info), &info), 0);
}

TEST(SkinBitmaps, SpareEdgesAreOfOneHeightSoThatMiddlesStretch) {
    // Captions need a quiet ground, and stretched columns must not smear: between the outer six
    // columns every row of a face is of one colour.
    SkinBitmaps skin;
    for (const Served& served : kServed) {
        const bool face = served.pictures == 4 && served.width >= 40;
        if (!face) continue;
        for (int i = 0; i < 4; ++i) {
            const auto pixels =
                PixelsOf(skin.Get(served.group, served.index), i, served.width, served.height);
            for (int y = 0; y < served.height; ++y) {
                for (int x = 6; x < served.width - 6; ++x) {
                    const auto row = static_cast<std::size_t>(y * served.width);
                    ASSERT_EQ(pixels[row + static_cast<std::size_t>(x)], pixels[row + 6])
                        << served << " picture " << i;
                }
            }
        }
    }
}

TEST(SkinBitmaps, TheExpanderHasOneColourOnPureWhite) {
    SkinBitmaps skin;
    const auto pixels = PixelsOf(skin.Get(kSkinPages, 28), 0, 14, 9);
    const std::set<COLORREF> colors(pixels.begin(), pixels.end());
    EXPECT_EQ(colors, (std::set<COLORREF>{RGB(255, 255, 255), skin::kLight.secondary}));
}

TEST(SkinBitmaps, FramesOfTradeButtonsCanBeReadOnDisabledFaces) {
    SkinBitmaps skin;
    std::set<COLORREF> frames;
    for (const int index : {1, 2, 3, 4}) {
        HBITMAP const bitmap = skin.Get(kSkinPanels, index);
        const int width = index < 3 ? 96 : 48;
        const COLORREF frame = PixelsOf(bitmap, 0, width, 1)[10];
        const std::vector<COLORREF> disabled = PixelsOf(bitmap, 3, width, 11);
        EXPECT_GE(Contrast(frame, disabled[static_cast<std::size_t>(10 * width + 10)]), 3.0);
        frames.insert(frame);
    }
    EXPECT_EQ(frames.size(), 2U) << "the frame tells buy from sell";
}

TEST(SkinBitmaps, FinerOnesKeepTheirSize) {
    SkinBitmaps fine(2);
    for (const Served& served : kServed) {
        BITMAP info{};
        HBITMAP const bitmap = fine.Get(served.group, served.index);
        ASSERT_NE(::GetObjectA(bitmap, sizeof(info), &info), 0) << served;
        EXPECT_EQ(info.bmWidth, served.pictures * served.width) << served;
        EXPECT_EQ(info.bmHeight, served.height) << served;
    }
}

TEST(Palette, TextsStandOutFromTheirGrounds) {
    for (const skin::Palette& palette : {skin::kLight, skin::kDark}) {
        for (const COLORREF ground : {palette.ground, palette.raised}) {
            for (const COLORREF text :
                 {palette.text, palette.secondary, palette.buy, palette.sell, palette.even}) {
                EXPECT_GE(Contrast(text, ground), 4.5) << std::hex << text << " on " << ground;
            }
            EXPECT_GE(Contrast(palette.disabled, ground), 3.0);
        }
        const COLORREF caption = RGB(0xF3, 0xF3, 0xF3);
        for (const skin::Faces& faces : {palette.primary, palette.plain}) {
            for (const skin::Face& face : {faces.normal, faces.hover, faces.pressed}) {
                EXPECT_GE(Contrast(caption, face.fill), 4.5) << std::hex << face.fill;
            }
            EXPECT_GE(Contrast(::GetSysColor(COLOR_GRAYTEXT), faces.disabled.fill), 3.0);
        }
    }
}

}  // namespace
