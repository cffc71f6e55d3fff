#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/platform/win32/controls/test_dialog.h"

namespace tests {
namespace {

constexpr RECT kFrameRect{100, 100, 700, 500};

/// A frame that is active and has the focus, and a dialog of its own to run.
class ModalDialog : public ::testing::Test {
protected:
    void SetUp() override {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, kFrameRect);
        SetActiveWindow(frame_);
        PumpQueue();
        ShowEffects(log_);
        log_.Take();
        script_.log = &log_;
    }

    INT_PTR Run(HWND owner) {
        return DialogBoxIndirectParamA(nullptr, PlainTemplate().Get(), owner, ScriptProcedure,
                                       script_.Parameter());
    }
    INT_PTR Run() { return Run(frame_); }

    /// Ends the dialog once its loop runs.
    void EndByCommand(HWND dialog) { PostMessageA(dialog, WM_COMMAND, kEndCommand, 0); }

    HWND Item(int id) { return GetDlgItem(script_.window, id); }

    MessageLog log_;
    HWND frame_ = nullptr;
    DialogScript script_;
};

// How every dialog of these tests leaves when c100 has the focus and the frame takes over.
const char* const kLeave =
    "frame WM_ENABLE(1); c100 WM_KILLFOCUS(dialog) [dialog WM_COMMAND(100, code 512, c100)]; "
    "dialog WM_SETFOCUS(c100); dialog WM_ACTIVATE(inactive, frame); "
    "frame WM_ACTIVATE(active, dialog) [dialog WM_KILLFOCUS(frame); frame WM_SETFOCUS(dialog)]";
const char* const kEnter =
    "frame WM_ACTIVATE(inactive, dialog); dialog WM_ACTIVATE(active, frame); "
    "c100 WM_SETFOCUS(null) [dialog WM_COMMAND(100, code 256, c100)]";
const char* const kBlock = "frame WM_KILLFOCUS(null); frame WM_ENABLE(0)";
const char* const kDestroyed =
    "dialog WM_DESTROY; c100 WM_DESTROY; c101 WM_DESTROY; ok WM_DESTROY; cancel WM_DESTROY; "
    "c102 WM_DESTROY";

std::string Join(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) {
        if (!text.empty() && !part.empty()) text += "; ";
        text += part;
    }
    return text;
}

std::string Fetched(const std::string& message, const std::string& inner) {
    return "*" + message + "* [" + inner + "]";
}

TEST_F(ModalDialog, BlocksItsOwnerAndGivesActivationBack) {
    script_.on_init = [&](HWND dialog) {
        EXPECT_FALSE(IsWindowVisible(dialog));
        EXPECT_FALSE(IsWindowEnabled(frame_));
        EXPECT_EQ(nullptr, GetFocus());
        EndByCommand(dialog);
    };
    EXPECT_EQ(50, Run());
    EXPECT_EQ(
        Join({kBlock, kEnter, Fetched("dialog WM_COMMAND(777, code 0, null)", kLeave), kDestroyed}),
        log_.Take());
    EXPECT_EQ(frame_, GetActiveWindow());
    EXPECT_TRUE(IsWindowEnabled(frame_));
    EXPECT_FALSE(IsWindow(script_.window));
}

TEST_F(ModalDialog, GivesTheFirstFocusWhereInitialisationLeavesIt) {
    log_.Only({WM_SETFOCUS, WM_KILLFOCUS});
    const struct {
        const char* what;
        bool answer;
        std::function<void()> init;
        const char* expected;
    } kCases[] = {
        {"a set focus stays when the answer is no", false, [&] { SetFocus(Item(101)); },
         "frame WM_KILLFOCUS(null); c101 WM_SETFOCUS(null)"},
        {"a set focus goes to the first control when the answer is yes", true,
         [&] { SetFocus(Item(101)); },
         "frame WM_KILLFOCUS(null); c101 WM_SETFOCUS(null); c101 WM_KILLFOCUS(c100); "
         "c100 WM_SETFOCUS(c101)"},
        {"without any the dialog hands it on", false, [] {},
         "frame WM_KILLFOCUS(null); dialog WM_SETFOCUS(null) [dialog WM_KILLFOCUS(c100); "
         "c100 WM_SETFOCUS(dialog)]"},
        {"a disabled first control is passed over", true, [&] { EnableWindow(Item(100), FALSE); },
         "frame WM_KILLFOCUS(null); c101 WM_SETFOCUS(null)"},
        {"a hidden one as well", true, [&] { ShowWindow(Item(100), SW_HIDE); },
         "frame WM_KILLFOCUS(null); c101 WM_SETFOCUS(null)"},
    };
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        std::string before;
        script_.init_answer = one.answer;
        script_.on_init = [&](HWND dialog) {
            one.init();
            EndByCommand(dialog);
        };
        script_.on_command = [&](HWND, int id) {
            if (id == kEndCommand) before = log_.Take();
            return false;
        };
        EXPECT_EQ(50, Run());
        EXPECT_EQ(one.expected, before);
        log_.Take();
    }
}

