#include <gtest/gtest.h>

#include "tests/platform/win32/controls/control_frame.h"
// The controls' header needs the types of the one above.
#include <commctrl.h>

#include "platform/testing/input.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Key;

constexpr DWORD kTreeStyle = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT;

/// Items R (1) with children A (2), B (3), then S (4); notifications show the numbers.
class Trees : public ControlFrame {
protected:
    void SetUp() override {
        ControlFrame::SetUp();
        Make(WC_TREEVIEW, kTreeStyle, 150, 120);
        r_ = Insert(TVI_ROOT, "R", 1);
        a_ = Insert(r_, "A", 2);
        b_ = Insert(r_, "B", 3);
        s_ = Insert(TVI_ROOT, "S", 4);
        Take();
    }

    HTREEITEM Insert(HTREEITEM parent, const char* text, LPARAM data, HTREEITEM after = TVI_LAST) {
        TVINSERTSTRUCTA insert{};
        insert.hParent = parent;
        insert.hInsertAfter = after;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM;
        insert.item.pszText = const_cast<char*>(text);
        insert.item.lParam = data;
        return reinterpret_cast<HTREEITEM>(
            Send(TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
    }
    LRESULT To(UINT message, WPARAM wParam, HTREEITEM item) {
        return Send(message, wParam, reinterpret_cast<LPARAM>(item));
    }
    LRESULT Expand(HTREEITEM item, WPARAM action = TVE_EXPAND) {
        return To(TVM_EXPAND, action, item);
    }
    LRESULT Select(HTREEITEM item) { return To(TVM_SELECTITEM, TVGN_CARET, item); }
    HTREEITEM Next(WPARAM relation, HTREEITEM item = nullptr) {
        return reinterpret_cast<HTREEITEM>(To(TVM_GETNEXTITEM, relation, item));
    }
    LPARAM Data(HTREEITEM item) {
        TVITEMA wanted{};
        wanted.mask = TVIF_PARAM;
        wanted.hItem = item;
        return Send(TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&wanted)) != 0 ? wanted.lParam : 0;
    }
    bool IsExpanded(HTREEITEM item) {
        return (Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) &
                TVIS_EXPANDED) != 0;
    }
    std::string State() override {
        const HTREEITEM caret = Next(TVGN_CARET);
        return (caret != nullptr ? std::to_string(Data(caret)) : "none") +
               (IsExpanded(r_) ? " expanded" : "");
    }
    RECT TextRect(HTREEITEM item) {
        union {
            RECT rect;
            HTREEITEM item;
        } asked{};
        asked.item = item;
        EXPECT_TRUE(Send(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&asked)));
        return asked.rect;
    }
    POINT TextPoint(HTREEITEM item) {
        const RECT text = TextRect(item);
        return {(text.left + text.right) / 2, (text.top + text.bottom) / 2};
    }
    void ClickText(HTREEITEM item) { ClickOnce(TextPoint(item).x, TextPoint(item).y); }
    void ClickButton(HTREEITEM item) { ClickOnce(TextRect(item).left - 8, TextPoint(item).y); }

    HTREEITEM r_ = nullptr;
    HTREEITEM a_ = nullptr;
    HTREEITEM b_ = nullptr;
    HTREEITEM s_ = nullptr;
};

TEST_F(Trees, SelectAndExpandByCall) {
    Run({
        {"focus selects the first", [&] { SetFocus(ctl_); },
         "TVN_SELCHANGING(0>1 by 0 state 0) TVN_SELCHANGED(0>1 by 0 state 2) NM_SETFOCUS", "1"},
        {"expand", [&] { EXPECT_EQ(1, Expand(r_)); },
         "TVN_ITEMEXPANDING(0>1 by 2 state 2) TVN_ITEMEXPANDED(0>1 by 2 state 34)", "1 expanded"},
        {"expand again", [&] { EXPECT_EQ(1, Expand(r_)); }, "", "1 expanded"},
        {"expand a leaf", [&] { EXPECT_EQ(0, Expand(s_)); }, "", "1 expanded"},
        {"select", [&] { EXPECT_EQ(1, Select(a_)); },
         "TVN_SELCHANGING(1>2 by 0 state 0) TVN_SELCHANGED(1>2 by 0 state 2)", "2 expanded"},
        {"select it again", [&] { EXPECT_EQ(1, Select(a_)); }, "", "2 expanded"},
        {"select nothing", [&] { EXPECT_EQ(1, Select(nullptr)); },
         "TVN_SELCHANGING(2>0 by 0 state 0) TVN_SELCHANGED(2>0 by 0 state 0)", "none expanded"},
        {"collapse", [&] { EXPECT_EQ(1, Expand(r_, TVE_COLLAPSE)); }, "", "none"},
        {"collapse again", [&] { EXPECT_EQ(0, Expand(r_, TVE_COLLAPSE)); }, "", "none"},
        {"toggle", [&] { EXPECT_EQ(1, Expand(r_, TVE_TOGGLE)); }, "", "none expanded"},
        {"refused",
         [&] {
             answers_[TVN_SELCHANGINGA] = 1;
             EXPECT_EQ(0, Select(s_));
         },
         "TVN_SELCHANGING(0>4 by 0 state 0)", "none expanded"},
    });
}

