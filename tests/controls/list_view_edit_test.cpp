// The editor of a list and the tips of its cells.

#include <functional>
#include <string>
#include <utility>

#include "platform/text/gbk.h"
#include "tests/controls/list_frame.h"
#include "tests/support/gbk_text.h"

namespace tests {

namespace {

using platform::testing::Click;
using platform::testing::ClickAt;
using platform::testing::MovePointer;
using platform::testing::Press;
using platform::testing::PumpFor;
using platform::testing::Release;
using platform::testing::Type;

class ListEditTest : public ListTest {
protected:
    CRect EditorPlace() const {
        CRect place;
        list_.m_edit.GetWindowRect(&place);
        list_.ScreenToClient(&place);
        return place;
    }
    std::string EditorText() const {
        char text[300] = "";
        list_.m_edit.GetWindowText(text, sizeof text);
        return text;
    }
    void MakeEditable(int row, int column) { list_.SetItemEditable(row, column, TRUE); }
};

TEST_F(ListEditTest, APressOnAnEditableCellOpensTheEditorUnderThePointer) {
    MakeStored(3);
    MakeEditable(1, 1);
    list_.SetItemText(1, 1, "12345678");
    PaintNow();
    EXPECT_FALSE(list_.IsEditing());
    EXPECT_NE(list_.m_edit.m_hWnd, nullptr);
    ClickAt(Middle(1, 1));
    EXPECT_TRUE(list_.IsEditing());
    EXPECT_EQ(::GetFocus(), list_.m_edit.m_hWnd);
    EXPECT_EQ(EditorPlace(), CRect(100, 22 + 21, 160, 22 + 44));
    EXPECT_EQ(EditorText(), "12345678");
    EXPECT_EQ(list_.m_nEditRow, 1);
    EXPECT_EQ(list_.m_nEditCol, 1);
    EXPECT_EQ(::GetCapture(), nullptr);
    int start = -1;
    int end = -1;
    list_.m_edit.GetSel(start, end);
    EXPECT_EQ(start, end);
    EXPECT_GT(start, 0);
    EXPECT_LT(start, 8) << "the caret stands where the pointer is";
    list_.EndEdit();
    ClickElsewhere();
    MovePointer(Middle(1, 1));
    Press();
    EXPECT_TRUE(list_.IsEditing());
    Release();
    EXPECT_EQ(::GetCapture(), nullptr) << "a press held as long as a person's";
    EXPECT_EQ(Heard(), "");
}

TEST_F(ListEditTest, ThePressOfOtherCellsOpensNothing) {
    MakeStored(3);
    ClickAt(Middle(1, 1));
    EXPECT_FALSE(list_.IsEditing());
    MakeEditable(1, 1);
    ClickAt(Middle(1, 0));
    EXPECT_FALSE(list_.IsEditing());
    ClickAt(Middle(3, 1));
    EXPECT_FALSE(list_.IsEditing());
}

TEST_F(ListEditTest, TheCellTakesTheTextWhenTheEditorLosesTheFocus) {
    MakeStored(3);
    MakeEditable(1, 1);
    const std::pair<const char*, std::function<void()>> kWays[] = {
        {"press on another row", [this] { ClickAt(Middle(2, 0)); }},
        {"press beside all rows", [this] { Click(list_, 350, 200); }},
        {"press on the header", [this] { Click(list_, 50, 5); }},
        {"focus elsewhere", [this] { parent_.SetFocus(); }},
        {"press on the frame", [this] { list_.SendMessage(WM_NCLBUTTONDOWN, HTBORDER); }},
        {"asked to", [this] { list_.EndEdit(); }},
    };
    int number = 70;
    for (const auto& [how, leave] : kWays) {
        ClickElsewhere();
        ClickAt(Middle(1, 1));
        ASSERT_TRUE(list_.IsEditing()) << how;
        const std::string text = std::to_string(number++);
        list_.m_edit.SetSel(0, -1);
        Type(text.c_str());
        leave();
        EXPECT_FALSE(list_.IsEditing()) << how;
        EXPECT_EQ(list_.GetItem(1, 1)->szText, text) << how;
    }
}

TEST_F(ListEditTest, AnotherEditableCellTakesTheEditorOver) {
    MakeStored(3);
    MakeEditable(0, 1);
    MakeEditable(1, 1);
    ClickAt(Middle(0, 1));
    list_.m_edit.SetWindowText("77");
    ClickElsewhere();
    ClickAt(Middle(1, 1));
    EXPECT_TRUE(list_.IsEditing());
    EXPECT_STREQ(list_.GetItem(0, 1)->szText, "77");
    EXPECT_EQ(EditorText(), "1.1");
}

TEST_F(ListEditTest, TextIsKeptByWholeCharacters) {
    MakeStored(2);
    MakeEditable(0, 0);
    ClickAt(Middle(0, 0));
    std::string text = "x";
    while (text.size() < 290) text += "\xBB\xC6";
    list_.m_edit.SetWindowText(text.c_str());
    list_.EndEdit();
    EXPECT_GBK_EQ(text.substr(0, 255), list_.GetItem(0, 0)->szText);
    ClickAt(Middle(0, 0));
    list_.m_edit.SetWindowText(text.substr(1).c_str());
    list_.EndEdit();
    EXPECT_GBK_EQ(text.substr(1, 254), list_.GetItem(0, 0)->szText);
}

TEST_F(ListEditTest, ACellThatIsGoneOrClosedTakesNothing) {
    MakeStored(2);
    MakeEditable(1, 0);
    ClickAt(Middle(1, 0));
    list_.m_edit.SetWindowText("late");
    list_.SetItemEditable(1, 0, FALSE);
    list_.EndEdit();
    EXPECT_STREQ(list_.GetItem(1, 0)->szText, "1.0");
    MakeEditable(1, 0);
    ClickElsewhere();
    ClickAt(Middle(1, 0));
    ASSERT_TRUE(list_.IsEditing());
    list_.DeleteAllRows();
    list_.EndEdit();
    EXPECT_FALSE(list_.IsEditing());
}

TEST_F(ListEditTest, AVirtualListTellsItsParentOnceBeforeTheEditorGoes) {
    MakeVirtual(5);
    list_.BeginEdit(1, 3, "42", 4, -6);
    EXPECT_TRUE(list_.IsEditing());
    EXPECT_EQ(EditorPlace(), CRect(104, 22 + 65, 154, 22 + 88));
    EXPECT_EQ(EditorText(), "42");
    EXPECT_EQ(::GetFocus(), list_.m_edit.m_hWnd);
    list_.EndEdit();
    EXPECT_EQ(Heard(), "edit 1,3 42");
    EXPECT_FALSE(list_.IsEditing());
    list_.EndEdit();
    EXPECT_EQ(Heard(), "");
    list_.BeginEdit(0, 0, "1", 0, 0);
    list_.BeginEdit(2, 1, "2", 0, 0);
    ClickAt(Middle(4, 0));
    EXPECT_EQ(Heard(), "edit 0,0 1; edit 2,1 2; row; cell 0,4");
}

TEST_F(ListEditTest, TheEditorOpensOnCellsOnly) {
    MakeVirtual(5);
    for (const auto& [column, row] : {std::pair{-1, 0}, {3, 0}, {0, -1}, {0, 5}}) {
        list_.BeginEdit(column, row, "x", 0, 0);
        EXPECT_FALSE(list_.IsEditing()) << column << ',' << row;
    }
    list_.BeginEdit(0, 0, nullptr, 0, 0);
    EXPECT_EQ(EditorText(), "");
}

TEST_F(ListEditTest, ScrollingDoesNotPaintOverTheEditor) {
    MakeVirtual(100);
    list_.BeginEdit(0, 2, "55", 0, 0);
    PaintNow();
    const CRect place = EditorPlace();
    const auto inside = [&] { return Pixel(place.left + 5, place.CenterPoint().y); };
    const COLORREF before = inside();
    platform::testing::Wheel(-1);
    list_.SendMessage(WM_VSCROLL, SB_LINEDOWN);
    for (int x = place.left + 1; x < place.right - 1; ++x) {
        ASSERT_NE(Pixel(x, place.bottom - 2), COLORREF{0xE0D7CC}) << x;
    }
    EXPECT_EQ(inside(), before);
    EXPECT_NE(Seen().find("55"), std::string::npos);
}

TEST_F(ListEditTest, TheEditorRefusesTypingWhenTold) {
    MakeVirtual(5);
    list_.BeginEdit(0, 0, "", 0, 0);
    Type("12");
    list_.m_edit.m_bEnabled = FALSE;
    Type("34");
    EXPECT_EQ(EditorText(), "12");
    list_.m_edit.m_bEnabled = TRUE;
    Type("5");
    EXPECT_EQ(EditorText(), "125");
}

TEST_F(ListEditTest, TheEditorHasItsFontAndNoMenu) {
    LOGFONTA font{};
    const auto handle = reinterpret_cast<HFONT>(list_.m_edit.SendMessage(WM_GETFONT));
    ASSERT_NE(::GetObjectA(handle, sizeof font, &font), 0);
    EXPECT_GBK_EQ("宋体", font.lfFaceName);
    EXPECT_EQ(list_.m_edit.GetStyle() & ES_RIGHT, DWORD{ES_RIGHT});
    MakeVirtual(1);
    list_.BeginEdit(0, 0, "1", 0, 0);
    // A menu would run a loop of its own here.
    list_.m_edit.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list_.m_edit.m_hWnd), -1);
    EXPECT_TRUE(list_.IsEditing());
}

