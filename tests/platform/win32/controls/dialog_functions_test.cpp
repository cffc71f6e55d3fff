#include <gtest/gtest.h>

#include "tests/platform/win32/controls/test_dialog.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

class DialogFunctions : public ::testing::Test {
protected:
    void SetUp() override { Create(PlainTemplate()); }
    void TearDown() override { DestroyWindow(dialog_); }

    void Create(const Template& from) {
        if (dialog_ != nullptr) DestroyWindow(dialog_);
        dialog_ = CreateDialogIndirectParamA(nullptr, from.Get(), nullptr, ScriptProcedure,
                                             script_.Parameter());
        ASSERT_NE(nullptr, dialog_);
    }

    HWND Item(int id) { return GetDlgItem(dialog_, id); }

    DialogScript script_;
    HWND dialog_ = nullptr;
};

TEST_F(DialogFunctions, ItemTextsAreBounded) {
    EXPECT_TRUE(SetDlgItemTextA(dialog_, 100, "中文ab"));
    char text[9];
    EXPECT_EQ(6u, GetDlgItemTextA(dialog_, 100, text, sizeof text));
    EXPECT_GBK_EQ("中文ab", text);
    EXPECT_EQ(4u, GetDlgItemTextA(dialog_, 100, text, 5));
    EXPECT_GBK_EQ("中文", text);
}

TEST_F(DialogFunctions, MissingItemsFail) {
    char text[9] = "before";
    EXPECT_EQ(0u, GetDlgItemTextA(dialog_, 999, text, sizeof text));
    EXPECT_STREQ("", text);
    SetLastError(0);
    EXPECT_FALSE(SetDlgItemTextA(dialog_, 999, "x"));
    EXPECT_EQ(ERROR_CONTROL_ID_NOT_FOUND, GetLastError());
    EXPECT_EQ(0u, IsDlgButtonChecked(dialog_, 999));
    EXPECT_EQ(0, SendDlgItemMessageA(dialog_, 999, WM_GETTEXTLENGTH, 0, 0));
}

TEST_F(DialogFunctions, NextTabItemGoesRound) {
    const struct {
        int from;
        BOOL previous;
        int expected;
    } kCases[] = {
        {0, FALSE, 100}, {100, FALSE, 101}, {100, TRUE, 102}, {102, FALSE, 100}, {IDOK, TRUE, 101}};
    for (const auto& one : kCases) {
        const HWND from = one.from != 0 ? Item(one.from) : nullptr;
        EXPECT_EQ(Item(one.expected), GetNextDlgTabItem(dialog_, from, one.previous))
            << "from " << one.from;
    }
}

TEST_F(DialogFunctions, GroupsEndWhereTheNextBegins) {
    constexpr DWORD kSeen = WS_VISIBLE;
    Create(Template(kTestDialogStyle, {{"Button", 10, "", kSeen | WS_GROUP, 0, 0, 10, 10},
                                       {"Button", 11, "", kSeen, 0, 10, 10, 10},
                                       {"Button", 12, "", kSeen | WS_DISABLED, 0, 20, 10, 10},
                                       {"Button", 13, "", kSeen | WS_GROUP, 0, 30, 10, 10},
                                       {"Button", 14, "", kSeen, 0, 40, 10, 10}}));
    const struct {
        int from;
        BOOL previous;
        int expected;
    } kCases[] = {{10, FALSE, 11}, {11, FALSE, 10}, {10, TRUE, 11}, {13, FALSE, 14},
                  {14, FALSE, 13}, {13, TRUE, 14},  {12, FALSE, 10}};
    for (const auto& one : kCases) {
        EXPECT_EQ(Item(one.expected), GetNextDlgGroupItem(dialog_, Item(one.from), one.previous))
            << "from " << one.from << " previous " << one.previous;
    }
}

TEST_F(DialogFunctions, DialogsGetTheStylesOfTheirKind) {
    const auto style = static_cast<DWORD>(GetWindowLongA(dialog_, GWL_STYLE));
    const auto ex_style = static_cast<DWORD>(GetWindowLongA(dialog_, GWL_EXSTYLE));
    EXPECT_EQ(0x84C800C4u, style);
    EXPECT_EQ(0x10101u, ex_style);
}

