#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/platform/win32/controls/control_frame.h"
#include "tests/platform/win32/controls/test_dialog.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Key;
using platform::testing::Modifier;

class EditLines : public ControlFrame {
protected:
    void Use(DWORD style, int height = 60) {
        Make("Edit", style | ES_MULTILINE | ES_AUTOVSCROLL, 100, height);
        Take();
    }
    void Set(const char* text) { SetWindowTextA(ctl_, text); }
    void Select(LONG from, LONG to) { Send(EM_SETSEL, static_cast<WPARAM>(from), to); }
    std::string State() override {
        const LRESULT selection = Send(EM_GETSEL);
        return "\"" + Text() + "\" " + std::to_string(LOWORD(selection)) + ".." +
               std::to_string(HIWORD(selection));
    }
};

TEST_F(EditLines, TypingAndMovingOverLineEnds) {
    Use(0, 100);
    SetFocus(ctl_);
    Run({
        {"set: nothing is told", [&] { Set("one\r\ntwo"); }, "", "\"one\r\ntwo\" 0..0"},
        {"append",
         [&] {
             Select(8, 8);
             Send(EM_REPLACESEL, TRUE, "\r\nx");
         },
         "UPD+CHG", "\"one\r\ntwo\r\nx\" 11..11"},
        {"enter", [&] { Key(VK_RETURN); }, "UPD+CHG", "\"one\r\ntwo\r\nx\r\n\" 13..13"},
        {"backspace over it", [&] { Key(VK_BACK); }, "UPD+CHG", "\"one\r\ntwo\r\nx\" 11..11"},
        {"home", [&] { Key(VK_HOME); }, "", "\"one\r\ntwo\r\nx\" 10..10"},
        {"first line", [&] { Key(VK_HOME, Modifier::kControl); }, "", "\"one\r\ntwo\r\nx\" 0..0"},
        {"end", [&] { Key(VK_END); }, "", "\"one\r\ntwo\r\nx\" 3..3"},
        {"down", [&] { Key(VK_DOWN); }, "", "\"one\r\ntwo\r\nx\" 8..8"},
        {"down to a shorter line", [&] { Key(VK_DOWN); }, "", "\"one\r\ntwo\r\nx\" 11..11"},
        {"up aims at where it came from", [&] { Key(VK_UP); }, "", "\"one\r\ntwo\r\nx\" 8..8"},
        {"delete a line end",
         [&] {
             Key(VK_UP);
             Key(VK_DELETE);
         },
         "UPD+CHG", "\"onetwo\r\nx\" 3..3"},
    });
}

