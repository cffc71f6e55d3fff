#include <algorithm>

#include "platform/testing/input.h"
#include "plugin/event_boxes.h"
#include "tests/plugin/live_blocks.h"
#include "tests/plugin/shell_test.h"
#include "tests/support/gbk_text.h"

namespace {

/// Events that come all at once. Their boxes open over each other before the first waits for an
/// answer.
class Storm : public tests::ShellTest {
protected:
    void Post(int code, WORD failed, LPARAM lParam) {
        ::PostMessageA(*shell, WM_CORE_EVENT, MAKEWPARAM(code, failed), lParam);
    }

    void OnBox(HWND box) override {
        if (answered_.empty()) {
            ::EnumThreadWindows(::GetCurrentThreadId(), CountBox, reinterpret_cast<LPARAM>(this));
            if (when_calm_) when_calm_();
        }
        answered_.push_back(Describe(box));
        PressButton(box);
    }

    static BOOL CALLBACK CountBox(HWND window, LPARAM lParam) {
        auto& storm = *reinterpret_cast<Storm*>(lParam);
        if (window != storm.frame.GetSafeHwnd() && ::IsWindowVisible(window)) ++storm.open_;
        return TRUE;
    }

    int open_ = 0;
    std::vector<std::string> answered_;
    std::function<void()> when_calm_;
};

std::string Number(int number) { return "n" + std::to_string(number); }

TEST_F(Storm, OpensAtMostEightBoxesAndShowsTheOthersInOrder) {
    const int before = tests::LiveBlocks();
    constexpr int kEvents = 30;
    for (int i = 0; i < kEvents; ++i) {
        Post(EV_BATCH_QUERY_RESULT, kCoreEventFailed, TextBlock(Number(i)));
    }
    int blocks_when_calm = -1;
    when_calm_ = [&] { blocks_when_calm = tests::LiveBlocks() - before; };
    platform::testing::Pump();
    EXPECT_EQ(kMostEventBoxes, open_);
    // Those in line have ended their case, and their blocks with it.
    EXPECT_EQ(kMostEventBoxes, blocks_when_calm);
    // The last of those that are open lies on top; it is followed by those in line.
    std::vector<int> order;
    for (int i = kMostEventBoxes - 1; i < kEvents; ++i) order.push_back(i);
    for (int i = kMostEventBoxes - 2; i >= 0; --i) order.push_back(i);
    ASSERT_EQ(order.size(), answered_.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        EXPECT_GBK_EQ("box \"" + Number(order[i]) + "\" \"提示12\" error [确定]", answered_[i]);
    }
    EXPECT_EQ(before, tests::LiveBlocks());
}

TEST_F(Storm, LetsTheRestOfACaseRunWhenItsBoxStandsInLine) {
    for (int i = 0; i < kMostEventBoxes; ++i) {
        Post(EV_SYSTEM_NOTICE, 0, TextBlock(Number(i)));
    }
    Post(EV_NOTICE, kCoreEventFailed, TextBlock("refused"));
    std::string calls_when_calm;
    when_calm_ = [&] { calls_when_calm = TakeLog({"Logout"}); };
    platform::testing::Pump();
    EXPECT_EQ("Logout()", calls_when_calm);
    ASSERT_EQ(std::size_t{kMostEventBoxes} + 1, answered_.size());
    EXPECT_GBK_EQ("box \"refused\" \"登录失败\" plain [确定]", answered_[1]);
}

TEST_F(Storm, DropsWhatStandsInLineForAMainDialogThatGoes) {
    const int before = tests::LiveBlocks();
    for (int i = 0; i < kMostEventBoxes + 2; ++i) {
        Post(EV_BATCH_QUERY_RESULT, kCoreEventFailed, TextBlock(Number(i)));
        Post(EV_SYSTEM_NOTICE, 0, TextBlock(Number(i)));
    }
    when_calm_ = [this] { shell.reset(); };
    platform::testing::Pump();
    EXPECT_EQ(std::size_t{kMostEventBoxes}, answered_.size());
    // The next main dialog finds no box of its forerunner's.
    MakeShell();
    EXPECT_EQ(before, tests::LiveBlocks());
    when_calm_ = nullptr;
    answered_.clear();
    Post(EV_BATCH_QUERY_RESULT, kCoreEventFailed, TextBlock("new"));
    platform::testing::Pump();
    ASSERT_EQ(1U, answered_.size());
    EXPECT_GBK_EQ("box \"new\" \"提示12\" error [确定]", answered_[0]);
}

}  // namespace
