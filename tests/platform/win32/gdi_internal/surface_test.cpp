#include "platform/win32/gdi/surface.h"

#include <gtest/gtest.h>
#include <png.h>
#include <winbase_hooks.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/gdi/pixels.h"

namespace winbase {
namespace {

std::string Text(const RECT& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "-" +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}

/// What a window is to its contexts.
class Pane : public DcTarget {
public:
    explicit Pane(int scale = 1)
        : surface_(100, 60, scale, Surface::Damage::kCollect), dc_(CreateTargetDc(this)) {
        SetBkMode(dc_, TRANSPARENT);
    }
    ~Pane() override { DestroyTargetDc(dc_); }

    Surface* TargetSurface() override { return gone ? nullptr : &surface_; }
    POINT Origin() override { return origin; }
    const Region& Visible() override { return visible; }
    unsigned long long Epoch() override { return epoch; }

    HDC dc() const { return dc_; }
    Surface& surface() { return surface_; }
    Pixel At(int x, int y) const { return surface_.Row(y)[x]; }
    /// "text left,top-right,bottom" of each record, joined by "; ".
    std::string Texts() const {
        std::string all;
        for (const TextRecord& record : surface_.records().All()) {
            if (!all.empty()) all += "; ";
            all += record.text + " " + Text(record.rect);
        }
        return all;
    }

    POINT origin{};
    Region visible{RECT{0, 0, 100, 60}};
    unsigned long long epoch = 1;
    bool gone = false;

private:
    Surface surface_;
    HDC dc_;
};

void Fill(HDC dc, const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

TEST(SurfaceTest, AContextFollowsItsTarget) {
    Pane pane;
    pane.visible = Region(RECT{10, 10, 30, 30});
    pane.origin = {10, 10};
    Fill(pane.dc(), {0, 0, 100, 100}, RGB(255, 0, 0));
    EXPECT_EQ(0xFF0000u, pane.At(10, 10));
    EXPECT_EQ(0xFF0000u, pane.At(29, 29));
    EXPECT_EQ(0u, pane.At(9, 10) | pane.At(30, 29));
    pane.visible = Region(RECT{50, 10, 60, 30});
    pane.origin = {50, 10};
    ++pane.epoch;
    Fill(pane.dc(), {0, 0, 1, 1}, RGB(0, 255, 0));
    EXPECT_EQ(0x00FF00u, pane.At(50, 10));
    RECT box;
    EXPECT_EQ(SIMPLEREGION, GetClipBox(pane.dc(), &box));
    EXPECT_EQ("0,0-10,20", Text(box));
    pane.gone = true;
    ++pane.epoch;
    const RECT rect{0, 0, 9, 9};
    EXPECT_NE(0, FillRect(pane.dc(), &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))));
    EXPECT_TRUE(TextOutA(pane.dc(), 0, 0, "x", 1));
    EXPECT_EQ(NULLREGION, GetClipBox(pane.dc(), &box));
    EXPECT_FALSE(DeleteDC(pane.dc())) << "belongs to its window";
}

TEST(SurfaceTest, PaintClipAndProgramClipAddUp) {
    Pane pane;
    pane.origin = {10, 0};
    ++pane.epoch;
    const Region clip(RECT{0, 0, 20, 20});
    SetPaintClip(pane.dc(), &clip);
    IntersectClipRect(pane.dc(), 5, 5, 50, 50);
    RECT box;
    GetClipBox(pane.dc(), &box);
    EXPECT_EQ("5,5-20,20", Text(box));
    SetTextColor(pane.dc(), RGB(1, 2, 3));
    SaveDC(pane.dc());
    ResetDc(pane.dc());
    GetClipBox(pane.dc(), &box);
    EXPECT_EQ("-10,0-90,60", Text(box));
    EXPECT_EQ(0u, GetTextColor(pane.dc()));
    EXPECT_FALSE(RestoreDC(pane.dc(), -1));
}

TEST(SurfaceTest, DamageCoversWhatWasDrawn) {
    Pane pane;
    pane.surface().TakeDamage();
    EXPECT_FALSE(pane.surface().HasDamage());
    Region drawn;
    for (int i = 0; i < 30; ++i) {
        const RECT rect{i * 3, i % 7 * 8, i * 3 + 2, i % 7 * 8 + 5};
        Fill(pane.dc(), rect, RGB(1, 1, 1));
        drawn.Unite(rect);
    }
    Region damage = pane.surface().TakeDamage();
    Region missing = drawn;
    missing.Subtract(damage);
    EXPECT_TRUE(missing.Empty());
    EXPECT_FALSE(pane.surface().HasDamage());
    Fill(pane.dc(), {10, 10, 20, 12}, 0);
    Fill(pane.dc(), {80, 50, 90, 55}, 0);
    damage = pane.surface().TakeDamage();
    EXPECT_EQ(2u, damage.Rects().size()) << "far apart, not joined";
    TextOutA(pane.dc(), 30, 30, "x", 1);
    EXPECT_TRUE(pane.surface().HasDamage());
}

TEST(SurfaceTest, ResizingKeepsWhatBothSizesShare) {
    Surface surface(4, 3, 2);
    surface.Row(5)[7] = 1;
    surface.Row(0)[3] = 2;
    surface.Resize(6, 5);
    EXPECT_EQ(12, surface.device_width());
    EXPECT_EQ(1u, surface.Row(5)[7]);
    EXPECT_EQ(2u, surface.Row(0)[3]);
    EXPECT_EQ(0u, surface.Row(9)[11]);
    surface.Resize(2, 1);
    EXPECT_EQ(2u, surface.Row(0)[3]);
}

TEST(SurfaceTest, ScaledSurfacesKeepLogicalMeasures) {
    SIZE extents[4]{};
    const std::string text = "Au(T+D) 172944.00 买入";
    for (const int scale : {1, 2, 3}) {
        Pane pane(scale);
        GetTextExtentPoint32A(pane.dc(), text.c_str(), static_cast<int>(text.size()),
                              &extents[scale]);
        EXPECT_EQ(extents[1].cx, extents[scale].cx);
        EXPECT_EQ(extents[1].cy, extents[scale].cy);
        Fill(pane.dc(), {1, 1, 2, 2}, RGB(255, 255, 255));
        EXPECT_EQ(0xFFFFFFu, pane.At(scale, scale));
        EXPECT_EQ(0xFFFFFFu, pane.At(2 * scale - 1, 2 * scale - 1));
        EXPECT_EQ(0u, pane.At(2 * scale, scale));
        const HDC memory = CreateCompatibleDC(pane.dc());
        const HBITMAP bitmap = CreateCompatibleBitmap(pane.dc(), 10, 10);
        SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, 10, 10, pane.dc(), 0, 0, SRCCOPY);
        EXPECT_EQ(0xFFFFFFu, SurfaceOf(bitmap)->Row(scale)[scale]);
        EXPECT_EQ(10 * scale, SurfaceOf(bitmap)->device_width());
        Pane plain;
        BitBlt(plain.dc(), 20, 20, 10, 10, memory, 0, 0, SRCCOPY);
        EXPECT_EQ(0xFFFFFFu, plain.At(21, 21)) << "scale " << scale;
        EXPECT_EQ(0u, plain.At(22, 21));
        DeleteDC(memory);
        DeleteObject(bitmap);
    }
}

