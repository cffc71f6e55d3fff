// The static on a window's ground, the menu of pictures and the tree.

#include <cstdio>

#include "controls/my_list_box.h"
#include "controls/my_tree.h"
#include "controls/ower_draw_static.h"
#include "host/skin/menu_icons.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/text/gbk.h"
#include "tests/controls/stage.h"

namespace tests {

namespace {

using platform::testing::Click;
using platform::testing::DoubleClick;
using platform::testing::Pump;
using platform::testing::PumpFor;
using platform::testing::SeenText;
using platform::testing::SeenTexts;

constexpr COLORREF kSmear = RGB(1, 2, 3);

class StaticTest : public StageTest {
protected:
    void Show(DWORD style) {
        ASSERT_TRUE(static_.CreateEx(0, "Static", "可用资金", WS_CHILD | style, 20, 20, 100, 20,
                                     stage_, reinterpret_cast<HMENU>(UINT_PTR{15})));
        Pump();
    }
    COwerDrawStatic static_;
};

TEST_F(StaticTest, WithoutAnOwnerStandsOnTheParentsBrush) {
    Show(WS_VISIBLE | SS_RIGHT);
    EXPECT_EQ(PixelOf(static_, 1, 18), kBrushGround);
    const auto seen = SeenTexts(static_);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].color, kStageText);
    EXPECT_EQ(seen[0].rect.right, 100);
    static_.SetTextColor(RGB(0xD6, 0x26, 0x2B));
    Pump();
    EXPECT_EQ(SeenTexts(static_).at(0).color, RGB(0xD6, 0x26, 0x2B));
}

TEST_F(StaticTest, KeepsTheGroundThatItsOwnerShowedAtFirst) {
    static_.SetBackgroundOwner(&stage_);
    Show(WS_VISIBLE);
    EXPECT_EQ(PixelOf(static_, 98, 18), kStageGround);
    stage_.ChangeGround(RGB(0x20, 0x40, 0xA0));
    static_.SetWindowText("冻结");
    Pump();
    EXPECT_EQ(PixelOf(static_, 98, 18), kStageGround);
    EXPECT_EQ(SeenTexts(static_).size(), 1U) << "the former text is gone";
}

TEST_F(StaticTest, PaintsNothingWhileItIsHidden) {
    Show(0);
    CClientDC desktop(nullptr);
    MemorySurface surface;
    surface.Create(desktop, CSize(100, 20));
    ::SetPixel(surface.dc(), 98, 18, kSmear);
    static_.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(surface.dc()));
    EXPECT_EQ(::GetPixel(surface.dc(), 98, 18), kSmear);
    static_.ShowWindow(SW_SHOW);
    static_.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(surface.dc()));
    EXPECT_EQ(::GetPixel(surface.dc(), 98, 18), kBrushGround);
}

TEST_F(StaticTest, PaintingWithoutErasingLeavesWhatStands) {
    Show(WS_VISIBLE);
    Smear(static_, 90, 3, kSmear);
    ::InvalidateRect(static_, nullptr, FALSE);
    Pump();
    EXPECT_EQ(PixelOf(static_, 90, 3), kSmear);
    EXPECT_FALSE(::GetUpdateRect(static_, nullptr, FALSE));
}

TEST_F(StaticTest, IsATransparentGroundForStaticsOnly) {
    Show(WS_VISIBLE);
    CClientDC dc(&stage_);
    const auto hollow = reinterpret_cast<LRESULT>(::GetStockObject(NULL_BRUSH));
    const auto ask = [this, &dc](UINT message) {
        dc.SetBkMode(OPAQUE);
        return static_.SendMessage(message, reinterpret_cast<WPARAM>(dc.m_hDC),
                                   reinterpret_cast<LPARAM>(stage_.m_hWnd));
    };
    EXPECT_EQ(ask(WM_CTLCOLORSTATIC), hollow);
    EXPECT_EQ(::GetBkMode(dc), TRANSPARENT);
    EXPECT_NE(ask(WM_CTLCOLOREDIT), hollow);
    EXPECT_EQ(::GetBkMode(dc), OPAQUE);
}

class MenuTest : public StageTest {
protected:
    MenuTest() {
        menu_.CreateEx(0, "ListBox", "",
                       WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOTIFY, 20,
                       20, 139, 200, stage_, reinterpret_cast<HMENU>(UINT_PTR{16}));
        menu_.SetItemHeight(0, kHeight);
        menu_.SetBitmap(core_.GetSkinBitmap(kSkinPages, 7));
    }

