#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/platform/win32/controls/control_frame.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Key;

constexpr int kRow = 18;

class ListBoxes : public ControlFrame {
protected:
    /// Four rows of 18 pixels, whatever the font.
    void Use(DWORD style, int rows) {
        Make("ListBox", style | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, 120, 4 * kRow);
        Send(LB_SETITEMHEIGHT, 0, kRow);
        for (int row = 0; row < rows; ++row) Add("item " + std::to_string(row));
        Take();
    }
    LRESULT Add(const std::string& text) { return Send(LB_ADDSTRING, 0, text.c_str()); }
    std::string State() override { return "cur " + std::to_string(Send(LB_GETCURSEL)); }
    void ClickRow(int row) { ClickOnce(20, row * kRow + 9); }
};

TEST_F(ListBoxes, EmptyOnesHaveNothing) {
    Use(0, 0);
    char text[4] = "x";
    EXPECT_EQ(0, Send(LB_GETCOUNT));
    EXPECT_EQ(LB_ERR, Send(LB_GETCURSEL));
    EXPECT_EQ(LB_ERR, Send(LB_SETCURSEL, 0));
    EXPECT_EQ(LB_ERR, Send(LB_GETTEXT, 0, text));
    EXPECT_EQ(LB_ERR, Send(LB_GETTEXTLEN, 0));
    EXPECT_EQ(LB_ERR, Send(LB_GETITEMDATA, 0));
    EXPECT_EQ(LB_ERR, Send(LB_DELETESTRING, 0));
    EXPECT_EQ(0, Send(LB_GETTOPINDEX));
    EXPECT_EQ(LB_ERR, Send(LB_GETSEL, 0));
}

TEST_F(ListBoxes, SelectByCallAndRefuseWhatIsNotThere) {
    Use(WS_VSCROLL, 12);
    EXPECT_EQ(3, Send(LB_SETCURSEL, 3));
    EXPECT_EQ(LB_ERR, Send(LB_SETCURSEL, 99));
    EXPECT_EQ(3, Send(LB_GETCURSEL));
    EXPECT_EQ(LB_ERR, Send(LB_SETCURSEL, static_cast<WPARAM>(-1)));
    EXPECT_EQ(-1, Send(LB_GETCURSEL));
    EXPECT_EQ("", Take());

    EXPECT_EQ(0, Send(LB_GETITEMDATA, 2));
    Send(LB_SETITEMDATA, 2, 77);
    EXPECT_EQ(77, Send(LB_GETITEMDATA, 2));
    EXPECT_EQ(LB_ERR, Send(LB_SETITEMDATA, 99, 1));
    EXPECT_EQ(LB_ERR, Send(LB_GETITEMDATA, 99));
    EXPECT_EQ(7, Send(LB_GETTEXTLEN, 10));
    char text[8];
    EXPECT_EQ(7, Send(LB_GETTEXT, 10, text));
    EXPECT_STREQ("item 10", text);
}

TEST_F(ListBoxes, FindWithoutRegardToCase) {
    Use(0, 12);
    EXPECT_EQ(1, Send(LB_FINDSTRING, static_cast<WPARAM>(-1), "ITEM 1"));
    EXPECT_EQ(10, Send(LB_FINDSTRING, 1, "item 1"));
    EXPECT_EQ(1, Send(LB_FINDSTRING, 11, "item 1"));
    EXPECT_EQ(1, Send(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "item 1"));
    EXPECT_EQ(LB_ERR, Send(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "item"));
}

TEST_F(ListBoxes, RowsComeAndGoAroundTheSelection) {
    Use(0, 12);
    Send(LB_SETCURSEL, 11);
    EXPECT_EQ(11, Send(LB_DELETESTRING, 0));
    EXPECT_EQ(10, Send(LB_GETCURSEL));
    EXPECT_EQ(10, Send(LB_DELETESTRING, 10));
    EXPECT_EQ(-1, Send(LB_GETCURSEL));
    Send(LB_SETCURSEL, 3);
    EXPECT_EQ(0, Send(LB_INSERTSTRING, 0, "new"));
    EXPECT_EQ(4, Send(LB_GETCURSEL));
    EXPECT_EQ(LB_ERR, Send(LB_INSERTSTRING, 99, "new"));
    EXPECT_EQ(11, Send(LB_INSERTSTRING, static_cast<WPARAM>(-1), "last"));
    Send(LB_RESETCONTENT);
    EXPECT_EQ(0, Send(LB_GETCOUNT));
    EXPECT_EQ(-1, Send(LB_GETCURSEL));
}

