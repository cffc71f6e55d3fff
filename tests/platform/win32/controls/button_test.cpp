#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {
namespace {

using platform::testing::MovePointer;
using platform::testing::Press;
using platform::testing::Release;
using platform::testing::ScreenPoint;

constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;

/// A frame with a button under test (ctl) and another window that has the focus (next).
class Buttons : public ::testing::Test {
protected:
    void SetUp() override {
        platform::testing::StopClock();
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 500, 400});
        next_ = log_.Create("next", kChild, {0, 200, 50, 220}, frame_, 99);
        SetActiveWindow(frame_);
        MovePointer({800, 700});
    }

    HWND Make(DWORD style, int id = 7, RECT rect = {10, 10, 110, 40}, const char* role = "ctl") {
        const HWND button =
            CreateWindowExA(0, "Button", "b", kChild | style, rect.left, rect.top,
                            rect.right - rect.left, rect.bottom - rect.top, frame_,
                            reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)), nullptr, nullptr);
        log_.Watch(button, role);
        return button;
    }

    void Use(DWORD style) {
        if (ctl_ != nullptr) DestroyWindow(ctl_);
        ctl_ = Make(style);
        SetFocus(next_);
        MovePointer({800, 700});
        PumpQueue();
        log_.Only({BM_SETSTATE, BM_SETCHECK, WM_COMMAND, WM_CAPTURECHANGED, WM_SETFOCUS,
                   WM_KILLFOCUS, WM_CANCELMODE, WM_ENABLE});
        log_.Take();
        // Two presses in a row are not to be a double click.
        platform::testing::PumpFor(GetDoubleClickTime() + 1);
    }

    LRESULT Send(UINT message, WPARAM wParam = 0) { return SendMessageA(ctl_, message, wParam, 0); }
    POINT Middle() { return ScreenPoint(ctl_); }

    MessageLog log_;
    HWND frame_ = nullptr;
    HWND next_ = nullptr;
    HWND ctl_ = nullptr;
};

// BM_... by number, as the log shows them.
const char* const kDown = "ctl 0xF3";
const char* const kGainFocus = "next WM_KILLFOCUS(ctl); ctl WM_SETFOCUS(next)";
const char* const kClicked = "frame WM_COMMAND(7, code 0, ctl)";
const char* const kLost = "ctl WM_CAPTURECHANGED(null)";

std::string Join(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : "; ") + part;
    return text;
}

TEST_F(Buttons, AnswerTheDialogCodeAndCheckOfTheirKind) {
    const struct {
        const char* what;
        DWORD style;
        LRESULT code;
        LRESULT checks[4];  // after setting 1, 2, 7, 0
    } kCases[] = {
        {"push", BS_PUSHBUTTON, 0x2020, {0, 0, 0, 0}},
        {"default", BS_DEFPUSHBUTTON, 0x2010, {0, 0, 0, 0}},
        {"check", BS_CHECKBOX, 0x2000, {1, 1, 1, 0}},
        {"auto check", BS_AUTOCHECKBOX, 0x2000, {1, 1, 1, 0}},
        {"three states", BS_3STATE, 0x2000, {1, 2, 2, 0}},
        {"auto three states", BS_AUTO3STATE, 0x2000, {1, 2, 2, 0}},
        {"radio", BS_RADIOBUTTON, 0x2040, {1, 1, 1, 0}},
        {"auto radio", BS_AUTORADIOBUTTON, 0x2040, {1, 1, 1, 0}},
        {"group", BS_GROUPBOX, 0x100, {0, 0, 0, 0}},
        {"owner drawn", BS_OWNERDRAW, 0x2000, {0, 0, 0, 0}},
    };
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        Use(one.style);
        EXPECT_EQ(one.code, Send(WM_GETDLGCODE));
        const WPARAM sets[] = {1, 2, 7, 0};
        for (int i = 0; i < 4; ++i) {
            Send(BM_SETCHECK, sets[i]);
            EXPECT_EQ(one.checks[i], Send(BM_GETCHECK)) << "set " << sets[i];
            EXPECT_EQ(one.checks[i], Send(BM_GETSTATE)) << "set " << sets[i];
        }
    }
}

