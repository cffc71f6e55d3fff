#include "host/automation/raw_input.h"

#include <algorithm>
#include <iterator>

#include "platform/text/letter_case.h"

namespace automation {
namespace {

struct NamedKey {
    const char* name;
    BYTE key;
};
constexpr NamedKey kKeys[] = {{"Enter", VK_RETURN},   {"Escape", VK_ESCAPE}, {"Tab", VK_TAB},
                              {"Space", VK_SPACE},    {"Up", VK_UP},         {"Down", VK_DOWN},
                              {"Left", VK_LEFT},      {"Right", VK_RIGHT},   {"Home", VK_HOME},
                              {"End", VK_END},        {"PageUp", VK_PRIOR},  {"PageDown", VK_NEXT},
                              {"Backspace", VK_BACK}, {"Delete", VK_DELETE}, {"Insert", VK_INSERT}};
constexpr int kFunctionKeys = 12;

void Press(BYTE key) { keybd_event(key, 0, 0, 0); }
void Release(BYTE key) { keybd_event(key, 0, KEYEVENTF_KEYUP, 0); }

bool IsPlain(const std::string& text) {
    return std::ranges::all_of(text, [](char c) {
        // Control characters have keys too, but those need more than Shift.
        return c >= ' ' && static_cast<unsigned char>(c) < 0x7F && VkKeyScanA(c) != -1;
    });
}

}  // namespace

void PutMove(POINT screen) { SetCursorPos(screen.x, screen.y); }

void PutClick(POINT screen, MouseButton button, bool twice) {
    const bool left = button == MouseButton::kLeft;
    PutMove(screen);
    for (int press = 0; press < (twice ? 2 : 1); ++press) {
        mouse_event(left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
        mouse_event(left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
    }
}

void PutWheel(POINT screen, int notches) {
    PutMove(screen);
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(notches * WHEEL_DELTA), 0);
}

BYTE KeyNamed(const std::string& name) {
    if (name.size() == 1) {
        const char c = name[0];
        if (c >= '0' && c <= '9') return static_cast<BYTE>(c);
        if (c >= 'A' && c <= 'Z') return static_cast<BYTE>(c);
        if (c >= 'a' && c <= 'z') return static_cast<BYTE>(c - 'a' + 'A');
        return 0;
    }
    for (const NamedKey& named : kKeys) {
        if (text::EqualNoCase(named.name, name)) return named.key;
    }
    if (name.size() <= 3 && (name[0] == 'F' || name[0] == 'f') &&
        name.find_first_not_of("0123456789", 1) == std::string::npos) {
        const int number = std::stoi(name.substr(1));
        if (number >= 1 && number <= kFunctionKeys) return static_cast<BYTE>(VK_F1 + number - 1);
    }
    return 0;
}

void PutKey(BYTE key, const Modifiers& modifiers) {
    if (modifiers.control) Press(VK_CONTROL);
    if (modifiers.shift) Press(VK_SHIFT);
    if (modifiers.alt) Press(VK_MENU);
    Press(key);
    Release(key);
    if (modifiers.alt) Release(VK_MENU);
    if (modifiers.shift) Release(VK_SHIFT);
    if (modifiers.control) Release(VK_CONTROL);
}

bool PutText(const std::string& gbk) {
    const HWND focus = GetFocus();
    if (!focus) return false;
    // Posted characters overtake keys, so a text goes one way or the other as a whole.
    if (IsPlain(gbk)) {
        for (const char c : gbk) {
            const SHORT key = VkKeyScanA(c);
            PutKey(LOBYTE(key), {.shift = (HIBYTE(key) & 1) != 0});
        }
        return true;
    }
    for (const char c : gbk) PostMessageA(focus, WM_CHAR, static_cast<BYTE>(c), 1);
    return true;
}

}  // namespace automation
