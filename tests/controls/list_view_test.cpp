// What a list does with the mouse and the keyboard.

#include <string>

#include "tests/controls/list_frame.h"

namespace tests {

namespace {

using platform::testing::Button;
using platform::testing::Click;
using platform::testing::DoubleClick;
using platform::testing::Key;
using platform::testing::MovePointer;
using platform::testing::Press;
using platform::testing::Release;

class ListViewTest : public ListTest {
protected:
    /// Apart from the click before it, however soon it comes.
    void LoneClick(int x, int y) {
        ClickElsewhere();
        Click(list_, x, y);
    }
    const CListGrid& Grid() const { return *list_.m_pGrid; }
    int Width(int column) const { return Grid().widths.GetData()[column]; }
};

TEST_F(ListViewTest, APressTellsRowAndCell) {
    MakeVirtual(4);
    const struct {
        const char* where;
        int x;
        int y;
        const char* heard;
        int selected;
    } kCases[] = {
        {"header", 50, 10, "", -1},
        {"first line of the body", 50, 22, "", -1},
        {"second line", 50, 23, "row; cell 0,0", 0},
        {"last line of a row", 99, 22 + 21, "row; cell 0,0", 0},
        {"first line of the next", 100, 22 + 22, "row; cell 1,1", 1},
        {"last column", 299, 22 + 70, "row; cell 2,3", 3},
        {"beside the columns", 300, 22 + 30, "row", 1},
        {"the row behind the last", 50, 22 + 4 * 22 + 5, "row; cell 0,4", 4},
        {"below that", 50, 22 + 5 * 22 + 5, "", 4},
    };
    for (const auto& each : kCases) {
        LoneClick(each.x, each.y);
        EXPECT_EQ(Heard(), each.heard) << each.where;
        EXPECT_EQ(list_.GetSelectedRow(), each.selected) << each.where;
    }
    EXPECT_EQ(::GetFocus(), list_.m_hWnd);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(ListViewTest, WithRowsOfItsOwnTellsNoPress) {
    MakeStored(3);
    LoneClick(50, 50);
    EXPECT_EQ(Heard(), "");
    EXPECT_EQ(list_.GetSelectedRow(), 1);
}

TEST_F(ListViewTest, HitsKnowThePlaceInTheCell) {
    MakeVirtual(100);
    list_.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 10));
    const CListGrid::Cell cell = list_.m_pGrid->GetHitCell(130, 22 + 5);
    EXPECT_EQ(cell.row, 10);
    EXPECT_EQ(cell.column, 1);
    EXPECT_EQ(Grid().nHitX, 30);
    EXPECT_EQ(Grid().nHitY, 5);
    list_.m_pGrid->nScrollX = 20;
    EXPECT_EQ(list_.m_pGrid->GetHitCell(79, 30).column, 0);
    EXPECT_EQ(list_.m_pGrid->GetHitCell(80, 30).column, 1);
    EXPECT_EQ(list_.m_pGrid->GetHitCell(50, 22 - 220).row, -1);
}

TEST_F(ListViewTest, TheSelectionOutlivesItsRow) {
    MakeVirtual(5);
    LoneClick(50, 22 + 4 * 22 + 5);
    list_.SetRowCount(2, TRUE);
    EXPECT_EQ(list_.GetSelectedRow(), 4);
    list_.SetRowCount(-3, TRUE);
    EXPECT_EQ(list_.GetRowCount(), 0);
    EXPECT_EQ(list_.GetSelectedRow(), 4);
}

TEST_F(ListViewTest, DividersReachTwoPixelsToEitherSide) {
    MakeVirtual(2);
    const struct {
        int x;
        int y;
        int column;  ///< -1 for none
    } kCases[] = {{97, 10, -1}, {98, 10, 0}, {100, 0, 0}, {102, 21, 0}, {103, 10, -1},
                  {160, 5, 1},  {298, 5, 2}, {302, 5, 2}, {303, 5, -1}, {100, 30, -1}};
    for (const auto& each : kCases) {
        ClickElsewhere();
        MovePointer(At(each.x, each.y));
        const bool shows = ::GetCursor() == ::LoadCursorA(nullptr, IDC_SIZEWE);
        Press();
        EXPECT_EQ(Grid().bResizing, each.column >= 0) << each.x << ',' << each.y;
        EXPECT_EQ(shows, each.column >= 0) << each.x << ',' << each.y;
        if (each.column >= 0) {
            EXPECT_EQ(Grid().nResizeCol, each.column);
        }
        Release();
        EXPECT_FALSE(Grid().bResizing);
    }
}

TEST_F(ListViewTest, AColumnIsDraggedWiderThanTenPixels) {
    MakeVirtual(100);
    MovePointer(At(160, 10));
    Press();
    const struct {
        int x;
        int width;
    } kMoves[] = {{190, 90}, {110, 90}, {111, 11}, {20, 11}, {-400, 11}, {500, 400}};
    for (const auto& move : kMoves) {
        MovePointer(At(move.x, 300));
        EXPECT_EQ(Width(1), move.width) << move.x;
        EXPECT_EQ(Bar(SB_HORZ).nMax, 240 + move.width) << "the bars follow";
    }
    Release();
    MovePointer(At(200, 10));
    EXPECT_EQ(Width(1), 400);
    EXPECT_EQ(Width(0), 100);
    EXPECT_EQ(Heard(), "");
}

TEST_F(ListViewTest, AScrolledColumnIsDraggedWhereItIs) {
    MakeVirtual(100);
    NeedBothBars();
    list_.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 30));
    platform::testing::Drag(At(70, 10), At(95, 10));
    EXPECT_EQ(Width(0), 125);
}

