#include <algorithm>

#include "platform/win32/controls/dialog.h"
#include "platform/win32/controls/dialog_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

constexpr UINT kPushCodes = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;

bool Reachable(HWND control) {
    const auto style = static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE));
    return (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0;
}

bool HasControls(HWND window) {
    return (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0;
}

void Collect(HWND parent, std::vector<HWND>* controls) {
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (!HasControls(child)) {
            controls->push_back(child);
        } else if (Reachable(child)) {
            Collect(child, controls);
        }
    }
}

/// The control that stands for a window: itself, or the one that it is a part of (the edit of a
/// combo box). Null for what is no part of the dialog.
HWND ControlAround(HWND dialog, HWND window) {
    while (window != nullptr && window != dialog) {
        const HWND parent = GetParent(window);
        if (parent == dialog ||
            (parent != nullptr && HasControls(parent) && IsChild(dialog, parent)))
            return window;
        window = parent;
    }
    return nullptr;
}

/// The nearest control after (or before) `from` that `wanted` accepts, around the end; null if
/// none.
template <class Wanted>
HWND Around(const std::vector<HWND>& controls, HWND from, bool previous, Wanted wanted) {
    const auto count = static_cast<int>(controls.size());
    const auto found = std::find(controls.begin(), controls.end(), from);
    int place = static_cast<int>(found - controls.begin());
    if (found == controls.end()) place = previous ? 0 : -1;
    for (int step = 1; step <= count; ++step) {
        const int offset = previous ? -step : step;
        const int at = ((place + offset) % count + count) % count;
        const HWND control = controls[static_cast<std::size_t>(at)];
        if (wanted(control)) return control;
    }
    return nullptr;
}

bool HasStyle(HWND control, LONG style) {
    return (GetWindowLongA(control, GWL_STYLE) & style) != 0;
}

/// The group around a control: from one WS_GROUP to the next among the children of one window.
std::vector<HWND> GroupAround(HWND control) {
    std::vector<HWND> group;
    bool inside = false;
    for (HWND at = GetWindow(control, GW_HWNDFIRST); at != nullptr;
         at = GetWindow(at, GW_HWNDNEXT)) {
        if (HasStyle(at, WS_GROUP)) {
            if (inside) break;
            group.clear();
        }
        group.push_back(at);
        inside = inside || at == control;
    }
    return group;
}

}  // namespace

std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    Collect(dialog, &controls);
    return controls;
}

UINT DialogCodeOf(HWND control, const MSG* key) {
    return static_cast<UINT>(SendMessageA(control, WM_GETDLGCODE, key != nullptr ? key->wParam : 0,
                                          reinterpret_cast<LPARAM>(key)));
}

void FocusControl(HWND dialog, HWND control) {
    const UINT code = DialogCodeOf(control);
    if ((code & DLGC_HASSETSEL) != 0) SendMessageA(control, EM_SETSEL, 0, -1);
    SetFocus(control);
    ShowDefaultButton(dialog, control);
}

void ShowDefaultButton(HWND dialog, HWND control) {
    const DialogState* const state = FindDialog(dialog);
    HWND chosen = control;
    if (control == nullptr || (DialogCodeOf(control) & kPushCodes) == 0) {
        chosen = state != nullptr && state->has_default_id ? GetDlgItem(dialog, state->default_id)
                                                           : nullptr;
    }
    for (const HWND other : ControlsOf(dialog)) {
        if (other != chosen && (DialogCodeOf(other) & DLGC_DEFPUSHBUTTON) != 0) {
            SendMessageA(other, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        }
    }
    if (chosen != nullptr && (DialogCodeOf(chosen) & DLGC_UNDEFPUSHBUTTON) != 0) {
        SendMessageA(chosen, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

void SaveDialogFocus(HWND dialog) {
    DialogState* const state = FindDialog(dialog);
    const HWND focus = GetFocus();
    if (state != nullptr && focus != nullptr && IsChild(dialog, focus)) state->last_focus = focus;
}

bool RestoreDialogFocus(HWND dialog) {
    DialogState* const state = FindDialog(dialog);
    if (state == nullptr || state->last_focus == nullptr) return false;
    const HWND target = state->last_focus;
    state->last_focus = nullptr;
    if (!IsChild(dialog, target) || !Reachable(target)) return false;
    SetFocus(target);
    return true;
}

}  // namespace winbase

using namespace winbase;

HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    AssertUiThread();
    if (FindLive(dialog) == nullptr) return nullptr;
    const HWND from = ControlAround(dialog, control);
    return Around(ControlsOf(dialog), from, previous != FALSE,
                  [](HWND at) { return Reachable(at) && HasStyle(at, WS_TABSTOP); });
}

HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    AssertUiThread();
    if (FindLive(dialog) == nullptr) return nullptr;
    const HWND from = ControlAround(dialog, control);
    if (from == nullptr) {
        const std::vector<HWND> controls = ControlsOf(dialog);
        return Around(controls, nullptr, previous != FALSE, Reachable);
    }
    return Around(GroupAround(from), from, previous != FALSE, Reachable);
}