TEST(SurfaceTest, BlendingIsExactAtBothEndsAndMonotonicBetween) {
    for (const Pixel under : {0x000000u, 0xFFFFFFu, 0x12F0A7u}) {
        for (const Pixel over : {0x000000u, 0xFFFFFFu, 0x1F2933u}) {
            std::vector<Pixel> row(256, under);
            std::vector<std::uint8_t> coverage;
            for (int i = 0; i < 256; ++i) coverage.push_back(static_cast<std::uint8_t>(i));
            BlendCoverage({row.data(), 256, 255, 1}, coverage.data(), 256, over);
            BlendCoverage({row.data() + 255, 256, 1, 1}, coverage.data() + 255, 256, over);
            EXPECT_EQ(under, row[0]);
            EXPECT_EQ(over, row[255]);
            for (int i = 0; i < 256; ++i) {
                const double blue =
                    (under & 0xFF) + ((over & 0xFF) - double(under & 0xFF)) * i / 255;
                EXPECT_NEAR(blue, row[static_cast<std::size_t>(i)] & 0xFF, 1.01) << i;
            }
        }
    }
}

class RecordTest : public testing::Test {
protected:
    RecordTest() {
        RecordTexts(true);
        SelectObject(pane_.dc(), GetStockObject(DEFAULT_GUI_FONT));
    }
    ~RecordTest() override { RecordTexts(false); }

    Pane pane_;
};

TEST_F(RecordTest, TextsAreKeptAsSeen) {
    RECT rect{10, 0, 40, 24};
    SetTextColor(pane_.dc(), RGB(1, 2, 3));
    DrawTextA(pane_.dc(), "abc", -1, &rect, 36);
    rect = {0, 30, 9, 42};
    DrawTextA(pane_.dc(), "cut", -1, &rect, 36);
    rect = {-50, 0, -20, 12};
    DrawTextA(pane_.dc(), "outside", -1, &rect, 36);
    EXPECT_EQ("abc 10,6-28,18; cut 0,30-9,42", pane_.Texts());
    const std::vector<hooks::ShownText> shown = hooks::ShownTexts(pane_.dc());
    ASSERT_EQ(2u, shown.size());
    EXPECT_EQ(RGB(1, 2, 3), shown[0].color);
    EXPECT_EQ(400, shown[0].weight);
    EXPECT_TRUE(hooks::ShownTexts(nullptr).empty());
}