TEST_F(ListViewTest, ALostCaptureEndsTheDrag) {
    MakeVirtual(3);
    MovePointer(At(100, 10));
    Press();
    ASSERT_TRUE(Grid().bResizing);
    ::SetCapture(parent_);
    EXPECT_FALSE(Grid().bResizing);
    ::ReleaseCapture();
    MovePointer(At(140, 10));
    EXPECT_EQ(Width(0), 100);
    Release();
}

TEST_F(ListViewTest, ADragSurvivesTheColumnsBeingReplaced) {
    MakeVirtual(3);
    MovePointer(At(300, 10));
    Press();
    list_.DeleteAllColumns();
    MovePointer(At(310, 10));
    list_.InsertColumn("合约", 80, 37, 0, FALSE, FALSE);
    MovePointer(At(320, 10));
    EXPECT_EQ(Width(0), 80);
    Release();
}

TEST_F(ListViewTest, TheSecondPressOfADoubleClickIsTheNotificationOnly) {
    MakeVirtual(3);
    ClickElsewhere();
    DoubleClick(list_, 50, 22 + 30);
    EXPECT_EQ(Heard(), "row; cell 0,1; double click");
    for (const int y : {10, 22, 22 + 4 * 22 + 5}) {
        ClickElsewhere();
        DoubleClick(list_, 50, y);
        EXPECT_EQ(Heard(), "") << y;
    }
    ClickElsewhere();
    DoubleClick(list_, 50, 22 + 3 * 22 + 5);
    EXPECT_EQ(Heard(), "row; cell 0,3; double click") << "the row behind the last";
}

TEST_F(ListViewTest, ADividerPressedTwiceIsDraggedOn) {
    MakeVirtual(3);
    ClickElsewhere();
    Click(list_, 100, 10);
    Press();
    MovePointer(At(150, -40));
    EXPECT_EQ(Width(0), 150);
    Release();
    EXPECT_FALSE(Grid().bResizing);
    EXPECT_EQ(Heard(), "");
}

TEST_F(ListViewTest, TheRightButtonIsToldAnywhere) {
    MakeVirtual(3);
    for (const int y : {10, 50, 200}) {
        ClickElsewhere();
        Click(list_, 350, y, Button::kRight);
        EXPECT_EQ(Heard(), "right release") << y;
    }
    EXPECT_EQ(list_.GetSelectedRow(), -1);
}

TEST_F(ListViewTest, KeysMoveTheSelectionAndTellTheRow) {
    MakeVirtual(30);
    list_.SetFocus();
    const struct {
        BYTE key;
        int selected;
        const char* heard;
        int first;  ///< row on top
    } kSteps[] = {{VK_DOWN, 0, "row", 0},  {VK_UP, 0, "", 0},       {VK_DOWN, 1, "row", 0},
                  {VK_NEXT, 10, "row", 2}, {VK_PRIOR, 1, "row", 1}, {VK_END, 29, "row", 21},
                  {VK_DOWN, 29, "", 21},   {VK_UP, 28, "row", 21},  {VK_HOME, 0, "row", 0},
                  {VK_RIGHT, 0, "", 0},    {VK_F5, 0, "", 0}};
    for (const auto& step : kSteps) {
        Key(step.key);
        EXPECT_EQ(list_.GetSelectedRow(), step.selected) << int{step.key};
        EXPECT_EQ(Heard(), step.heard) << int{step.key};
        EXPECT_EQ(Grid().nScrollY, step.first * kRowHeight) << int{step.key};
    }
    LoneClick(50, 50);
    Heard();
    list_.SetRowCount(0, TRUE);
    Key(VK_DOWN);
    EXPECT_EQ(Heard(), "");
}