TEST_F(Trees, TellOfTheMouse) {
    Expand(r_);
    SetFocus(ctl_);
    Run({
        {"click", [&] { ClickText(b_); },
         "NM_CLICK TVN_SELCHANGING(1>3 by 1 state 0) TVN_SELCHANGED(1>3 by 1 state 2)",
         "3 expanded"},
        {"click it again", [&] { ClickText(b_); }, "NM_CLICK", "3 expanded"},
        {"right click",
         [&] {
             platform::testing::Click(ctl_, TextPoint(r_).x, TextPoint(r_).y,
                                      platform::testing::Button::kRight);
         },
         "NM_RCLICK", "3 expanded"},
        {"double click",
         [&] {
             EndClickSequence();
             platform::testing::DoubleClick(ctl_, TextPoint(r_).x, TextPoint(r_).y);
         },
         "NM_CLICK TVN_SELCHANGING(3>1 by 1 state 96) TVN_SELCHANGED(3>1 by 1 state 98) "
         "NM_DBLCLK TVN_ITEMEXPANDING(0>1 by 1 state 98) TVN_ITEMEXPANDED(0>1 by 1 state 66)",
         "1"},
        {"button", [&] { ClickButton(r_); },
         "NM_CLICK TVN_ITEMEXPANDING(0>1 by 2 state 66) TVN_ITEMEXPANDED(0>1 by 2 state 98)",
         "1 expanded"},
        {"expanding refused",
         [&] {
             answers_[TVN_ITEMEXPANDINGA] = 1;
             ClickButton(r_);
         },
         "NM_CLICK TVN_ITEMEXPANDING(0>1 by 1 state 98)", "1 expanded"},
    });
}

TEST_F(Trees, TellOfKeys) {
    Expand(r_);
    SetFocus(ctl_);
    Run({
        {"down", [&] { Key(VK_DOWN); },
         "TVN_KEYDOWN TVN_SELCHANGING(1>2 by 2 state 0) TVN_SELCHANGED(1>2 by 2 state 2)",
         "2 expanded"},
        {"left to the parent", [&] { Key(VK_LEFT); },
         "TVN_KEYDOWN TVN_SELCHANGING(2>1 by 2 state 96) TVN_SELCHANGED(2>1 by 2 state 98)",
         "1 expanded"},
        {"left collapses", [&] { Key(VK_LEFT); },
         "TVN_KEYDOWN TVN_ITEMEXPANDING(0>1 by 1 state 98) TVN_ITEMEXPANDED(0>1 by 1 state 66)",
         "1"},
        {"right expands", [&] { Key(VK_RIGHT); },
         "TVN_KEYDOWN TVN_ITEMEXPANDING(0>1 by 2 state 66) TVN_ITEMEXPANDED(0>1 by 2 state 98)",
         "1 expanded"},
        {"enter", [&] { Key(VK_RETURN); }, "TVN_KEYDOWN NM_RETURN", "1 expanded"},
        {"plus", [&] { Key(VK_ADD); },
         "TVN_KEYDOWN TVN_ITEMEXPANDING(0>1 by 2 state 98) TVN_ITEMEXPANDED(0>1 by 2 state 98)",
         "1 expanded"},
        {"end, up",
         [&] {
             Key(VK_END);
             Take();
             Key(VK_UP);
         },
         "TVN_KEYDOWN TVN_SELCHANGING(4>3 by 2 state 0) TVN_SELCHANGED(4>3 by 2 state 2)",
         "3 expanded"},
        {"collapsed above the selection", [&] { Expand(r_, TVE_COLLAPSE); },
         "TVN_SELCHANGING(3>1 by 0 state 64) TVN_SELCHANGED(3>1 by 0 state 66)", "1"},
        {"focus away", [&] { FocusElsewhere(); }, "NM_KILLFOCUS", "1"},
    });
}

