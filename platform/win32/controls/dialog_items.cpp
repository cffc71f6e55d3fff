#include "platform/win32/controls/dialog_state.h"
#include "platform/win32/user/window.h"

using namespace winbase;

namespace {

/// The control, or null with last error ERROR_CONTROL_ID_NOT_FOUND.
HWND Item(HWND dialog, int id) {
    const HWND item = GetDlgItem(dialog, id);
    if (item == nullptr && IsWindow(dialog)) SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return item;
}

}  // namespace

BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect) {
    const DialogState* const state = FindDialog(dialog);
    if (state == nullptr || rect == nullptr) return FALSE;
    const SIZE base = state->base_units.cx != 0 ? state->base_units : BaseUnits(state->font);
    *rect = {UnitsToX(base, rect->left), UnitsToY(base, rect->top), UnitsToX(base, rect->right),
             UnitsToY(base, rect->bottom)};
    return TRUE;
}

LONG WINAPI GetDialogBaseUnits() {
    const SIZE base = BaseUnits(nullptr);
    return MAKELONG(base.cx, base.cy);
}

BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text) {
    const HWND item = Item(dialog, id);
    return item != nullptr ? SetWindowTextA(item, text) : FALSE;
}

UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR text, int size) {
    if (text == nullptr || size <= 0) return 0;
    text[0] = '\0';
    const HWND item = Item(dialog, id);
    return item != nullptr ? static_cast<UINT>(GetWindowTextA(item, text, size)) : 0;
}

LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam,
                                   LPARAM lParam) {
    const HWND item = Item(dialog, id);
    return item != nullptr ? SendMessageA(item, message, wParam, lParam) : 0;
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check) {
    const HWND item = Item(dialog, id);
    if (item == nullptr) return FALSE;
    SendMessageA(item, BM_SETCHECK, check, 0);
    return TRUE;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check) {
    if (FindLive(dialog) == nullptr) return FALSE;
    for (HWND item = GetWindow(dialog, GW_CHILD); item != nullptr;
         item = GetWindow(item, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(item);
        if (id < first || id > last) continue;
        SendMessageA(item, BM_SETCHECK, id == check ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    return TRUE;
}