TEST_F(ModalDialog, EndsInTheMiddleOfItsInitialisation) {
    script_.on_init = [](HWND dialog) { EndDialog(dialog, 5); };
    EXPECT_EQ(5, Run());
    EXPECT_EQ(Join({kBlock, "frame WM_ENABLE(1)", kEnter,
                    "dialog WM_ACTIVATE(inactive, frame); frame WM_ACTIVATE(active, dialog) "
                    "[c100 WM_KILLFOCUS(frame) [dialog WM_COMMAND(100, code 512, c100)]; "
                    "frame WM_SETFOCUS(c100)]",
                    kDestroyed}),
              log_.Take());
}

TEST_F(ModalDialog, FailsWhenItDestroysItselfInInitialisation) {
    script_.on_init = [](HWND dialog) { DestroyWindow(dialog); };
    EXPECT_EQ(-1, Run());
    EXPECT_TRUE(IsWindowEnabled(frame_));
}

TEST_F(ModalDialog, StaysModalWhenItHidesItself) {
    script_.on_init = [&](HWND dialog) { PostMessageA(dialog, WM_COMMAND, 778, 0); };
    bool enabled = true;
    script_.on_command = [&](HWND dialog, int id) {
        if (id != 778) return false;
        ShowWindow(dialog, SW_HIDE);
        enabled = IsWindowEnabled(frame_) != FALSE;
        EndByCommand(dialog);
        return true;
    };
    EXPECT_EQ(50, Run());
    EXPECT_FALSE(enabled);
}

TEST_F(ModalDialog, LivesOnHiddenUntilTheHandlerThatEndedItReturns) {
    script_.on_init = [&](HWND dialog) { EndByCommand(dialog); };
    script_.on_command = [&](HWND dialog, int id) {
        if (id != kEndCommand) return false;
        EndDialog(dialog, 1);
        EXPECT_TRUE(IsWindow(dialog));
        EXPECT_FALSE(IsWindowVisible(dialog));
        EXPECT_TRUE(IsWindowEnabled(frame_));
        EXPECT_EQ(frame_, GetActiveWindow());
        EndDialog(dialog, 2);
        return true;
    };
    EXPECT_EQ(2, Run());
}

TEST_F(ModalDialog, ClosesByThePostedCommandOfItsCancelButton) {
    const struct {
        const char* what;
        UINT message;
        WPARAM wParam;
    } kCases[] = {{"WM_CLOSE", WM_CLOSE, 0}, {"close box", WM_SYSCOMMAND, SC_CLOSE}};
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        script_.on_init = [&](HWND dialog) { PostMessageA(dialog, one.message, one.wParam, 0); };
        script_.on_command = [&](HWND dialog, int id) {
            if (id != IDCANCEL) return false;
            EXPECT_FALSE(InSendMessage());
            EndDialog(dialog, 2);
            return true;
        };
        EXPECT_EQ(2, Run());
    }
}

TEST_F(ModalDialog, IgnoresCloseWhileCancelIsDisabled) {
    bool cancelled = false;
    script_.on_init = [&](HWND dialog) {
        EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
        SendMessageA(dialog, WM_CLOSE, 0, 0);
        EndByCommand(dialog);
    };
    script_.on_command = [&](HWND, int id) {
        cancelled = cancelled || id == IDCANCEL;
        return false;
    };
    EXPECT_EQ(50, Run());
    EXPECT_FALSE(cancelled);
}

TEST_F(ModalDialog, LeavesTheQuitForTheLoopOutside) {
    script_.on_init = [](HWND) { PostQuitMessage(3); };
    Run();
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message);
    EXPECT_EQ(3u, message.wParam);
}