TEST_F(DialogFunctions, UnitsOfTheDialogFontAreSixByTwelve) {
    const struct {
        int units;
        int x;
        int y;
    } kCases[] = {{4, 6, 0}, {8, 12, 12}, {10, 15, 15}, {1, 2, 2}, {3, 5, 5}, {100, 150, 150}};
    for (const auto& one : kCases) {
        RECT rect{0, 0, one.units, one.units};
        EXPECT_TRUE(MapDialogRect(dialog_, &rect));
        EXPECT_EQ(one.x, rect.right) << one.units;
        if (one.y != 0) {
            EXPECT_EQ(one.y, rect.bottom) << one.units;
        }
    }
    RECT client;
    GetClientRect(dialog_, &client);
    EXPECT_EQ(270, client.right);
    EXPECT_EQ(150, client.bottom);
    LOGFONTA font{};
    GetObjectA(reinterpret_cast<HANDLE>(SendMessageA(Item(100), WM_GETFONT, 0, 0)), sizeof font,
               &font);
    EXPECT_EQ(-12, font.lfHeight);
    EXPECT_EQ(DEFAULT_CHARSET, font.lfCharSet);
}

TEST_F(DialogFunctions, GroundIsTheFaceColour) {
    const HDC dc = GetDC(dialog_);
    const struct {
        UINT message;
        HWND about;
    } kCases[] = {{WM_CTLCOLORDLG, dialog_}, {WM_CTLCOLORSTATIC, Item(100)}};
    for (const auto& one : kCases) {
        const auto brush = reinterpret_cast<HBRUSH>(
            SendMessageA(dialog_, one.message, reinterpret_cast<WPARAM>(dc),
                         reinterpret_cast<LPARAM>(one.about)));
        LOGBRUSH data{};
        GetObjectA(brush, sizeof data, &data);
        EXPECT_EQ(GetSysColor(COLOR_3DFACE), data.lbColor);
        EXPECT_EQ(GetSysColor(COLOR_3DFACE), GetBkColor(dc));
    }
    ReleaseDC(dialog_, dc);
}

INT_PTR CALLBACK AnswerProcedure(HWND dialog, UINT message, WPARAM, LPARAM) {
    switch (message) {
        case WM_USER + 7: SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 1234); return TRUE;
        case WM_USER + 8: SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 1234); return FALSE;
        case WM_CTLCOLORDLG: return reinterpret_cast<INT_PTR>(GetStockObject(BLACK_BRUSH));
        default: return FALSE;
    }
}

TEST_F(DialogFunctions, ProcedureAnswersByTheMessageResult) {
    SetWindowLongPtrA(dialog_, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(AnswerProcedure));
    EXPECT_EQ(1234, SendMessageA(dialog_, WM_USER + 7, 0, 0));
    EXPECT_EQ(0, SendMessageA(dialog_, WM_USER + 8, 0, 0));
    EXPECT_EQ(reinterpret_cast<LRESULT>(GetStockObject(BLACK_BRUSH)),
              SendMessageA(dialog_, WM_CTLCOLORDLG, 0, 0));
}

TEST_F(DialogFunctions, UnusableTemplatesAreRefused) {
    DLGTEMPLATE extended{};
    extended.style = 0xFFFF0001;
    EXPECT_EQ(nullptr, CreateDialogIndirectParamA(nullptr, nullptr, nullptr, nullptr, 0));
    EXPECT_EQ(nullptr, CreateDialogIndirectParamA(nullptr, &extended, nullptr, nullptr, 0));
}

TEST_F(DialogFunctions, MessagesOfOthersAreNotTheDialogs) {
    MSG message{};
    EXPECT_FALSE(IsDialogMessageA(dialog_, &message));
    message.hwnd = GetDesktopWindow();
    EXPECT_FALSE(IsDialogMessageA(dialog_, &message));
    message.hwnd = dialog_;
    EXPECT_FALSE(IsDialogMessageA(nullptr, &message));
}

}  // namespace
}  // namespace tests
