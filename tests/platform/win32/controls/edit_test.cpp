#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/platform/win32/controls/control_frame.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Key;
using platform::testing::Modifier;
using platform::testing::Type;

class Edits : public ControlFrame {
protected:
    void Use(DWORD style, int width = 100, const char* text = "") {
        Make("Edit", style, width, 24, text);
        Take();
    }
    void Set(const char* text) { SetWindowTextA(ctl_, text); }
    void Select(LONG from, LONG to) { Send(EM_SETSEL, static_cast<WPARAM>(from), to); }
    std::string State() override {
        DWORD from = 0;
        DWORD to = 0;
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        return "\"" + Text() + "\" " + std::to_string(from) + ".." + std::to_string(to);
    }
};

TEST_F(Edits, TellOfTextsThatAreSet) {
    Use(ES_AUTOHSCROLL);
    Run({
        {"set", [&] { Set("hello"); }, "UPD+CHG", "\"hello\" 0..0"},
        {"the same", [&] { Set("hello"); }, "UPD+CHG", "\"hello\" 0..0"},
        {"empty", [&] { Set(""); }, "UPD+CHG", "\"\" 0..0"},
        {"empty again", [&] { Set(""); }, "UPD+CHG", "\"\" 0..0"},
        {"line end", [&] { Set("a\r\nb"); }, "UPD+CHG", "\"a\r\nb\" 0..0"},
    });
}

TEST_F(Edits, SelectAndReplace) {
    Use(ES_AUTOHSCROLL, 100, "hello");
    Run({
        {"part", [&] { Select(1, 3); }, "", "\"hello\" 1..3"},
        {"reversed", [&] { Select(3, 1); }, "", "\"hello\" 1..3"},
        {"all", [&] { Select(0, -1); }, "", "\"hello\" 0..5"},
        {"none", [&] { Select(-1, 0); }, "", "\"hello\" 5..5"},
        {"beyond the end", [&] { Select(2, 99); }, "", "\"hello\" 2..5"},
        {"replace", [&] { Send(EM_REPLACESEL, TRUE, "XY"); }, "UPD+CHG", "\"heXY\" 4..4"},
        {"a new text",
         [&] {
             Select(1, 3);
             Set("world");
         },
         "UPD+CHG", "\"world\" 0..0"},
        {"focus by call keeps it",
         [&] {
             Select(1, 3);
             SetFocus(ctl_);
         },
         "EN_SETFOCUS", "\"world\" 1..3"},
    });
}

TEST_F(Edits, TypingMovingAndErasing) {
    Use(ES_AUTOHSCROLL, 100, "world");
    SetFocus(ctl_);
    Select(1, 3);
    Run({
        {"over a selection", [&] { Type("x"); }, "UPD+CHG", "\"wxld\" 2..2"},
        {"a digit", [&] { Type("1"); }, "UPD+CHG", "\"wx1ld\" 3..3"},
        {"backspace", [&] { Key(VK_BACK); }, "UPD+CHG", "\"wxld\" 2..2"},
        {"home, delete",
         [&] {
             Key(VK_HOME);
             Key(VK_DELETE);
         },
         "UPD+CHG", "\"xld\" 0..0"},
        {"backspace at the start", [&] { Key(VK_BACK); }, "", "\"xld\" 0..0"},
        {"delete at the end",
         [&] {
             Key(VK_END);
             Key(VK_DELETE);
         },
         "", "\"xld\" 3..3"},
        {"shift and left",
         [&] {
             Key(VK_LEFT, Modifier::kShift);
             Key(VK_LEFT, Modifier::kShift);
         },
         "", "\"xld\" 1..3"},
        {"left", [&] { Key(VK_LEFT); }, "", "\"xld\" 0..0"},
        {"shift and end", [&] { Key(VK_END, Modifier::kShift); }, "", "\"xld\" 0..3"},
        {"delete all", [&] { Key(VK_DELETE); }, "UPD+CHG", "\"\" 0..0"},
        {"type", [&] { Type("abc"); }, "UPD+CHG UPD+CHG UPD+CHG", "\"abc\" 3..3"},
        {"up is left", [&] { Key(VK_UP); }, "", "\"abc\" 2..2"},
        {"down is right", [&] { Key(VK_DOWN); }, "", "\"abc\" 3..3"},
        {"enter, tab, escape",
         [&] {
             Key(VK_RETURN);
             Key(VK_TAB);
             Key(VK_ESCAPE);
         },
         "", "\"abc\" 3..3"},
    });
}

