#include <gtest/gtest.h>

#include "platform/testing/input.h"
#include "tests/platform/win32/controls/control_frame.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Key;
using platform::testing::Modifier;
using platform::testing::Type;

class ComboBoxes : public ControlFrame {
protected:
    void Use(DWORD style) {
        Make("ComboBox", style | WS_VSCROLL, 120, 150);
        for (const char* const text : {"Au(T+D)", "Ag(T+D)", "mAu(T+D)", "Au99.99"}) {
            Send(CB_ADDSTRING, 0, text);
        }
        Take();
    }
    std::string State() override {
        std::string state = std::to_string(Send(CB_GETCURSEL)) + " \"" + Text() + "\"";
        const LRESULT selection = Send(CB_GETEDITSEL);
        if (selection != CB_ERR) {
            state +=
                " " + std::to_string(LOWORD(selection)) + ".." + std::to_string(HIWORD(selection));
        }
        return state + (Send(CB_GETDROPPEDSTATE) != 0 ? " open" : "");
    }
    LRESULT Select(int index) { return Send(CB_SETCURSEL, static_cast<WPARAM>(index)); }
    int FieldHeight() {
        RECT client{};
        GetClientRect(ctl_, &client);
        return client.bottom;
    }
    void ClickArrow() { platform::testing::Click(ctl_, 110, FieldHeight() / 2); }
    void ClickRow(int row) {
        const auto height = static_cast<int>(Send(CB_GETITEMHEIGHT));
        platform::testing::Click(ctl_, 20, FieldHeight() + 1 + row * height + height / 2);
    }
};

TEST_F(ComboBoxes, EmptyOnesHaveNothing) {
    Make("ComboBox", CBS_DROPDOWNLIST, 120, 150);
    char text[4] = "x";
    EXPECT_EQ(0, Send(CB_GETCOUNT));
    EXPECT_EQ(CB_ERR, Send(CB_GETCURSEL));
    EXPECT_EQ(CB_ERR, Select(0));
    EXPECT_EQ(CB_ERR, Send(CB_GETLBTEXT, 0, text));
    EXPECT_EQ(CB_ERR, Send(CB_GETLBTEXTLEN, 0));
    EXPECT_EQ(CB_ERR, Send(CB_GETITEMDATA, 0));
    EXPECT_EQ(CB_ERR, Send(CB_DELETESTRING, 0));
    EXPECT_EQ(CB_ERR, Send(CB_SETEDITSEL, 0, MAKELPARAM(0, 1)));
    EXPECT_EQ("-1 \"\"", State());
}

TEST_F(ComboBoxes, SelectByCall) {
    Use(CBS_DROPDOWNLIST);
    Run({
        {"nothing at first", [] {}, "", "-1 \"\""},
        {"one", [&] { EXPECT_EQ(1, Select(1)); }, "", "1 \"Ag(T+D)\""},
        {"out of range clears", [&] { EXPECT_EQ(CB_ERR, Select(99)); }, "", "-1 \"\""},
        {"clear",
         [&] {
             Select(2);
             EXPECT_EQ(CB_ERR, Select(-1));
         },
         "", "-1 \"\""},
        {"by text", [&] { EXPECT_EQ(2, Send(CB_SELECTSTRING, static_cast<WPARAM>(-1), "mAu")); },
         "", "2 \"mAu(T+D)\""},
        {"by a missing text",
         [&] { EXPECT_EQ(CB_ERR, Send(CB_SELECTSTRING, static_cast<WPARAM>(-1), "zz")); }, "",
         "2 \"mAu(T+D)\""},
        {"insert before", [&] { EXPECT_EQ(0, Send(CB_INSERTSTRING, 0, "new")); }, "",
         "3 \"mAu(T+D)\""},
        {"insert at the end and behind it",
         [&] {
             EXPECT_EQ(5, Send(CB_INSERTSTRING, static_cast<WPARAM>(-1), "end"));
             EXPECT_EQ(CB_ERR, Send(CB_INSERTSTRING, 99, "x"));
         },
         "", "3 \"mAu(T+D)\""},
        {"delete before", [&] { EXPECT_EQ(5, Send(CB_DELETESTRING, 0)); }, "", "2 \"mAu(T+D)\""},
        {"delete it", [&] { EXPECT_EQ(4, Send(CB_DELETESTRING, 2)); }, "", "-1 \"\""},
        {"a text of its own",
         [&] {
             Select(0);
             SetWindowTextA(ctl_, "free");
         },
         "", "0 \"Au(T+D)\""},
        {"reset", [&] { Send(CB_RESETCONTENT); }, "", "-1 \"\""},
    });
}

