#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/platform/win32/controls/test_dialog.h"

namespace tests {
namespace {

constexpr DWORD kStop = WS_VISIBLE | WS_TABSTOP;

/// A modeless dialog that is shown and has the focus, over an active frame.
class DialogKeys : public ::testing::Test {
protected:
    void SetUp() override {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 700, 500});
        SetActiveWindow(frame_);
        PumpQueue();
        script_.log = &log_;
    }

    void TearDown() override {
        if (IsWindow(script_.window)) DestroyWindow(script_.window);
    }

    void Show(const Template& dialog) {
        CreateDialogIndirectParamA(nullptr, dialog.Get(), frame_, ScriptProcedure,
                                   script_.Parameter());
        ShowWindow(script_.window, SW_SHOW);
        PumpDialog(script_.window);
        log_.Only({WM_COMMAND, WM_NEXTDLGCTL});
        log_.Take();
    }

    HWND Item(int id) { return GetDlgItem(script_.window, id); }
    std::string Focus() { return log_.RoleOf(GetFocus()); }

    /// The default id, the focus and the buttons that are drawn as the default.
    std::string State() {
        std::string text =
            "def " + std::to_string(LOWORD(SendMessageA(script_.window, DM_GETDEFID, 0, 0)));
        text += " focus " + Focus() + " drawn";
        for (const int id : {1, 2, 102}) {
            const LONG style = GetWindowLongA(Item(id), GWL_STYLE);
            if ((style & BS_TYPEMASK) == BS_DEFPUSHBUTTON) text += " " + log_.RoleOf(Item(id));
        }
        return text;
    }

    /// The buttons that were pressed and their order.
    std::string Key(BYTE key, bool shift = false) {
        DialogKey(script_.window, key, shift);
        return Clicks();
    }

    std::string Clicks() {
        log_.Only({WM_COMMAND, WM_NEXTDLGCTL});
        std::string clicks;
        const std::string log = log_.Take();
        for (std::size_t at = log.find("COMMAND("); at != std::string::npos;
             at = log.find("COMMAND(", at + 1)) {
            const std::string rest = log.substr(at + 8);
            const std::string arguments = rest.substr(0, rest.find(')'));
            if (arguments.find("code 0") == std::string::npos) continue;
            clicks += (clicks.empty() ? "" : " ") + arguments;
        }
        return clicks;
    }

    MessageLog log_;
    HWND frame_ = nullptr;
    DialogScript script_;
};

TEST_F(DialogKeys, CreatedHiddenItAlreadyHasTheFocus) {
    ShowEffects(log_);
    log_.Take();
    const HWND dialog = CreateDialogIndirectParamA(nullptr, PlainTemplate().Get(), frame_,
                                                   ScriptProcedure, script_.Parameter());
    EXPECT_EQ(
        "frame WM_ACTIVATE(inactive, dialog); dialog WM_ACTIVATE(active, frame); "
        "frame WM_KILLFOCUS(c100); c100 WM_SETFOCUS(frame) "
        "[dialog WM_COMMAND(100, code 256, c100)]",
        log_.Take());
    EXPECT_FALSE(IsWindowVisible(dialog));
    EXPECT_TRUE(IsWindowEnabled(frame_));
    EXPECT_EQ("def 1 focus c100 drawn ok", State());
}

TEST_F(DialogKeys, TabMovesTheFocusAndTheDrawnDefault) {
    Show(PlainTemplate());
    const struct {
        BYTE key;
        bool shift;
        const char* state;
        const char* clicks;
    } kSteps[] = {
        {VK_TAB, false, "def 1 focus c101 drawn ok", ""},
        {VK_TAB, false, "def 1 focus ok drawn ok", ""},
        {VK_TAB, false, "def 1 focus cancel drawn cancel", ""},
        {VK_RETURN, false, "def 1 focus cancel drawn cancel", "2, code 0, cancel"},
        {VK_TAB, false, "def 1 focus c102 drawn c102", ""},
        {VK_RETURN, false, "def 1 focus c102 drawn c102", "102, code 0, c102"},
        {VK_TAB, false, "def 1 focus c100 drawn ok", ""},
        {VK_RETURN, false, "def 1 focus c100 drawn ok", "1, code 0, ok"},
        {VK_ESCAPE, false, "def 1 focus c100 drawn ok", "2, code 0, cancel"},
        {VK_TAB, true, "def 1 focus c102 drawn c102", ""},
        {VK_TAB, true, "def 1 focus cancel drawn cancel", ""},
    };
    int step = 0;
    for (const auto& one : kSteps) {
        SCOPED_TRACE("step " + std::to_string(step++));
        EXPECT_EQ(one.clicks, Key(one.key, one.shift));
        EXPECT_EQ(one.state, State());
    }
}

TEST_F(DialogKeys, FocusByCallLeavesTheDrawnDefault) {
    Show(PlainTemplate());
    SetFocus(Item(IDCANCEL));
    EXPECT_EQ("def 1 focus cancel drawn ok", State());
    // The focus is on no button that is drawn as the default, so Enter means the dialog's own.
    EXPECT_EQ("1, code 0, ok", Key(VK_RETURN));
}