TEST_F(Edits, ChineseCharactersAreOneStep) {
    Use(ES_AUTOHSCROLL);
    SetFocus(ctl_);
    Run({
        {"type", [&] { Type("中"); }, "UPD+CHG", "\"中\" 1..1"},
        {"backspace", [&] { Key(VK_BACK); }, "UPD+CHG", "\"\" 0..0"},
        {"set and select",
         [&] {
             Set("中文ab");
             Select(1, 2);
         },
         "UPD+CHG", "\"中文ab\" 1..2"},
        {"type over it", [&] { Type("字"); }, "UPD+CHG", "\"中字ab\" 2..2"},
        {"left over it", [&] { Key(VK_LEFT); }, "", "\"中字ab\" 1..1"},
    });
    EXPECT_EQ(6, Send(WM_GETTEXTLENGTH));
    EXPECT_EQ(4, Send(EM_LINELENGTH));
    char text[5];
    EXPECT_EQ(4, GetWindowTextA(ctl_, text, sizeof text));
    EXPECT_GBK_EQ("中字", text);
}

TEST_F(Edits, TheLimitBindsTypingAndNotSetting) {
    Use(ES_AUTOHSCROLL);
    EXPECT_EQ(30000, Send(EM_GETLIMITTEXT));
    Send(EM_LIMITTEXT, 3);
    SetFocus(ctl_);
    Run({
        {"set more", [&] { Set("hello"); }, "UPD+CHG", "\"hello\" 0..0"},
        {"replace most of it",
         [&] {
             Select(0, 4);
             Send(EM_REPLACESEL, TRUE, "abc");
         },
         "EN_MAXTEXT UPD+CHG", "\"abo\" 2..2"},
        {"type to the limit",
         [&] {
             Set("ab");
             Select(2, 2);
             Type("c");
         },
         "UPD+CHG UPD+CHG", "\"abc\" 3..3"},
        {"over a selected one",
         [&] {
             Select(0, 1);
             Type("e");
         },
         "UPD+CHG", "\"ebc\" 1..1"},
    });
    Type("z");
    EXPECT_EQ("\"ebc\" 1..1", State());
    Send(EM_LIMITTEXT, 0);
    EXPECT_EQ(2147483646, Send(EM_GETLIMITTEXT));
}

TEST_F(Edits, WithoutScrollingTakeWhatFitsTheirWidth) {
    Use(0, 60);
    SetFocus(ctl_);
    Type("wwwwwwwwwwwwwww");
    const std::string typed = Text();
    EXPECT_GT(typed.size(), 3u);
    EXPECT_LT(typed.size(), 12u);
    Set("wwwwwwwwwwwwwww");
    EXPECT_EQ(15u, Text().size());
}

TEST_F(Edits, KeepToTheirStyle) {
    Use(ES_AUTOHSCROLL | ES_READONLY, 100, "ro");
    SetFocus(ctl_);
    Take();
    Run({
        {"read-only: keys",
         [&] {
             Type("a");
             Key(VK_BACK);
             Key(VK_DELETE);
         },
         "", "\"ro\" 0..0"},
        {"read-only: calls",
         [&] {
             Set("ret");
             Send(EM_REPLACESEL, TRUE, "F");
         },
         "UPD+CHG UPD+CHG", "\"Fret\" 1..1"},
        {"no longer",
         [&] {
             Send(EM_SETREADONLY, FALSE);
             Type("a");
         },
         "UPD+CHG", "\"Faret\" 2..2"},
    });
    Use(ES_AUTOHSCROLL | ES_NUMBER);
    SetFocus(ctl_);
    Run({
        {"number: keys", [&] { Type("a1.2"); }, "UPD+CHG UPD+CHG", "\"12\" 2..2"},
        {"number: call", [&] { Set("ab"); }, "UPD+CHG", "\"ab\" 0..0"},
    });
    Use(ES_AUTOHSCROLL | ES_UPPERCASE);
    SetFocus(ctl_);
    Run({
        {"upper case: key", [&] { Type("a"); }, "UPD+CHG", "\"A\" 1..1"},
        {"upper case: call", [&] { Set("bc"); }, "UPD+CHG", "\"BC\" 0..0"},
    });
    Use(ES_AUTOHSCROLL | WS_DISABLED);
    Run({{"disabled: call", [&] { Set("x"); }, "UPD+CHG", "\"x\" 0..0"}});
}

TEST_F(Edits, PasswordsAreTextsThatDoNotShow) {
    Use(ES_AUTOHSCROLL | ES_PASSWORD);
    Set("secret");
    EXPECT_EQ("secret", Text());
    EXPECT_EQ('*', Send(EM_GETPASSWORDCHAR));
    Send(EM_SETPASSWORDCHAR, 0);
    EXPECT_EQ(0, Send(EM_GETPASSWORDCHAR));
    EXPECT_EQ(0, GetWindowLongA(ctl_, GWL_STYLE) & ES_PASSWORD);
}

