#include "platform/win32/controls/dialog.h"
#include "platform/win32/controls/dialog_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

/// Messages whose answer is what the dialog procedure returns; for all others it is DWLP_MSGRESULT.
bool AnswersDirectly(UINT message) {
    switch (message) {
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
        case WM_COMPAREITEM:
        case WM_INITDIALOG: return true;
        default: return false;
    }
}

bool EraseDialog(HWND dialog, HDC dc) {
    const auto brush = reinterpret_cast<HBRUSH>(SendMessageA(
        dialog, WM_CTLCOLORDLG, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(dialog)));
    RECT client{};
    GetClientRect(dialog, &client);
    FillRect(dc, &client, brush != nullptr ? brush : GetSysColorBrush(COLOR_3DFACE));
    return true;
}

void Activation(HWND dialog, bool active) {
    const DialogState* const state = FindDialog(dialog);
    if (state != nullptr && state->ended) return;
    if (active) {
        RestoreDialogFocus(dialog);
    } else {
        SaveDialogFocus(dialog);
    }
}

void DialogGotFocus(HWND dialog) {
    const DialogState* const state = FindDialog(dialog);
    // A dialog that ended takes the focus from its controls and keeps it.
    if (state != nullptr && state->ended) return;
    if (RestoreDialogFocus(dialog)) return;
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (first != nullptr) FocusControl(dialog, first);
}

void NextControl(HWND dialog, WPARAM wParam, bool is_handle) {
    if (is_handle) {
        const auto control = reinterpret_cast<HWND>(wParam);
        if (IsWindow(control)) FocusControl(dialog, control);
        return;
    }
    const HWND focus = GetFocus();
    const HWND next = GetNextDlgTabItem(dialog, focus, wParam != 0 ? TRUE : FALSE);
    if (next != nullptr) FocusControl(dialog, next);
}

void SetDefaultId(HWND dialog, int id) {
    DialogState& state = MakeDialog(dialog);
    state.default_id = id;
    state.has_default_id = true;
    ShowDefaultButton(dialog, nullptr);
}

LRESULT DefaultId(HWND dialog) {
    const DialogState* const state = FindDialog(dialog);
    if (state == nullptr || !state->has_default_id) return 0;
    return MAKELRESULT(state->default_id, DC_HASDEFID);
}

LRESULT DefaultOf(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: return EraseDialog(dialog, reinterpret_cast<HDC>(wParam)) ? 1 : 0;
        case WM_ACTIVATE: Activation(dialog, LOWORD(wParam) != WA_INACTIVE); return 0;
        case WM_SETFOCUS: DialogGotFocus(dialog); return 0;
        case WM_SHOWWINDOW:
            if (wParam == FALSE) SaveDialogFocus(dialog);
            break;
        case WM_CLOSE: PressButton(dialog, IDCANCEL, Delivery::kPosted); return 0;
        case WM_NEXTDLGCTL: NextControl(dialog, wParam, LOWORD(lParam) != 0); return 0;
        case WM_SETFONT: MakeDialog(dialog).font = reinterpret_cast<HFONT>(wParam); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(MakeDialog(dialog).font);
        case DM_GETDEFID: return DefaultId(dialog);
        case DM_SETDEFID: SetDefaultId(dialog, static_cast<int>(wParam)); return 1;
        case WM_INITDIALOG: return 0;
        case WM_NCDESTROY: ForgetDialog(dialog); break;
        default: break;
    }
    return DefWindowProcA(dialog, message, wParam, lParam);
}

}  // namespace

}  // namespace winbase

using namespace winbase;

LRESULT WINAPI DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) MakeDialog(dialog);
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(dialog, DWLP_DLGPROC));
    if (procedure != nullptr) {
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 0);
        const INT_PTR handled = procedure(dialog, message, wParam, lParam);
        if (AnswersDirectly(message) && handled != 0) return handled;
        if (handled != 0 && message != WM_NCDESTROY) {
            return GetWindowLongPtrA(dialog, DWLP_MSGRESULT);
        }
        if (LookUp(dialog) == nullptr) return 0;
    }
    return DefaultOf(dialog, message, wParam, lParam);
}