TEST_F(ComboBoxes, FindAndKeepData) {
    Use(CBS_DROPDOWNLIST);
    EXPECT_EQ(3, Send(CB_FINDSTRING, 0, "au"));
    EXPECT_EQ(0, Send(CB_FINDSTRING, 3, "au"));
    EXPECT_EQ(1, Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "ag(t+d)"));
    EXPECT_EQ(CB_ERR, Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), "ag"));
    EXPECT_EQ(0, Send(CB_GETITEMDATA, 0));
    EXPECT_NE(CB_ERR, Send(CB_SETITEMDATA, 0, 5));
    EXPECT_EQ(5, Send(CB_GETITEMDATA, 0));
    EXPECT_EQ(CB_ERR, Send(CB_SETITEMDATA, 99, 5));
    EXPECT_EQ(7, Send(CB_GETLBTEXTLEN, 0));
    char text[16];
    EXPECT_EQ(7, Send(CB_GETLBTEXT, 0, text));
    EXPECT_STREQ("Au(T+D)", text);
    EXPECT_EQ(CB_ERR, Send(CB_GETLBTEXT, 99, text));
}

// The height that a program gives is that of field and list together.
TEST_F(ComboBoxes, KeepTheHeightOfTheirField) {
    Use(CBS_DROPDOWNLIST);
    const int field = FieldHeight();
    EXPECT_LT(field, 40);
    MoveWindow(ctl_, 10, 10, 140, 200, TRUE);
    RECT client{};
    GetClientRect(ctl_, &client);
    EXPECT_EQ(140, client.right);
    EXPECT_EQ(field, client.bottom);
    RECT dropped{};
    Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    EXPECT_EQ(200, dropped.bottom - dropped.top);
}

TEST_F(ComboBoxes, ListsTellOfKeys) {
    Use(CBS_DROPDOWNLIST);
    Select(0);
    Run({
        {"focus", [&] { SetFocus(ctl_); }, "CBN_SETFOCUS", "0 \"Au(T+D)\""},
        {"down", [&] { Key(VK_DOWN); }, "CBN_SELENDOK CBN_SELCHANGE", "1 \"Ag(T+D)\""},
        {"up, up at the top",
         [&] {
             Key(VK_UP);
             Key(VK_UP);
         },
         "CBN_SELENDOK CBN_SELCHANGE CBN_SELENDOK CBN_SELCHANGE", "0 \"Au(T+D)\""},
        {"end", [&] { Key(VK_END); }, "CBN_SELENDOK CBN_SELCHANGE", "3 \"Au99.99\""},
        {"home", [&] { Key(VK_HOME); }, "CBN_SELENDOK CBN_SELCHANGE", "0 \"Au(T+D)\""},
        {"page down", [&] { Key(VK_NEXT); }, "CBN_SELENDOK CBN_SELCHANGE", "3 \"Au99.99\""},
        {"a letter", [&] { Type("m"); }, "CBN_SELENDOK CBN_SELCHANGE", "2 \"mAu(T+D)\""},
        {"F4", [&] { Key(VK_F4); }, "CBN_DROPDOWN", "2 \"mAu(T+D)\" open"},
        {"up in the list", [&] { Key(VK_UP); }, "CBN_SELCHANGE", "1 \"Ag(T+D)\" open"},
        {"enter", [&] { Key(VK_RETURN); }, "CBN_SELENDOK CBN_CLOSEUP", "1 \"Ag(T+D)\""},
        {"F4, F4",
         [&] {
             Key(VK_F4);
             Key(VK_F4);
         },
         "CBN_DROPDOWN CBN_SELENDCANCEL CBN_CLOSEUP", "1 \"Ag(T+D)\""},
        {"F4, escape",
         [&] {
             Key(VK_F4);
             Key(VK_ESCAPE);
         },
         "CBN_DROPDOWN CBN_SELENDCANCEL CBN_CLOSEUP", "1 \"Ag(T+D)\""},
        {"alt and down, focus away",
         [&] {
             Key(VK_DOWN, Modifier::kAlt);
             FocusElsewhere();
         },
         "CBN_DROPDOWN CBN_SELENDCANCEL CBN_CLOSEUP CBN_KILLFOCUS", "1 \"Ag(T+D)\""},
    });
}