TEST_F(ListBoxes, SortedOnesPutEachTextInItsPlace) {
    Use(LBS_SORT, 0);
    EXPECT_EQ(0, Add("b"));
    EXPECT_EQ(0, Add("a"));
    EXPECT_EQ(1, Add("B"));
    EXPECT_EQ(3, Add("中"));
    EXPECT_EQ(0, Add("1"));
}

TEST_F(ListBoxes, AnswerWhereRowsStand) {
    Use(WS_VSCROLL, 12);
    const struct {
        int top;
        int result;
    } kTops[] = {{4, 4}, {11, 8}, {99, 8}, {0, 0}};
    for (const auto& one : kTops) {
        Send(LB_SETTOPINDEX, static_cast<WPARAM>(one.top));
        EXPECT_EQ(one.result, Send(LB_GETTOPINDEX)) << one.top;
    }
    const struct {
        int x;
        int y;
        LRESULT found;
    } kPoints[] = {{20, 0, MAKELRESULT(0, 0)},
                   {20, kRow, MAKELRESULT(1, 0)},
                   {20, 4 * kRow - 1, MAKELRESULT(3, 0)},
                   {20, 4 * kRow + 5, MAKELRESULT(3, 1)},
                   {-5, 2, MAKELRESULT(0, 1)}};
    for (const auto& one : kPoints) {
        EXPECT_EQ(one.found, Send(LB_ITEMFROMPOINT, 0, MAKELPARAM(one.x, one.y)))
            << one.x << "," << one.y;
    }
    Send(LB_SETCURSEL, 11);
    EXPECT_EQ(8, Send(LB_GETTOPINDEX));
    RECT row{};
    EXPECT_EQ(1, Send(LB_GETITEMRECT, 9, reinterpret_cast<LPARAM>(&row)));
    EXPECT_EQ(kRow, row.top);
    EXPECT_EQ(2 * kRow, row.bottom);
    EXPECT_EQ(LB_ERR, Send(LB_GETITEMRECT, 99, reinterpret_cast<LPARAM>(&row)));
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ASSERT_TRUE(GetScrollInfo(ctl_, SB_VERT, &info));
    EXPECT_EQ(11, info.nMax);
    EXPECT_EQ(4u, info.nPage);
    EXPECT_EQ(8, info.nPos);
}

// The bar takes part of the client area only while there is something to scroll.
TEST_F(ListBoxes, ShowTheirBarWhenRowsAreOutOfSight) {
    Use(WS_VSCROLL, 4);
    RECT all{};
    GetClientRect(ctl_, &all);
    Add("one more");
    RECT rest{};
    GetClientRect(ctl_, &rest);
    EXPECT_EQ(all.right - GetSystemMetrics(SM_CXVSCROLL), rest.right);
    Send(LB_DELETESTRING, 0);
    GetClientRect(ctl_, &rest);
    EXPECT_EQ(all.right, rest.right);
}

TEST_F(ListBoxes, TellOfChoicesMadeByHand) {
    Use(WS_VSCROLL, 11);
    Run({
        {"by call", [&] { Send(LB_SETCURSEL, 2); }, "", "cur 2"},
        {"focus", [&] { SetFocus(ctl_); }, "LBN_SETFOCUS", "cur 2"},
        {"click", [&] { ClickRow(0); }, "LBN_SELCHANGE", "cur 0"},
        {"click the same", [&] { ClickRow(0); }, "LBN_SELCHANGE", "cur 0"},
        {"double click",
         [&] {
             EndClickSequence();
             platform::testing::DoubleClick(ctl_, 20, kRow + 9);
         },
         "LBN_SELCHANGE LBN_DBLCLK", "cur 1"},
        {"drag",
         [&] {
             platform::testing::Drag(platform::testing::ScreenPoint(ctl_, 20, 5),
                                     platform::testing::ScreenPoint(ctl_, 20, 2 * kRow + 9));
         },
         "LBN_SELCHANGE", "cur 2"},
        {"down, up",
         [&] {
             Key(VK_DOWN);
             Key(VK_UP);
         },
         "LBN_SELCHANGE LBN_SELCHANGE", "cur 2"},
        {"home, up at the top, end",
         [&] {
             Key(VK_HOME);
             Key(VK_UP);
             Key(VK_END);
         },
         "LBN_SELCHANGE LBN_SELCHANGE LBN_SELCHANGE", "cur 10"},
        {"a letter", [&] { platform::testing::Type("i"); }, "LBN_SELCHANGE", "cur 0"},
        {"enter, space",
         [&] {
             Key(VK_RETURN);
             Key(VK_SPACE);
         },
         "", "cur 0"},
        {"reset", [&] { Send(LB_RESETCONTENT); }, "", "cur -1"},
        {"focus away", [&] { FocusElsewhere(); }, "LBN_KILLFOCUS", "cur -1"},
    });
    Use(WS_VSCROLL, 3);
    Send(LB_SETCURSEL, 0);
    SetFocus(ctl_);
    Run({
        {"click below the rows", [&] { ClickRow(3); }, "", "cur 0"},
        {"wheel, all in sight", [&] { platform::testing::Wheel(-1); }, "", "cur 0"},
    });
}

