// Opening and closing the list, keys, mouse and painting of the combo box.

#include <algorithm>

#include "platform/win32/controls/combo_box.h"
#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

namespace {

constexpr int kUsualRows = 8;  // of a list whose height nobody gave
constexpr int kListFrame = 2;  // both borders of the drop list
constexpr int kTextInset = 4;

bool IsListKey(WPARAM key) {
    return key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT;
}

}  // namespace

LRESULT ComboBoxControl::InputMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE: {
            // An open list wants Enter and Escape for itself.
            LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
            if (open_ && lParam != 0) {
                const MSG& asked = *reinterpret_cast<const MSG*>(lParam);
                const bool ends = asked.wParam == VK_RETURN || asked.wParam == VK_ESCAPE;
                if (asked.message == WM_KEYDOWN && ends) code |= DLGC_WANTMESSAGE;
            }
            return code;
        }
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: {
            const HWND window = window_;
            const HWND focus = HasEdit() ? edit_ : window_;
            if (GetFocus() != focus) SetFocus(focus);
            if (IsWindow(window) && !open_) Open();
            return 0;
        }
        case WM_SETFOCUS:
            if (HasEdit()) {
                SetFocus(edit_);
                SendMessageA(edit_, EM_SETSEL, 0, -1);
            } else {
                GainFocus();
            }
            return 0;
        case WM_KILLFOCUS:
            if (!HasEdit()) LoseFocus(reinterpret_cast<HWND>(wParam));
            return 0;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            if (Key(wParam)) return 0;
            break;
        case WM_CHAR:
            if (!HasEdit()) Character(static_cast<unsigned char>(wParam));
            return 0;
        case WM_MOUSEWHEEL: {
            if (open_) return SendMessageA(list_, message, wParam, lParam);
            const int step = GET_WHEEL_DELTA_WPARAM(wParam) < 0 ? 1 : -1;
            const int last = static_cast<int>(List(LB_GETCOUNT)) - 1;
            if (last >= 0) MoveTo(std::clamp(Current() + step, 0, last));
            return 0;
        }
        default: break;
    }
    return DefWindowProcA(window_, message, wParam, lParam);
}

LRESULT CALLBACK ComboBoxControl::EditProcedure(HWND window, UINT message, WPARAM wParam,
                                                LPARAM lParam) {
    const HWND combo = GetParent(window);
    const auto control = HostedControl<ComboBoxControl>(combo);
    if (control == nullptr) return DefWindowProcA(window, message, wParam, lParam);
    const WNDPROC next = control->edit_procedure_;
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            if (control->Key(wParam)) return 0;
            break;
        case WM_CHAR:
            // The list took these keys.
            if (control->open_ && (wParam == VK_RETURN || wParam == VK_ESCAPE)) return 0;
            break;
        case WM_KILLFOCUS: control->next_focus_ = reinterpret_cast<HWND>(wParam); break;
        case WM_GETDLGCODE:
            return CallWindowProcA(next, window, message, wParam, lParam) |
                   (SendMessageA(combo, WM_GETDLGCODE, wParam, lParam) & DLGC_WANTMESSAGE);
        case WM_MOUSEWHEEL: return SendMessageA(combo, message, wParam, lParam);
        default: break;
    }
    return CallWindowProcA(next, window, message, wParam, lParam);
}

