#include <gtest/gtest.h>

#include "tests/platform/win32/controls/control_frame.h"
// The controls' header needs the types of the one above.
#include <commctrl.h>

#include "platform/testing/input.h"

namespace tests {
namespace {

class CommonControls : public ControlFrame {};

TEST_F(CommonControls, AreThereUnderTheirNames) {
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_DATE_CLASSES | ICC_TAB_CLASSES |
                                                         ICC_UPDOWN_CLASS | ICC_TREEVIEW_CLASSES |
                                                         ICC_STANDARD_CLASSES};
    EXPECT_TRUE(InitCommonControlsEx(&wanted));
    const struct {
        const char* name;
        DWORD style;
    } kClasses[] = {{"edit", 0},
                    {"Button", 0},
                    {"STATIC", 0},
                    {"ListBox", 0},
                    {"ComboBox", CBS_DROPDOWNLIST},
                    {"msctls_updown32", 0},
                    {"SysTabControl32", 0},
                    {"SysDateTimePick32", 0},
                    {"SysTreeView32", 0}};
    for (const auto& one : kClasses) {
        Make(one.name, one.style, 50, 50);
        char found[32] = "";
        GetClassNameA(ctl_, found, sizeof found);
        EXPECT_EQ(0, lstrcmpiA(one.name, found));
    }
    Make("edit", 0, 50, 50);
    char found[32] = "";
    GetClassNameA(ctl_, found, sizeof found);
    EXPECT_STREQ("Edit", found);
}

TEST_F(CommonControls, TrackThePointer) {
    Make("Static", SS_NOTIFY, 50, 50);
    platform::testing::MovePointer(platform::testing::ScreenPoint(frame_, 200, 200));
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, frame_, 0};
    EXPECT_TRUE(_TrackMouseEvent(&track));
    Show({WM_MOUSELEAVE});
    platform::testing::MovePointer({900, 700});
    EXPECT_EQ(std::to_string(WM_MOUSELEAVE), Take());
}

}  // namespace
}  // namespace tests
