#include "platform/win32/controls/button.h"

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

/// Shown by BM_GETSTATE while the button is held, beside the documented bits.
constexpr UINT kHeld = 0x40;

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

bool Inside(HWND window, POINT point) {
    RECT client{};
    GetClientRect(window, &client);
    return PtInRect(&client, point) != FALSE;
}

}  // namespace

LRESULT CALLBACK ButtonControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return HostControl<ButtonControl>(window, message, wParam, lParam);
}

bool ButtonControl::IsCheckBox() const {
    const DWORD type = Type();
    return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_3STATE ||
           type == BS_AUTO3STATE;
}

bool ButtonControl::IsRadio() const {
    const DWORD type = Type();
    return type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON;
}

bool ButtonControl::IsPush() const {
    return (!IsCheckBox() && !IsRadio() && Type() != BS_GROUPBOX) || HasStyle(BS_PUSHLIKE);
}

UINT ButtonControl::DialogCode() const {
    switch (Type()) {
        case BS_PUSHBUTTON: return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
        case BS_DEFPUSHBUTTON: return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON: return DLGC_BUTTON | DLGC_RADIOBUTTON;
        case BS_GROUPBOX: return DLGC_STATIC;
        default: return DLGC_BUTTON;
    }
}

UINT ButtonControl::ColorMessage() const {
    const bool on_ground = IsCheckBox() || IsRadio() || Type() == BS_GROUPBOX;
    return on_ground ? WM_CTLCOLORSTATIC : WM_CTLCOLORBTN;
}

LRESULT ButtonControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE: return DialogCode();
        case WM_NCHITTEST:
            if (Type() == BS_GROUPBOX) return HTTRANSPARENT;
            break;
        case WM_ERASEBKGND: return Erase(reinterpret_cast<HDC>(wParam)) ? 1 : 0;
        case WM_PAINT: PaintUpdate(); return 0;
        case WM_PRINTCLIENT: Paint(reinterpret_cast<HDC>(wParam), ODA_DRAWENTIRE); return 0;
        case WM_ENABLE: PaintNow(ODA_DRAWENTIRE); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            if (LOWORD(lParam) != 0) InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_SETTEXT: {
            const LRESULT answer = DefWindowProcA(window_, message, wParam, lParam);
            PaintNow(ODA_DRAWENTIRE);
            return answer;
        }
        default: break;
    }
    if (message >= BM_GETCHECK && message <= BM_SETDONTCLICK) {
        return ButtonMessage(message, wParam, lParam);
    }
    return InputMessage(message, wParam, lParam);
}

LRESULT ButtonControl::InputMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFOCUS: GainFocus(); return 0;
        case WM_KILLFOCUS: LoseFocus(); return 0;
        case WM_LBUTTONDBLCLK:
            if (HasStyle(BS_NOTIFY) || Type() == BS_OWNERDRAW || Type() == BS_RADIOBUTTON) {
                TellParent(window_, BN_DOUBLECLICKED);
                return 0;
            }
            Press(true);
            return 0;
        case WM_LBUTTONDOWN: Press(true); return 0;
        case WM_MOUSEMOVE: Hover(PointFrom(lParam)); return 0;
        case WM_MOUSELEAVE:
            hovered_ = false;
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_LBUTTONUP:
            // BM_CLICK presses a button of no size, too.
            Release(in_click_ || Inside(window_, PointFrom(lParam)));
            return 0;
        case WM_CAPTURECHANGED: LoseCapture(); return 0;
        case WM_KEYDOWN:
            if (wParam == VK_SPACE) Press(false);
            return 0;
        case WM_KEYUP:
            if (wParam == VK_SPACE) Release(true);
            return 0;
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT ButtonControl::ButtonMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case BM_GETCHECK: return check_;
        case BM_SETCHECK: SetCheck(wParam); return 0;
        case BM_GETSTATE:
            return check_ | (pushed_ ? BST_PUSHED : 0u) | (focused_ ? BST_FOCUS : 0u) |
                   (captured_ ? kHeld : 0u);
        case BM_SETSTATE: SetState(wParam != 0); return 0;
        case BM_SETSTYLE:
            SetType(static_cast<DWORD>(wParam) & BS_TYPEMASK, LOWORD(lParam) != 0);
            return 0;
        case BM_CLICK: Click(); return 0;
        case BM_SETDONTCLICK: dont_click_ = wParam != 0; return 0;
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void ButtonControl::GainFocus() {
    focused_ = true;
    if (Type() == BS_OWNERDRAW) {
        PaintNow(ODA_FOCUS);
    } else {
        InvalidateRect(window_, nullptr, FALSE);
    }
    if (HasStyle(BS_NOTIFY)) TellParent(window_, BN_SETFOCUS);
    // A radio button that the focus comes to is chosen, unless it comes by a click or by the arrow
    // keys of a dialog, which choose by themselves.
    if (IsRadio() && check_ == BST_UNCHECKED && !in_click_ && !dont_click_) {
        AutoCheck();
        TellParent(window_, BN_CLICKED);
    }
}

