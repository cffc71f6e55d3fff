#include <gtest/gtest.h>

#include <thread>

#include "platform/testing/input.h"
#include "tests/support/gbk_text.h"
#include "tests/support/message_log.h"

namespace tests {
namespace {

/// How a person answers a box.
struct Answer {
    enum Kind { kKey, kClose, kButton, kEnd } kind;
    int value;
};

struct Seen {
    std::string title;
    std::string buttons;
    std::string text;
    std::string focus;
    HWND owner = nullptr;
    DWORD style = 0;
    DWORD ex_style = 0;
    bool owner_enabled = true;
    bool shown = false;
};

std::string TextOf(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

Seen LookAt(HWND box) {
    Seen seen;
    seen.shown = IsWindowVisible(box) != FALSE;
    seen.title = TextOf(box);
    seen.owner = GetWindow(box, GW_OWNER);
    seen.owner_enabled = seen.owner == nullptr || IsWindowEnabled(seen.owner);
    seen.style = static_cast<DWORD>(GetWindowLongA(box, GWL_STYLE));
    seen.ex_style = static_cast<DWORD>(GetWindowLongA(box, GWL_EXSTYLE));
    seen.focus = TextOf(GetFocus());
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        char name[16];
        GetClassNameA(child, name, sizeof name);
        if (std::string(name) == "Static") {
            seen.text += TextOf(child);
            continue;
        }
        const LONG style = GetWindowLongA(child, GWL_STYLE);
        seen.buttons += std::to_string(GetDlgCtrlID(child)) + TextOf(child);
        if ((style & BS_TYPEMASK) == BS_DEFPUSHBUTTON) seen.buttons += "*";
        seen.buttons += " ";
    }
    return seen;
}

class MessageBoxes : public ::testing::Test {
protected:
    void SetUp() override {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 700, 500});
        SetActiveWindow(frame_);
        PumpQueue();
        log_.Take();
    }

    /// Shows a box that is looked at and answered once it waits.
    int Show(HWND owner, const char* text, const char* title, UINT flags, Answer answer) {
        answer_ = answer;
        platform::testing::WhenIdle(AnswerActive, this);
        return MessageBoxA(owner, text, title, flags);
    }
    int Show(UINT flags, Answer answer) { return Show(frame_, "内容", "标题", flags, answer); }

    static void AnswerActive(void* context) {
        auto& self = *static_cast<MessageBoxes*>(context);
        const HWND box = GetActiveWindow();
        self.seen_ = LookAt(box);
        switch (self.answer_.kind) {
            case Answer::kKey:
                keybd_event(static_cast<BYTE>(self.answer_.value), 0, 0, 0);
                keybd_event(static_cast<BYTE>(self.answer_.value), 0, KEYEVENTF_KEYUP, 0);
                break;
            case Answer::kClose: PostMessageA(box, WM_CLOSE, 0, 0); break;
            case Answer::kButton:
                PostMessageA(GetDlgItem(box, self.answer_.value), BM_CLICK, 0, 0);
                break;
            case Answer::kEnd: EndDialog(box, self.answer_.value); break;
        }
    }

    /// The same for a box that another thread will have asked for at some time.
    static void AnswerWhenShown(void* context) {
        const bool shown = GetActiveWindow() != static_cast<MessageBoxes*>(context)->frame_;
        if (shown) return AnswerActive(context);
        platform::testing::WhenIdle(AnswerWhenShown, context);
    }

    MessageLog log_;
    HWND frame_ = nullptr;
    Answer answer_{};
    Seen seen_;
};