TEST_F(DialogKeys, DisabledButtonsAreNotPressed) {
    Show(PlainTemplate());
    EnableWindow(Item(IDOK), FALSE);
    EXPECT_EQ("", Key(VK_RETURN));
    EnableWindow(Item(IDCANCEL), FALSE);
    EXPECT_EQ("", Key(VK_ESCAPE));
}

TEST_F(DialogKeys, DefaultIdIsSetByMessage) {
    Show(PlainTemplate());
    EXPECT_EQ(1, SendMessageA(script_.window, DM_SETDEFID, 102, 0));
    EXPECT_EQ("def 102 focus c100 drawn c102", State());
    EXPECT_EQ("102, code 0, c102", Key(VK_RETURN));
    SendMessageA(script_.window, DM_SETDEFID, 555, 0);
    EXPECT_EQ("def 555 focus c100 drawn", State());
    EXPECT_EQ("555, code 0, null", Key(VK_RETURN));
    EXPECT_EQ(DC_HASDEFID, HIWORD(SendMessageA(script_.window, DM_GETDEFID, 0, 0)));
}

TEST_F(DialogKeys, NextDialogControlMovesAndSelects) {
    Show(PlainTemplate());
    const auto selection = [&](int id) {
        const LRESULT both = SendMessageA(Item(id), EM_GETSEL, 0, 0);
        return std::to_string(LOWORD(both)) + ".." + std::to_string(HIWORD(both));
    };
    SendMessageA(script_.window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(101)), TRUE);
    EXPECT_EQ("c101", Focus());
    EXPECT_EQ("0..2", selection(101));
    SendMessageA(script_.window, WM_NEXTDLGCTL, 0, FALSE);
    EXPECT_EQ("ok", Focus());
    SendMessageA(script_.window, WM_NEXTDLGCTL, 1, FALSE);
    EXPECT_EQ("c101", Focus());
    SendMessageA(Item(100), EM_SETSEL, 0, 0);
    SetFocus(Item(102));
    Key(VK_TAB);
    EXPECT_EQ("c100", Focus());
    EXPECT_EQ("0..2", selection(100));
}

TEST_F(DialogKeys, TabSkipsWhatCannotBeUsed) {
    Show(PlainTemplate());
    EnableWindow(Item(101), FALSE);
    ShowWindow(Item(IDOK), SW_HIDE);
    Key(VK_TAB);
    EXPECT_EQ("cancel", Focus());
    Key(VK_TAB, true);
    EXPECT_EQ("c100", Focus());
}

TEST_F(DialogKeys, ArrowsWalkTheButtonsOfAGroupAndBelongToEdits) {
    Show(PlainTemplate());
    Key(VK_DOWN);
    Key(VK_RIGHT);
    EXPECT_EQ("c100", Focus());
    SetFocus(Item(IDOK));
    std::string walk;
    for (int i = 0; i < 3; ++i) {
        Key(VK_RIGHT);
        walk += Focus() + " ";
    }
    EXPECT_EQ("cancel c102 c100 ", walk);
}

TEST_F(DialogKeys, PressedButtonBecomesTheDrawnDefault) {
    Show(PlainTemplate());
    const POINT place = platform::testing::ScreenPoint(Item(102));
    SetCursorPos(place.x, place.y);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    PumpDialog(script_.window);
    EXPECT_EQ("102, code 0, c102", Clicks());
    EXPECT_EQ("def 1 focus c102 drawn c102", State());
}

TEST_F(DialogKeys, FocusComesBackWithActivation) {
    Show(PlainTemplate());
    SetFocus(Item(101));
    SetActiveWindow(frame_);
    EXPECT_EQ("frame", Focus());
    SetActiveWindow(script_.window);
    EXPECT_EQ("c101", Focus());
}

TEST_F(DialogKeys, FocusLeavesAControlThatIsHidden) {
    Show(PlainTemplate());
    SetFocus(Item(101));
    ShowWindow(Item(101), SW_HIDE);
    EXPECT_EQ("c100", Focus());
    EnableWindow(Item(100), FALSE);
    EXPECT_EQ("null", Focus());
}

TEST_F(DialogKeys, EndHidesAModelessDialogAndKeepsIt) {
    Show(PlainTemplate());
    EXPECT_TRUE(EndDialog(script_.window, 1));
    EXPECT_TRUE(IsWindow(script_.window));
    EXPECT_FALSE(IsWindowVisible(script_.window));
    EXPECT_EQ(frame_, GetActiveWindow());
}

TEST_F(DialogKeys, CloseAsksAModelessDialogByItsCancelCommand) {
    Show(PlainTemplate());
    SendMessageA(script_.window, WM_CLOSE, 0, 0);
    PumpDialog(script_.window);
    EXPECT_EQ("2, code 0, cancel", Clicks());
    EXPECT_TRUE(IsWindow(script_.window));
}

