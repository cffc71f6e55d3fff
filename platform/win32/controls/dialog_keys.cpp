#include <cctype>
#include <string>

#include "platform/win32/controls/dialog.h"
#include "platform/win32/controls/dialog_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

bool ShiftHeld() { return GetKeyState(VK_SHIFT) < 0; }

/// The letter or digit behind the '&' of a text, upper case; 0 without one. A trail byte is never
/// an '&'.
int MnemonicOf(const std::string& text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&') continue;
        if (text[i + 1] != '&') return std::toupper(static_cast<unsigned char>(text[i + 1]));
        ++i;
    }
    return 0;
}

bool HasMnemonic(HWND control, int letter) {
    const Window* const window = LookUp(control);
    if (window == nullptr || (window->style & WS_VISIBLE) == 0) return false;
    if ((window->style & WS_DISABLED) != 0) return false;
    const UINT code = DialogCodeOf(control);
    if ((code & (DLGC_BUTTON | DLGC_STATIC)) == 0) return false;
    const bool label = (code & DLGC_STATIC) != 0;
    if (label && (window->style & SS_NOPREFIX) != 0) return false;
    return MnemonicOf(window->text) == letter;
}

/// What a mnemonic does: buttons are pressed, labels lead to the next control.
void ChooseByMnemonic(HWND dialog, HWND control) {
    const UINT code = DialogCodeOf(control);
    if ((code & DLGC_STATIC) != 0) {
        const HWND next = GetNextDlgTabItem(dialog, control, FALSE);
        if (next != nullptr) FocusControl(dialog, next);
        return;
    }
    FocusControl(dialog, control);
    SendMessageA(control, BM_CLICK, 0, 0);
}

bool FollowMnemonic(HWND dialog, WPARAM character) {
    const int letter = std::toupper(static_cast<int>(character & 0xFF));
    if (character > 0x7F || std::isalnum(letter) == 0) return false;
    const std::vector<HWND> controls = ControlsOf(dialog);
    const HWND focus = GetFocus();
    std::size_t from = 0;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        if (controls[i] == focus) from = i + 1;
    }
    // Behind the focus first, so that a letter used twice goes round.
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const HWND control = controls[(from + i) % controls.size()];
        if (!HasMnemonic(control, letter)) continue;
        ChooseByMnemonic(dialog, control);
        return true;
    }
    return false;
}

HWND NextInGroup(HWND dialog, HWND focus, bool previous) {
    HWND next = GetNextDlgGroupItem(dialog, focus, previous ? TRUE : FALSE);
    while (next != nullptr && next != focus && (DialogCodeOf(next) & DLGC_STATIC) != 0) {
        next = GetNextDlgGroupItem(dialog, next, previous ? TRUE : FALSE);
    }
    return next;
}

void Arrow(HWND dialog, HWND focus, bool previous) {
    const HWND next = NextInGroup(dialog, focus, previous);
    if (next == nullptr || next == focus) return;
    if ((DialogCodeOf(next) & DLGC_RADIOBUTTON) == 0) {
        SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return;
    }
    // The click is sent after the focus has moved, and only once.
    SendMessageA(next, BM_SETDONTCLICK, TRUE, 0);
    FocusControl(dialog, next);
    SendMessageA(next, BM_SETDONTCLICK, FALSE, 0);
    if (SendMessageA(next, BM_GETCHECK, 0, 0) != BST_CHECKED) SendMessageA(next, BM_CLICK, 0, 0);
}

bool KeyDown(HWND dialog, const MSG& message) {
    const UINT code = DialogCodeOf(message.hwnd, &message);
    if ((code & DLGC_WANTMESSAGE) != 0) return false;
    switch (message.wParam) {
        case VK_TAB:
            if ((code & DLGC_WANTTAB) != 0) return false;
            SendMessageA(dialog, WM_NEXTDLGCTL, ShiftHeld() ? 0x8000 : 0, FALSE);
            return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            if ((code & DLGC_WANTARROWS) != 0) return false;
            Arrow(dialog, message.hwnd, message.wParam == VK_LEFT || message.wParam == VK_UP);
            return true;
        case VK_RETURN: PressDefaultButton(dialog); return true;
        case VK_ESCAPE:
        case VK_CANCEL: PressButton(dialog, IDCANCEL, Delivery::kSent); return true;
        default: return false;
    }
}

bool Character(HWND dialog, const MSG& message) {
    const UINT code = DialogCodeOf(message.hwnd, &message);
    if ((code & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) != 0) return false;
    if (message.wParam == VK_TAB) return true;
    return FollowMnemonic(dialog, message.wParam);
}

bool DialogKey(HWND dialog, const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN: return KeyDown(dialog, message);
        case WM_CHAR: return Character(dialog, message);
        case WM_SYSCHAR: return FollowMnemonic(dialog, message.wParam);
        case WM_LBUTTONDOWN:
            // A pressed push button is the default one from then on.
            if (message.hwnd != dialog) {
                const UINT code = DialogCodeOf(message.hwnd);
                constexpr UINT kPush = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
                if ((code & kPush) != 0) ShowDefaultButton(dialog, message.hwnd);
            }
            return false;
        default: return false;
    }
}

}  // namespace

void PressButton(HWND dialog, int id, Delivery delivery) {
    const HWND button = GetDlgItem(dialog, id);
    if (button != nullptr && !IsWindowEnabled(button)) {
        MessageBeep(0);
        return;
    }
    const WPARAM wParam = MAKEWPARAM(id, BN_CLICKED);
    const auto lParam = reinterpret_cast<LPARAM>(button);
    if (delivery == Delivery::kPosted) {
        PostMessageA(dialog, WM_COMMAND, wParam, lParam);
    } else {
        SendMessageA(dialog, WM_COMMAND, wParam, lParam);
    }
}

void PressDefaultButton(HWND dialog) {
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(dialog, focus) &&
        (DialogCodeOf(focus) & DLGC_DEFPUSHBUTTON) != 0) {
        // The button of a page inside the dialog belongs to the page.
        PressButton(GetParent(focus), GetDlgCtrlID(focus), Delivery::kSent);
        return;
    }
    const auto answer = static_cast<DWORD>(SendMessageA(dialog, DM_GETDEFID, 0, 0));
    PressButton(dialog, HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : IDOK, Delivery::kSent);
}

}  // namespace winbase

using namespace winbase;

BOOL WINAPI IsDialogMessageA(HWND dialog, LPMSG message) {
    AssertUiThread();
    if (dialog == nullptr || message == nullptr || !IsWindow(dialog)) return FALSE;
    if (message->hwnd != dialog && !IsChild(dialog, message->hwnd)) return FALSE;
    if (DialogKey(dialog, *message)) return TRUE;
    TranslateMessage(message);
    DispatchMessageA(message);
    return TRUE;
}