TEST_F(ComboBoxes, ListsTellOfTheMouse) {
    Use(CBS_DROPDOWNLIST);
    Select(3);
    Run({
        {"arrow", [&] { ClickArrow(); }, "CBN_SETFOCUS CBN_DROPDOWN", "3 \"Au99.99\" open"},
        {"second row", [&] { ClickRow(1); }, "CBN_SELENDOK CBN_CLOSEUP CBN_SELCHANGE",
         "1 \"Ag(T+D)\""},
        {"arrow, the same row",
         [&] {
             ClickArrow();
             ClickRow(1);
         },
         "CBN_DROPDOWN CBN_SELENDOK CBN_CLOSEUP CBN_SELCHANGE", "1 \"Ag(T+D)\""},
        {"arrow, arrow",
         [&] {
             ClickArrow();
             ClickArrow();
         },
         "CBN_DROPDOWN CBN_SELENDCANCEL CBN_CLOSEUP", "1 \"Ag(T+D)\""},
        {"arrow, elsewhere",
         [&] {
             ClickArrow();
             platform::testing::Click(frame_, 400, 300);
         },
         "CBN_DROPDOWN CBN_SELENDCANCEL CBN_CLOSEUP", "1 \"Ag(T+D)\""},
        {"field", [&] { platform::testing::Click(ctl_, 20, FieldHeight() / 2); }, "CBN_DROPDOWN",
         "1 \"Ag(T+D)\" open"},
        {"reset while open", [&] { Send(CB_RESETCONTENT); }, "CBN_SELENDCANCEL CBN_CLOSEUP",
         "-1 \"\""},
        {"focus away", [&] { FocusElsewhere(); }, "CBN_SELENDCANCEL CBN_KILLFOCUS", "-1 \"\""},
    });
}

TEST_F(ComboBoxes, OpenAndCloseByCall) {
    Use(CBS_DROPDOWNLIST);
    SetFocus(ctl_);
    Run({
        {"open", [&] { Send(CB_SHOWDROPDOWN, TRUE); }, "CBN_DROPDOWN", "-1 \"\" open"},
        {"select", [&] { Select(2); }, "", "2 \"mAu(T+D)\" open"},
        {"close", [&] { Send(CB_SHOWDROPDOWN, FALSE); }, "CBN_SELENDCANCEL CBN_CLOSEUP",
         "2 \"mAu(T+D)\""},
    });
}

TEST_F(ComboBoxes, EditableOnesHaveATextOfTheirOwn) {
    Use(CBS_DROPDOWN | CBS_AUTOHSCROLL);
    Run({
        {"select", [&] { Select(1); }, "", "1 \"Ag(T+D)\" 0..0"},
        {"part", [&] { Send(CB_SETEDITSEL, 0, MAKELPARAM(1, 3)); }, "", "1 \"Ag(T+D)\" 1..3"},
        {"all", [&] { Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1)); }, "", "1 \"Ag(T+D)\" 0..7"},
        {"none", [&] { Send(CB_SETEDITSEL, 0, MAKELPARAM(-1, 0)); }, "", "1 \"Ag(T+D)\" 7..7"},
        {"set text", [&] { SetWindowTextA(ctl_, "free"); }, "", "1 \"free\" 0..0"},
        {"limit",
         [&] {
             Send(CB_LIMITTEXT, 3);
             SetWindowTextA(ctl_, "abcdef");
         },
         "", "1 \"abcdef\" 0..0"},
        {"delete the selected",
         [&] {
             Select(2);
             Send(CB_DELETESTRING, 2);
         },
         "", "-1 \"mAu(T+D)\" 0..0"},
        {"reset", [&] { Send(CB_RESETCONTENT); }, "", "-1 \"\" 0..0"},
    });
}