TEST_F(MessageBoxes, AnswerAsTheirButtonsSay) {
    const struct {
        const char* what;
        UINT flags;
        Answer answer;
        const char* buttons;
        int expected;
    } kCases[] = {
        {"ok, Enter", MB_OK, {Answer::kKey, VK_RETURN}, "1确定* ", IDOK},
        {"ok, Escape", MB_OK, {Answer::kKey, VK_ESCAPE}, "1确定* ", IDOK},
        {"ok, close", MB_OK, {Answer::kClose, 0}, "1确定* ", IDOK},
        {"ok cancel, Enter", MB_OKCANCEL, {Answer::kKey, VK_RETURN}, "1确定* 2取消 ", IDOK},
        {"ok cancel, Escape", MB_OKCANCEL, {Answer::kKey, VK_ESCAPE}, "1确定* 2取消 ", IDCANCEL},
        {"ok cancel, second",
         MB_OKCANCEL | MB_DEFBUTTON2,
         {Answer::kKey, VK_RETURN},
         "1确定 2取消* ",
         IDCANCEL},
        {"ok cancel, pressed", MB_OKCANCEL, {Answer::kButton, IDCANCEL}, "1确定* 2取消 ", IDCANCEL},
        {"yes no cancel, close",
         MB_YESNOCANCEL,
         {Answer::kClose, 0},
         "6是(&Y)* 7否(&N) 2取消 ",
         IDCANCEL},
        {"yes no, Enter", MB_YESNO, {Answer::kKey, VK_RETURN}, "6是(&Y)* 7否(&N) ", IDYES},
        {"yes no, letter", MB_YESNO, {Answer::kKey, 'N'}, "6是(&Y)* 7否(&N) ", IDNO},
        {"retry, Escape", MB_RETRYCANCEL, {Answer::kKey, VK_ESCAPE}, "4重试(&R)* 2取消 ", IDCANCEL},
        {"ended from outside", MB_OKCANCEL, {Answer::kEnd, 77}, "1确定* 2取消 ", 77},
    };
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        EXPECT_EQ(one.expected, Show(one.flags, one.answer));
        EXPECT_TRUE(seen_.shown);
        EXPECT_GBK_EQ(one.buttons, seen_.buttons);
        EXPECT_GBK_EQ("标题", seen_.title);
        EXPECT_GBK_EQ("内容", seen_.text);
        EXPECT_FALSE(seen_.owner_enabled);
        EXPECT_TRUE(IsWindowEnabled(frame_));
        EXPECT_EQ(frame_, GetActiveWindow());
    }
}

TEST_F(MessageBoxes, WithoutAWayOutCannotBeClosed) {
    struct Steps {
        static void Close(void*) { PostMessageA(GetActiveWindow(), WM_CLOSE, 0, 0); }
        static void Escape(void*) {
            keybd_event(VK_ESCAPE, 0, 0, 0);
            keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
        }
    };
    platform::testing::WhenIdle(Steps::Close, nullptr);
    platform::testing::WhenIdle(Steps::Escape, nullptr);
    EXPECT_EQ(IDNO, Show(MB_YESNO, {Answer::kButton, IDNO}));
}

TEST_F(MessageBoxes, StylesOwnersAndTitles) {
    const struct {
        const char* what;
        bool owned;
        const char* title;
        UINT flags;
        bool topmost;
        bool frame_enabled;
        const char* expected_title;
    } kCases[] = {
        {"owned", true, "a", MB_OK, false, false, "a"},
        {"topmost without owner", false, "a", MB_OK | MB_TOPMOST, true, true, "a"},
        {"task modal without owner", false, "a", MB_OK | MB_TASKMODAL, false, false, "a"},
        {"no title", true, nullptr, MB_OK | MB_ICONERROR, false, false, "错误"},
    };
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        struct Look {
            HWND frame;
            bool frame_enabled;
            static void At(void* context) {
                auto& self = *static_cast<Look*>(context);
                self.frame_enabled = IsWindowEnabled(self.frame) != FALSE;
                PostMessageA(GetActiveWindow(), WM_NULL, 0, 0);
            }
        } look{frame_, true};
        platform::testing::WhenIdle(Look::At, &look);
        EXPECT_EQ(IDOK, Show(one.owned ? frame_ : nullptr, "a&b", one.title, one.flags,
                             {Answer::kButton, IDOK}));
        EXPECT_EQ(one.frame_enabled, look.frame_enabled);
        EXPECT_EQ(one.owned ? frame_ : nullptr, seen_.owner);
        EXPECT_EQ(one.topmost, (seen_.ex_style & WS_EX_TOPMOST) != 0);
        EXPECT_EQ(WS_POPUP | WS_SYSMENU, seen_.style & (WS_POPUP | WS_SYSMENU));
        EXPECT_GBK_EQ(one.expected_title, seen_.title);
        EXPECT_GBK_EQ("a&b", seen_.text);
        EXPECT_TRUE(IsWindowEnabled(frame_));
    }
}

