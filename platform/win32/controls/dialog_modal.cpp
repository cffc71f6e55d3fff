#include "platform/win32/controls/dialog.h"
#include "platform/win32/controls/dialog_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

/// What a dialog answers when the program is to end: nobody has confirmed anything.
constexpr INT_PTR kQuitResult = -1;

void EnableOwner(HWND dialog) {
    DialogState* const state = FindDialog(dialog);
    if (state == nullptr) return;
    const HWND owner = state->disabled_owner;
    state->disabled_owner = nullptr;
    if (owner != nullptr) EnableWindow(owner, TRUE);
}

bool IsRunning(HWND dialog) {
    const DialogState* const state = FindDialog(dialog);
    return state != nullptr && !state->ended && IsWindow(dialog);
}

/// Dispatches until the dialog ends or dies; false when the program is to end instead.
bool Loop(HWND dialog) {
    while (IsRunning(dialog)) {
        MSG message;
        if (GetMessageA(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (IsDialogMessageA(dialog, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return true;
}

INT_PTR RunModal(HWND dialog) {
    if (IsRunning(dialog) && !IsWindowVisible(dialog)) ShowWindow(dialog, SW_SHOW);
    const bool ended = Loop(dialog);
    const DialogState* const state = FindDialog(dialog);
    if (state == nullptr) return 0;  // destroyed, perhaps with its owner
    const INT_PTR result = ended ? state->result : kQuitResult;
    EnableOwner(dialog);
    DestroyWindow(dialog);
    return result;
}

}  // namespace

INT_PTR RunDialog(const DialogTemplate& dialog, HINSTANCE instance, HWND owner, DLGPROC procedure,
                  LPARAM parameter) {
    const HWND top = owner != nullptr ? GetAncestor(owner, GA_ROOT) : nullptr;
    const HWND disabled = top != nullptr && IsWindowEnabled(top) ? top : nullptr;
    if (disabled != nullptr) EnableWindow(disabled, FALSE);
    const HWND window =
        CreateDialogFrom(dialog, instance, top, procedure, parameter, DialogKind::kModal, disabled);
    if (window == nullptr) {
        if (disabled != nullptr) EnableWindow(disabled, TRUE);
        return -1;
    }
    return RunModal(window);
}

}  // namespace winbase

using namespace winbase;

INT_PTR WINAPI DialogBoxIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialog, HWND parent,
                                       DLGPROC procedure, LPARAM parameter) {
    AssertUiThread();
    if (parent != nullptr && !IsWindow(parent)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return -1;
    }
    const auto read = ReadTemplate(dialog);
    if (!read) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    return RunDialog(*read, instance, parent, procedure, parameter);
}

BOOL WINAPI EndDialog(HWND dialog, INT_PTR result) {
    DialogState* const state = FindDialog(dialog);
    if (state == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    state->result = result;
    state->ended = true;
    const bool modal = state->modal;
    EnableOwner(dialog);
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(dialog, focus)) SetFocus(dialog);
    if (IsWindowVisible(dialog)) {
        SetWindowPos(dialog, nullptr, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    }
    const HWND owner = GetWindow(dialog, GW_OWNER);
    if (owner != nullptr && GetActiveWindow() == dialog) SetActiveWindow(owner);
    // The loop may be waiting when this came by a sent message.
    if (modal) PostMessageA(dialog, WM_NULL, 0, 0);
    return TRUE;
}