TEST_F(ListViewTest, AKeyShowsARowThatIsCutOffWhole) {
    MakeVirtual(30);
    list_.ResetScrollY(30);
    list_.m_pGrid->nSelected = 2;
    list_.SetFocus();
    Key(VK_UP);
    EXPECT_EQ(list_.GetSelectedRow(), 1);
    EXPECT_EQ(Grid().nScrollY, kRowHeight);
}

TEST_F(ListViewTest, KeysBringAListOfItsOwnRowsIntoView) {
    MakeStored(20);
    list_.SetFocus();
    Key(VK_END);
    EXPECT_EQ(list_.GetSelectedRow(), 19);
    EXPECT_EQ(Heard(), "");
}

TEST_F(ListViewTest, AFreshEnterActsAsADoubleClick) {
    MakeVirtual(3);
    list_.SetFocus();
    Key(VK_RETURN);
    EXPECT_EQ(Heard(), "") << "without a selection";
    Key(VK_DOWN);
    Heard();
    Key(VK_RETURN);
    EXPECT_EQ(Heard(), "double click");
    constexpr LPARAM kDownBefore = LPARAM{1} << 30;
    list_.SendMessage(WM_KEYDOWN, VK_RETURN, kDownBefore | 1);
    EXPECT_EQ(Heard(), "");
    list_.SetRowCount(0, TRUE);
    Key(VK_RETURN);
    EXPECT_EQ(Heard(), "") << "the selected row is gone";
}

TEST_F(ListViewTest, AsksDialogsForArrowsAndEnter) {
    EXPECT_EQ(list_.SendMessage(WM_GETDLGCODE), LRESULT{DLGC_WANTARROWS});
    MSG message{};
    message.message = WM_KEYDOWN;
    message.wParam = VK_RETURN;
    const auto asked = reinterpret_cast<LPARAM>(&message);
    EXPECT_EQ(list_.SendMessage(WM_GETDLGCODE, VK_RETURN, asked),
              LRESULT{DLGC_WANTARROWS | DLGC_WANTMESSAGE});
    message.wParam = VK_TAB;
    EXPECT_EQ(list_.SendMessage(WM_GETDLGCODE, VK_TAB, asked), LRESULT{DLGC_WANTARROWS});
}

TEST_F(ListViewTest, ItsWindowIsAsPagesExpect) {
    WNDCLASSA window_class{};
    ASSERT_TRUE(::GetClassInfoA(AfxGetInstanceHandle(), "OWERLISTVIEW", &window_class));
    EXPECT_EQ(window_class.style, UINT{CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS});
    EXPECT_EQ(window_class.hbrBackground, reinterpret_cast<HBRUSH>(UINT_PTR{16}));
    char name[32] = "";
    ::GetClassNameA(list_, name, sizeof name);
    EXPECT_STREQ(name, "OWERLISTVIEW");
    EXPECT_EQ(list_.GetDlgCtrlID(), int{kListId});
    EXPECT_EQ(list_.SendMessage(WM_ERASEBKGND, 0), TRUE);

    COwerDrawListView orphan;
    platform::testing::SeenBox box;
    platform::testing::AnswerNextBox(IDOK, &box);
    EXPECT_FALSE(orphan.Create(CRect(0, 0, 10, 10), nullptr, 1));
    EXPECT_EQ(box.text, "CREATE FAILE");
}

TEST_F(ListViewTest, WithoutAWindowDoesNothing) {
    COwerDrawListView list;
    list.InsertColumn("合约", 70, 37, 36, FALSE, FALSE);
    EXPECT_EQ(list.InsertRow("Au(T+D)"), 0);
    list.SetRowCount(5, TRUE);
    list.SetRowHeight(0);
    list.ScrollToEnd();
    list.ResetScrollY(7);
    list.DrawBorder();
    list.BeginEdit(0, 0, "", 0, 0);
    list.EndEdit();
    EXPECT_EQ(list.GetRowCount(), 0);
    EXPECT_EQ(list.GetSelectedRow(), -1);
    EXPECT_FALSE(list.IsEditing());
    ASSERT_TRUE(list.Create(CRect(0, 0, 90, 90), &parent_, 3));
    EXPECT_EQ(list.m_pGrid->TotalWidth(), 70) << "columns from before";
    list.DestroyWindow();
    EXPECT_EQ(list.m_pGrid, nullptr);
    list.SetRowCount(5, TRUE);
    EXPECT_STREQ(list.GetItem(0, 0)->szText, "Au(T+D)");
}

}  // namespace

}  // namespace tests
