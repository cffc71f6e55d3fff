#include <gtest/gtest.h>

#include "tests/platform/win32/controls/control_frame.h"
// The controls' header needs the types of the one above.
#include <commctrl.h>

#include "platform/testing/input.h"

namespace tests {
namespace {

class UpDowns : public ControlFrame {
protected:
    void SetUp() override {
        ControlFrame::SetUp();
        Make(UPDOWN_CLASS, 0, 20, 40);
        Show({WM_VSCROLL});
    }
};

TEST_F(UpDowns, TellTheStepAndThenTheirPlace) {
    Run({
        {"upper arrow", [&] { ClickOnce(10, 8); },
         "UDN_DELTAPOS(0 by -1) WM_VSCROLL(4 0) WM_VSCROLL(8 0)", ""},
        {"lower arrow", [&] { ClickOnce(10, 32); },
         "UDN_DELTAPOS(0 by 1) WM_VSCROLL(4 1) WM_VSCROLL(8 1)", ""},
        {"refused",
         [&] {
             answers_[UDN_DELTAPOS] = 1;
             ClickOnce(10, 32);
         },
         "UDN_DELTAPOS(1 by 1) WM_VSCROLL(4 1) WM_VSCROLL(8 1)", ""},
        {"disabled",
         [&] {
             EnableWindow(ctl_, FALSE);
             ClickOnce(10, 8);
         },
         "", ""},
    });
}

TEST_F(UpDowns, StepFasterTheLongerTheyAreHeld) {
    std::vector<int> steps;
    handler_ = [&](UINT message, WPARAM, LPARAM lParam, LRESULT& answer) {
        if (message != WM_NOTIFY) return false;
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (header.code != UDN_DELTAPOS) return false;
        steps.push_back(reinterpret_cast<const NMUPDOWN&>(header).iDelta);
        answer = 1;
        return true;
    };
    platform::testing::MovePointer(platform::testing::ScreenPoint(ctl_, 10, 32));
    platform::testing::Press();
    EXPECT_EQ(1u, steps.size());
    platform::testing::PumpFor(900);
    EXPECT_GT(steps.size(), 4u);
    EXPECT_LT(steps.size(), 20u);
    EXPECT_EQ(1, steps.back());
    platform::testing::PumpFor(1600);
    EXPECT_EQ(5, steps.back());
    platform::testing::MovePointer({900, 700});
    const std::size_t made = steps.size();
    platform::testing::PumpFor(300);
    EXPECT_EQ(made, steps.size());
    platform::testing::Release();
    platform::testing::MovePointer(platform::testing::ScreenPoint(ctl_, 10, 32));
    platform::testing::PumpFor(900);
    EXPECT_EQ(made, steps.size());
}

TEST_F(UpDowns, MayGoWhileTheyTell) {
    handler_ = [&](UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_NOTIFY) DestroyWindow(ctl_);
        return false;
    };
    ClickOnce(10, 8);
    EXPECT_FALSE(IsWindow(ctl_));
}

}  // namespace
}  // namespace tests
