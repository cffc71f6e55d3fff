// Which pixels of a skin's pictures arrive where.

#include "controls/skin_paint.h"

#include <utility>

#include "controls/bmp_button.h"
#include "controls/tab_set.h"
#include "platform/testing/input.h"
#include "plugin/contract/core_access.h"
#include "tests/controls/stage.h"

namespace tests {

namespace {

using platform::testing::Click;
using platform::testing::Pump;

/// A picture tells its number by red and its column by green.
COLORREF PixelAt(int picture, int column) { return RGB(50 * (picture + 1), 5 * column, 0x77); }

/// `count` pictures side by side.
void DrawSkin(CBitmap& bitmap, int count, int width, int height) {
    const CClientDC screen(nullptr);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    bitmap.CreateCompatibleBitmap(screen, count * width, height);
    const toolkit::ScopedSelect select(dc, bitmap);
    for (int x = 0; x < count * width; ++x) {
        dc.FillSolidRect(CRect(x, 0, x + 1, height), PixelAt(x / width, x % width));
    }
}

/// A core whose tabs stand on one bitmap.
class TabCore : public RecordingCore {
public:
    HBITMAP GetSkinBitmap(int group, int index) override {
        return group == 0 && index == 9 ? static_cast<HBITMAP>(skin) : nullptr;
    }
    CBitmap skin;
};

class SkinPaint : public ::testing::Test {
protected:
    SkinPaint() {
        platform::testing::StopClock();
        platform::testing::MovePointer({5, 5});
        Pump();
    }
    static COLORREF PixelOf(CWnd& window, int x, int y) {
        Pump();
        const CClientDC dc(&window);
        return dc.GetPixel(x, y);
    }

    TabCore core_;
    FrontEndDoors doors_{core_};
    Stage stage_;
};

TEST_F(SkinPaint, AButtonKeepsSixColumnsAtEachEdge) {
    constexpr int kReversed[] = {3, 2, 1, 0};
    CBitmap skin;
    DrawSkin(skin, 4, 20, 10);
    CBmpButton button;
    button.Create("", WS_VISIBLE, CRect(20, 20, 120, 50), &stage_, 1);
    button.SetSkin(skin, 4, kReversed, FALSE);
    for (const int column : {0, 3, 5}) {
        EXPECT_EQ(PixelOf(button, column, 0), PixelAt(3, column));
        EXPECT_EQ(PixelOf(button, 94 + column, 29), PixelAt(3, 14 + column));
    }
    EXPECT_EQ(PixelOf(button, 6, 15), PixelAt(3, 6));
    EXPECT_EQ(PixelOf(button, 93, 15), PixelAt(3, 13));
    button.EnableWindow(FALSE);
    EXPECT_EQ(PixelOf(button, 5, 15), PixelAt(0, 5));
    constexpr int kNoDisabled[] = {1, 2, 0, 1};
    button.SetSkin(skin, 4, kNoDisabled, FALSE);
    EXPECT_EQ(PixelOf(button, 5, 15), PixelAt(0, 5)) << "a state that the table lacks";
    button.EnableWindow(TRUE);
    EXPECT_EQ(PixelOf(button, 5, 15), PixelAt(2, 5));
    button.SetSkin(skin, 4, kReversed, TRUE);
    CRect place;
    button.GetClientRect(place);
    EXPECT_EQ(place.Size(), CSize(20, 10));
}

TEST_F(SkinPaint, WhatHasNoPixelPaintsNothing) {
    CBitmap narrow;
    DrawSkin(narrow, 3, 1, 10);
    constexpr int kTable[] = {0, 1, 2, 3};
    const struct {
        const char* what;
        HBITMAP skin;
        int count;
    } cases[] = {{"no bitmap", nullptr, 4},
                 {"pictures below a pixel", narrow, 4},
                 {"no pictures", narrow, 0},
                 {"less than none", narrow, -1}};
    for (const auto& [what, skin, count] : cases) {
        CBmpButton button;
        button.Create("", WS_VISIBLE, CRect(20, 20, 120, 50), &stage_, 1);
        const COLORREF before = PixelOf(button, 50, 15);
        button.SetSkin(skin, count, kTable, TRUE);
        EXPECT_EQ(PixelOf(button, 50, 15), before) << what;
        CRect place;
        button.GetClientRect(place);
        EXPECT_EQ(place.Size(), CSize(100, 30)) << what;
        button.DestroyWindow();
    }
}

TEST_F(SkinPaint, APixelOutsideTheSkinHasNoColour) {
    CBitmap skin;
    DrawSkin(skin, 2, 8, 4);
    EXPECT_EQ(controls::SkinPixel(skin, CPoint(9, 3)), PixelAt(1, 1));
    for (const CPoint point : {CPoint(-1, 0), CPoint(0, -1), CPoint(16, 0), CPoint(0, 4)}) {
        EXPECT_EQ(controls::SkinPixel(skin, point), CLR_INVALID);
    }
    EXPECT_EQ(controls::SkinPixel(nullptr, CPoint(0, 0)), CLR_INVALID);
}

class TabPictures : public SkinPaint {
protected:
    TabPictures() {
        DrawSkin(core_.skin, 3, 24, 40);
        tabs_.Create(&stage_, 7);
        tabs_.MoveWindow(10, 10, 300, 24);
        for (const char* text : {"甲", "乙", "丙"}) tabs_.AddTab(text);
        Pump();
    }
    /// The picture that stands at a tab's left edge.
    int Picture(int tab) { return GetRValue(PixelOf(tabs_, tab * 81, 12)) / 50 - 1; }