class ListTipTest : public ListTest {
protected:
    ListTipTest() {
        list_.InsertColumn("图标", 70, 37, 36, FALSE, TRUE);
        MakeStored(3);
        list_.SetItemTip(0, 0, "合约说明");
        list_.SetItemTip(1, 3, "图标说明");
        list_.GetItem(1, 3)->rcHot = {305, 25, 320, 40};
        platform::testing::StopClock();
    }
    /// The pointer comes to a place and rests there.
    void Hover(int x, int y) {
        MovePointer(At(x, y));
        list_.m_dwLastMove -= 300;
        list_.SendMessage(WM_TIMER, 1);
    }
    bool TipShown() const { return ::IsWindowVisible(list_.m_tip) != FALSE; }
    std::string TipText() const {
        const auto texts = platform::testing::SeenTexts(list_.m_tip);
        return texts.empty() ? "" : text::GbkFromUtf8(texts[0].utf8);
    }
};

TEST_F(ListTipTest, AppearsOnceThePointerRested) {
    list_.SetTimer(1, 10, nullptr);
    MovePointer(At(40, 30));
    PumpFor(280);
    EXPECT_FALSE(TipShown());
    PumpFor(40);
    ASSERT_TRUE(TipShown());
    EXPECT_GBK_EQ("合约说明", TipText());
    CRect place;
    list_.m_tip.GetWindowRect(&place);
    EXPECT_EQ(place.left, At(40, 30).x);
    EXPECT_LT(place.bottom, At(40, 30).y);
    MovePointer(At(41, 30));
    EXPECT_FALSE(TipShown());
    PumpFor(400);
    EXPECT_TRUE(TipShown());
}

