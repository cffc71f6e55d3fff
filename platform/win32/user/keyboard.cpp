#include <array>

#include "platform/win32/user/input.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

constexpr BYTE kDown = 0x80;
constexpr BYTE kToggled = 0x01;

// Two pictures of the keyboard: what has been told by messages, and what holds at this moment.
std::array<BYTE, 256> g_told{};
std::array<BYTE, 256> g_now{};

// Alt let go without any other key in between is a key of the system, else an ordinary one.
bool g_alt_alone = false;

bool IsToggle(int key) { return key == VK_CAPITAL || key == VK_NUMLOCK || key == VK_SCROLL; }

/// The key without left and right.
int CommonKey(int key) {
    switch (key) {
        case VK_LSHIFT:
        case VK_RSHIFT: return VK_SHIFT;
        case VK_LCONTROL:
        case VK_RCONTROL: return VK_CONTROL;
        case VK_LMENU:
        case VK_RMENU: return VK_MENU;
        default: return key;
    }
}

/// The key of one side, the left one when it isn't said.
int SideKey(int key) {
    switch (key) {
        case VK_SHIFT: return VK_LSHIFT;
        case VK_CONTROL: return VK_LCONTROL;
        case VK_MENU: return VK_LMENU;
        default: return key;
    }
}

void Set(std::array<BYTE, 256>& keys, int key, bool down) {
    for (const int each : {CommonKey(key), SideKey(key)}) {
        BYTE& state = keys[static_cast<std::size_t>(each)];
        if (down && IsToggle(each) && (state & kDown) == 0) state ^= kToggled;
        state = static_cast<BYTE>(down ? state | kDown : state & ~kDown);
    }
}

bool IsKey(int key) { return key > 0 && key < 256; }

bool IsSystemKey(const InputEvent& event, int key) {
    if (key == VK_F10) return true;
    if (key == VK_MENU) return event.down || g_alt_alone;
    return IsKeyDown(VK_MENU) && !IsKeyDown(VK_CONTROL);
}

LPARAM KeyBits(const InputEvent& event, int key, bool system) {
    DWORD bits = 1 | static_cast<DWORD>(event.scan) << 16;
    if (event.extended) bits |= 1u << 24;
    if (system && (IsKeyDown(VK_MENU) || key == VK_MENU) && key != VK_F10) bits |= 1u << 29;
    if (IsKeyDown(key)) bits |= 1u << 30;
    if (!event.down) bits |= 3u << 30;
    return static_cast<LPARAM>(bits);
}

UINT KeyMessage(bool down, bool system) {
    if (system) return down ? WM_SYSKEYDOWN : WM_SYSKEYUP;
    return down ? WM_KEYDOWN : WM_KEYUP;
}

Resolution ResolveCharacter(const InputEvent& event, const MessageFilter& filter, MSG& message) {
    const HWND focus = GetFocus();
    if (focus == nullptr) return Resolution::kGone;
    if (!filter.Takes(focus, WM_CHAR)) return Resolution::kOther;
    message = {focus, WM_CHAR, event.character, 1, event.time, event.place};
    return Resolution::kMessage;
}

}  // namespace

Resolution ResolveKey(const InputEvent& event, const MessageFilter& filter, MSG& message) {
    if (event.kind == InputKind::kCharacter) return ResolveCharacter(event, filter, message);
    const HWND focus = GetFocus();
    const HWND target = focus != nullptr ? focus : GetActiveWindow();
    if (target == nullptr) return Resolution::kGone;
    const int key = CommonKey(event.key);
    const bool by_alt = IsSystemKey(event, key);
    // Without a focus keys are for the active window, as keys of the system.
    const UINT number = KeyMessage(event.down, by_alt || focus == nullptr);
    if (!filter.Takes(target, number)) return Resolution::kOther;
    message = {target,     number,     static_cast<WPARAM>(key), KeyBits(event, key, by_alt),
               event.time, event.place};
    return Resolution::kMessage;
}

void CommitKey(const InputEvent& event) {
    if (CommonKey(event.key) != VK_MENU) {
        g_alt_alone = false;
    } else if (event.down && !IsKeyDown(VK_MENU)) {
        g_alt_alone = true;
    }
    SetKeyDown(event.key, event.down);
}

bool IsKeyDown(int key) { return (g_told[static_cast<std::size_t>(key)] & kDown) != 0; }

void SetKeyDown(int key, bool down) { Set(g_told, key, down); }

bool IsKeyDownNow(int key) { return (g_now[static_cast<std::size_t>(key)] & kDown) != 0; }

void SetKeyDownNow(int key, bool down) { Set(g_now, key, down); }

WPARAM MouseKeys() {
    WPARAM keys = 0;
    if (IsKeyDown(VK_LBUTTON)) keys |= MK_LBUTTON;
    if (IsKeyDown(VK_RBUTTON)) keys |= MK_RBUTTON;
    if (IsKeyDown(VK_MBUTTON)) keys |= MK_MBUTTON;
    if (IsKeyDown(VK_SHIFT)) keys |= MK_SHIFT;
    if (IsKeyDown(VK_CONTROL)) keys |= MK_CONTROL;
    return keys;
}

}  // namespace winbase

using namespace winbase;

SHORT GetKeyState(int key) {
    if (!IsKey(key) || !IsUiThread()) return 0;
    const BYTE state = g_told[static_cast<std::size_t>(key)];
    return static_cast<SHORT>((state & kDown ? 0xFF80 : 0) | (state & kToggled));
}

SHORT GetAsyncKeyState(int key) {
    if (!IsKey(key) || !IsUiThread()) return 0;
    return static_cast<SHORT>(IsKeyDownNow(key) ? 0x8000 : 0);
}
