#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "lists/gold_reprot_dlg.h"
#include "platform/testing/input.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace tests {
namespace {

using platform::testing::MovePointer;
using platform::testing::ScreenPoint;

constexpr int kTop = 50;

/// The report page with positions and orders, 900 pixels wide.
class ReportPage : public ::testing::Test {
protected:
    ReportPage() {
        platform::testing::StopClock();
        frame_.CreateEx(WS_EX_CONTROLPARENT, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                        CRect(40, 40, 940, 340), nullptr, 0);
        page_.Create(CGoldReprotDlg::IDD, &frame_);
        page_.ShowWindow(SW_SHOW);
        Resize(900);
    }
    ~ReportPage() override {
        frame_.DestroyWindow();
        platform::testing::Pump();
    }

    void Resize(int width) {
        page_.MoveWindow(0, 0, width, 300);
        platform::testing::Pump();
    }
    void Drag(int from, int to) {
        platform::testing::Drag(ScreenPoint(page_, from, kTop), ScreenPoint(page_, to, kTop));
    }
    CRect Place(CWnd& child) {
        CRect place;
        child.GetWindowRect(&place);
        page_.ScreenToClient(&place);
        return place;
    }
    /// Where the left pane ends and the right one begins.
    std::pair<int, int> Gap() {
        return {int{Place(page_.m_position).right}, int{Place(page_.m_order).left}};
    }
    HCURSOR CursorAt(int x) {
        MovePointer(ScreenPoint(page_, x, kTop));
        platform::testing::Pump();
        return ::GetCursor();
    }

    RecordingCore core_;
    FrontEndDoors doors_{core_};
    CWnd frame_;
    CGoldReprotDlg page_;
};

using testing::Pair;

TEST_F(ReportPage, StartsWithTwoPanesOfOneWidth) {
    EXPECT_EQ(CRect(6, 0, 448, 300), Place(page_.m_position));
    EXPECT_EQ(CRect(452, 0, 894, 300), Place(page_.m_order));
}

TEST_F(ReportPage, ItsDividerFollowsTheMouseAndKeepsItsShare) {
    Drag(451, 271);
    EXPECT_THAT(Gap(), Pair(268, 272));
    EXPECT_EQ(6, Place(page_.m_position).left);
    EXPECT_EQ(894, Place(page_.m_order).right);
    MovePointer(ScreenPoint(page_, 600, kTop));
    EXPECT_THAT(Gap(), Pair(268, 272)) << "the button is up";
    Resize(600);  // 262 of 884 pixels are 173 or 174 of 584
    EXPECT_THAT(Gap(), Pair(6 + 173, 6 + 177));
    Resize(900);
    EXPECT_THAT(Gap(), Pair(268, 272));
    page_.SetPage(1);
    page_.SetPage(0);
    EXPECT_THAT(Gap(), Pair(268, 272));
}

TEST_F(ReportPage, LeavesEachPaneFiftyPixels) {
    Drag(450, 2);
    EXPECT_THAT(Gap(), Pair(56, 60));
    Drag(58, 899);
    EXPECT_THAT(Gap(), Pair(840, 844));
    Resize(130);
    EXPECT_EQ(50, Place(page_.m_order).Width());
    Resize(80);  // no room for two of them
    EXPECT_GE(Place(page_.m_position).Width(), 0);
    EXPECT_GE(Place(page_.m_order).Width(), 0);
    Drag(Gap().first + 1, 10);
    Resize(900);
    EXPECT_THAT(Gap(), Pair(840, 844)) << "too narrow to drag";
}

TEST_F(ReportPage, DragsByTheDividerOnly) {
    Drag(3, 300);
    Drag(897, 300);
    EXPECT_THAT(Gap(), Pair(448, 452));
    platform::testing::Press();
    MovePointer(ScreenPoint(page_, 450, kTop));
    platform::testing::Release();
    EXPECT_THAT(Gap(), Pair(448, 452));
}

TEST_F(ReportPage, LetsGoWhenTheMouseIsTakenAway) {
    MovePointer(ScreenPoint(page_, 450, kTop));
    platform::testing::Press();
    MovePointer(ScreenPoint(page_, 400, kTop));
    EXPECT_THAT(Gap(), Pair(398, 402));
    ::SetCapture(frame_);
    ::ReleaseCapture();
    MovePointer(ScreenPoint(page_, 420, kTop));
    EXPECT_THAT(Gap(), Pair(398, 402));
    platform::testing::Release();
}

TEST_F(ReportPage, ShowsWhereItCanBeDragged) {
    const HCURSOR sideways = ::LoadCursorA(nullptr, IDC_SIZEWE);
    EXPECT_EQ(sideways, CursorAt(450));
    EXPECT_NE(sideways, CursorAt(440));
    EXPECT_NE(sideways, CursorAt(3));
    page_.SetPage(3);
    EXPECT_NE(sideways, CursorAt(450)) << "a page lies over it";
}

TEST_F(ReportPage, DragsInAnEmptyPaneAsWell) {
    page_.SetPage(17);
    Drag(450, 300);
    page_.SetPage(0);
    EXPECT_THAT(Gap(), Pair(298, 302));
}

TEST_F(ReportPage, RemembersOtherPagesAndRefusesThoseFrom18On) {
    page_.SetPage(2);
    page_.SetPage(18);
    page_.SetPage(99);
    EXPECT_TRUE(page_.m_trade.IsWindowVisible());
    page_.SetPage(5);
    EXPECT_TRUE(page_.m_trade.IsWindowVisible());
    // It is laid out as one that shows the positions, which stay hidden.
    Resize(700);
    EXPECT_FALSE(page_.m_position.IsWindowVisible());
    EXPECT_EQ(CRect(6, 0, 694, 300), Place(page_.m_position));
    EXPECT_EQ(894, Place(page_.m_trade).right);
}

}  // namespace
}  // namespace tests