void ComboBoxControl::Open() {
    if (!Tell(CBN_DROPDOWN) || list_ == nullptr) return;
    PlaceList();
    open_ = true;
    const int current = Current();
    if (current >= 0) List(LB_SETCURSEL, static_cast<WPARAM>(current));
    SetWindowPos(list_, HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    SetCapture(list_);
    InvalidateRect(window_, nullptr, TRUE);
}

void ComboBoxControl::PlaceList() {
    RECT field{};
    GetWindowRect(window_, &field);
    const int height = ShownRows() * static_cast<int>(List(LB_GETITEMHEIGHT)) + kListFrame;
    const int width = std::max<int>(dropped_width_, field.right - field.left);
    int top = field.bottom;
    if (top + height > GetSystemMetrics(SM_CYSCREEN) && field.top - height >= 0)
        top = field.top - height;
    SetWindowPos(list_, nullptr, field.left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

int ComboBoxControl::ShownRows() const {
    const auto row = static_cast<int>(List(LB_GETITEMHEIGHT));
    const auto rows = static_cast<int>(List(LB_GETCOUNT));
    int room = dropped_height_ - FieldHeight() - kListFrame;
    if (room < row) room = kUsualRows * row;
    return std::clamp(rows, 1, std::max(room / row, 1));
}

void ComboBoxControl::Close(Ending ending) {
    if (!open_) return;
    const HWND window = window_;
    const HWND list = list_;
    open_ = false;
    if (!Tell(ending == Ending::kPicked ? CBN_SELENDOK : CBN_SELENDCANCEL)) return;
    if (GetCapture() == list) ReleaseCapture();
    ShowWindow(list, SW_HIDE);
    InvalidateRect(window, nullptr, TRUE);
    Tell(CBN_CLOSEUP);
}

void ComboBoxControl::Pick() {
    if (!open_) return;
    const HWND window = window_;
    ShowCurrentInEdit();
    Close(Ending::kPicked);
    if (IsWindow(window)) Tell(CBN_SELCHANGE);
}

bool ComboBoxControl::Key(WPARAM key) {
    const bool alt = GetKeyState(VK_MENU) < 0;
    if (key == VK_F4 || (alt && (key == VK_DOWN || key == VK_UP))) {
        if (open_) {
            Close(Ending::kCancelled);
        } else {
            Open();
        }
        return true;
    }
    if (open_ && (key == VK_RETURN || key == VK_ESCAPE)) {
        if (key == VK_RETURN) ShowCurrentInEdit();
        Close(key == VK_RETURN ? Ending::kPicked : Ending::kCancelled);
        return true;
    }
    if (!IsListKey(key) && (HasEdit() || (key != VK_HOME && key != VK_END))) return false;
    const auto count = static_cast<int>(List(LB_GETCOUNT));
    if (count == 0) return true;
    const int page = std::max(ShownRows() - 1, 1);
    int target = Current();
    switch (key) {
        case VK_UP: --target; break;
        case VK_DOWN: ++target; break;
        case VK_PRIOR: target -= page; break;
        case VK_NEXT: target += page; break;
        case VK_HOME: target = 0; break;
        default: target = count - 1; break;
    }
    if (typed_ && HasEdit() && Current() < 0) {
        // The first key behind typed text looks for the row that it begins.
        char typed[256] = "";
        GetWindowTextA(edit_, typed, sizeof typed);
        const LRESULT found =
            List(LB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(typed));
        if (found >= 0) target = static_cast<int>(found);
    }
    MoveTo(std::clamp(target, 0, count - 1));
    return true;
}

void ComboBoxControl::MoveTo(int index) {
    List(LB_SETCURSEL, static_cast<WPARAM>(index));
    ShowCurrentInEdit();
    if (!open_ && !Tell(CBN_SELENDOK)) return;
    Tell(CBN_SELCHANGE);
}

void ComboBoxControl::Character(unsigned char byte) {
    if (byte <= ' ') return;
    const char text[2] = {static_cast<char>(byte), '\0'};
    const LRESULT found =
        List(LB_FINDSTRING, static_cast<WPARAM>(Current()), reinterpret_cast<LPARAM>(text));
    if (found >= 0) MoveTo(static_cast<int>(found));
}

void ComboBoxControl::GainFocus() {
    if (focused_) return;
    focused_ = true;
    InvalidateRect(window_, nullptr, TRUE);
    Tell(CBN_SETFOCUS);
}

void ComboBoxControl::LoseFocus(HWND to) {
    if (!focused_ || to == window_ || to == list_) return;
    focused_ = false;
    InvalidateRect(window_, nullptr, TRUE);
    const HWND window = window_;
    if (open_) {
        Close(Ending::kCancelled);
    } else if (!Tell(CBN_SELENDCANCEL)) {
        return;
    }
    if (IsWindow(window)) Tell(CBN_KILLFOCUS);
}

void ComboBoxControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    RECT client{};
    GetClientRect(window_, &client);
    const bool enabled = IsWindowEnabled(window_) != 0;
    const bool active = enabled && (focused_ || open_);
    DrawBox(dc, client, active ? look::kAccent : look::kLine,
            enabled ? look::kPaper : look::kGround, look::kGround);
    DrawChevron(dc, ArrowRect(), open_ ? Direction::kUp : Direction::kDown,
                enabled ? look::kSecondary : look::kDisabled);
    PaintField(dc, FieldRect());
    EndPaint(window_, &paint);
}

void ComboBoxControl::PaintField(HDC dc, const RECT& field) {
    const UseFont use(dc, font_);
    const bool enabled = IsWindowEnabled(window_) != 0;
    const HBRUSH brush = AskColors(window_, dc, enabled ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC);
    FillRect(dc, &field, brush);
    if (HasEdit()) return;
    SetBkMode(dc, TRANSPARENT);
    if (!enabled) SetTextColor(dc, look::kDisabled);
    RECT text = field;
    InflateRect(&text, -kTextInset, 0);
    const std::string bytes = TextOf(Current());
    DrawTextA(dc, bytes.c_str(), static_cast<int>(bytes.size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace winbase
