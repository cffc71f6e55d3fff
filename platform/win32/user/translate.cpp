#include <algorithm>
#include <array>

#include "platform/win32/user/input.h"
#include "platform/win32/user/window.h"

// The keyboard is the US one; what an input method makes arrives as text.

namespace winbase {

namespace {

struct KeyCharacters {
    BYTE key;
    BYTE scan;
    char plain;
    char shifted;
};

constexpr std::array kKeys = {
    KeyCharacters{VK_ESCAPE, 0x01, 27, 27},
    KeyCharacters{'1', 0x02, '1', '!'},
    KeyCharacters{'2', 0x03, '2', '@'},
    KeyCharacters{'3', 0x04, '3', '#'},
    KeyCharacters{'4', 0x05, '4', '$'},
    KeyCharacters{'5', 0x06, '5', '%'},
    KeyCharacters{'6', 0x07, '6', '^'},
    KeyCharacters{'7', 0x08, '7', '&'},
    KeyCharacters{'8', 0x09, '8', '*'},
    KeyCharacters{'9', 0x0A, '9', '('},
    KeyCharacters{'0', 0x0B, '0', ')'},
    KeyCharacters{VK_OEM_MINUS, 0x0C, '-', '_'},
    KeyCharacters{VK_OEM_PLUS, 0x0D, '=', '+'},
    KeyCharacters{VK_BACK, 0x0E, 8, 8},
    KeyCharacters{VK_TAB, 0x0F, 9, 9},
    KeyCharacters{'Q', 0x10, 'q', 'Q'},
    KeyCharacters{'W', 0x11, 'w', 'W'},
    KeyCharacters{'E', 0x12, 'e', 'E'},
    KeyCharacters{'R', 0x13, 'r', 'R'},
    KeyCharacters{'T', 0x14, 't', 'T'},
    KeyCharacters{'Y', 0x15, 'y', 'Y'},
    KeyCharacters{'U', 0x16, 'u', 'U'},
    KeyCharacters{'I', 0x17, 'i', 'I'},
    KeyCharacters{'O', 0x18, 'o', 'O'},
    KeyCharacters{'P', 0x19, 'p', 'P'},
    KeyCharacters{VK_OEM_4, 0x1A, '[', '{'},
    KeyCharacters{VK_OEM_6, 0x1B, ']', '}'},
    KeyCharacters{VK_RETURN, 0x1C, 13, 13},
    KeyCharacters{VK_CONTROL, 0x1D, 0, 0},
    KeyCharacters{'A', 0x1E, 'a', 'A'},
    KeyCharacters{'S', 0x1F, 's', 'S'},
    KeyCharacters{'D', 0x20, 'd', 'D'},
    KeyCharacters{'F', 0x21, 'f', 'F'},
    KeyCharacters{'G', 0x22, 'g', 'G'},
    KeyCharacters{'H', 0x23, 'h', 'H'},
    KeyCharacters{'J', 0x24, 'j', 'J'},
    KeyCharacters{'K', 0x25, 'k', 'K'},
    KeyCharacters{'L', 0x26, 'l', 'L'},
    KeyCharacters{VK_OEM_1, 0x27, ';', ':'},
    KeyCharacters{VK_OEM_7, 0x28, '\'', '"'},
    KeyCharacters{VK_OEM_3, 0x29, '`', '~'},
    KeyCharacters{VK_SHIFT, 0x2A, 0, 0},
    KeyCharacters{VK_OEM_5, 0x2B, '\\', '|'},
    KeyCharacters{'Z', 0x2C, 'z', 'Z'},
    KeyCharacters{'X', 0x2D, 'x', 'X'},
    KeyCharacters{'C', 0x2E, 'c', 'C'},
    KeyCharacters{'V', 0x2F, 'v', 'V'},
    KeyCharacters{'B', 0x30, 'b', 'B'},
    KeyCharacters{'N', 0x31, 'n', 'N'},
    KeyCharacters{'M', 0x32, 'm', 'M'},
    KeyCharacters{VK_OEM_COMMA, 0x33, ',', '<'},
    KeyCharacters{VK_OEM_PERIOD, 0x34, '.', '>'},
    KeyCharacters{VK_OEM_2, 0x35, '/', '?'},
    KeyCharacters{VK_MULTIPLY, 0x37, '*', '*'},
    KeyCharacters{VK_MENU, 0x38, 0, 0},
    KeyCharacters{VK_SPACE, 0x39, ' ', ' '},
    KeyCharacters{VK_CAPITAL, 0x3A, 0, 0},
    KeyCharacters{VK_F1, 0x3B, 0, 0},
    KeyCharacters{VK_F2, 0x3C, 0, 0},
    KeyCharacters{VK_F3, 0x3D, 0, 0},
    KeyCharacters{VK_F4, 0x3E, 0, 0},
    KeyCharacters{VK_F5, 0x3F, 0, 0},
    KeyCharacters{VK_F6, 0x40, 0, 0},
    KeyCharacters{VK_F7, 0x41, 0, 0},
    KeyCharacters{VK_F8, 0x42, 0, 0},
    KeyCharacters{VK_F9, 0x43, 0, 0},
    KeyCharacters{VK_F10, 0x44, 0, 0},
    KeyCharacters{VK_NUMLOCK, 0x45, 0, 0},
    KeyCharacters{VK_SCROLL, 0x46, 0, 0},
    KeyCharacters{VK_HOME, 0x47, 0, 0},
    KeyCharacters{VK_UP, 0x48, 0, 0},
    KeyCharacters{VK_PRIOR, 0x49, 0, 0},
    KeyCharacters{VK_SUBTRACT, 0x4A, '-', '-'},
    KeyCharacters{VK_LEFT, 0x4B, 0, 0},
    KeyCharacters{VK_RIGHT, 0x4D, 0, 0},
    KeyCharacters{VK_ADD, 0x4E, '+', '+'},
    KeyCharacters{VK_END, 0x4F, 0, 0},
    KeyCharacters{VK_DOWN, 0x50, 0, 0},
    KeyCharacters{VK_NEXT, 0x51, 0, 0},
    KeyCharacters{VK_INSERT, 0x52, 0, 0},
    KeyCharacters{VK_DELETE, 0x53, 0, 0},
    KeyCharacters{VK_F11, 0x57, 0, 0},
    KeyCharacters{VK_F12, 0x58, 0, 0},
    KeyCharacters{VK_NUMPAD0 + 0, 0x52, '0', '0'},
    KeyCharacters{VK_NUMPAD0 + 1, 0x4F, '1', '1'},
    KeyCharacters{VK_NUMPAD0 + 2, 0x50, '2', '2'},
    KeyCharacters{VK_NUMPAD0 + 3, 0x51, '3', '3'},
    KeyCharacters{VK_NUMPAD0 + 4, 0x4B, '4', '4'},
    KeyCharacters{VK_NUMPAD0 + 5, 0x4C, '5', '5'},
    KeyCharacters{VK_NUMPAD0 + 6, 0x4D, '6', '6'},
    KeyCharacters{VK_NUMPAD0 + 7, 0x47, '7', '7'},
    KeyCharacters{VK_NUMPAD0 + 8, 0x48, '8', '8'},
    KeyCharacters{VK_NUMPAD9, 0x49, '9', '9'},
    KeyCharacters{VK_DECIMAL, 0x53, '.', '.'},
    KeyCharacters{VK_DIVIDE, 0x35, '/', '/'},
};

const KeyCharacters* FindKey(UINT key) {
    const auto found = std::find_if(kKeys.begin(), kKeys.end(),
                                    [key](const KeyCharacters& entry) { return entry.key == key; });
    return found == kKeys.end() ? nullptr : &*found;
}

bool IsLetter(UINT key) { return key >= 'A' && key <= 'Z'; }

// What Control makes of a key; 0 for nothing.
char ControlCharacter(const KeyCharacters& entry) {
    if (IsLetter(entry.key)) return static_cast<char>(entry.key - 'A' + 1);
    switch (entry.key) {
        case VK_OEM_4: return 27;
        case VK_OEM_5: return 28;
        case VK_OEM_6: return 29;
        case VK_BACK: return 127;
        case VK_RETURN: return 10;
        case VK_ESCAPE:
        case VK_SPACE: return entry.plain;
        default: return 0;
    }
}

char CharacterOf(UINT key) {
    const KeyCharacters* const entry = FindKey(key);
    if (entry == nullptr) return 0;
    if (IsKeyDown(VK_CONTROL)) return IsKeyDown(VK_MENU) ? char{0} : ControlCharacter(*entry);
    bool shifted = IsKeyDown(VK_SHIFT);
    if (IsLetter(key) && (GetKeyState(VK_CAPITAL) & 1) != 0) shifted = !shifted;
    return shifted ? entry->shifted : entry->plain;
}

}  // namespace

}  // namespace winbase

