#include "orderentry/combo_price_edit.h"
#include "orderentry/combo_volume_edit.h"
#include "orderentry/price_edit.h"
#include "plugin/contract/messages.h"
#include "tests/orderentry/pages/page_frame.h"

namespace tests {
namespace {

using platform::testing::Click;
using platform::testing::Key;
using platform::testing::PumpFor;
using platform::testing::Type;

/// The visible popup that belongs to the page, or null.
HWND OpenPopup(const CWnd& page) {
    for (HWND window = GetWindow(GetDesktopWindow(), GW_CHILD); window != nullptr;
         window = GetWindow(window, GW_HWNDNEXT)) {
        if (IsWindowVisible(window) && GetWindow(window, GW_OWNER) == page.m_hWnd) return window;
    }
    return nullptr;
}

class Composites : public PageTest {
protected:
    Composites() {
        MakePlace(10006, 20);
        MakePlace(10018, 60);
        other_.Create(WS_CHILD | WS_VISIBLE, CRect(20, 200, 120, 220), &page_, 5);
        price_.CreateOver(page_, 10006);
        price_.SetListWidth(120);
        volume_.CreateOver(page_, 10018);
        platform::testing::Pump();
        page_.commands.clear();
    }
    ~Composites() override {
        price_.DestroyWindow();
        volume_.DestroyWindow();
    }

    void MakePlace(int id, int top) {
        ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_DISABLED, 20, top, 144, 24, page_,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), AfxGetInstanceHandle(),
                          nullptr);
    }
    CWnd& Price() { return *price_.InnerEdit(); }
    CWnd& Volume() { return *volume_.InnerEdit(); }

    std::string Selected(CWnd& edit) {
        CHARRANGE range{};
        edit.SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
        const std::string text = TextOf(edit);
        return text.substr(static_cast<std::size_t>(range.cpMin),
                           static_cast<std::size_t>(range.cpMax - range.cpMin));
    }
    /// Clicks behind the text, as somebody does who wants to change the end, and waits.
    std::string SelectedAfterClick() {
        PumpFor(600);  // no double click
        Click(Price(), 60, 5);
        PumpFor(60);
        return Selected(Price());
    }

    CComboPriceEdit price_{10006, 10017};
    CComboVolumeEdit volume_{10018, 10019};
    CEdit other_;
};

TEST_F(Composites, StandWhereTheTemplateHasItsEdits) {
    CRect place;
    price_.GetWindowRect(&place);
    page_.ScreenToClient(&place);
    EXPECT_EQ(place, CRect(20, 20, 164, 44));
    EXPECT_NE(page_.GetDlgItem(10006)->m_hWnd, price_.m_hWnd);
    CRect minus;
    CRect plus;
    CRect edit;
    price_.GetDlgItem(CPriceEditEx::kMinus)->GetWindowRect(&minus);
    price_.GetDlgItem(CPriceEditEx::kPlus)->GetWindowRect(&plus);
    Price().GetWindowRect(&edit);
    price_.ScreenToClient(&minus);
    price_.ScreenToClient(&plus);
    price_.ScreenToClient(&edit);
    EXPECT_EQ(minus, CRect(1, 1, 23, 23));
    EXPECT_EQ(plus, CRect(121, 1, 143, 23));
    EXPECT_EQ(edit.left, 23);
    EXPECT_EQ(edit.Width(), 98);
    EXPECT_EQ(edit.top, (24 - edit.Height()) / 2);
}

TEST_F(Composites, ButtonsAndArrowKeysStep) {
    Click(*price_.GetDlgItem(CPriceEditEx::kMinus));
    Click(*price_.GetDlgItem(CPriceEditEx::kPlus));
    Price().SetFocus();
    Key(VK_UP);
    Key(VK_DOWN);
    Volume().SetFocus();
    Key(VK_UP);
    const std::vector<std::pair<int, int>> kSteps = {
        {10017, 1}, {10017, -1}, {10017, -1}, {10017, 1}, {10019, -1}};
    EXPECT_EQ(page_.steps, kSteps);
}