    CTabSet tabs_;
};

TEST_F(TabPictures, RepeatTheMiddleBetweenTwoEdges) {
    for (const int column : {0, 4}) {
        EXPECT_EQ(PixelOf(tabs_, column, 1), PixelAt(2, column));
        EXPECT_EQ(PixelOf(tabs_, 74 + column, 1), PixelAt(2, 19 + column));
        EXPECT_EQ(PixelOf(tabs_, 81 + column, 1), PixelAt(0, column));
    }
    // 14 columns at a time, the last time what is left: 69 = 4 * 14 + 13.
    EXPECT_EQ(PixelOf(tabs_, 5, 1), PixelAt(2, 5));
    EXPECT_EQ(PixelOf(tabs_, 18, 1), PixelAt(2, 18));
    EXPECT_EQ(PixelOf(tabs_, 19, 1), PixelAt(2, 5));
    EXPECT_EQ(PixelOf(tabs_, 73, 1), PixelAt(2, 5 + 12));
}

TEST_F(TabPictures, LeaveTheGapToTheParent) {
    for (const int x : {79, 80, 160, 250}) EXPECT_EQ(PixelOf(tabs_, x, 12), kStageGround) << x;
    tabs_.RemoveTab(2);
    EXPECT_EQ(PixelOf(tabs_, 170, 12), kStageGround);
    for (int i = 0; i < 2; ++i) tabs_.RemoveTab(0);
    EXPECT_EQ(PixelOf(tabs_, 20, 12), kStageGround);
}

TEST_F(TabPictures, FollowTheSelectionAlsoWhenTabsGo) {
    Click(tabs_, 180, 10);
    EXPECT_EQ(Picture(0), 0);
    EXPECT_EQ(Picture(2), 2);
    tabs_.RemoveTab(0);
    EXPECT_EQ(tabs_.GetCurSel(), 1);
    EXPECT_EQ(Picture(0), 0);
    EXPECT_EQ(Picture(1), 2);
    tabs_.RemoveTab(1);
    EXPECT_EQ(tabs_.GetCurSel(), 0);
    EXPECT_EQ(Picture(0), 2);
}

TEST_F(TabPictures, NeedNoCore) {
    CUICallBack* const core = std::exchange(g_pUICallBack, nullptr);
    stage_.ChangeGround(RGB(1, 2, 3));
    EXPECT_EQ(PixelOf(tabs_, 2, 2), RGB(1, 2, 3));
    g_pUICallBack = core;
    core_.skin.DeleteObject();
    DrawSkin(core_.skin, 3, 10, 40);  // nothing would be left for the middle
    stage_.ChangeGround(RGB(1, 2, 3));
    EXPECT_EQ(PixelOf(tabs_, 2, 2), RGB(1, 2, 3));
}

}  // namespace

}  // namespace tests