TEST_F(ModalDialog, OwnersAreTheTopLevelWindowsThatCount) {
    const HWND child = log_.Create("child", WS_CHILD | WS_VISIBLE, {0, 0, 20, 20}, frame_);
    const HWND popup = log_.Create("popup", WS_POPUP | WS_VISIBLE, {400, 100, 500, 200});
    EnableWindow(popup, FALSE);
    const struct {
        const char* what;
        HWND owner;
        HWND parent;
        bool frame_enabled_inside;
    } kCases[] = {{"no owner", nullptr, nullptr, true},
                  {"a child stands for its frame", child, frame_, false},
                  {"a disabled one", popup, popup, true}};
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        bool checked = false;
        script_.on_init = [&](HWND dialog) {
            EXPECT_EQ(one.frame_enabled_inside, IsWindowEnabled(frame_) != FALSE);
            EXPECT_EQ(one.parent, GetParent(dialog));
            checked = true;
            EndByCommand(dialog);
        };
        EXPECT_EQ(50, Run(one.owner));
        EXPECT_TRUE(checked);
        EXPECT_TRUE(IsWindowEnabled(frame_));
    }
    // It was disabled by somebody else, who will want it so.
    EXPECT_FALSE(IsWindowEnabled(popup));
}

TEST_F(ModalDialog, RunsInsideAnotherOne) {
    DialogScript inner;
    inner.log = &log_;
    inner.role = "inner";
    inner.on_init = [&](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(script_.window));
        EXPECT_FALSE(IsWindowEnabled(frame_));
        PostMessageA(dialog, WM_COMMAND, kEndCommand, 0);
    };
    script_.on_init = [&](HWND dialog) { PostMessageA(dialog, WM_COMMAND, 778, 0); };
    script_.on_command = [&](HWND dialog, int id) {
        if (id != 778) return false;
        EXPECT_EQ(50, DialogBoxIndirectParamA(nullptr, PlainTemplate().Get(), dialog,
                                              ScriptProcedure, inner.Parameter()));
        EXPECT_TRUE(IsWindowEnabled(dialog));
        EXPECT_FALSE(IsWindowEnabled(frame_));
        EXPECT_EQ(dialog, GetActiveWindow());
        EXPECT_EQ(GetDlgItem(dialog, 100), GetFocus());
        EndDialog(dialog, 60);
        return true;
    };
    EXPECT_EQ(60, Run());
    EXPECT_TRUE(IsWindowEnabled(frame_));
    EXPECT_EQ(frame_, GetActiveWindow());
}

TEST_F(ModalDialog, OuterEndedFromTheInnerOneEndsAfterIt) {
    DialogScript inner;
    inner.on_init = [&](HWND dialog) {
        EndDialog(script_.window, 70);
        EXPECT_TRUE(IsWindow(script_.window));
        EXPECT_FALSE(IsWindowVisible(script_.window));
        EXPECT_TRUE(IsWindowEnabled(frame_));
        PostMessageA(dialog, WM_COMMAND, kEndCommand, 0);
    };
    INT_PTR inner_result = 0;
    script_.on_init = [&](HWND dialog) { PostMessageA(dialog, WM_COMMAND, 778, 0); };
    script_.on_command = [&](HWND dialog, int id) {
        if (id != 778) return false;
        inner_result = DialogBoxIndirectParamA(nullptr, PlainTemplate().Get(), dialog,
                                               ScriptProcedure, inner.Parameter());
        return true;
    };
    EXPECT_EQ(70, Run());
    EXPECT_EQ(50, inner_result);
    EXPECT_EQ(frame_, GetActiveWindow());
}

TEST_F(ModalDialog, EndsWhenItsOwnerDies) {
    const HWND owner = log_.Create("owner", WS_POPUP | WS_VISIBLE, {300, 100, 500, 200});
    script_.on_init = [&](HWND dialog) { PostMessageA(dialog, WM_COMMAND, 778, 0); };
    script_.on_command = [&](HWND, int id) {
        if (id == 778) DestroyWindow(owner);
        return id == 778;
    };
    EXPECT_EQ(0, Run(owner));
    EXPECT_FALSE(IsWindow(script_.window));
}

TEST_F(ModalDialog, RefusesOwnersAndDialogsThatAreNone) {
    const auto none = reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7654));
    SetLastError(0);
    EXPECT_EQ(-1, Run(none));
    EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
    SetLastError(0);
    EXPECT_FALSE(EndDialog(none, 1));
    EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
}

TEST_F(ModalDialog, FailsWithAControlOfNoClass) {
    const Template unknown(kTestDialogStyle, {{"NoSuchClass", 100, "", WS_VISIBLE, 0, 0, 20, 20}});
    EXPECT_EQ(-1, DialogBoxIndirectParamA(nullptr, unknown.Get(), frame_, ScriptProcedure,
                                          script_.Parameter()));
    EXPECT_TRUE(IsWindowEnabled(frame_));
}

}  // namespace
}  // namespace tests