using namespace winbase;

BOOL TranslateMessage(const MSG* message) {
    if (message == nullptr) return FALSE;
    switch (message->message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: break;
        case WM_KEYUP:
        case WM_SYSKEYUP: return TRUE;
        default: return FALSE;
    }
    const char character = CharacterOf(static_cast<UINT>(message->wParam));
    if (character != 0) {
        const UINT number = message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR;
        PostMessageA(message->hwnd, number, static_cast<BYTE>(character), message->lParam);
    }
    return TRUE;
}

UINT MapVirtualKeyA(UINT code, UINT kind) {
    if (kind == MAPVK_VSC_TO_VK) {
        const auto found = std::find_if(kKeys.begin(), kKeys.end(),
                                        [code](const auto& entry) { return entry.scan == code; });
        return found == kKeys.end() ? 0 : found->key;
    }
    const KeyCharacters* const entry = FindKey(code);
    if (entry == nullptr) return 0;
    if (kind == MAPVK_VK_TO_VSC) return entry->scan;
    if (kind != MAPVK_VK_TO_CHAR) return 0;
    return static_cast<BYTE>(IsLetter(code) ? entry->shifted : entry->plain);
}

SHORT VkKeyScanA(CHAR character) {
    constexpr int kShift = 0x100;
    constexpr int kControl = 0x200;
    for (const KeyCharacters& entry : kKeys) {
        if (character != 0 && entry.plain == character) return entry.key;
        if (character != 0 && entry.shifted == character) {
            return static_cast<SHORT>(entry.key | kShift);
        }
    }
    for (const KeyCharacters& entry : kKeys) {
        if (character != 0 && ControlCharacter(entry) == character) {
            return static_cast<SHORT>(entry.key | kControl);
        }
    }
    return -1;
}