    /// Does the strip's picture stand in the row?
    bool ShowsPicture(int row, int picture) {
        CClientDC desktop(nullptr);
        CDC strip;
        strip.CreateCompatibleDC(&desktop);
        const toolkit::ScopedSelect select(strip, core_.GetSkinBitmap(kSkinPages, 7));
        for (int y = 0; y < skin::kMenuIconSize; ++y) {
            for (int x = 0; x < skin::kMenuIconSize; ++x) {
                if (PixelOf(menu_, 15 + x, row * kHeight + 3 + y) !=
                    ::GetPixel(strip, picture * skin::kMenuIconSize + x, y)) {
                    return false;
                }
            }
        }
        return true;
    }
    bool IsWhite(int row, int left, int right) {
        for (int x = left; x < right; ++x) {
            if (PixelOf(menu_, x, row * kHeight + kHeight / 2) != RGB(255, 255, 255)) return false;
        }
        return true;
    }

    static constexpr int kHeight = 22;
    CMyListBox menu_;
};

TEST_F(MenuTest, ShowsEachItemsPictureAndText) {
    menu_.AddItem("委托查询", 0);
    menu_.AddItem("持仓查询", 9);
    menu_.AddItem("没有图片", static_cast<int>(skin::MenuIcon::kCount));
    menu_.AddItem("没有图片", -1);
    Pump();
    EXPECT_TRUE(ShowsPicture(0, 0));
    EXPECT_TRUE(ShowsPicture(1, 9));
    EXPECT_FALSE(ShowsPicture(1, 0));
    EXPECT_TRUE(IsWhite(2, 0, 35));
    EXPECT_TRUE(IsWhite(3, 0, 35));
    const auto seen = SeenTexts(menu_);
    ASSERT_EQ(seen.size(), 4U);
    EXPECT_GE(seen[0].rect.left, 35);
    menu_.SetBitmap(nullptr);
    Pump();
    EXPECT_TRUE(IsWhite(0, 0, 35));
}

TEST_F(MenuTest, TheBandBeginsBehindThePicture) {
    menu_.AddItem("", 0);
    menu_.AddItem("", 1);
    Click(menu_, 60, kHeight + 5);
    EXPECT_EQ(menu_.GetCurSel(), 1);
    EXPECT_EQ(PixelOf(menu_, 34, kHeight + 5), RGB(255, 255, 255));
    EXPECT_EQ(PixelOf(menu_, 35, kHeight + 5), RGB(0xDE, 0xDE, 0xDE));
    EXPECT_EQ(PixelOf(menu_, 138, kHeight + 5), RGB(0xDE, 0xDE, 0xDE));
    EXPECT_TRUE(ShowsPicture(1, 1));
    EXPECT_TRUE(IsWhite(0, 35, 138));
    Click(menu_, 60, 5);
    EXPECT_TRUE(IsWhite(1, 35, 138)) << "the band moves on";
}

class TreeTest : public StageTest {
protected:
    TreeTest() {
        tree_.CreateEx(
            0, WC_TREEVIEW, "",
            WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_HASLINES,
            20, 20, 200, 200, stage_, reinterpret_cast<HMENU>(UINT_PTR{17}));
        parent_ = Add(TVI_ROOT, "延期");
        Add(parent_, "Au(T+D)");
        leaf_ = Add(TVI_ROOT, "现货");
        Pump();
        stage_.Heard();
    }

    HTREEITEM Add(HTREEITEM parent, const char* text) {
        char buffer[32];
        std::snprintf(buffer, sizeof(buffer), "%s", text);
        TVINSERTSTRUCT insert{};
        insert.hParent = parent;
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT;
        insert.item.pszText = buffer;
        return reinterpret_cast<HTREEITEM>(
            tree_.SendMessage(TVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(&insert)));
    }
    /// A place in the tree where the hit test answers the node and all of the flags.
    POINT PlaceOf(HTREEITEM node, UINT flag) {
        CRect client;
        tree_.GetClientRect(client);
        for (int y = 0; y < client.bottom; ++y) {
            for (int x = 0; x < client.right; ++x) {
                UINT flags = 0;
                if (tree_.HitTest(CPoint(x, y), &flags) == node && (flags & flag) != 0)
                    return {x + 2, y + 4};
            }
        }
        ADD_FAILURE() << "no such place";
        return {};
    }
    POINT ButtonPlace() { return PlaceOf(parent_, TVHT_ONITEMBUTTON); }
    POINT LabelPlace(HTREEITEM node) { return PlaceOf(node, TVHT_ONITEMLABEL); }
    void ClickAt(POINT place) { Click(tree_, place.x, place.y); }
    bool Expanded() { return (tree_.GetItemState(parent_, TVIS_EXPANDED) & TVIS_EXPANDED) != 0; }
    HTREEITEM Selected() {
        return reinterpret_cast<HTREEITEM>(tree_.SendMessage(TVM_GETNEXTITEM, TVGN_CARET));
    }
    COLORREF TextColor(const char* gbk) {
        for (const SeenText& seen : SeenTexts(tree_)) {
            if (seen.utf8 == text::Utf8FromGbk(gbk)) return seen.color;
        }
        return CLR_INVALID;
    }