void ButtonControl::LoseFocus() {
    if (captured_ && GetCapture() == window_) ReleaseCapture();
    focused_ = false;
    if (HasStyle(BS_NOTIFY)) TellParent(window_, BN_KILLFOCUS);
    if (Type() == BS_OWNERDRAW) PaintNow(ODA_FOCUS);
    InvalidateRect(window_, nullptr, FALSE);
}

void ButtonControl::Press(bool by_mouse) {
    if (captured_ && !by_mouse) return;  // the key repeats
    // Taking a capture that the window has already tells it of a loss first.
    SetCapture(window_);
    captured_ = true;
    by_mouse_ = by_mouse;
    if (by_mouse) {
        const bool former = in_click_;
        in_click_ = true;
        SetFocus(window_);
        in_click_ = former;
    }
    if (captured_) SendMessageA(window_, BM_SETSTATE, TRUE, 0);
}

void ButtonControl::Hover(POINT point) {
    if (!hovered_ && Type() != BS_OWNERDRAW) {
        hovered_ = true;
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
        TrackMouseEvent(&track);
        InvalidateRect(window_, nullptr, FALSE);
    }
    if (!captured_ || !by_mouse_) return;
    const bool inside = Inside(window_, point);
    if (inside != pushed_) SendMessageA(window_, BM_SETSTATE, inside ? TRUE : FALSE, 0);
}

void ButtonControl::Release(bool inside) {
    if (!captured_) return;
    captured_ = false;
    const bool clicked = pushed_ && inside;
    if (pushed_) SendMessageA(window_, BM_SETSTATE, FALSE, 0);
    if (clicked) AutoCheck();
    if (GetCapture() == window_) ReleaseCapture();
    if (clicked) TellParent(window_, BN_CLICKED);
}

void ButtonControl::LoseCapture() {
    if (!captured_) return;
    captured_ = false;
    if (pushed_) SendMessageA(window_, BM_SETSTATE, FALSE, 0);
}

void ButtonControl::Click() {
    if (in_click_) return;
    in_click_ = true;
    SendMessageA(window_, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    SendMessageA(window_, WM_LBUTTONUP, 0, 0);
    in_click_ = false;
}

void ButtonControl::AutoCheck() {
    switch (Type()) {
        case BS_AUTOCHECKBOX: SendMessageA(window_, BM_SETCHECK, check_ == 0 ? 1 : 0, 0); break;
        case BS_AUTO3STATE: SendMessageA(window_, BM_SETCHECK, (check_ + 1) % 3, 0); break;
        case BS_AUTORADIOBUTTON: CheckRadioGroup(); break;
        default: break;
    }
}

void ButtonControl::CheckRadioGroup() {
    SendMessageA(window_, BM_SETCHECK, BST_CHECKED, 0);
    const HWND parent = GetParent(window_);
    HWND other = GetNextDlgGroupItem(parent, window_, FALSE);
    // Bounded by the windows that were met, as a handler may rearrange the group meanwhile.
    for (int left = 1000; left > 0 && other != nullptr && other != window_; --left) {
        if ((SendMessageA(other, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) {
            SendMessageA(other, BM_SETCHECK, BST_UNCHECKED, 0);
        }
        other = GetNextDlgGroupItem(parent, other, FALSE);
    }
}

void ButtonControl::SetState(bool pushed) {
    if (pushed_ == pushed) return;
    pushed_ = pushed;
    PaintNow(ODA_SELECT);
}

void ButtonControl::SetCheck(WPARAM check) {
    if (!IsCheckBox() && !IsRadio()) return;
    const bool three = Type() == BS_3STATE || Type() == BS_AUTO3STATE;
    const UINT highest = three ? BST_INDETERMINATE : BST_CHECKED;
    const UINT wanted = check > highest ? highest : static_cast<UINT>(check);
    // The Tab key reaches a group of radio buttons at the one that is chosen.
    if (Window* const self = IsRadio() ? LookUp(window_) : nullptr; self != nullptr) {
        self->style =
            wanted != 0 ? self->style | WS_TABSTOP : self->style & ~static_cast<DWORD>(WS_TABSTOP);
    }
    if (check_ == wanted) return;
    check_ = wanted;
    PaintNow(ODA_DRAWENTIRE);
}

void ButtonControl::SetType(DWORD type, bool redraw) {
    Window* const self = LookUp(window_);
    if (self == nullptr) return;
    self->style = (self->style & ~static_cast<DWORD>(BS_TYPEMASK)) | type;
    if (redraw) InvalidateRect(window_, nullptr, TRUE);
}

}  // namespace winbase