TEST_F(Trees, AnswerWhereAPointIs) {
    Expand(r_);
    const RECT text = TextRect(r_);
    const LONG y = (text.top + text.bottom) / 2;
    const struct {
        const char* what;
        POINT point;
        UINT flags;
        LPARAM item;
    } kCases[] = {
        {"text", {text.left + 2, y}, TVHT_ONITEMLABEL, 1},
        {"right of it", {text.right + 5, y}, TVHT_ONITEMRIGHT, 1},
        {"button", {text.left - 8, y}, TVHT_ONITEMBUTTON, 1},
        {"no button", {TextRect(a_).left - 8, TextPoint(a_).y}, TVHT_ONITEMINDENT, 2},
        {"below all", {20, 115}, TVHT_NOWHERE, 0},
        {"left", {-5, y}, TVHT_TOLEFT, 0},
        {"above", {20, -5}, TVHT_ABOVE, 0},
        {"right", {500, y}, TVHT_TORIGHT, 0},
        {"below", {20, 500}, TVHT_BELOW, 0},
    };
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        TVHITTESTINFO test{};
        test.pt = one.point;
        Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
        EXPECT_EQ(one.flags, test.flags);
        EXPECT_EQ(one.item, test.hItem != nullptr ? Data(test.hItem) : 0);
    }
}

TEST_F(Trees, LeadFromItemToItem) {
    Expand(r_);
    const struct {
        WPARAM relation;
        HTREEITEM from;
        HTREEITEM to;
    } kCases[] = {{TVGN_ROOT, nullptr, r_},
                  {TVGN_CHILD, r_, a_},
                  {TVGN_CHILD, a_, nullptr},
                  {TVGN_NEXT, r_, s_},
                  {TVGN_NEXT, b_, nullptr},
                  {TVGN_PREVIOUS, b_, a_},
                  {TVGN_PARENT, a_, r_},
                  {TVGN_PARENT, r_, nullptr},
                  {TVGN_NEXTVISIBLE, b_, s_},
                  {TVGN_PREVIOUSVISIBLE, a_, r_},
                  {TVGN_FIRSTVISIBLE, nullptr, r_},
                  {TVGN_CARET, nullptr, nullptr}};
    for (const auto& one : kCases) EXPECT_EQ(one.to, Next(one.relation, one.from)) << one.relation;
    EXPECT_EQ(4, Send(TVM_GETCOUNT));
}

TEST_F(Trees, GiveBackWhatTheyHold) {
    const HTREEITEM item = Insert(TVI_ROOT, "行情", 9, TVI_FIRST);
    EXPECT_EQ(item, Next(TVGN_ROOT));
    char text[16] = "";
    TVITEMA wanted{};
    wanted.mask = TVIF_TEXT | TVIF_PARAM | TVIF_CHILDREN;
    wanted.hItem = item;
    wanted.pszText = text;
    wanted.cchTextMax = sizeof text;
    EXPECT_TRUE(Send(TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&wanted)));
    EXPECT_GBK_EQ("行情", text);
    EXPECT_EQ(9, wanted.lParam);
    EXPECT_EQ(0, wanted.cChildren);
    wanted.lParam = 10;
    wanted.mask = TVIF_PARAM;
    EXPECT_TRUE(Send(TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&wanted)));
    EXPECT_EQ(10, Data(item));
}

TEST_F(Trees, DeletingTellsAndHandsTheSelectionOn) {
    Expand(r_);
    SetFocus(ctl_);
    Select(a_);
    Run({
        {"the selected", [&] { EXPECT_EQ(1, To(TVM_DELETEITEM, 0, a_)); },
         "TVN_DELETEITEM(2) TVN_SELCHANGING(0>3 by 0 state 0) TVN_SELCHANGED(0>3 by 0 state 2)",
         "3 expanded"},
        {"again", [&] { EXPECT_EQ(0, To(TVM_DELETEITEM, 0, a_)); }, "", "3 expanded"},
    });
    EXPECT_EQ(1, To(TVM_DELETEITEM, 0, TVI_ROOT));
    EXPECT_EQ("none", State());
    EXPECT_EQ(0, Send(TVM_GETCOUNT));
    std::string told = Take();
    for (const char* const each : {"(1)", "(3)", "(4)"}) {
        EXPECT_NE(std::string::npos, told.find("TVN_DELETEITEM" + std::string(each)));
    }
}