TEST_F(MessageBoxes, TextAndButtonsFitInside) {
    const struct {
        const char* what;
        std::string text;
    } kCases[] = {{"empty", ""},
                  {"short", "内容"},
                  {"long line", std::string(400, 'w')},
                  {"words",
                   [] {
                       std::string words;
                       for (int i = 0; i < 120; ++i) words += "some words ";
                       return words;
                   }()},
                  {"many lines", [] {
                       std::string lines;
                       for (int i = 0; i < 12; ++i) lines += "line\r\n";
                       return lines;
                   }()}};
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.what);
        struct Measure {
            static void At(void*) {
                const HWND box = GetActiveWindow();
                RECT client;
                GetClientRect(box, &client);
                RECT screen;
                SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
                RECT outside;
                GetWindowRect(box, &outside);
                RECT common;
                IntersectRect(&common, &outside, &screen);
                EXPECT_TRUE(EqualRect(&common, &outside));
                for (HWND child = GetWindow(box, GW_CHILD); child != nullptr;
                     child = GetWindow(child, GW_HWNDNEXT)) {
                    RECT rect;
                    GetWindowRect(child, &rect);
                    MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&rect), 2);
                    if (IsRectEmpty(&rect)) continue;
                    IntersectRect(&common, &rect, &client);
                    EXPECT_TRUE(EqualRect(&common, &rect)) << GetDlgCtrlID(child);
                }
                PostMessageA(box, WM_NULL, 0, 0);
            }
        };
        platform::testing::WhenIdle(Measure::At, nullptr);
        EXPECT_EQ(IDOK, Show(frame_, one.text.c_str(), "t", MB_OK | MB_ICONINFORMATION,
                             {Answer::kButton, IDOK}));
    }
}

TEST_F(MessageBoxes, RefuseAnOwnerThatIsNone) {
    SetLastError(0);
    EXPECT_EQ(0, MessageBoxA(reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7654)), "", "", MB_OK));
    EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
}

TEST_F(MessageBoxes, DispatchWhatArrivesMeanwhile) {
    log_.Only({WM_USER + 5});
    PostMessageA(frame_, WM_USER + 5, 0, 0);
    EXPECT_EQ(IDOK, Show(MB_OK, {Answer::kButton, IDOK}));
    EXPECT_EQ("*frame WM_USER+5(0, 0)*", log_.Take());
}

TEST_F(MessageBoxes, EndWithAQuitThatStaysForTheLoopOutside) {
    PostQuitMessage(4);
    EXPECT_EQ(0, MessageBoxA(frame_, "", "", MB_YESNO));
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message);
    EXPECT_EQ(4u, message.wParam);
}

TEST_F(MessageBoxes, EndWithTheirOwner) {
    const HWND owner = log_.Create("owner", WS_POPUP | WS_VISIBLE, {300, 100, 500, 200});
    platform::testing::WhenIdle(
        [](void* window) {
            DestroyWindow(static_cast<HWND>(window));
            PostMessageA(nullptr, WM_NULL, 0, 0);
        },
        owner);
    EXPECT_EQ(0, MessageBoxA(owner, "", "", MB_OK));
}

TEST_F(MessageBoxes, OfAnotherThreadAreShownWhileItWaits) {
    int result = 0;
    bool finished = false;
    answer_ = {Answer::kButton, IDNO};
    platform::testing::WhenIdle(AnswerWhenShown, this);
    std::thread other([&] {
        result = MessageBoxA(frame_, "内容", "标题", MB_YESNO);
        PostMessageA(frame_, WM_USER + 1, 0, 0);
    });
    while (!finished) {
        MSG message;
        if (GetMessageA(&message, nullptr, 0, 0) <= 0) break;
        finished = message.hwnd == frame_ && message.message == WM_USER + 1;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    other.join();
    EXPECT_EQ(IDNO, result);
    EXPECT_TRUE(seen_.shown);
    EXPECT_FALSE(seen_.owner_enabled);
    EXPECT_TRUE(IsWindowEnabled(frame_));
}

}  // namespace
}  // namespace tests