TEST_F(ComboBoxes, EditableOnesTellOfTyping) {
    Use(CBS_DROPDOWN | CBS_AUTOHSCROLL);
    Select(0);
    Run({
        {"focus", [&] { SetFocus(ctl_); }, "CBN_SETFOCUS", "0 \"Au(T+D)\" 0..7"},
        {"down", [&] { Key(VK_DOWN); }, "CBN_SELENDOK CBN_SELCHANGE", "1 \"Ag(T+D)\" 0..7"},
        {"home and end are the edit's",
         [&] {
             Key(VK_HOME);
             Key(VK_END);
         },
         "", "1 \"Ag(T+D)\" 7..7"},
        {"type",
         [&] {
             Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
             Type("m");
         },
         "CBN_EDITUPDATE CBN_EDITCHANGE", "-1 \"m\" 1..1"},
        {"down finds what it begins", [&] { Key(VK_DOWN); }, "CBN_SELENDOK CBN_SELCHANGE",
         "2 \"mAu(T+D)\" 0..8"},
        {"F4, up, enter",
         [&] {
             Key(VK_F4);
             Key(VK_UP);
             Key(VK_RETURN);
         },
         "CBN_DROPDOWN CBN_SELCHANGE CBN_SELENDOK CBN_CLOSEUP", "1 \"Ag(T+D)\" 0..7"},
        {"focus again", [&] { SetFocus(ctl_); }, "", "1 \"Ag(T+D)\" 0..7"},
        {"focus away", [&] { FocusElsewhere(); }, "CBN_SELENDCANCEL CBN_KILLFOCUS",
         "1 \"Ag(T+D)\" 0..7"},
        {"arrow", [&] { ClickArrow(); }, "CBN_SETFOCUS CBN_DROPDOWN", "1 \"Ag(T+D)\" 0..7 open"},
        {"first row", [&] { ClickRow(0); }, "CBN_SELENDOK CBN_CLOSEUP CBN_SELCHANGE",
         "0 \"Au(T+D)\" 0..7"},
    });
}

TEST_F(ComboBoxes, DropAsManyRowsAsTheirHeightHolds) {
    Use(CBS_DROPDOWNLIST);
    const auto row = static_cast<int>(Send(CB_GETITEMHEIGHT));
    for (int more = 0; more < 20; ++more) Send(CB_ADDSTRING, 0, "more");
    MoveWindow(ctl_, 10, 10, 120, FieldHeight() + 4 * row + 2, TRUE);
    SetFocus(ctl_);
    Select(0);
    Key(VK_NEXT);
    EXPECT_EQ(3, Send(CB_GETCURSEL));
}

TEST_F(ComboBoxes, PassColourQuestionsOn) {
    Use(CBS_DROPDOWN);
    std::vector<HWND> asked;
    handler_ = [&](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        if (message == WM_CTLCOLOREDIT) asked.push_back(reinterpret_cast<HWND>(lParam));
        return false;
    };
    RedrawWindow(ctl_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    Take();
    EXPECT_EQ((std::vector<HWND>{ctl_, GetWindow(ctl_, GW_CHILD)}), asked);
}

TEST_F(ComboBoxes, MayGoWhileTheyTell) {
    handler_ = [&](UINT message, WPARAM wParam, LPARAM, LRESULT&) {
        const bool told = message == WM_COMMAND && HIWORD(wParam) == CBN_DROPDOWN;
        if (told) DestroyWindow(ctl_);
        return told;
    };
    for (const DWORD style : {DWORD{CBS_DROPDOWNLIST}, DWORD{CBS_DROPDOWN}}) {
        Use(style);
        ClickArrow();
        EXPECT_FALSE(IsWindow(ctl_));
        Use(style);
        SetFocus(ctl_);
        Key(VK_F4);
        EXPECT_FALSE(IsWindow(ctl_));
    }
}

}  // namespace
}  // namespace tests