TEST_F(DialogKeys, ArrowsChooseAmongRadioButtons) {
    constexpr DWORD kRadio = WS_VISIBLE | BS_AUTORADIOBUTTON;
    Show(Template(kTestDialogStyle,
                  {{"Button", 110, "a", kRadio | WS_GROUP | WS_TABSTOP, 10, 10, 40, 10},
                   {"Button", 111, "b", kRadio, 10, 22, 40, 10},
                   {"Button", 112, "c", kRadio, 10, 34, 40, 10},
                   {"Button", IDOK, "ok", kStop | WS_GROUP | BS_DEFPUSHBUTTON, 10, 60, 40, 14}}));
    const auto state = [&] {
        std::string checks = Focus() + " ";
        for (const int id : {110, 111, 112}) {
            checks += IsDlgButtonChecked(script_.window, id) != 0 ? '1' : '0';
        }
        return checks;
    };
    CheckRadioButton(script_.window, 110, 112, 110);
    EXPECT_EQ("c110 100", state());
    const struct {
        BYTE key;
        const char* clicks;
        const char* state;
    } kSteps[] = {
        {VK_DOWN, "111, code 0, c111", "c111 010"},
        {VK_DOWN, "112, code 0, c112", "c112 001"},
        {VK_DOWN, "110, code 0, c110", "c110 100"},
        {VK_UP, "112, code 0, c112", "c112 001"},
        {VK_TAB, "", "ok 001"},
        {VK_TAB, "", "c112 001"},
    };
    log_.Take();
    int step = 0;
    for (const auto& one : kSteps) {
        SCOPED_TRACE("step " + std::to_string(step++));
        EXPECT_EQ(one.clicks, Key(one.key));
        EXPECT_EQ(one.state, state());
    }
}

TEST_F(DialogKeys, LettersReachButtonsAndLabels) {
    Show(Template(kTestDialogStyle,
                  {{"Button", 102, "&Third", kStop, 10, 10, 40, 14},
                   {"Static", 103, "&Name", WS_VISIBLE, 10, 30, 40, 10},
                   {"Edit", 100, "", kStop, 60, 30, 60, 14},
                   {"Static", 104, "a&&b &x", WS_VISIBLE | SS_NOPREFIX, 10, 50, 40, 10}}));
    EXPECT_EQ("c102", Focus());
    EXPECT_EQ("102, code 0, c102", Key('T'));
    Key('X');
    EXPECT_EQ("c102", Focus());
    Key('N');
    EXPECT_EQ("c100", Focus());
    // The edit takes letters itself.
    EXPECT_EQ("", Key('T'));
    char text[8] = "";
    GetDlgItemTextA(script_.window, 100, text, sizeof text);
    EXPECT_STREQ("t", text);
}

/// A page (child dialog with edits 105 and 106) between edit 100 and the button of a dialog.
class DialogPage : public DialogKeys {
protected:
    void ShowWithPage(DWORD page_style) {
        Show(Template(kTestDialogStyle,
                      {{"Edit", 100, "", kStop, 10, 10, 40, 12},
                       {"Button", IDOK, "ok", kStop | BS_DEFPUSHBUTTON, 10, 80, 40, 14}}));
        const Template inside(
            WS_CHILD | WS_VISIBLE | DS_SETFONT | page_style,
            {{"Edit", 105, "", kStop, 0, 0, 40, 12}, {"Edit", 106, "", kStop, 0, 20, 40, 12}});
        page_.log = &log_;
        page_.role = "page";
        CreateDialogIndirectParamA(nullptr, inside.Get(), script_.window, ScriptProcedure,
                                   page_.Parameter());
        SetWindowPos(page_.window, Item(100), 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
        SetFocus(Item(100));
        log_.Take();
    }

    std::string Walk(int steps) {
        std::string walk;
        for (int i = 0; i < steps; ++i) {
            Key(VK_TAB);
            walk += Focus() + " ";
        }
        return walk;
    }

    DialogScript page_;
};

TEST_F(DialogPage, TabGoesThroughAPageThatTakesPart) {
    ShowWithPage(DS_CONTROL);
    EXPECT_EQ("c105 c106 ok c100 ", Walk(4));
    SetFocus(GetDlgItem(page_.window, 105));
    log_.Take();
    EXPECT_EQ("1, code 0, ok", Key(VK_RETURN));
    EXPECT_EQ("2, code 0, null", Key(VK_ESCAPE));
}

TEST_F(DialogPage, TabPassesAPageThatDoesNot) {
    ShowWithPage(0);
    EXPECT_EQ("ok c100 ok ", Walk(3));
}

TEST_F(DialogPage, NotificationsOfAPageGoToThePage) {
    ShowWithPage(DS_CONTROL);
    SetFocus(GetDlgItem(page_.window, 105));
    log_.Only({WM_COMMAND});
    log_.Take();
    DialogKey(script_.window, 'A');
    EXPECT_EQ("page WM_COMMAND(105, code 1024, c105); page WM_COMMAND(105, code 768, c105)",
              log_.Take());
}

}  // namespace
}  // namespace tests
