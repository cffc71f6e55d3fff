#include "platform/win32/controls/dialog.h"
#include "platform/win32/controls/dialog_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

HFONT MakeFont(const DialogTemplate& dialog) {
    if ((dialog.style & DS_SETFONT) == 0) return nullptr;
    constexpr int kDotsPerInch = 96;
    constexpr int kPointsPerInch = 72;
    const int height = -MulDiv(dialog.point_size, kDotsPerInch, kPointsPerInch);
    return CreateFontA(height, 0, 0, 0, FW_DONTCARE, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                       DEFAULT_PITCH | FF_DONTCARE, dialog.face.c_str());
}

DWORD ExStyleOf(const DialogTemplate& dialog) {
    DWORD ex_style = dialog.ex_style;
    if ((dialog.style & DS_MODALFRAME) != 0) ex_style |= WS_EX_DLGMODALFRAME;
    // Tab goes through a child dialog only if it says that it is one (DS_CONTROL).
    const bool plain_child = (dialog.style & WS_CHILD) != 0 && (dialog.style & DS_CONTROL) == 0;
    return plain_child ? ex_style : ex_style | WS_EX_CONTROLPARENT;
}

/// Moves a rectangle into the work area as far as it fits, its top left first.
void KeepOnScreen(RECT* rect) {
    RECT work{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    const LONG right = rect->right > work.right ? work.right - rect->right : 0;
    const LONG bottom = rect->bottom > work.bottom ? work.bottom - rect->bottom : 0;
    OffsetRect(rect, right, bottom);
    OffsetRect(rect, rect->left < work.left ? work.left - rect->left : 0,
               rect->top < work.top ? work.top - rect->top : 0);
}

RECT PlaceDialog(const DialogTemplate& dialog, DWORD ex_style, const SIZE& base, HWND owner) {
    RECT rect{0, 0, UnitsToX(base, dialog.width), UnitsToY(base, dialog.height)};
    AdjustWindowRectEx(&rect, dialog.style, FALSE, ex_style);
    OffsetRect(&rect, UnitsToX(base, dialog.x) - rect.left, UnitsToY(base, dialog.y) - rect.top);
    if ((dialog.style & WS_CHILD) != 0) return rect;
    if ((dialog.style & DS_CENTER) != 0) {
        RECT work{};
        SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
        OffsetRect(&rect, (work.left + work.right - rect.left - rect.right) / 2,
                   (work.top + work.bottom - rect.top - rect.bottom) / 2);
    } else if (owner != nullptr && (dialog.style & DS_ABSALIGN) == 0) {
        POINT origin{0, 0};
        ClientToScreen(owner, &origin);
        OffsetRect(&rect, origin.x, origin.y);
    }
    KeepOnScreen(&rect);
    return rect;
}

bool CreateControl(HWND dialog, const ControlTemplate& control, HINSTANCE instance,
                   const SIZE& base, HFONT font) {
    const int x = UnitsToX(base, control.x);
    const int y = UnitsToY(base, control.y);
    const void* const data = control.data.empty() ? nullptr : control.data.data();
    const HWND window =
        CreateWindowExA(control.ex_style | WS_EX_NOPARENTNOTIFY, control.window_class.c_str(),
                        control.text.c_str(), control.style | WS_CHILD, x, y,
                        UnitsToX(base, control.width), UnitsToY(base, control.height), dialog,
                        reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(control.id)), instance,
                        const_cast<void*>(data));
    if (window == nullptr) return false;
    if (font != nullptr) SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    DialogState* const state = FindDialog(dialog);
    if (state == nullptr) return false;
    if (!state->has_default_id && (DialogCodeOf(window) & DLGC_DEFPUSHBUTTON) != 0) {
        state->default_id = control.id;
        state->has_default_id = true;
    }
    return true;
}

bool CreateControls(HWND dialog, const DialogTemplate& from, HINSTANCE instance, const SIZE& base,
                    HFONT font) {
    for (const ControlTemplate& control : from.controls) {
        if (!CreateControl(dialog, control, instance, base, font)) return false;
    }
    return true;
}

/// WM_INITDIALOG and the first focus. False when the dialog is gone afterwards.
bool Initialise(HWND dialog, DWORD style, LPARAM parameter) {
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    const LRESULT wants_focus =
        SendMessageA(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), parameter);
    if (!IsWindow(dialog)) return false;
    // A page inside another dialog leaves the focus where it is.
    if (wants_focus != 0 && (style & DS_CONTROL) == 0) {
        // Asked again: the first control may have been disabled or hidden meanwhile.
        const HWND target = GetNextDlgTabItem(dialog, nullptr, FALSE);
        if (target != nullptr) FocusControl(dialog, target);
    }
    return IsWindow(dialog) != FALSE;
}

}  // namespace

HWND CreateDialogFrom(const DialogTemplate& dialog, HINSTANCE instance, HWND owner,
                      DLGPROC procedure, LPARAM parameter, DialogKind kind, HWND disabled_owner) {
    const HFONT font = MakeFont(dialog);
    const SIZE base = BaseUnits(font);
    const DWORD ex_style = ExStyleOf(dialog);
    const DWORD style = dialog.style | DS_3DLOOK;
    const RECT place = PlaceDialog(dialog, ex_style, base, owner);
    const char* const name = dialog.window_class.empty() ? "#32770" : dialog.window_class.c_str();
    const HWND window = CreateWindowExA(
        ex_style, name, dialog.title.c_str(), style & ~static_cast<DWORD>(WS_VISIBLE), place.left,
        place.top, place.right - place.left, place.bottom - place.top, owner, nullptr, instance,
        nullptr);
    if (window == nullptr) {
        if (font != nullptr) DeleteObject(font);
        return nullptr;
    }
    DialogState& state = MakeDialog(window);
    state.font = font;
    state.owns_font = font != nullptr;
    state.base_units = base;
    state.modal = kind == DialogKind::kModal;
    state.disabled_owner = disabled_owner;
    SetWindowLongPtrA(window, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    if (font != nullptr) SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    if (!CreateControls(window, dialog, instance, base, font)) {
        DestroyWindow(window);
        return nullptr;
    }
    if (!Initialise(window, dialog.style, parameter)) return nullptr;
    if (kind == DialogKind::kModeless && (dialog.style & WS_VISIBLE) != 0) {
        const DialogState* const now = FindDialog(window);
        if (now != nullptr && !now->ended) ShowWindow(window, SW_SHOW);
    }
    return IsWindow(window) ? window : nullptr;
}

}  // namespace winbase

using namespace winbase;

HWND WINAPI CreateDialogIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialog, HWND parent,
                                       DLGPROC procedure, LPARAM parameter) {
    AssertUiThread();
    const auto read = ReadTemplate(dialog);
    if (!read) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return CreateDialogFrom(*read, instance, parent, procedure, parameter, DialogKind::kModeless,
                            nullptr);
}
