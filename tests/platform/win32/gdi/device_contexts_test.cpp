#include <gtest/gtest.h>

#include <cstring>

#include "tests/platform/win32/gdi/canvas.h"

namespace {

class MemoryDc {
public:
    MemoryDc() : dc_(CreateCompatibleDC(nullptr)) {}
    ~MemoryDc() { DeleteDC(dc_); }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    operator HDC() const { return dc_; }

private:
    HDC dc_;
};

TEST(DeviceContexts, BeginWithDocumentedAttributes) {
    const MemoryDc dc;
    BITMAP first{};
    GetObjectA(GetCurrentObject(dc, OBJ_BITMAP), sizeof first, &first);
    EXPECT_TRUE(first.bmWidth == 1 && first.bmHeight == 1 && first.bmBitsPixel == 1);
    EXPECT_EQ(0u, GetPixel(dc, 0, 0));
    RECT box;
    EXPECT_EQ(SIMPLEREGION, GetClipBox(dc, &box));
    EXPECT_EQ("0,0-1,1", Text(box));
    EXPECT_EQ(0u, GetTextColor(dc));
    EXPECT_EQ(RGB(255, 255, 255), GetBkColor(dc));
    EXPECT_EQ(OPAQUE, GetBkMode(dc));
    EXPECT_EQ(0u, GetTextAlign(dc));
    EXPECT_EQ(BLACKONWHITE, GetStretchBltMode(dc));
    EXPECT_EQ(GetStockObject(WHITE_BRUSH), GetCurrentObject(dc, OBJ_BRUSH));
    EXPECT_EQ(GetStockObject(BLACK_PEN), GetCurrentObject(dc, OBJ_PEN));
    EXPECT_EQ(GetStockObject(SYSTEM_FONT), GetCurrentObject(dc, OBJ_FONT));
    EXPECT_EQ(32, GetDeviceCaps(dc, BITSPIXEL) * GetDeviceCaps(dc, PLANES));
    EXPECT_EQ(96, GetDeviceCaps(dc, LOGPIXELSY));
}

TEST(DeviceContexts, SettersAnswerTheFormerValue) {
    const MemoryDc dc;
    EXPECT_EQ(0u, SetTextColor(dc, RGB(1, 2, 3)));
    EXPECT_EQ(RGB(1, 2, 3), SetTextColor(dc, 0));
    EXPECT_EQ(RGB(255, 255, 255), SetBkColor(dc, 0));
    EXPECT_EQ(0, SetBkMode(dc, 9));
    EXPECT_EQ(OPAQUE, SetBkMode(dc, TRANSPARENT));
    POINT former{-1, -1};
    EXPECT_TRUE(SetViewportOrgEx(dc, 3, 4, &former));
    EXPECT_TRUE(former.x == 0 && former.y == 0);
    EXPECT_TRUE(OffsetViewportOrgEx(dc, 1, 1, &former));
    EXPECT_TRUE(former.x == 3 && former.y == 4);
}

TEST(DeviceContexts, RestoreBringsBackWhatWasSaved) {
    const MemoryDc dc;
    const HBRUSH brush = CreateSolidBrush(RGB(255, 0, 0));
    EXPECT_EQ(1, SaveDC(dc));
    SetTextColor(dc, RGB(9, 9, 9));
    SelectObject(dc, brush);
    IntersectClipRect(dc, 0, 0, 0, 0);
    EXPECT_EQ(2, SaveDC(dc));
    EXPECT_FALSE(RestoreDC(dc, 3));
    EXPECT_FALSE(RestoreDC(dc, 0));
    EXPECT_TRUE(RestoreDC(dc, 1));
    EXPECT_EQ(0u, GetTextColor(dc));
    EXPECT_EQ(GetStockObject(WHITE_BRUSH), GetCurrentObject(dc, OBJ_BRUSH));
    RECT box;
    EXPECT_EQ(SIMPLEREGION, GetClipBox(dc, &box));
    EXPECT_FALSE(RestoreDC(dc, -1));
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush));
}