TEST_F(RecordTest, PaintingOverTakesTextsAway) {
    TextOutA(pane_.dc(), 10, 10, "abcd", 4);
    const RECT near{0, 0, 9, 60};
    Fill(pane_.dc(), near, 0);
    EXPECT_EQ("abcd 10,10-34,22", pane_.Texts());
    Fill(pane_.dc(), {0, 0, 22, 60}, 0);
    EXPECT_EQ("abcd 22,10-34,22", pane_.Texts()) << "the rest";
    Fill(pane_.dc(), {0, 12, 100, 14}, 0);
    EXPECT_EQ("abcd 22,10-34,22", pane_.Texts()) << "a line through it";
    Fill(pane_.dc(), {20, 8, 40, 30}, 0);
    EXPECT_EQ("", pane_.Texts());
}

TEST_F(RecordTest, CopiesCarryTextsAlong) {
    const HDC memory = CreateCompatibleDC(pane_.dc());
    const HBITMAP bitmap = CreateCompatibleBitmap(pane_.dc(), 50, 50);
    SelectObject(memory, bitmap);
    SelectObject(memory, GetStockObject(DEFAULT_GUI_FONT));
    TextOutA(memory, 5, 5, "new", 3);
    TextOutA(memory, 5, 30, "below", 5);
    TextOutA(pane_.dc(), 30, 12, "old", 3);
    TextOutA(pane_.dc(), 30, 48, "stays", 5);
    BitBlt(pane_.dc(), 20, 10, 50, 25, memory, 0, 0, SRCCOPY);
    EXPECT_EQ("stays 30,48-60,60; new 25,15-43,27", pane_.Texts());
    StretchBlt(pane_.dc(), 0, 0, 100, 40, memory, 0, 40, 10, 5, SRCCOPY);
    EXPECT_EQ("stays 30,48-60,60", pane_.Texts()) << "stretched ones are no texts any more";
    DeleteDC(memory);
    DeleteObject(bitmap);
}

TEST_F(RecordTest, ScrollingMovesTexts) {
    TextOutA(pane_.dc(), 0, 0, "one", 3);
    TextOutA(pane_.dc(), 0, 20, "two", 3);
    TextOutA(pane_.dc(), 60, 20, "aside", 5);
    const RECT list{0, 0, 50, 60};
    const Region uncovered = ScrollSurface(pane_.surface(), list, 0, -20, Region(list));
    EXPECT_EQ("aside 60,20-90,32; two 0,0-18,12", pane_.Texts());
    EXPECT_EQ("0,40-50,60", Text(uncovered.Bounds()));
    BitBlt(pane_.dc(), 0, 20, 50, 20, pane_.dc(), 0, 0, SRCCOPY);
    EXPECT_EQ("aside 60,20-90,32; two 0,0-18,12; two 0,20-18,32", pane_.Texts());
}

TEST_F(RecordTest, NothingIsKeptWhileOff) {
    RecordTexts(false);
    TextOutA(pane_.dc(), 0, 0, "one", 3);
    EXPECT_EQ("", pane_.Texts());
}

TEST(ScrollTest, KeepsOutOfHolesInTheClip) {
    Pane pane;
    for (int y = 0; y < 60; ++y) Fill(pane.dc(), {0, y, 100, y + 1}, static_cast<COLORREF>(y + 1));
    Region clip(RECT{0, 0, 100, 60});
    const RECT hole{40, 20, 60, 40};
    clip.Subtract(hole);
    const Region uncovered = ScrollSurface(pane.surface(), {0, 0, 100, 60}, 0, 10, clip);
    EXPECT_EQ(ToPixel(11), pane.At(0, 20));
    EXPECT_EQ(ToPixel(21), pane.At(50, 20)) << "the hole keeps its pixels";
    EXPECT_EQ(ToPixel(46), pane.At(50, 45)) << "nothing comes out of the hole";
    EXPECT_TRUE(uncovered.Contains(RECT{0, 0, 100, 10}));
    EXPECT_TRUE(uncovered.Contains(RECT{40, 40, 60, 50}));
    EXPECT_FALSE(uncovered.Intersects(hole));
}

TEST(PictureTest, IsWrittenWholeOrNotAtAll) {
    const auto folder = std::filesystem::temp_directory_path() / "winbase_picture_test";
    std::filesystem::create_directory(folder);
    Pane pane;
    Fill(pane.dc(), {0, 0, 100, 60}, RGB(10, 20, 30));
    const std::string path = (folder / "pane.png").string();
    ASSERT_TRUE(hooks::WritePng(pane.dc(), path.c_str()));
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(0, png_image_begin_read_from_file(&image, path.c_str()));
    EXPECT_TRUE(image.width == 100 && image.height == 60);
    image.format = PNG_FORMAT_RGB;
    std::vector<unsigned char> bytes(PNG_IMAGE_SIZE(image));
    ASSERT_NE(0, png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr));
    EXPECT_TRUE(bytes[0] == 10 && bytes[1] == 20 && bytes[2] == 30);
    EXPECT_FALSE(WritePng(pane.surface(), (folder / "missing" / "pane.png").string()));
    EXPECT_FALSE(WritePng(pane.surface(), RECT{5, 5, 5, 9}, path));
    EXPECT_FALSE(hooks::WritePng(nullptr, path.c_str()));
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace winbase