TEST_F(Edits, KnowWhetherTheyWereChangedByHand) {
    Use(ES_AUTOHSCROLL);
    EXPECT_EQ(0, Send(EM_GETMODIFY));
    Set("a");
    EXPECT_EQ(0, Send(EM_GETMODIFY));
    SetFocus(ctl_);
    Type("q");
    EXPECT_EQ(1, Send(EM_GETMODIFY));
    Select(0, 0);
    EXPECT_EQ(1, Send(EM_UNDO));
    EXPECT_EQ("a", Text());
}

TEST_F(Edits, TheMouseSelects) {
    Use(ES_AUTOHSCROLL, 200, "one two");
    Run({
        {"click", [&] { ClickOnce(4, 12); }, "EN_SETFOCUS", "\"one two\" 0..0"},
        {"double click",
         [&] {
             EndClickSequence();
             platform::testing::DoubleClick(ctl_, 5, 12);
         },
         "", "\"one two\" 0..4"},
        {"drag",
         [&] {
             EndClickSequence();
             platform::testing::Drag(platform::testing::ScreenPoint(ctl_, 3, 12),
                                     platform::testing::ScreenPoint(ctl_, 190, 12));
         },
         "", "\"one two\" 0..7"},
        {"focus away", [&] { FocusElsewhere(); }, "EN_KILLFOCUS", "\"one two\" 0..7"},
    });
}

TEST_F(Edits, CutCopyAndPaste) {
    Use(ES_AUTOHSCROLL, 200, "中文 text");
    SetFocus(ctl_);
    Take();
    Run({
        {"copy",
         [&] {
             Select(0, 2);
             Send(WM_COPY);
         },
         "", "\"中文 text\" 0..2"},
        {"paste by key",
         [&] {
             Key(VK_END);
             Key('V', Modifier::kControl);
         },
         "UPD+CHG", "\"中文 text中文\" 9..9"},
        {"cut by key",
         [&] {
             Select(2, 7);
             Key('X', Modifier::kControl);
         },
         "UPD+CHG", "\"中文中文\" 2..2"},
        {"paste over all",
         [&] {
             Key('A', Modifier::kControl);
             Key(VK_INSERT, Modifier::kShift);
         },
         "UPD+CHG", "\" text\" 5..5"},
        {"undo by key", [&] { Key('Z', Modifier::kControl); }, "UPD+CHG", "\"中文中文\" 0..4"},
    });
    Use(ES_AUTOHSCROLL | ES_PASSWORD, 200, "secret");
    Select(0, -1);
    Send(WM_COPY);
    Use(ES_AUTOHSCROLL, 200, "");
    Send(WM_PASTE);
    EXPECT_EQ(" text", Text());
    Use(ES_AUTOHSCROLL | ES_NUMBER, 200, "");
    Send(WM_PASTE);
    EXPECT_EQ("", Text());
}

TEST_F(Edits, AskTheirParentForColours) {
    Use(ES_AUTOHSCROLL);
    Show({WM_CTLCOLOREDIT, WM_CTLCOLORSTATIC});
    Run({
        {"invalid", [&] { InvalidateRect(ctl_, nullptr, TRUE); }, "CTLCOLOREDIT", "\"\" 0..0"},
        {"new text", [&] { Set("new"); }, "UPD+CHG CTLCOLOREDIT", "\"new\" 0..0"},
        {"disabled", [&] { EnableWindow(ctl_, FALSE); }, "CTLCOLORSTATIC", "\"new\" 0..0"},
        {"enabled", [&] { EnableWindow(ctl_, TRUE); }, "CTLCOLOREDIT", "\"new\" 0..0"},
        {"read-only",
         [&] {
             Send(EM_SETREADONLY, TRUE);
             InvalidateRect(ctl_, nullptr, TRUE);
         },
         "CTLCOLORSTATIC", "\"new\" 0..0"},
    });
}

TEST_F(Edits, AnswerWhichKeysTheyWant) {
    const struct {
        DWORD style;
        LRESULT code;
    } kCases[] = {
        {0, 0x89}, {ES_MULTILINE, 0x8D}, {ES_MULTILINE | ES_WANTRETURN, 0x8D}, {ES_READONLY, 0x89}};
    for (const auto& one : kCases) {
        Use(one.style);
        EXPECT_EQ(one.code, Send(WM_GETDLGCODE));
    }
}

// A page may destroy the edit that tells it something.
TEST_F(Edits, MayGoWhileTheyTell) {
    handler_ = [&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
        const bool told = message == WM_COMMAND && HIWORD(wParam) != EN_SETFOCUS;
        if (told && reinterpret_cast<HWND>(lParam) == ctl_) DestroyWindow(ctl_);
        return told;
    };
    for (const DWORD style : {DWORD{ES_AUTOHSCROLL}, DWORD{ES_MULTILINE}}) {
        Use(style, 100, "abc");
        SetFocus(ctl_);
        Type("x");
        EXPECT_FALSE(IsWindow(ctl_));
    }
}

}  // namespace
}  // namespace tests