TEST_F(Trees, ScrollToWhatIsSelected) {
    HTREEITEM last = nullptr;
    HTREEITEM inner = nullptr;
    for (int row = 0; row < 30; ++row) last = Insert(TVI_ROOT, "row", 100 + row);
    inner = Insert(last, "inner", 200);
    const LRESULT visible = Send(TVM_GETVISIBLECOUNT);
    Select(inner);
    EXPECT_TRUE(IsExpanded(last));
    const RECT text = TextRect(inner);
    RECT client{};
    GetClientRect(ctl_, &client);
    EXPECT_GE(text.top, 0);
    EXPECT_LE(text.bottom, client.bottom);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ASSERT_TRUE(GetScrollInfo(ctl_, SB_VERT, &info));
    EXPECT_EQ(static_cast<UINT>(visible), info.nPage);
    EXPECT_GT(info.nPos, 0);
    Send(WM_VSCROLL, SB_TOP);
    EXPECT_EQ(r_, Next(TVGN_FIRSTVISIBLE));
}

class TreeDrawing : public Trees {
protected:
    void SetUp() override {
        Trees::SetUp();
        Expand(r_);
        To(TVM_DELETEITEM, 0, s_);
        To(TVM_DELETEITEM, 0, b_);
        handler_ = [this](UINT message, WPARAM, LPARAM lParam, LRESULT& answer) {
            if (message != WM_NOTIFY) return false;
            auto& header = *reinterpret_cast<NMHDR*>(lParam);
            if (header.code != static_cast<UINT>(NM_CUSTOMDRAW)) return false;
            answer = Draw(*reinterpret_cast<NMTVCUSTOMDRAW*>(lParam));
            return true;
        };
    }

    LRESULT Draw(NMTVCUSTOMDRAW& drawing) {
        const NMCUSTOMDRAW& stage = drawing.nmcd;
        const auto item = reinterpret_cast<HTREEITEM>(stage.dwItemSpec);
        const bool whole = (stage.dwDrawStage & CDDS_ITEM) == 0;
        std::string text = (stage.dwDrawStage & CDDS_PREPAINT) != 0 ? "pre" : "post";
        if (!whole) {
            text += " " + std::string(item == r_ ? "R" : "A") + std::to_string(stage.uItemState);
            drawing.clrTextBk = ground_;
        }
        Note("[" + text + "]");
        return whole ? first_answer_ : item_answer_;
    }

    void Paint() {
        Take();
        InvalidateRect(ctl_, nullptr, TRUE);
    }

    LRESULT first_answer_ = CDRF_DODEFAULT;
    LRESULT item_answer_ = CDRF_NOTIFYPOSTPAINT;
    COLORREF ground_ = RGB(1, 2, 3);
};

TEST_F(TreeDrawing, AsksAsFarAsItsOwnerWants) {
    Paint();
    EXPECT_EQ("[pre]", Take());
    first_answer_ = CDRF_NOTIFYITEMDRAW;
    Paint();
    EXPECT_EQ("[pre] [pre R0] [post R0] [pre A0] [post A0]", Take());
    first_answer_ |= CDRF_NOTIFYPOSTPAINT;
    Paint();
    EXPECT_EQ("[pre] [pre R0] [post R0] [pre A0] [post A0] [post]", Take());
    SetFocus(ctl_);
    Paint();
    EXPECT_EQ("[pre] [pre R17] [post R17] [pre A0] [post A0] [post]", Take());
    FocusElsewhere();
    Paint();
    EXPECT_EQ("[pre] [pre R1] [post R1] [pre A0] [post A0] [post]", Take());
}

TEST_F(TreeDrawing, TakesTheColoursOfItsOwner) {
    first_answer_ = CDRF_NOTIFYITEMDRAW;
    Paint();
    Take();
    const RECT text = TextRect(a_);
    const HDC dc = GetDC(ctl_);
    EXPECT_EQ(ground_, GetPixel(dc, text.left, text.top));
    EXPECT_NE(ground_, GetPixel(dc, text.right + 3, text.top));
    ReleaseDC(ctl_, dc);
}

}  // namespace
}  // namespace tests