TEST_F(ListTipTest, BelongsToItsCell) {
    const struct {
        const char* where;
        int x;
        int y;
        bool shown;
    } kPlaces[] = {{"cell with a tip", 99, 43, true},
                   {"next column", 100, 30, false},
                   {"next row", 40, 50, false},
                   {"header", 40, 10, false},
                   {"beside the columns", 380, 30, false},
                   {"corner of the hot rectangle", 305, 22 + 25, true},
                   {"its other corner", 320, 22 + 40, true},
                   {"left of it", 304, 22 + 30, false},
                   {"right of it", 321, 22 + 30, false},
                   {"above it", 310, 22 + 24, false},
                   {"below it", 310, 22 + 41, false},
                   {"outside the list", 40, -15, false}};
    for (const auto& place : kPlaces) {
        Hover(place.x, place.y);
        EXPECT_EQ(TipShown(), place.shown) << place.where;
    }
}

TEST_F(ListTipTest, IsAsHighAsItsLines) {
    CRect places[2];
    list_.SetItemTip(1, 0, "合约说明\r\n");
    for (const int row : {0, 1}) {
        Hover(40, 30 + row * kRowHeight);
        ASSERT_TRUE(TipShown());
        list_.m_tip.GetWindowRect(&places[row]);
    }
    EXPECT_EQ(places[0].Height(), places[1].Height());
}

TEST_F(ListTipTest, ComesOnceForEachRest) {
    Hover(40, 30);
    EXPECT_TRUE(TipShown());
    list_.m_tip.Hide();
    list_.m_dwLastMove -= 300;
    list_.SendMessage(WM_TIMER, 1);
    EXPECT_FALSE(TipShown());
    MovePointer(At(41, 30));
    list_.SendMessage(WM_TIMER, 1);
    EXPECT_FALSE(TipShown()) << "too early";
}

TEST_F(ListTipTest, GoesWhenThePointerLeavesTheList) {
    Hover(40, 30);
    ASSERT_TRUE(TipShown());
    MovePointer(At(40, 320));
    list_.SendMessage(WM_TIMER, 1);
    EXPECT_FALSE(TipShown());
}

TEST_F(ListTipTest, OfARowUnderTheHeaderStaysHidden) {
    MakeStored(30);
    list_.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 1));
    Hover(40, 10);
    EXPECT_FALSE(TipShown());
}

TEST_F(ListTipTest, IsNotThereInVirtualLists) {
    list_.SetVirtual();
    Hover(40, 30);
    EXPECT_FALSE(TipShown());
}

}  // namespace

}  // namespace tests