TEST(DeviceContexts, ABitmapLivesInOneContext) {
    const Canvas screen(8, 8);
    const MemoryDc first;
    const MemoryDc second;
    const HBITMAP bitmap = CreateCompatibleBitmap(screen.dc(), 5, 5);
    const HGDIOBJ initial = SelectObject(first, bitmap);
    EXPECT_EQ(DWORD{OBJ_BITMAP}, GetObjectType(initial));
    EXPECT_EQ(0u, GetPixel(first, 4, 4)) << "black at first";
    SetLastError(0);
    EXPECT_EQ(nullptr, SelectObject(second, bitmap));
    EXPECT_EQ(6u, GetLastError());
    EXPECT_EQ(bitmap, SelectObject(first, bitmap));
    EXPECT_EQ(bitmap, SelectObject(first, initial));
    EXPECT_EQ(initial, SelectObject(second, bitmap)) << "free again";
    SelectObject(second, initial);
    EXPECT_TRUE(DeleteObject(bitmap));
    BITMAP record{};
    EXPECT_EQ(0, GetObjectA(bitmap, sizeof record, &record));
    EXPECT_FALSE(DeleteObject(bitmap));
}

TEST(DeviceContexts, WhatIsSelectedOutlivesItsDeletion) {
    const Canvas canvas(4, 4);
    const HBRUSH brush = CreateSolidBrush(RGB(255, 0, 0));
    const HGDIOBJ former = SelectObject(canvas.dc(), brush);
    EXPECT_TRUE(DeleteObject(brush));
    PatBlt(canvas.dc(), 0, 0, 2, 2, PATCOPY);
    EXPECT_EQ("RR.. RR.. .... ....", canvas.Rows());
    SelectObject(canvas.dc(), former);
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_EQ(nullptr, SelectObject(canvas.dc(), brush));
}