    CMyTree tree_;
    HTREEITEM parent_ = nullptr;
    HTREEITEM leaf_ = nullptr;
};

TEST_F(TreeTest, TheButtonTellsThenSelectsAndToggles) {
    const POINT button = ButtonPlace();
    ClickAt(button);
    EXPECT_EQ(stage_.Heard(), "button 3; selected; expanded");
    EXPECT_TRUE(Expanded());
    EXPECT_EQ(Selected(), parent_);
    PumpFor(::GetDoubleClickTime() + 1);
    ClickAt(button);
    EXPECT_EQ(stage_.Heard(), "button 3");
    EXPECT_FALSE(Expanded());
    EXPECT_EQ(::GetFocus(), tree_.m_hWnd);
}

TEST_F(TreeTest, APressElsewhereSelectsOnly) {
    ClickAt(LabelPlace(parent_));
    EXPECT_EQ(stage_.Heard(), "selected");
    EXPECT_FALSE(Expanded());
    const POINT label = LabelPlace(leaf_);
    Click(tree_, ButtonPlace().x, label.y);  // where a button would be, had it children
    EXPECT_EQ(stage_.Heard().find("button"), std::string::npos);
}

TEST_F(TreeTest, ADoubleClickTogglesANodeWithChildrenOnce) {
    const POINT label = LabelPlace(parent_);
    DoubleClick(tree_, label.x, label.y);
    EXPECT_EQ(stage_.Heard(), "selected; expanded");
    PumpFor(::GetDoubleClickTime() + 1);
    DoubleClick(tree_, label.x, label.y);
    EXPECT_FALSE(Expanded());
    PumpFor(::GetDoubleClickTime() + 1);
    const POINT leaf = LabelPlace(leaf_);
    DoubleClick(tree_, leaf.x, leaf.y);
    EXPECT_FALSE(Expanded());
    PumpFor(::GetDoubleClickTime() + 1);
    const POINT button = ButtonPlace();
    DoubleClick(tree_, button.x, button.y);
    EXPECT_FALSE(Expanded()) << "the press expanded, the double click collapsed";
}

TEST_F(TreeTest, TheSelectionStaysVisibleWithoutTheFocus) {
    ClickAt(LabelPlace(leaf_));
    stage_.SetFocus();
    Pump();
    EXPECT_EQ(TextColor("现货"), COLORREF{0xFFFFFF});
    const POINT label = LabelPlace(leaf_);
    EXPECT_EQ(PixelOf(tree_, label.x - 2, label.y), COLORREF{0xDE7732});
    tree_.EnableWindow(FALSE);
    Pump();
    EXPECT_NE(PixelOf(tree_, label.x - 2, label.y), COLORREF{0xDE7732});
}

TEST_F(TreeTest, CustomDrawAnswersByStage) {
    const struct {
        DWORD stage;
        UINT state;
        bool enabled;
        LRESULT answer;
        bool colored;
    } cases[] = {
        {CDDS_PREPAINT, CDIS_SELECTED, true, 32, false},
        {CDDS_PREPAINT, 0, false, 32, false},
        {CDDS_ITEMPREPAINT, CDIS_SELECTED, true, 16, true},
        {CDDS_ITEMPREPAINT, CDIS_SELECTED | CDIS_FOCUS, true, 16, false},
        {CDDS_ITEMPREPAINT, 0, true, 16, false},
        {CDDS_ITEMPREPAINT, CDIS_SELECTED, false, 0, false},
        {CDDS_ITEMPOSTPAINT, CDIS_SELECTED, true, 0, false},
        {CDDS_POSTPAINT, CDIS_SELECTED, true, 0, false},
    };
    for (const auto& each : cases) {
        tree_.EnableWindow(each.enabled);
        NMTVCUSTOMDRAW drawing{};
        drawing.nmcd.hdr = {tree_.m_hWnd, 17, NM_CUSTOMDRAW};
        drawing.nmcd.dwDrawStage = each.stage;
        drawing.nmcd.uItemState = each.state;
        drawing.clrText = kSmear;
        const LRESULT answer =
            stage_.SendMessage(WM_NOTIFY, 17, reinterpret_cast<LPARAM>(&drawing));
        EXPECT_EQ(answer, each.answer) << each.stage << " " << each.state;
        EXPECT_EQ(drawing.clrText, each.colored ? COLORREF{0xFFFFFF} : kSmear);
        EXPECT_EQ(drawing.clrTextBk, each.colored ? COLORREF{0xDE7732} : 0);
    }
}

}  // namespace

}  // namespace tests
