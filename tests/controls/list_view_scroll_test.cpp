// The scroll bars of a list.

#include "tests/controls/list_frame.h"

namespace tests {

namespace {

using platform::testing::Click;
using platform::testing::Wheel;

class ListScrollTest : public ListTest {
protected:
    void Send(UINT bar_message, int code, int position = 0) {
        list_.SendMessage(bar_message, MAKEWPARAM(code, position));
    }
    int ScrollY() const { return list_.m_pGrid->nScrollY; }
    int ScrollX() const { return list_.m_pGrid->nScrollX; }
    /// Without the horizontal bar there is more room.
    int ClientHeight() const {
        CRect client;
        list_.GetClientRect(&client);
        return client.Height();
    }
};

TEST_F(ListScrollTest, BarsShowWhatDoesNotFit) {
    MakeVirtual(3);
    EXPECT_EQ(list_.GetStyle() & (WS_VSCROLL | WS_HSCROLL), 0u);
    list_.SetRowCount(100, FALSE);
    EXPECT_EQ(list_.GetStyle() & (WS_VSCROLL | WS_HSCROLL), DWORD{WS_VSCROLL});
    EXPECT_EQ(Bar(SB_VERT).nMax, (101 * kRowHeight - ClientHeight() + 15) / kRowHeight);
    EXPECT_EQ(Bar(SB_VERT).nPage, 1u);
    NeedBothBars();
    EXPECT_EQ(list_.GetStyle() & (WS_VSCROLL | WS_HSCROLL), DWORD{WS_VSCROLL | WS_HSCROLL});
    EXPECT_EQ(ClientHeight(), kClientHeight);
    EXPECT_EQ(Bar(SB_VERT).nMax, 91);
    EXPECT_EQ(Bar(SB_HORZ).nMax, 600);
    EXPECT_EQ(Bar(SB_HORZ).nPage, UINT{kClientWidth});
    list_.SetRowCount(0, FALSE);
    list_.DeleteAllColumns();
    EXPECT_EQ(list_.GetStyle() & (WS_VSCROLL | WS_HSCROLL), 0u);
}

TEST_F(ListScrollTest, TheVerticalBarMovesByRowsAndPaintsAtOnce) {
    MakeVirtual(100);
    NeedBothBars();
    const struct {
        const char* what;
        int code;
        int given;
        int row;
    } kSteps[] = {{"line up at the top", SB_LINEUP, 0, 0},
                  {"line down", SB_LINEDOWN, 0, 1},
                  {"thumb", SB_THUMBTRACK, 40, 40},
                  {"released", SB_THUMBPOSITION, 41, 41},
                  {"line up", SB_LINEUP, 0, 40},
                  {"a page is as many rows as the list is wide", SB_PAGEDOWN, 0, 91},
                  {"line down at the end", SB_LINEDOWN, 0, 91},
                  {"page up", SB_PAGEUP, 0, 0},
                  {"thumb behind the end", SB_THUMBTRACK, 5000, 91},
                  {"top", SB_TOP, 0, 0},
                  {"bottom", SB_BOTTOM, 0, 91}};
    for (const auto& step : kSteps) {
        painted_.clear();
        Send(WM_VSCROLL, step.code, step.given);
        EXPECT_EQ(Bar(SB_VERT).nPos, step.row) << step.what;
        EXPECT_EQ(ScrollY(), step.row * kRowHeight) << step.what;
        ASSERT_FALSE(painted_.empty()) << step.what;
        EXPECT_EQ(painted_[0].row, step.row) << step.what;
    }
    EXPECT_EQ(painted_[0].rect.top, -1);
    EXPECT_NE(Seen().find("99.0"), std::string::npos) << "the last row is in view";
}

TEST_F(ListScrollTest, TheHorizontalBarMovesByPixels) {
    MakeVirtual(100);
    NeedBothBars();
    const struct {
        int code;
        int given;
        int x;
    } kSteps[] = {{SB_LINERIGHT, 0, 1},      {SB_LINELEFT, 0, 0},   {SB_LINELEFT, 0, 0},
                  {SB_THUMBTRACK, 150, 150}, {SB_RIGHT, 0, 221},    {SB_LINERIGHT, 0, 221},
                  {SB_PAGELEFT, 0, 0},       {SB_PAGERIGHT, 0, 221}};
    for (const auto& step : kSteps) {
        painted_.clear();
        Send(WM_HSCROLL, step.code, step.given);
        EXPECT_EQ(ScrollX(), step.x);
        EXPECT_EQ(Bar(SB_HORZ).nPos, step.x);
        ASSERT_FALSE(painted_.empty());
    }
    EXPECT_EQ(painted_[0].column, 2) << "columns that are out of view are left out";
    EXPECT_EQ(painted_[0].rect.left, 160 - 221 + 2);
}

TEST_F(ListScrollTest, AWheelMessageIsOneRow) {
    MakeVirtual(100);
    Click(list_, 50, 50);
    for (const int notches : {-1, -3}) Wheel(notches);
    EXPECT_EQ(ScrollY(), 2 * kRowHeight);
    Wheel(5);
    EXPECT_EQ(ScrollY(), kRowHeight);
    Wheel(1);
    Wheel(1);
    EXPECT_EQ(ScrollY(), 0);
    EXPECT_EQ(list_.SendMessage(WM_MOUSEWHEEL, 0), TRUE);
    EXPECT_EQ(ScrollY(), 0);
}

TEST_F(ListScrollTest, ADraggedThumbReachesRowsBeyondSixteenBits) {
    MakeVirtual(200'000);
    CRect window;
    list_.GetWindowRect(&window);
    const POINT thumb{window.right - ::GetSystemMetrics(SM_CXVSCROLL) / 2, window.top + 6};
    platform::testing::Drag(thumb, {thumb.x, window.bottom + 60});
    EXPECT_EQ(Bar(SB_VERT).nPos, Bar(SB_VERT).nMax);
    EXPECT_EQ(ScrollY(), Bar(SB_VERT).nMax * kRowHeight);
    PaintNow();
    EXPECT_NE(Seen().find("199999.0"), std::string::npos);
}

// The first row is kept as a row where pixels are expected, until the list is scrolled again.
TEST_F(ListScrollTest, AListThatShrankIsPulledUpAndStandsNearItsTop) {
    MakeVirtual(100);
    NeedBothBars();
    Send(WM_VSCROLL, SB_THUMBPOSITION, 50);
    list_.SetRowCount(59, TRUE);
    EXPECT_EQ(ScrollY(), 50 * kRowHeight) << "nine rows are enough";
    list_.SetRowCount(52, TRUE);
    EXPECT_EQ(Bar(SB_VERT).nPos, 42);
    EXPECT_EQ(ScrollY(), 42);
    PaintNow();
    EXPECT_EQ(painted_[0].row, 1);
    EXPECT_EQ(painted_[0].rect.bottom, 2);
    list_.SetRowCount(52, TRUE);
    EXPECT_EQ(ScrollY(), 42);
    Send(WM_VSCROLL, SB_ENDSCROLL);
    EXPECT_EQ(ScrollY(), 42 * kRowHeight);
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(ScrollY(), 43 * kRowHeight);
}

TEST_F(ListScrollTest, AWiderListShowsItsFirstColumnAgain) {
    MakeVirtual(100);
    NeedBothBars();
    Send(WM_HSCROLL, SB_RIGHT);
    ASSERT_EQ(ScrollX(), 221);
    CRect window;
    list_.GetWindowRect(&window);
    list_.SetWindowPos(nullptr, 0, 0, window.Width() + 100, window.Height(), SWP_NOMOVE);
    EXPECT_EQ(ScrollX(), 121) << "no room stays empty behind the last column";
    list_.SetWindowPos(nullptr, 0, 0, 700, window.Height(), SWP_NOMOVE);
    EXPECT_EQ(ScrollX(), 0);
    EXPECT_EQ(Bar(SB_HORZ).nPos, 0);
}

TEST_F(ListScrollTest, ScrollToEndGoesByTheVerticalBarAlone) {
    MakeVirtual(100);
    NeedBothBars();
    list_.ScrollToEnd();
    EXPECT_EQ(Bar(SB_VERT).nPos, 91);
    EXPECT_EQ(ScrollY(), 91 * kRowHeight);
    EXPECT_TRUE(::GetUpdateRect(list_, nullptr, FALSE));
    list_.ResetScrollY(0);
    EXPECT_EQ(ScrollY(), 0);
    list_.SetRowCount(3, TRUE);
    list_.ScrollToEnd();
    EXPECT_EQ(ScrollY(), 0);
}

TEST_F(ListScrollTest, AnEmptyWindowIsLeftAlone) {
    MakeVirtual(100);
    NeedBothBars();
    list_.MoveWindow(0, 0, 0, 0);
    list_.SetRowCount(7, TRUE);
    EXPECT_EQ(Bar(SB_VERT).nMax, 91);
    list_.MoveWindow(0, 0, 390, 230);
    EXPECT_EQ(Bar(SB_VERT).nMax, 0);
}

TEST_F(ListScrollTest, RowsOfAnotherHeightScrollByIt) {
    MakeVirtual(100);
    list_.SetRowHeight(30);
    list_.SetRowCount(100, TRUE);
    Send(WM_VSCROLL, SB_THUMBPOSITION, 10);
    EXPECT_EQ(ScrollY(), 300);
    PaintNow();
    EXPECT_EQ(painted_[0].rect.bottom, 30);
    list_.SetRowHeight(-4);
    EXPECT_EQ(list_.m_pGrid->nRowHeight, 1);
}

}  // namespace

}  // namespace tests