TEST_F(Buttons, ChangeTheirKindByMessage) {
    Use(BS_PUSHBUTTON);
    Send(BM_SETSTYLE, BS_DEFPUSHBUTTON);
    EXPECT_EQ(0x2010, Send(WM_GETDLGCODE));
    Send(BM_SETSTYLE, BS_OWNERDRAW);
    EXPECT_EQ(BS_OWNERDRAW, GetWindowLongA(ctl_, GWL_STYLE) & BS_TYPEMASK);
    EXPECT_EQ(static_cast<LONG>(WS_VISIBLE), GetWindowLongA(ctl_, GWL_STYLE) & WS_VISIBLE);
}

TEST_F(Buttons, ShowPressingInTheirState) {
    Use(BS_PUSHBUTTON);
    EXPECT_EQ(0, Send(BM_GETSTATE));
    Send(BM_SETSTATE, 1);
    EXPECT_EQ(BST_PUSHED, Send(BM_GETSTATE));
    Send(BM_SETSTATE, 0);
    SetFocus(ctl_);
    EXPECT_EQ(BST_FOCUS, Send(BM_GETSTATE));
}

TEST_F(Buttons, AreClickedOnRelease) {
    Use(BS_PUSHBUTTON);
    MovePointer(Middle());
    Press();
    EXPECT_EQ(Join({kGainFocus, kDown}), log_.Take());
    EXPECT_EQ(BST_PUSHED | BST_FOCUS, Send(BM_GETSTATE) & 0xF);
    Release();
    EXPECT_EQ(Join({kDown, kLost, kClicked}), log_.Take());
    EXPECT_EQ(BST_FOCUS, Send(BM_GETSTATE));
}

TEST_F(Buttons, FollowThePointerWhileHeld) {
    Use(BS_PUSHBUTTON);
    MovePointer(Middle());
    Press();
    MovePointer({800, 700});
    EXPECT_EQ(0, Send(BM_GETSTATE) & BST_PUSHED);
    MovePointer(Middle());
    EXPECT_EQ(BST_PUSHED, Send(BM_GETSTATE) & BST_PUSHED);
    MovePointer({800, 700});
    log_.Take();
    Release();
    EXPECT_EQ(kLost, log_.Take());
}

TEST_F(Buttons, ForgetAPressThatIsTakenFromThem) {
    Use(BS_PUSHBUTTON);
    MovePointer(Middle());
    Press();
    log_.Take();
    SetFocus(next_);
    EXPECT_EQ(
        "ctl WM_KILLFOCUS(next) [ctl WM_CAPTURECHANGED(null) [ctl 0xF3]]; next WM_SETFOCUS(ctl)",
        log_.Take());
    Release();
    EXPECT_EQ("", log_.Take());

    Use(BS_PUSHBUTTON);
    MovePointer(Middle());
    Press();
    log_.Take();
    EnableWindow(ctl_, FALSE);
    EXPECT_EQ(
        "ctl WM_CANCELMODE [ctl WM_CAPTURECHANGED(null) [ctl 0xF3]]; ctl WM_KILLFOCUS(null); "
        "ctl WM_ENABLE(0)",
        log_.Take());
    Release();
    EXPECT_EQ("", log_.Take());
}

TEST_F(Buttons, ArePressedBySpaceOnly) {
    Use(BS_PUSHBUTTON);
    SetFocus(ctl_);
    log_.Take();
    platform::testing::Key(VK_SPACE);
    // Three windows see the pressed key: the log shows what was sent while it was dispatched.
    EXPECT_EQ(Join({kDown, kDown, kLost, kClicked}), log_.Take());
    platform::testing::Key(VK_RETURN);
    EXPECT_EQ("", log_.Take());
}

TEST_F(Buttons, ClickThemselvesByMessage) {
    Use(BS_PUSHBUTTON);
    Send(BM_CLICK);
    EXPECT_EQ(Join({kGainFocus, kDown, kDown, kLost, kClicked}), log_.Take());
    EXPECT_EQ(ctl_, GetFocus());
    SetWindowPos(ctl_, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER);
    Send(BM_CLICK);
    EXPECT_NE(std::string::npos, log_.Take().find(kClicked));
}