TEST_F(ListBoxes, OwnersMeasureAndDrawTheirRows) {
    handler_ = [](UINT message, WPARAM, LPARAM lParam, LRESULT& answer) {
        if (message != WM_MEASUREITEM) return false;
        reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = kRow;
        answer = TRUE;
        return true;
    };
    Show({WM_MEASUREITEM, WM_DRAWITEM, WM_DELETEITEM, WM_CTLCOLORLISTBOX});
    Make("ListBox", LBS_NOTIFY | LBS_OWNERDRAWFIXED, 120, 4 * kRow);
    EXPECT_EQ(0u, Take().find("MEASUREITEM(-1)"));
    EXPECT_EQ(kRow, Send(LB_GETITEMHEIGHT));
    Send(LB_ADDSTRING, 0, LPARAM{5});
    Send(LB_ADDSTRING, 0, LPARAM{6});
    Take();
    ULONG_PTR data = 0;
    EXPECT_EQ(static_cast<LRESULT>(sizeof data),
              Send(LB_GETTEXT, 0, reinterpret_cast<LPARAM>(&data)));
    EXPECT_EQ(5u, data);
    Run({
        {"all", [&] { InvalidateRect(ctl_, nullptr, TRUE); },
         "CTLCOLORLISTBOX CTLCOLORLISTBOX DRAWITEM(0 action 1 state 0 top 0) "
         "DRAWITEM(1 action 1 state 0 top 18)",
         "cur -1"},
        {"select", [&] { Send(LB_SETCURSEL, 0); },
         "CTLCOLORLISTBOX DRAWITEM(0 action 2 state 1 top 0)", "cur 0"},
        {"select another", [&] { Send(LB_SETCURSEL, 1); },
         "CTLCOLORLISTBOX DRAWITEM(0 action 2 state 0 top 0) "
         "CTLCOLORLISTBOX DRAWITEM(1 action 2 state 1 top 18)",
         "cur 1"},
        {"focus", [&] { SetFocus(ctl_); }, "DRAWITEM(1 action 4 state 17 top 18) LBN_SETFOCUS",
         "cur 1"},
        {"key up", [&] { Key(VK_UP); },
         "DRAWITEM(1 action 4 state 1 top 18) "
         "CTLCOLORLISTBOX DRAWITEM(1 action 2 state 0 top 18) "
         "CTLCOLORLISTBOX DRAWITEM(0 action 2 state 1 top 0) "
         "DRAWITEM(0 action 4 state 17 top 0) LBN_SELCHANGE",
         "cur 0"},
        {"delete", [&] { Send(LB_DELETESTRING, 0); },
         "DELETEITEM(0 data 5) CTLCOLORLISTBOX CTLCOLORLISTBOX "
         "DRAWITEM(0 action 1 state 0 top 0)",
         "cur -1"},
        {"reset", [&] { Send(LB_RESETCONTENT); },
         "DELETEITEM(0 data 6) CTLCOLORLISTBOX CTLCOLORLISTBOX", "cur -1"},
    });
    Send(LB_ADDSTRING, 0, LPARAM{7});
    Send(LB_ADDSTRING, 0, LPARAM{8});
    Take();
    DestroyWindow(ctl_);
    EXPECT_EQ("LBN_KILLFOCUS DELETEITEM(1 data 8) DELETEITEM(0 data 7)", Take());
}

}  // namespace
}  // namespace tests