TEST_F(EditLines, TellWhenTheyScroll) {
    Use(0, 40);
    SetFocus(ctl_);
    Set("1\r\n2\r\n3");
    const LRESULT first = Send(EM_GETFIRSTVISIBLELINE);
    EXPECT_EQ(0, first);
    Select(7, 7);
    Send(EM_SCROLLCARET);
    Take();
    Key(VK_RETURN);
    EXPECT_EQ("EN_UPDATE EN_VSCROLL EN_CHANGE", Take());
    EXPECT_GT(Send(EM_GETFIRSTVISIBLELINE), first);
    Key(VK_BACK);
    EXPECT_EQ("EN_UPDATE EN_VSCROLL EN_CHANGE", Take());
    Send(EM_LINESCROLL, 0, -9);
    EXPECT_EQ(0, Send(EM_GETFIRSTVISIBLELINE));
    Send(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(1, Send(EM_GETFIRSTVISIBLELINE));
}

TEST_F(EditLines, AnswerWhereLinesAre) {
    Use(0);
    Set("one\r\ntwo");
    EXPECT_EQ(2, Send(EM_GETLINECOUNT));
    EXPECT_EQ(0, Send(EM_LINEINDEX, 0));
    EXPECT_EQ(5, Send(EM_LINEINDEX, 1));
    EXPECT_EQ(-1, Send(EM_LINEINDEX, 2));
    EXPECT_EQ(3, Send(EM_LINELENGTH, 0));
    EXPECT_EQ(3, Send(EM_LINELENGTH, 5));
    EXPECT_EQ(3, Send(EM_LINELENGTH, 99));
    EXPECT_EQ(0, Send(EM_LINEFROMCHAR, 4));
    EXPECT_EQ(1, Send(EM_LINEFROMCHAR, 5));
    EXPECT_EQ(1, Send(EM_LINEFROMCHAR, 99));
    char line[10] = {9, 0};
    EXPECT_EQ(3, Send(EM_GETLINE, 1, line));
    EXPECT_EQ("two", std::string(line, 3));
    EXPECT_EQ(0, Send(EM_GETLINE, 2, line));
    Set("one\r\ntwo\r\n");
    EXPECT_EQ(3, Send(EM_GETLINECOUNT));
    Set("a\nb");
    EXPECT_EQ(2, Send(EM_GETLINECOUNT));
}

TEST_F(EditLines, KeepABarForLinesOutOfSight) {
    Use(WS_VSCROLL);
    std::string text;
    for (int line = 0; line < 40; ++line) text += "line\r\n";
    Set(text.c_str());
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ASSERT_TRUE(GetScrollInfo(ctl_, SB_VERT, &info));
    EXPECT_EQ(40, info.nMax - info.nMin);
    EXPECT_GT(info.nPage, 1u);
    Send(WM_VSCROLL, SB_BOTTOM);
    ASSERT_TRUE(GetScrollInfo(ctl_, SB_VERT, &info));
    EXPECT_EQ(info.nMax - static_cast<int>(info.nPage) + 1, info.nPos);
    EXPECT_EQ(info.nPos, Send(EM_GETFIRSTVISIBLELINE));
    platform::testing::MovePointer(platform::testing::ScreenPoint(ctl_, 10, 10));
    SetFocus(ctl_);
    platform::testing::Wheel(1);
    EXPECT_EQ(info.nPos - 3, Send(EM_GETFIRSTVISIBLELINE));
}

// A dialog leaves all keys to lines of text, which give back those that are the dialog's.
TEST_F(EditLines, InDialogsGiveBackTabAndEnter) {
    constexpr DWORD kStop = WS_VISIBLE | WS_TABSTOP;
    constexpr DWORD kLines = kStop | WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL;
    const Template dialog(kTestDialogStyle,
                          {{"Edit", 100, "", kLines | ES_WANTRETURN, 10, 10, 60, 30},
                           {"Edit", 101, "", kLines, 10, 50, 60, 30},
                           {"Button", IDOK, "ok", kStop | BS_DEFPUSHBUTTON, 80, 60, 40, 14}});
    DialogScript script;
    int pressed = 0;
    script.on_command = [&](HWND, int id) {
        if (id == IDOK) ++pressed;
        return id == IDOK;
    };
    const HWND window = CreateDialogIndirectParamA(nullptr, dialog.Get(), frame_, ScriptProcedure,
                                                   script.Parameter());
    ShowWindow(window, SW_SHOW);
    PumpDialog(window);
    const auto focus = [] { return GetDlgCtrlID(GetFocus()); };
    EXPECT_EQ(100, focus());
    DialogKey(window, VK_RETURN);
    PumpDialog(window);
    EXPECT_EQ(2, GetWindowTextLengthA(GetDlgItem(window, 100)));
    DialogKey(window, VK_TAB);
    PumpDialog(window);
    EXPECT_EQ(101, focus());
    EXPECT_EQ(2, GetWindowTextLengthA(GetDlgItem(window, 100)));
    EXPECT_EQ(0, pressed);
    DialogKey(window, VK_RETURN);
    PumpDialog(window);
    EXPECT_EQ(1, pressed);
    EXPECT_EQ(0, GetWindowTextLengthA(GetDlgItem(window, 101)));
    DestroyWindow(window);
}

}  // namespace
}  // namespace tests