TEST_F(Composites, ChangesAndLostFocusAreReportedUnderTheirId) {
    Price().SetFocus();
    Type("3");
    other_.SetFocus();
    const std::vector<std::pair<int, int>> kCommands = {{10006, EN_CHANGE}, {10006, EN_KILLFOCUS}};
    std::vector<std::pair<int, int>> own;
    for (const auto& command : page_.commands) {
        if (command.first == 10006) own.push_back(command);
    }
    EXPECT_EQ(own, kCommands);
}

TEST_F(Composites, TheFrameTellsWhoHasTheFocus) {
    const auto frame_of = [](CWnd& composite) {
        platform::testing::Pump();
        const CClientDC dc(&composite);
        return ::GetPixel(dc, 0, 0);
    };
    other_.SetFocus();
    EXPECT_EQ(frame_of(price_), COLORREF{0xDED2CC});
    Price().SetFocus();
    EXPECT_EQ(frame_of(price_), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(frame_of(volume_), COLORREF{0xDED2CC});
    Volume().SetFocus();
    EXPECT_EQ(frame_of(price_), COLORREF{0xDED2CC});
    EXPECT_EQ(frame_of(volume_), ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(Composites, OnlyPricesAndVolumesCanBeTyped) {
    Price().SetFocus();
    PumpFor(60);
    Type("a3-0.5e");
    EXPECT_EQ(TextOf(Price()), "30.5");
    Key(VK_BACK);
    EXPECT_EQ(TextOf(Price()), "30.");
    Volume().SetFocus();
    PumpFor(120);
    Type("1.x2");
    Key(VK_BACK);
    EXPECT_EQ(TextOf(Volume()), "12");
}

TEST_F(Composites, ClicksSelectTheWholeAndTheLastDigitByTurns) {
    Price().SetWindowText("300.50");
    EXPECT_EQ(SelectedAfterClick(), "300.50");
    EXPECT_EQ(SelectedAfterClick(), "0");
    EXPECT_EQ(SelectedAfterClick(), "300.50");
    Price().SetWindowText("对手价");
    SelectedAfterClick();
    Type("4");
    EXPECT_EQ(TextOf(Price()), "4");
}

TEST_F(Composites, NoLongerTextsFitThanPagesRead) {
    for (CWnd* const edit : {&Price(), &Volume()}) {
        edit->SetFocus();
        PumpFor(120);
        Type("00000000000000000000000000003000555");
        EXPECT_EQ(TextOf(*edit), "0000000000000000000000000000300");
    }
}

// The selection that a click or the focus brings comes by a timer, which is slower than fast hands.
TEST_F(Composites, KeysBeforeTheTimerFindItsSelection) {
    Price().SetWindowText("300.50");
    Price().SetFocus();
    Type("4");
    PumpFor(60);
    Type("12");
    EXPECT_EQ(TextOf(Price()), "412");
    Volume().SetWindowText("7");
    Volume().SetFocus();
    Type("2");
    PumpFor(120);
    Type("5");
    EXPECT_EQ(TextOf(Volume()), "25");
    other_.SetFocus();
    Volume().SetFocus();
    Key(VK_DELETE);
    EXPECT_EQ(TextOf(Volume()), "");
}

TEST_F(Composites, TheListGoesWithItsPageAndRemembersTheText) {
    Price().SetWindowText("300.50");
    Click(Price());
    ASSERT_NE(OpenPopup(page_), nullptr);
    Price().SetWindowText("4");
    EXPECT_STREQ(static_cast<CPriceEditRich&>(Price()).PreviousText(), "300.50");
    PumpFor(600);
    Click(Price());
    ASSERT_NE(OpenPopup(page_), nullptr);
    price_.ShowWindow(SW_HIDE);
    PumpFor(60);
    EXPECT_EQ(OpenPopup(page_), nullptr);
    price_.ShowWindow(SW_SHOW);
    PumpFor(600);
    Click(Price());
    ASSERT_NE(OpenPopup(page_), nullptr);
    price_.DestroyWindow();
    EXPECT_EQ(OpenPopup(page_), nullptr);
}

TEST_F(Composites, TheListOpensBelowFollowsAndCloses) {
    Click(Price());
    HWND popup = OpenPopup(page_);
    ASSERT_NE(popup, nullptr);
    CRect list;
    CRect edit;
    GetWindowRect(popup, &list);
    Price().GetWindowRect(&edit);
    EXPECT_EQ(list.TopLeft(), CPoint(edit.left, edit.bottom));
    EXPECT_EQ(list.Width(), 120);
    EXPECT_EQ(GetFocus(), Price().m_hWnd);
    page_.SetWindowPos(nullptr, 140, 120, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpFor(60);
    GetWindowRect(popup, &list);
    EXPECT_EQ(list.left, edit.left + 40);
    EXPECT_EQ(list.top, edit.bottom + 20);
    Type("1");
    EXPECT_EQ(OpenPopup(page_), nullptr);
    Click(Price());
    EXPECT_NE(OpenPopup(page_), nullptr);
    price_.OnClickOutside(list.left + 5, list.top + 5);
    EXPECT_NE(OpenPopup(page_), nullptr);
    price_.OnClickOutside(0, 0);
    EXPECT_EQ(OpenPopup(page_), nullptr);
    Click(Price());
    other_.SetFocus();
    EXPECT_EQ(OpenPopup(page_), nullptr);
}

TEST_F(Composites, AChosenRowBecomesTheText) {
    Click(Price());
    CRect list;
    GetWindowRect(OpenPopup(page_), &list);
    const int row = list.Height() / 6;
    platform::testing::ClickAt({list.left + 20, list.top + row * 3 + row / 2});
    EXPECT_GBK_EQ(TextOf(Price()), "挂单价超一个价位");
    EXPECT_EQ(OpenPopup(page_), nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(Composites, AnEmptiedVolumeComesBack) {
    Volume().SetWindowText("12");
    Volume().SetFocus();
    PumpFor(120);
    EXPECT_EQ(Selected(Volume()), "12");
    Key(VK_DELETE);
    EXPECT_EQ(TextOf(Volume()), "");
    other_.SetFocus();
    EXPECT_EQ(TextOf(Volume()), "12");
}

TEST_F(Composites, TheVolumeKeyboardOpensOnlyWithPresets) {
    Click(Volume());
    EXPECT_EQ(OpenPopup(page_), nullptr);
    volume_.VolumeEdit()->Keyboard().SetPresets({"1", "10"});
    Click(Volume());
    EXPECT_NE(OpenPopup(page_), nullptr);
    Price().SetFocus();
    EXPECT_EQ(OpenPopup(page_), nullptr);
    PumpFor(600);
    Click(Volume());
    Click(*CWnd::FromHandle(GetDlgItem(OpenPopup(page_), CKeyBoardDlgVolume::kPresets[1])));
    EXPECT_EQ(OpenPopup(page_), nullptr);
    EXPECT_EQ(TextOf(Volume()), "10");
}

class PlainPriceEdit : public PageTest {
protected:
    void Make(CPriceEdit& edit) {
        edit.Create(WS_CHILD | WS_VISIBLE, CRect(20, 20, 120, 40), &page_, 10006);
        platform::testing::Click(edit);
    }
};

TEST_F(PlainPriceEdit, ListsTheWordsOfItsMask) {
    CPriceEdit edit(2 | 16);
    Make(edit);
    const HWND list = OpenPopup(page_);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(SendMessageA(list, LB_GETCOUNT, 0, 0), 2);
    CRect place;
    GetWindowRect(list, &place);
    EXPECT_EQ(place.Width(), 100);
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
    edit.SendMessage(WM_PRICE_ROW_CHOSEN, 1);
    EXPECT_GBK_EQ(TextOf(edit), "跌停价");
    edit.SendMessage(WM_PRICE_ROW_CHOSEN, 7);
    EXPECT_GBK_EQ(TextOf(edit), "跌停价");
    PumpFor(600);  // no double click
    Click(edit);
    SendMessageA(OpenPopup(page_), WM_CHAR, '9', 1);
    EXPECT_NE(TextOf(edit).find('9'), std::string::npos);
    page_.SetFocus();
    EXPECT_EQ(OpenPopup(page_), nullptr);
}

TEST_F(PlainPriceEdit, WithoutAMaskItHasNoList) {
    CPriceEdit edit(0);
    Make(edit);
    EXPECT_EQ(OpenPopup(page_), nullptr);
}

}  // namespace
}  // namespace tests