TEST_F(Buttons, CheckThemselvesOnlyWhenAutomatic) {
    const struct {
        const char* what;
        DWORD style;
        int clicks;
        LRESULT check;
    } kCases[] = {{"check", BS_CHECKBOX, 1, 0},
                  {"auto check", BS_AUTOCHECKBOX, 1, 1},
                  {"auto check twice", BS_AUTOCHECKBOX, 2, 0},
                  {"three states", BS_AUTO3STATE, 2, 2},
                  {"round", BS_AUTO3STATE, 3, 0},
                  {"radio", BS_RADIOBUTTON, 1, 0},
                  {"auto radio", BS_AUTORADIOBUTTON, 2, 1}};
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        Use(one.style);
        for (int i = 0; i < one.clicks; ++i) Send(BM_CLICK);
        EXPECT_EQ(one.check, Send(BM_GETCHECK));
    }
}

TEST_F(Buttons, TellTheCheckBeforeTheClick) {
    Use(BS_AUTOCHECKBOX);
    SetFocus(ctl_);
    log_.Take();
    Send(BM_CLICK);
    EXPECT_EQ(Join({kDown, kDown, "ctl 0xF1", kLost, kClicked}), log_.Take());
}

TEST_F(Buttons, GroupsOfAutomaticRadioButtonsHoldOne) {
    Use(BS_PUSHBUTTON);
    const HWND radios[] = {Make(BS_AUTORADIOBUTTON | WS_GROUP, 10, {0, 50, 50, 70}, "r1"),
                           Make(BS_AUTORADIOBUTTON, 11, {0, 70, 50, 90}, "r2"),
                           Make(BS_AUTORADIOBUTTON, 12, {0, 90, 50, 110}, "r3"),
                           Make(BS_AUTORADIOBUTTON | WS_GROUP, 13, {0, 110, 50, 130}, "r4")};
    const auto checks = [&] {
        std::string text;
        for (const HWND radio : radios) {
            text += SendMessageA(radio, BM_GETCHECK, 0, 0) != 0 ? '1' : '0';
        }
        return text;
    };
    log_.Only({BM_SETCHECK, WM_COMMAND});
    log_.Take();
    platform::testing::Click(radios[1]);
    EXPECT_EQ("r2 0xF1; r3 0xF1; r1 0xF1; frame WM_COMMAND(11, code 0, r2)", log_.Take());
    EXPECT_EQ("0100", checks());
    platform::testing::Click(radios[2]);
    EXPECT_EQ("0010", checks());
    platform::testing::Click(radios[3]);
    EXPECT_EQ("0011", checks());
    SendMessageA(radios[0], BM_SETCHECK, 1, 0);
    EXPECT_EQ("1011", checks());
    CheckRadioButton(frame_, 10, 12, 11);
    EXPECT_EQ("0101", checks());
    // Focus alone chooses, as with the arrow keys; the Tab key reaches the chosen one.
    log_.Take();
    SetFocus(radios[0]);
    EXPECT_EQ("1001", checks());
    EXPECT_NE(std::string::npos, log_.Take().find("WM_COMMAND(10, code 0, r1)"));
    EXPECT_NE(0, GetWindowLongA(radios[0], GWL_STYLE) & WS_TABSTOP);
    EXPECT_EQ(0, GetWindowLongA(radios[1], GWL_STYLE) & WS_TABSTOP);
}

TEST_F(Buttons, NotifyOfFocusAndDoubleClicksWhenAsked) {
    Use(BS_NOTIFY);
    log_.Only({WM_COMMAND});
    SetFocus(ctl_);
    SetFocus(next_);
    EXPECT_EQ("frame WM_COMMAND(7, code 6, ctl); frame WM_COMMAND(7, code 7, ctl)", log_.Take());
    SetFocus(ctl_);
    log_.Take();
    platform::testing::DoubleClick(ctl_, 5, 5);
    EXPECT_EQ("frame WM_COMMAND(7, code 0, ctl); frame WM_COMMAND(7, code 5, ctl)", log_.Take());

    Use(BS_PUSHBUTTON);
    log_.Only({WM_COMMAND});
    platform::testing::DoubleClick(ctl_, 5, 5);
    EXPECT_EQ(Join({kClicked, kClicked}), log_.Take());
}

TEST_F(Buttons, GroupBoxesLetClicksThrough) {
    Use(BS_GROUPBOX);
    log_.Only({WM_LBUTTONDOWN});
    log_.Take();
    platform::testing::Click(ctl_);
    EXPECT_EQ("*frame WM_LBUTTONDOWN(1, 60,25)*", log_.Take());
}

