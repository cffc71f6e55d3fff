// Keys, the characters that they make, and the state of the keyboard.

#include <gtest/gtest.h>

#include <string>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {

namespace {

using platform::testing::Key;
using platform::testing::Modifier;

class Keyboard : public ::testing::Test {
protected:
    Keyboard() {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 400, 300});
        child_ = log_.Create("child", WS_CHILD | WS_VISIBLE, {10, 10, 90, 50}, frame_, 1);
        SetFocus(child_);
        PumpQueue();
        log_.Only({WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP, WM_SYSCHAR, WM_CHAR, WM_CLOSE,
                   WM_SYSCOMMAND});
        log_.Take();
    }

    static void Down(BYTE key) { keybd_event(key, 0, 0, 0); }
    static void Up(BYTE key) { keybd_event(key, 0, KEYEVENTF_KEYUP, 0); }

    /// The characters that pressing a key makes, as numbers.
    std::string Characters(BYTE key, Modifier modifier) {
        log_.Only({WM_CHAR});
        log_.Take();
        Key(key, modifier);
        return log_.Take();
    }

    MessageLog log_;
    HWND frame_ = nullptr;
    HWND child_ = nullptr;
};

TEST_F(Keyboard, KeysMakeCharacters) {
    const struct {
        BYTE key;
        Modifier modifier;
        int character;
    } kCases[] = {{'A', Modifier::kNone, 'a'},
                  {'A', Modifier::kShift, 'A'},
                  {'5', Modifier::kNone, '5'},
                  {'5', Modifier::kShift, '%'},
                  {VK_OEM_PERIOD, Modifier::kNone, '.'},
                  {VK_DECIMAL, Modifier::kNone, '.'},
                  {VK_NUMPAD0 + 7, Modifier::kNone, '7'},
                  {VK_SUBTRACT, Modifier::kNone, '-'},
                  {VK_RETURN, Modifier::kNone, 13},
                  {VK_ESCAPE, Modifier::kNone, 27},
                  {VK_TAB, Modifier::kNone, 9},
                  {VK_BACK, Modifier::kNone, 8},
                  {VK_SPACE, Modifier::kNone, ' '},
                  {'C', Modifier::kControl, 3},
                  {VK_RETURN, Modifier::kControl, 10},
                  {VK_OEM_7, Modifier::kShift, '"'}};
    for (const auto& [key, modifier, character] : kCases) {
        EXPECT_EQ(Characters(key, modifier), "*child WM_CHAR(" + std::to_string(character) + ")*")
            << "key " << int{key};
    }
    for (const int key : {VK_LEFT, VK_F5, VK_DELETE, VK_SHIFT}) {
        EXPECT_EQ(Characters(static_cast<BYTE>(key), Modifier::kNone), "") << "key " << key;
    }
}

TEST_F(Keyboard, CapitalsLockTurnsLettersOnly) {
    Key(VK_CAPITAL);
    EXPECT_EQ(Characters('A', Modifier::kNone), "*child WM_CHAR(65)*");
    EXPECT_EQ(Characters('A', Modifier::kShift), "*child WM_CHAR(97)*");
    EXPECT_EQ(Characters('5', Modifier::kNone), "*child WM_CHAR(53)*");
    Key(VK_CAPITAL);
    EXPECT_EQ(Characters('A', Modifier::kNone), "*child WM_CHAR(97)*");
}

TEST_F(Keyboard, TheCharacterFollowsItsKey) {
    Key('A');
    EXPECT_EQ(log_.Take(), "*child WM_KEYDOWN(0x41)*; *child WM_CHAR(97)*; *child WM_KEYUP(0x41)*");
}

TEST_F(Keyboard, WithoutAFocusTheActiveWindowGetsKeysOfTheSystem) {
    SetFocus(nullptr);
    Key('A');
    EXPECT_EQ(log_.Take(),
              "*frame WM_SYSKEYDOWN(0x41)*; *frame WM_SYSCHAR*; *frame WM_SYSKEYUP(0x41)*");
}

TEST_F(Keyboard, AltMakesKeysOfTheSystem) {
    Key('X', Modifier::kAlt);
    EXPECT_EQ(log_.Take(),
              "*child WM_SYSKEYDOWN(0x12)*; *child WM_SYSKEYDOWN(0x58)*; *child WM_SYSCHAR*; "
              "*child WM_SYSKEYUP(0x58)*; *child WM_KEYUP(0x12)*");
}

TEST_F(Keyboard, AltAndF4CloseTheFrame) {
    Key(VK_F4, Modifier::kAlt);
    EXPECT_FALSE(IsWindow(frame_));
    Up(VK_MENU);
    PumpQueue();
}

TEST_F(Keyboard, BitsTellWhatHappensToTheKey) {
    Down('A');
    Down('A');
    Up('A');
    const DWORD kExpected[] = {0x00000001, 0x40000001, 0xC0000001};
    for (const DWORD expected : kExpected) {
        MSG message{};
        ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
        // The scan code in the middle is the keyboard's.
        EXPECT_EQ(static_cast<DWORD>(message.lParam) & 0xFF00FFFF, expected);
    }
}

TEST_F(Keyboard, StatesFollowTheMessages) {
    Down(VK_SHIFT);
    EXPECT_EQ(GetKeyState(VK_SHIFT) & 0x8000, 0) << "the message still waits";
    EXPECT_NE(GetAsyncKeyState(VK_SHIFT) & 0x8000, 0);
    PumpQueue();
    EXPECT_NE(GetKeyState(VK_SHIFT) & 0x8000, 0);
    EXPECT_NE(GetKeyState(VK_LSHIFT) & 0x8000, 0);
    Up(VK_SHIFT);
    EXPECT_NE(GetKeyState(VK_SHIFT) & 0x8000, 0);
    PumpQueue();
    EXPECT_EQ(GetKeyState(VK_SHIFT) & 0x8000, 0);
    Key(VK_NUMLOCK);
    const int before = GetKeyState(VK_NUMLOCK) & 1;
    Key(VK_NUMLOCK);
    EXPECT_NE(GetKeyState(VK_NUMLOCK) & 1, before);
}

TEST_F(Keyboard, NumbersOutsideTheKeyboardAreNoKeys) {
    for (const int key : {-1, 0, 256, 100000}) {
        EXPECT_EQ(GetKeyState(key), 0);
        EXPECT_EQ(GetAsyncKeyState(key), 0);
    }
    keybd_event(0, 0, 0, 0);
    PumpQueue();
    EXPECT_EQ(log_.Take(), "");
}

TEST_F(Keyboard, CodesAndKeysAreTranslated) {
    EXPECT_EQ(VkKeyScanA('a'), 'A');
    EXPECT_EQ(VkKeyScanA('A'), 'A' | 0x100);
    EXPECT_EQ(VkKeyScanA('%'), '5' | 0x100);
    EXPECT_EQ(VkKeyScanA(static_cast<char>(0xD6)), -1);
    EXPECT_EQ(MapVirtualKeyA('A', MAPVK_VK_TO_VSC), 0x1Eu);
    EXPECT_EQ(MapVirtualKeyA(0x1E, MAPVK_VSC_TO_VK), UINT{'A'});
    EXPECT_EQ(MapVirtualKeyA('A', MAPVK_VK_TO_CHAR), UINT{'A'});
    EXPECT_EQ(MapVirtualKeyA(VK_OEM_COMMA, MAPVK_VK_TO_CHAR), UINT{','});
}

}  // namespace

}  // namespace tests
