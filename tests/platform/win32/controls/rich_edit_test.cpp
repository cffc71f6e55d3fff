#include <gtest/gtest.h>

#include "tests/platform/win32/controls/control_frame.h"
// The control's header needs the types of the one above.
#include <richedit.h>

#include "platform/testing/input.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Key;
using platform::testing::Type;

class RichEdits : public ControlFrame {
protected:
    void SetUp() override {
        ControlFrame::SetUp();
        library_ = LoadLibraryA("riched20.dll");
        EXPECT_NE(nullptr, library_);
    }
    void TearDown() override {
        ControlFrame::TearDown();
        FreeLibrary(library_);
    }

    void Use(DWORD style = ES_MULTILINE) {
        Make("RichEdit20A", style, 200, 60);
        Take();
    }
    void Set(const char* text) { SetWindowTextA(ctl_, text); }
    void Select(LONG from, LONG to) { Send(EM_SETSEL, static_cast<WPARAM>(from), to); }
    void Mask(LPARAM mask) { Send(EM_SETEVENTMASK, 0, mask); }
    CHARRANGE Range() {
        CHARRANGE range{};
        Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
        return range;
    }
    std::string State() override {
        const CHARRANGE range = Range();
        return "\"" + Text() + "\" " + std::to_string(range.cpMin) + ".." +
               std::to_string(range.cpMax);
    }

    HMODULE library_ = nullptr;
};

// EN_UPDATE comes whatever the mask says, when what changed is painted.
TEST_F(RichEdits, TellWhatTheirMaskAsksFor) {
    Use();
    Run({
        {"set, nothing asked", [&] { Set("abc"); }, "EN_UPDATE", "\"abc\" 0..0"},
        {"type, nothing asked",
         [&] {
             SetFocus(ctl_);
             Type("x");
         },
         "EN_SETFOCUS EN_UPDATE", "\"xabc\" 1..1"},
        {"type, change asked",
         [&] {
             Mask(ENM_CHANGE);
             Type("y");
         },
         "EN_CHANGE EN_UPDATE", "\"xyabc\" 2..2"},
        {"set, change asked", [&] { Set("def"); }, "EN_CHANGE EN_UPDATE", "\"def\" 0..0"},
        {"type, selection asked",
         [&] {
             Mask(ENM_CHANGE | ENM_SELCHANGE);
             Type("z");
         },
         "EN_SELCHANGE(1..1) EN_CHANGE EN_UPDATE", "\"zdef\" 1..1"},
        {"select", [&] { Select(0, 2); }, "EN_SELCHANGE(0..2) EN_UPDATE", "\"zdef\" 0..2"},
        {"set, selection asked", [&] { Set("ghi"); }, "EN_SELCHANGE(0..0) EN_CHANGE EN_UPDATE",
         "\"ghi\" 0..0"},
        {"replace at the end",
         [&] {
             Select(-1, -1);
             Send(EM_REPLACESEL, TRUE, "q\r\n");
         },
         "EN_SELCHANGE(3..3) EN_SELCHANGE(5..5) EN_CHANGE EN_UPDATE", "\"ghiq\r\n\" 5..5"},
    });
}

TEST_F(RichEdits, CountOneCharacterALineEnd) {
    Use();
    Run({
        {"pairs", [&] { Set("a\r\nb\r\n"); }, "EN_UPDATE", "\"a\r\nb\r\n\" 0..0"},
        {"single ones", [&] { Set("a\nb\rc"); }, "EN_UPDATE", "\"a\r\nb\r\nc\" 0..0"},
        {"all, the last line end too", [&] { Select(0, -1); }, "EN_UPDATE", "\"a\r\nb\r\nc\" 0..6"},
    });
    char selected[16];
    EXPECT_EQ(5, Send(EM_GETSELTEXT, 0, selected));
    Set("中文ab");
    Select(1, 2);
    EXPECT_EQ(2, Send(EM_GETSELTEXT, 0, selected));
    EXPECT_GBK_EQ("文", selected);
    CHARRANGE all{0, -1};
    Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&all));
    EXPECT_EQ(0, Range().cpMin);
    EXPECT_EQ(5, Range().cpMax);
}

TEST_F(RichEdits, HoldReportsOfAnyLength) {
    Use(ES_MULTILINE | ES_READONLY | WS_VSCROLL);
    EXPECT_EQ(32767, Send(EM_GETLIMITTEXT));
    Send(EM_EXLIMITTEXT, 0, 0x100000);
    EXPECT_EQ(0x100000, Send(EM_GETLIMITTEXT));
    std::string report;
    for (int line = 0; line < 9000; ++line) report += "结算 Au99.99\r\n";
    Set(report.c_str());
    EXPECT_EQ(report.size(), Text().size());
    EXPECT_EQ(9001, Send(EM_GETLINECOUNT));
    SetFocus(ctl_);
    Type("x");
    Key(VK_DELETE);
    EXPECT_EQ(report.size(), Text().size());
}

TEST_F(RichEdits, TheLimitBindsTypingAndNotSetting) {
    Use();
    Set("ab");
    Send(EM_EXLIMITTEXT, 0, 4);
    SetFocus(ctl_);
    Select(-1, -1);
    Select(2, 2);
    Type("cde");
    EXPECT_EQ("abcd", Text());
    Set("123456");
    EXPECT_EQ("123456", Text());
}

TEST_F(RichEdits, KeepAGroundOfTheirOwn) {
    Use();
    Show({WM_CTLCOLOREDIT, WM_CTLCOLORSTATIC});
    EXPECT_EQ(0xFFFFFF, Send(EM_SETBKGNDCOLOR, 0, RGB(255, 255, 240)));
    EXPECT_EQ(0xF0FFFF, Send(EM_SETBKGNDCOLOR, 0, RGB(255, 255, 240)));
    EXPECT_EQ("", Take());
    const HDC dc = GetDC(ctl_);
    EXPECT_EQ(RGB(255, 255, 240), GetPixel(dc, 150, 40));
    ReleaseDC(ctl_, dc);
    EXPECT_EQ(0xF0FFFF, Send(EM_SETBKGNDCOLOR, 1, LPARAM{0}));
}

}  // namespace
}  // namespace tests