TEST(DeviceContexts, StockObjectsStay) {
    const HGDIOBJ brush = GetStockObject(BLACK_BRUSH);
    EXPECT_TRUE(DeleteObject(brush));
    LOGBRUSH record{};
    EXPECT_NE(0, GetObjectA(GetStockObject(BLACK_BRUSH), sizeof record, &record));
    EXPECT_EQ(nullptr, GetStockObject(99));
    EXPECT_EQ(nullptr, GetStockObject(-1));
    LOGFONTA font{};
    GetObjectA(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
    EXPECT_TRUE(font.lfHeight == -12 && font.lfWeight == FW_NORMAL);
    GetObjectA(GetStockObject(SYSTEM_FONT), sizeof font, &font);
    EXPECT_TRUE(font.lfHeight == 16 && font.lfWeight == FW_BOLD);
}

TEST(DeviceContexts, BitmapsFollowTheContextTheyAreMadeFor) {
    const MemoryDc initial;
    const Canvas colors(2, 2);
    struct {
        HDC dc;
        int width;
        WORD bits;
        LONG made;
    } const cases[] = {{initial, 5, 1, 5}, {colors.dc(), 5, 32, 5}, {colors.dc(), 0, 1, 1}};
    for (const auto& one : cases) {
        const HBITMAP bitmap = CreateCompatibleBitmap(one.dc, one.width, 5);
        BITMAP record{};
        GetObjectA(bitmap, sizeof record, &record);
        EXPECT_TRUE(record.bmBitsPixel == one.bits && record.bmWidth == one.made);
        EXPECT_TRUE(DeleteObject(bitmap));
    }
    EXPECT_EQ(nullptr, CreateCompatibleBitmap(colors.dc(), 1 << 30, 1 << 30));
    EXPECT_EQ(nullptr, CreateCompatibleBitmap(nullptr, 5, 5));
}

TEST(DeviceContexts, DeadAndForeignHandlesFail) {
    const HDC dead = CreateCompatibleDC(nullptr);
    ASSERT_TRUE(DeleteDC(dead));
    const HBRUSH brush = CreateSolidBrush(0);
    const RECT rect{0, 0, 1, 1};
    for (const HDC dc : {dead, HDC{}, reinterpret_cast<HDC>(brush),
                         reinterpret_cast<HDC>(static_cast<LONG_PTR>(-1))}) {
        EXPECT_FALSE(DeleteDC(dc));
        EXPECT_EQ(CLR_INVALID, GetPixel(dc, 0, 0));
        EXPECT_EQ(CLR_INVALID, SetTextColor(dc, 0));
        EXPECT_FALSE(TextOutA(dc, 0, 0, "x", 1));
        EXPECT_EQ(0, FillRect(dc, &rect, brush));
        EXPECT_FALSE(LineTo(dc, 1, 1));
        EXPECT_EQ(0, SaveDC(dc));
        EXPECT_EQ(nullptr, SelectObject(dc, brush));
        EXPECT_EQ(nullptr, GetCurrentObject(dc, OBJ_PEN));
        EXPECT_EQ(0, ExcludeClipRect(dc, 0, 0, 1, 1));
    }
    const MemoryDc dc;
    EXPECT_EQ(0, FillRect(dc, &rect, reinterpret_cast<HBRUSH>(dead)));
    EXPECT_FALSE(DeleteObject(reinterpret_cast<HGDIOBJ>(static_cast<HDC>(dc))));
    EXPECT_EQ(0, GetObjectA(static_cast<HDC>(dc), 4, nullptr));
    EXPECT_EQ(ERROR, SelectClipRgn(dc, reinterpret_cast<HRGN>(brush)));
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(DeviceContexts, RecordsAreCutToTheCallersSize) {
    const HPEN pen = CreatePen(PS_SOLID, 0, RGB(1, 2, 3));
    LOGPEN record{9, {9, 9}, 9};
    EXPECT_EQ(static_cast<int>(sizeof record), GetObjectA(pen, 0, nullptr));
    EXPECT_EQ(4, GetObjectA(pen, 4, &record));
    EXPECT_TRUE(record.lopnStyle == PS_SOLID && record.lopnWidth.x == 9);
    GetObjectA(pen, sizeof record, &record);
    EXPECT_TRUE(record.lopnWidth.x == 0 && record.lopnColor == RGB(1, 2, 3));
    DeleteObject(pen);
}

TEST(Regions, CombineAsSets) {
    const HRGN a = CreateRectRgn(0, 0, 5, 5);
    const HRGN b = CreateRectRgn(8, 8, 3, 3);
    const HRGN result = CreateRectRgn(0, 0, 0, 0);
    RECT box;
    EXPECT_EQ(SIMPLEREGION, CombineRgn(result, a, b, RGN_AND));
    EXPECT_EQ(SIMPLEREGION, GetRgnBox(result, &box));
    EXPECT_EQ("3,3-5,5", Text(box));
    EXPECT_TRUE(PtInRegion(result, 4, 4));
    EXPECT_FALSE(PtInRegion(result, 5, 5));
    EXPECT_EQ(COMPLEXREGION, CombineRgn(result, a, b, RGN_OR));
    EXPECT_EQ(COMPLEXREGION, CombineRgn(result, a, b, RGN_XOR));
    EXPECT_FALSE(PtInRegion(result, 4, 4));
    EXPECT_EQ(COMPLEXREGION, CombineRgn(a, a, b, RGN_DIFF));
    EXPECT_EQ(NULLREGION, CombineRgn(result, b, b, RGN_XOR));
    EXPECT_EQ(SIMPLEREGION, OffsetRgn(b, 10, 0));
    EXPECT_TRUE(PtInRegion(b, 13, 3));
    EXPECT_EQ(ERROR, CombineRgn(result, a, nullptr, RGN_OR));
    EXPECT_EQ(SIMPLEREGION, CombineRgn(result, b, nullptr, RGN_COPY));
    for (const HRGN region : {a, b, result}) EXPECT_TRUE(DeleteObject(region));
    EXPECT_EQ(ERROR, GetRgnBox(a, &box));
}

}  // namespace
