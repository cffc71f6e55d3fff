#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {
namespace {

class Statics : public ::testing::Test {
protected:
    void SetUp() override {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 500, 400});
        SetActiveWindow(frame_);
    }

    void Use(DWORD style) {
        if (ctl_ != nullptr) DestroyWindow(ctl_);
        ctl_ =
            CreateWindowExA(0, "Static", "s", WS_CHILD | WS_VISIBLE | style, 10, 10, 80, 30, frame_,
                            reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(7)), nullptr, nullptr);
        log_.Name(ctl_, "ctl");
        PumpQueue();
        log_.Only({WM_CTLCOLORSTATIC, WM_DRAWITEM, WM_COMMAND});
        log_.Take();
    }

    MessageLog log_;
    HWND frame_ = nullptr;
    HWND ctl_ = nullptr;
};

const char* const kColor = "frame WM_CTLCOLORSTATIC";

TEST_F(Statics, AskForColoursWheneverTheyPaint) {
    Use(SS_LEFT);
    InvalidateRect(ctl_, nullptr, TRUE);
    EXPECT_EQ(kColor, log_.PumpAndTake());
    SetWindowTextA(ctl_, "c");
    EXPECT_EQ(kColor, log_.Take());
    SetWindowTextA(ctl_, "c");
    EXPECT_EQ(kColor, log_.Take());
    EnableWindow(ctl_, FALSE);
    EXPECT_EQ(kColor, log_.Take());
    EXPECT_EQ("", log_.PumpAndTake());
    ShowWindow(ctl_, SW_HIDE);
    PumpQueue();
    log_.Take();
    SetWindowTextA(ctl_, "d");
    EXPECT_EQ("", log_.PumpAndTake());
}

TEST_F(Statics, TellClicksAndEnablingOnlyWhenAsked) {
    Use(SS_LEFT);
    log_.Only({WM_COMMAND});
    platform::testing::DoubleClick(ctl_, 5, 5);
    EXPECT_EQ("", log_.Take());
    EXPECT_EQ(HTTRANSPARENT, SendMessageA(ctl_, WM_NCHITTEST, 0, 0));

    Use(SS_NOTIFY);
    EXPECT_EQ(HTCLIENT, SendMessageA(ctl_, WM_NCHITTEST, 0, 0));
    log_.Only({WM_COMMAND});
    platform::testing::DoubleClick(ctl_, 5, 5);
    EXPECT_EQ("frame WM_COMMAND(7, code 0, ctl); frame WM_COMMAND(7, code 1, ctl)", log_.Take());
    log_.Only({WM_COMMAND, WM_CTLCOLORSTATIC});
    EnableWindow(ctl_, FALSE);
    EnableWindow(ctl_, TRUE);
    EXPECT_EQ(
        "frame WM_CTLCOLORSTATIC; frame WM_COMMAND(7, code 3, ctl); frame WM_CTLCOLORSTATIC; "
        "frame WM_COMMAND(7, code 2, ctl)",
        log_.Take());
}

TEST_F(Statics, OwnerDrawnOnesAskTheirParent) {
    static DRAWITEMSTRUCT drawn;
    log_.SetHandler(
        [](MessageLog&, const std::string&, UINT message, WPARAM, LPARAM lParam, LRESULT&) {
            if (message == WM_DRAWITEM) drawn = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            return false;
        });
    Use(SS_OWNERDRAW);
    const struct {
        const char* what;
        std::function<void()> act;
        UINT state;
    } kSteps[] = {{"invalidate", [&] { InvalidateRect(ctl_, nullptr, TRUE); }, 0},
                  {"text", [&] { SetWindowTextA(ctl_, "c"); }, 0},
                  {"disable", [&] { EnableWindow(ctl_, FALSE); }, ODS_DISABLED},
                  {"enable", [&] { EnableWindow(ctl_, TRUE); }, 0}};
    for (const auto& step : kSteps) {
        SCOPED_TRACE(step.what);
        drawn = {};
        step.act();
        EXPECT_EQ("frame WM_CTLCOLORSTATIC; frame WM_DRAWITEM", log_.PumpAndTake());
        EXPECT_EQ(static_cast<UINT>(ODT_STATIC), drawn.CtlType);
        EXPECT_EQ(7u, drawn.CtlID);
        EXPECT_EQ(static_cast<UINT>(ODA_DRAWENTIRE), drawn.itemAction);
        EXPECT_EQ(step.state, drawn.itemState);
        EXPECT_EQ(ctl_, drawn.hwndItem);
        EXPECT_EQ(80, drawn.rcItem.right);
        EXPECT_EQ(30, drawn.rcItem.bottom);
    }
}

TEST_F(Statics, TakeTheSizeOfTheirIcon) {
    Use(SS_ICON);
    const HICON icon = LoadIconA(nullptr, IDI_WARNING);
    EXPECT_EQ(0, SendMessageA(ctl_, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0));
    EXPECT_EQ(reinterpret_cast<LRESULT>(icon), SendMessageA(ctl_, STM_GETICON, 0, 0));
    RECT client;
    GetClientRect(ctl_, &client);
    EXPECT_EQ(32, client.right);
    EXPECT_EQ(32, client.bottom);
    EXPECT_EQ(DLGC_STATIC, SendMessageA(ctl_, WM_GETDLGCODE, 0, 0));
}

}  // namespace
}  // namespace tests