TEST_F(Buttons, MayBeDestroyedByTheirOwnNotification) {
    for (const auto style : {BS_PUSHBUTTON, BS_AUTORADIOBUTTON, BS_OWNERDRAW}) {
        Use(static_cast<DWORD>(style));
        log_.SetHandler([](MessageLog&, const std::string& role, UINT message, WPARAM,
                           LPARAM lParam, LRESULT&) {
            if (role == "frame" && message == WM_COMMAND && lParam != 0) {
                DestroyWindow(reinterpret_cast<HWND>(lParam));
            }
            return false;
        });
        platform::testing::Click(ctl_);
        EXPECT_FALSE(IsWindow(ctl_));
        ctl_ = nullptr;
    }
}

/// What WM_DRAWITEM asked for, one after the other: action/state.
std::string g_drawn;

bool RecordDrawing(MessageLog&, const std::string& role, UINT message, WPARAM, LPARAM lParam,
                   LRESULT& answer) {
    if (role != "frame" || message != WM_DRAWITEM) return false;
    const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    char text[32];
    std::snprintf(text, sizeof text, "%u/%02X ", item.itemAction, item.itemState);
    g_drawn += text;
    EXPECT_NE(nullptr, item.hDC);
    answer = TRUE;
    return true;
}

TEST_F(Buttons, OwnerDrawnOnesAskForEveryChange) {
    log_.SetHandler(RecordDrawing);
    Use(BS_OWNERDRAW);
    const struct {
        const char* what;
        std::function<void()> act;
        const char* expected;
    } kSteps[] = {
        {"invalidate", [&] { InvalidateRect(ctl_, nullptr, TRUE); }, "1/00 "},
        {"move over it", [&] { MovePointer(Middle()); }, ""},
        {"press", [] { Press(); }, "4/10 2/11 "},
        {"move off",
         [] {
             MovePointer({800, 700});
         },
         "2/10 "},
        {"move back", [&] { MovePointer(Middle()); }, "2/11 "},
        {"release", [] { Release(); }, "2/10 "},
        {"space", [] { platform::testing::Key(VK_SPACE); }, "2/11 2/10 "},
        {"focus away", [&] { SetFocus(next_); }, "4/00 1/00 "},
        {"focus", [&] { SetFocus(ctl_); }, "4/10 "},
        {"disable", [&] { EnableWindow(ctl_, FALSE); }, "4/04 1/04 1/04 "},
        {"enable", [&] { EnableWindow(ctl_, TRUE); }, "1/00 "},
        {"text", [&] { SetWindowTextA(ctl_, "c"); }, "1/00 "},
        {"state",
         [&] {
             Send(BM_SETSTATE, 1);
             Send(BM_SETSTATE, 0);
         },
         "2/01 2/00 "},
        {"style", [&] { SendMessageA(ctl_, BM_SETSTYLE, BS_OWNERDRAW, TRUE); }, "1/00 "},
        {"hidden",
         [&] {
             ShowWindow(ctl_, SW_HIDE);
             SetWindowTextA(ctl_, "d");
         },
         ""},
    };
    for (const auto& step : kSteps) {
        SCOPED_TRACE(step.what);
        g_drawn.clear();
        step.act();
        PumpQueue();
        EXPECT_EQ(step.expected, g_drawn);
    }
}

TEST_F(Buttons, AskForTheColoursOfTheirKind) {
    const struct {
        DWORD style;
        const char* asked;
    } kCases[] = {{BS_PUSHBUTTON, "frame WM_CTLCOLORBTN"},
                  {BS_AUTOCHECKBOX, "frame WM_CTLCOLORSTATIC"},
                  {BS_RADIOBUTTON, "frame WM_CTLCOLORSTATIC"},
                  {BS_GROUPBOX, "frame WM_CTLCOLORSTATIC"}};
    for (const auto& one : kCases) {
        Use(one.style);
        log_.Only({WM_CTLCOLORBTN, WM_CTLCOLORSTATIC});
        InvalidateRect(ctl_, nullptr, TRUE);
        EXPECT_EQ(one.asked, log_.PumpAndTake());
        SetWindowTextA(ctl_, "c");
        EXPECT_EQ(one.asked, log_.Take().substr(0, std::string(one.asked).size()));
    }
}

}  // namespace
}  // namespace tests
