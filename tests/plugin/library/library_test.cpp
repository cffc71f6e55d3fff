#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/testing/input.h"
#include "plugin/contract/messages.h"
#include "plugin/qm_interface_ui.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace {

using platform::testing::Pump;
using testing::Contains;
using testing::IsEmpty;
using testing::StartsWith;

constexpr int kMenuId = 10000;
constexpr unsigned kNoPanel = 0xFFFFFFFF;

/// A host of the shared library, which has the front end's objects to itself: this program holds
/// none of them.
class LibraryTest : public testing::Test {
protected:
    LibraryTest()
        : frame_(CreateWindowA("Static", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1000, 700,
                               nullptr, nullptr, nullptr, nullptr)) {
        QmInterfaceUI::SetCallBack(&tests::RecordingHost::Function);
        ui_.SetUICallBack(&core_);
        ui_.SetFrameWnd(frame_);
    }
    ~LibraryTest() override {
        QmInterfaceUI::SetCallBack(nullptr);
        ui_.OnDestroyWindow(0);
        DestroyWindow(frame_);
        Pump();
    }

    static HWND ToWindow(unsigned handle) { return reinterpret_cast<HWND>(ULONG_PTR{handle}); }
    HWND MainWindow() const { return GetWindow(frame_, GW_CHILD); }

    tests::RecordingHost host_;
    tests::RecordingCore core_;
    HWND frame_;
    std::unique_ptr<QmInterfaceUI> front_end_ = std::make_unique<QmInterfaceUI>();
    CBaseUI& ui_ = *front_end_;
};

TEST_F(LibraryTest, MakesItsWindowsOfItsOwnTemplates) {
    ASSERT_EQ(1, ui_.Create(10, 20, 700, 500, frame_));
    const HWND main = MainWindow();
    ASSERT_TRUE(IsWindow(main));
    EXPECT_NE(nullptr, ui_.GetMainDlg());
    EXPECT_NE(nullptr, GetDlgItem(main, kMenuId));
    RECT place;
    GetWindowRect(main, &place);
    EXPECT_EQ(700, place.right - place.left);

    const HWND panel = ToWindow(ui_.CreatePanel(0, 0, 0, 0, frame_));
    ASSERT_TRUE(IsWindow(panel));
    EXPECT_FALSE(IsWindowVisible(panel));

    ui_.OnDestroyWindow(0);
    EXPECT_FALSE(IsWindow(panel));
    EXPECT_FALSE(IsWindow(main));
    EXPECT_EQ(nullptr, ui_.GetMainDlg());
}

TEST_F(LibraryTest, MakesWindowsAgain) {
    for (int round = 0; round < 3; ++round) {
        ui_.Create(0, 0, 700, 500, frame_);
        EXPECT_NE(nullptr, ui_.GetMainDlg());
        EXPECT_TRUE(IsWindow(ToWindow(ui_.CreatePanel(0, 0, 0, 0, frame_))));
        ui_.OnDestroyWindow(0);
        Pump();
        EXPECT_EQ(nullptr, MainWindow());
    }
}

TEST_F(LibraryTest, HasNoPanelsBeforeItsMainWindow) {
    EXPECT_EQ(kNoPanel, ui_.CreatePanel(0, 0, 0, 0, frame_));
}

TEST_F(LibraryTest, TakesACoresPushToItsWindow) {
    ui_.Create(0, 0, 700, 500, frame_);
    core_.logged_in = true;
    core_.ForgetCalls();
    CZebOrder order{};
    ui_.OnOrderChange(nullptr, &order);
    EXPECT_THAT(core_.CallsOf("ShowStatusText"), IsEmpty());
    Pump();
    EXPECT_THAT(core_.Calls(), Contains(StartsWith("ShowStatusText")));
}

TEST_F(LibraryTest, BringsThePagesUpWhileACoreReportsTheEndOfItsLoad) {
    ui_.Create(0, 0, 700, 500, frame_);
    core_.logged_in = true;
    ui_.OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
    EXPECT_THAT(host_.Calls(), Contains(StartsWith("HOST_CONTRACTS_LOADED(4")));
    EXPECT_THAT(core_.Calls(), Contains("NotifyInitDone(4)"));
}

TEST_F(LibraryTest, ClosesWithItsObject) {
    auto second = std::make_unique<QmInterfaceUI>();
    CBaseUI& ui = *second;
    ui.Create(0, 0, 700, 500, frame_);
    const HWND main = MainWindow();
    ASSERT_TRUE(IsWindow(main));
    second.reset();
    EXPECT_FALSE(IsWindow(main));
}

TEST_F(LibraryTest, CopiesTheCoreButNoWindow) {
    ui_.Create(0, 0, 700, 500, frame_);
    QmInterfaceUI copy(*front_end_);
    CBaseUI& ui = copy;
    EXPECT_EQ(nullptr, ui.GetMainDlg());
    ui.OnDestroyWindow(0);
    EXPECT_NE(nullptr, ui_.GetMainDlg());
}

}  // namespace
