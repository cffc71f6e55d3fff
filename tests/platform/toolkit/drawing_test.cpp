#include <gtest/gtest.h>

#include "platform/toolkit/toolkit.h"
#include "tests/platform/toolkit/test_module.h"

namespace {

TEST(DrawingObjects, AreDeletedWithTheirOwner) {
    HGDIOBJ brush = nullptr;
    HGDIOBJ kept = nullptr;
    {
        CBrush owner(RGB(1, 2, 3));
        brush = owner.m_hObject;
        EXPECT_EQ(::GetObjectType(brush), UINT{OBJ_BRUSH});
        CPen pen(PS_SOLID, 1, RGB(0, 0, 0));
        kept = pen.Detach();
        const HGDIOBJ replaced = owner.m_hObject;
        owner.CreateSolidBrush(RGB(4, 5, 6));
        EXPECT_EQ(::GetObjectType(replaced), 0u);
        brush = owner.m_hObject;
    }
    EXPECT_EQ(::GetObjectType(brush), 0u);
    EXPECT_EQ(::GetObjectType(kept), UINT{OBJ_PEN});
    ::DeleteObject(kept);
}

TEST(DrawingObjects, ContextsDrawAndScopesPutBack) {
    CClientDC screen(nullptr);
    CDC memory;
    ASSERT_TRUE(memory.CreateCompatibleDC(&screen));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(screen, 20, 10));
    BITMAP size{};
    bitmap.GetBitmap(&size);
    EXPECT_EQ(size.bmWidth, 20);
    const HGDIOBJ former = ::GetCurrentObject(memory, OBJ_BITMAP);
    {
        const toolkit::ScopedSelect selected(memory, static_cast<HBITMAP>(bitmap));
        memory.FillSolidRect(CRect(0, 0, 20, 10), RGB(9, 8, 7));
        EXPECT_EQ(memory.GetPixel(19, 9), RGB(9, 8, 7));
        const CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
        const toolkit::ScopedSelect with_pen(memory, static_cast<HPEN>(pen));
        memory.MoveTo(0, 3);
        memory.LineTo(20, 3);
        EXPECT_EQ(memory.GetPixel(5, 3), RGB(255, 0, 0));
        CDC copy;
        copy.CreateCompatibleDC(&screen);
        CBitmap target;
        target.CreateCompatibleBitmap(screen, 20, 10);
        const toolkit::ScopedSelect into(copy, static_cast<HBITMAP>(target));
        copy.BitBlt(0, 0, 20, 10, &memory, 0, 0, SRCCOPY);
        EXPECT_EQ(copy.GetPixel(5, 3), RGB(255, 0, 0));
    }
    EXPECT_EQ(::GetCurrentObject(memory, OBJ_BITMAP), former);
    CFont font;
    ASSERT_TRUE(font.CreateFont(12, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, "宋体"));
    const toolkit::ScopedSelect with_font(memory, static_cast<HFONT>(font));
    EXPECT_EQ(memory.GetTextExtent("12345678", 8).cx, memory.GetTextExtent("1234", 4).cx * 2);
}

TEST(DrawingObjects, PaintContextsValidate) {
    tests::Frame frame;
    frame.ShowWindow(SW_SHOW);
    frame.UpdateWindow();
    frame.InvalidateRect(CRect(5, 5, 15, 15), FALSE);
    {
        CPaintDC dc(&frame);
        EXPECT_EQ(CRect(dc.m_ps.rcPaint), CRect(5, 5, 15, 15));
        EXPECT_NE(dc.m_hDC, nullptr);
    }
    EXPECT_FALSE(::GetUpdateRect(frame, nullptr, FALSE));
    CDC* dc = frame.GetDC();
    EXPECT_EQ(::WindowFromDC(*dc), frame.m_hWnd);
    EXPECT_EQ(frame.ReleaseDC(dc), 1);
}

TEST(Geometry, RectanglesAndPoints) {
    CRect rect(CPoint(10, 20), CSize(30, 40));
    EXPECT_EQ(rect, CRect(10, 20, 40, 60));
    EXPECT_EQ(rect.Size(), CSize(30, 40));
    EXPECT_EQ(rect.CenterPoint(), CPoint(25, 40));
    EXPECT_TRUE(rect.PtInRect(CPoint(10, 20)));
    EXPECT_FALSE(rect.PtInRect(CPoint(40, 30)));
    EXPECT_FALSE(rect.PtInRect(CPoint(20, 60)));
    rect.DeflateRect(1, 2);
    EXPECT_EQ(rect, CRect(11, 22, 39, 58));
    rect.OffsetRect(-11, -22);
    EXPECT_EQ(rect, CRect(0, 0, 28, 36));
    rect.InflateRect(1, 2, 3, 4);
    EXPECT_EQ(rect, CRect(-1, -2, 31, 40));
    CRect common;
    EXPECT_TRUE(common.IntersectRect(rect, CRect(20, 30, 99, 99)));
    EXPECT_EQ(common, CRect(20, 30, 31, 40));
    EXPECT_FALSE(common.IntersectRect(rect, CRect(31, 0, 40, 10)));
    EXPECT_TRUE(common.IsRectEmpty());
    EXPECT_EQ(CPoint(5, 5) + CSize(1, 2) - CSize(2, 1), CPoint(4, 6));
    EXPECT_EQ(CPoint(5, 5) - CPoint(3, 9), CSize(2, -4));
}

}  // namespace
