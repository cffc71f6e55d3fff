#include <gtest/gtest.h>

#include "tests/platform/win32/controls/control_frame.h"
// The controls' header needs the types of the one above.
#include <commctrl.h>

#include "platform/testing/input.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

class Tabs : public ControlFrame {
protected:
    void SetUp() override {
        ControlFrame::SetUp();
        Make(WC_TABCONTROL, 0, 300, 100);
    }

    LRESULT Insert(int at, const char* text, LPARAM data = 0) {
        TCITEMA item{};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = const_cast<char*>(text);
        item.lParam = data;
        return Send(TCM_INSERTITEMA, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&item));
    }
    LRESULT Select(int index) { return Send(TCM_SETCURSEL, static_cast<WPARAM>(index)); }
    void ClickTab(int index) {
        RECT rect{};
        Send(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        ClickOnce((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    }
    std::string State() override { return "sel " + std::to_string(Send(TCM_GETCURSEL)); }
};

TEST_F(Tabs, SelectByCallWithoutTelling) {
    Run({
        {"empty", [&] { EXPECT_EQ(-1, Select(0)); }, "", "sel -1"},
        {"the first is selected", [&] { EXPECT_EQ(0, Insert(0, "one")); }, "", "sel 0"},
        {"more",
         [&] {
             EXPECT_EQ(1, Insert(1, "two"));
             EXPECT_EQ(2, Insert(99, "three"));
             EXPECT_EQ(0, Insert(0, "zero"));
         },
         "", "sel 1"},
        {"select", [&] { EXPECT_EQ(1, Select(2)); }, "", "sel 2"},
        {"out of range", [&] { EXPECT_EQ(-1, Select(99)); }, "", "sel 2"},
        {"none", [&] { EXPECT_EQ(2, Select(-1)); }, "", "sel -1"},
        {"focus by call tells",
         [&] {
             Select(0);
             Send(TCM_SETCURFOCUS, 1);
         },
         "TCN_SELCHANGING TCN_SELCHANGE", "sel 1"},
        {"delete the selected", [&] { EXPECT_EQ(1, Send(TCM_DELETEITEM, 1)); }, "", "sel -1"},
        {"delete what is not there", [&] { EXPECT_EQ(0, Send(TCM_DELETEITEM, 99)); }, "", "sel -1"},
        {"delete all", [&] { EXPECT_EQ(1, Send(TCM_DELETEALLITEMS)); }, "", "sel -1"},
    });
    EXPECT_EQ(0, Send(TCM_GETITEMCOUNT));
}

TEST_F(Tabs, AskAndTellWhenChosenByHand) {
    for (const char* const text : {"zero", "one", "two"}) Insert(99, text);
    Run({
        {"click", [&] { ClickTab(2); }, "TCN_SELCHANGING TCN_SELCHANGE NM_CLICK", "sel 2"},
        {"click it again", [&] { ClickTab(2); }, "NM_CLICK", "sel 2"},
        {"click beside", [&] { ClickOnce(290, 5); }, "", "sel 2"},
        {"left",
         [&] {
             SetFocus(ctl_);
             platform::testing::Key(VK_LEFT);
         },
         "TCN_KEYDOWN TCN_SELCHANGING TCN_SELCHANGE", "sel 1"},
        {"refused",
         [&] {
             answers_[TCN_SELCHANGING] = 1;
             ClickTab(0);
         },
         "TCN_SELCHANGING NM_CLICK", "sel 1"},
    });
}

TEST_F(Tabs, GiveBackWhatTheyHold) {
    Insert(0, "行情", 7);
    char text[8] = "";
    TCITEMA item{};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    EXPECT_TRUE(Send(TCM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_GBK_EQ("行情", text);
    EXPECT_EQ(7, item.lParam);
    EXPECT_FALSE(Send(TCM_GETITEMA, 1, reinterpret_cast<LPARAM>(&item)));
    TCHITTESTINFO outside{{290, 5}, 0};
    EXPECT_EQ(-1, Send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&outside)));
    EXPECT_EQ(TCHT_NOWHERE, static_cast<int>(outside.flags));
    TCHITTESTINFO inside{{10, 10}, 0};
    EXPECT_EQ(0, Send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&inside)));
}

// The page is covered with windows of its own; what happens to the tabs must not touch it.
TEST_F(Tabs, LeaveTheirPageAloneWhenTabsChange) {
    Insert(0, "one");
    Insert(1, "two");
    Take();
    SetFocus(ctl_);
    Select(1);
    RECT update{};
    ASSERT_TRUE(GetUpdateRect(ctl_, &update, FALSE));
    EXPECT_LE(update.bottom, 21);
}

}  // namespace
}  // namespace tests
