#include "platform/win32/controls/combo_box.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

namespace {

constexpr int kFieldPadding = 8;  // what the field adds to the height of its text
constexpr int kFrame = 2;         // border and the gap inside it
constexpr int kArrowWidth = 20;

}  // namespace

LRESULT CALLBACK ComboBoxControl::Procedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    return HostControl<ComboBoxControl>(window, message, wParam, lParam);
}

// A bar that a program asks for is the list's, and the field draws its own border.
ComboBoxControl::ComboBoxControl(HWND window) : window_(window) {
    const LONG style = GetWindowLongA(window, GWL_STYLE);
    const LONG extended = GetWindowLongA(window, GWL_EXSTYLE);
    constexpr LONG kFrameStyles = WS_VSCROLL | WS_HSCROLL | WS_BORDER;
    SetWindowLongA(window, GWL_STYLE, style & ~kFrameStyles);
    SetWindowLongA(window, GWL_EXSTYLE, extended & ~LONG{WS_EX_CLIENTEDGE});
}

LRESULT ComboBoxControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (list_ == nullptr && message != WM_CREATE)
        return DefWindowProcA(window_, message, wParam, lParam);
    switch (message) {
        case WM_CREATE: return Create(*reinterpret_cast<const CREATESTRUCTA*>(lParam)) ? 0 : -1;
        case WM_DESTROY: {
            const HWND list = list_;
            open_ = false;
            list_ = nullptr;
            if (IsWindow(list)) DestroyWindow(list);
            return 0;
        }
        case WM_WINDOWPOSCHANGING: ChangePosition(*reinterpret_cast<WINDOWPOS*>(lParam)); return 0;
        case WM_SIZE:
            Layout();
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_SETFONT: SetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_PAINT: Paint(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_ENABLE:
            if (HasEdit()) EnableWindow(edit_, wParam != 0);
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_SETTEXT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH: return Text(message, wParam, lParam);
        case WM_COMMAND:
            if (LOWORD(wParam) == kComboEditId) EditCommand(HIWORD(wParam));
            return 0;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORLISTBOX: return SendMessageA(GetParent(window_), message, wParam, lParam);
        case kComboPick: Pick(); return 0;
        case kComboCancel:
            if (open_) Close(Ending::kCancelled);
            return 0;
        default: break;
    }
    if (message >= CB_GETEDITSEL && message <= CB_SETDROPPEDWIDTH)
        return ItemMessage(message, wParam, lParam);
    return InputMessage(message, wParam, lParam);
}

LRESULT ComboBoxControl::ItemMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case CB_ADDSTRING: return List(LB_ADDSTRING, 0, lParam);
        case CB_INSERTSTRING: return List(LB_INSERTSTRING, wParam, lParam);
        case CB_DELETESTRING: return Remove(wParam);
        case CB_RESETCONTENT: Reset(); return CB_OKAY + 1;
        case CB_GETCOUNT: return List(LB_GETCOUNT);
        case CB_GETCURSEL: return Current();
        case CB_SETCURSEL: return SetCurrent(static_cast<int>(wParam));
        case CB_GETLBTEXT: return List(LB_GETTEXT, wParam, lParam);
        case CB_GETLBTEXTLEN: return List(LB_GETTEXTLEN, wParam);
        case CB_GETITEMDATA: return List(LB_GETITEMDATA, wParam);
        case CB_SETITEMDATA: return List(LB_SETITEMDATA, wParam, lParam);
        case CB_FINDSTRING: return List(LB_FINDSTRING, wParam, lParam);
        case CB_FINDSTRINGEXACT: return List(LB_FINDSTRINGEXACT, wParam, lParam);
        case CB_SELECTSTRING: {
            const LRESULT found = List(LB_FINDSTRING, wParam, lParam);
            return found == LB_ERR ? CB_ERR : SetCurrent(static_cast<int>(found));
        }
        default: return FieldMessage(message, wParam, lParam);
    }
}

LRESULT ComboBoxControl::FieldMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case CB_GETEDITSEL:
            return HasEdit() ? SendMessageA(edit_, EM_GETSEL, wParam, lParam) : CB_ERR;
        case CB_SETEDITSEL: {
            if (!HasEdit()) return CB_ERR;
            const auto from = static_cast<short>(LOWORD(lParam));
            const auto to = static_cast<short>(HIWORD(lParam));
            SendMessageA(edit_, EM_SETSEL, static_cast<WPARAM>(from), to);
            return TRUE;
        }
        case CB_LIMITTEXT:
            if (HasEdit()) SendMessageA(edit_, EM_LIMITTEXT, wParam, 0);
            return TRUE;
        case CB_SHOWDROPDOWN:
            if (wParam != 0 && !open_) Open();
            if (wParam == 0 && open_) Close(Ending::kCancelled);
            return TRUE;
        case CB_GETDROPPEDSTATE: return open_ ? TRUE : FALSE;
        case CB_GETDROPPEDCONTROLRECT: {
            auto& rect = *reinterpret_cast<RECT*>(lParam);
            GetWindowRect(window_, &rect);
            rect.bottom = rect.top + std::max(dropped_height_, FieldHeight());
            return TRUE;
        }
        case CB_GETITEMHEIGHT:
            return static_cast<LONG>(wParam) == -1 ? FieldHeight() - 2 * kFrame
                                                   : List(LB_GETITEMHEIGHT);
        case CB_SETITEMHEIGHT:
            if (lParam <= 0 || lParam > 255) return CB_ERR;
            if (static_cast<LONG>(wParam) != -1) return List(LB_SETITEMHEIGHT, 0, lParam);
            field_height_ = static_cast<int>(lParam) + 2 * kFrame;
            Layout();
            return CB_OKAY;
        case CB_GETDROPPEDWIDTH: return dropped_width_;
        case CB_SETDROPPEDWIDTH: dropped_width_ = static_cast<int>(wParam); return dropped_width_;
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

bool ComboBoxControl::Create(const CREATESTRUCTA& create) {
    const auto style = static_cast<DWORD>(create.style);
    assert((style & CBS_OWNERDRAWFIXED) == 0 && (style & 3) >= CBS_DROPDOWN &&
           "combo boxes drop down and draw themselves");
    dropped_height_ = create.cy;
    const DWORD sort = (style & CBS_SORT) != 0 ? LBS_SORT : 0;
    list_ = CreateWindowExA(
        WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, "ComboLBox", "",
        WS_POPUP | WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | sort, 0, 0,
        create.cx, 1, window_, nullptr, create.hInstance, window_);
    if (list_ == nullptr) return false;
    SetWindowLongPtrA(list_, GWLP_ID, kComboListId);
    if ((style & 3) == CBS_DROPDOWN) {
        edit_ = CreateWindowExA(0, "Edit", create.lpszName != nullptr ? create.lpszName : "",
                                WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, 1, 1, window_,
                                reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(kComboEditId)),
                                create.hInstance, nullptr);
        if (edit_ == nullptr) return false;
        edit_procedure_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditProcedure)));
        if ((style & WS_DISABLED) != 0) EnableWindow(edit_, FALSE);
    }
    Layout();
    return true;
}

int ComboBoxControl::FieldHeight() const {
    return field_height_ > 0 ? field_height_ : LineHeight(font_) + kFieldPadding + 2 * kFrame;
}

void ComboBoxControl::Layout() {
    if (list_ == nullptr) return;
    RECT window{};
    GetWindowRect(window_, &window);
    if (window.bottom - window.top != FieldHeight()) {
        SetWindowPos(window_, nullptr, 0, 0, window.right - window.left, FieldHeight(),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
    }
    if (!HasEdit()) return;
    const RECT field = FieldRect();
    MoveWindow(edit_, field.left, field.top, std::max<int>(field.right - field.left, 0),
               std::max<int>(field.bottom - field.top, 0), TRUE);
}

// The height that a program gives is the open list's; the field keeps its own.
void ComboBoxControl::ChangePosition(WINDOWPOS& position) {
    if ((position.flags & SWP_NOSIZE) != 0) return;
    if (position.cy != FieldHeight()) dropped_height_ = position.cy;
    position.cy = FieldHeight();
}

RECT ComboBoxControl::ArrowRect() const {
    RECT client{};
    GetClientRect(window_, &client);
    InflateRect(&client, -1, -1);
    client.left = std::max<LONG>(client.right - kArrowWidth, client.left);
    return client;
}

RECT ComboBoxControl::FieldRect() const {
    RECT client{};
    GetClientRect(window_, &client);
    InflateRect(&client, -kFrame, -kFrame);
    client.right = std::max<LONG>(ArrowRect().left, client.left);
    return client;
}

void ComboBoxControl::SetFont(HFONT font, bool redraw) {
    font_ = font;
    List(WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
    if (HasEdit()) SendMessageA(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(font), 0);
    Layout();
    if (redraw) InvalidateRect(window_, nullptr, TRUE);
}

std::string ComboBoxControl::TextOf(int index) const {
    const LRESULT length = index >= 0 ? List(LB_GETTEXTLEN, static_cast<WPARAM>(index)) : LB_ERR;
    if (length == LB_ERR) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    List(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool ComboBoxControl::Tell(int code) const {
    const HWND window = window_;
    TellParent(window_, code);
    return IsWindow(window) != 0;
}

LRESULT ComboBoxControl::SetCurrent(int index) {
    const bool found = index >= 0 && index < List(LB_GETCOUNT);
    List(LB_SETCURSEL, static_cast<WPARAM>(found ? index : -1));
    typed_ = false;
    if (HasEdit()) {
        SetEditText(TextOf(found ? index : -1).c_str());
    } else {
        InvalidateRect(window_, nullptr, TRUE);
    }
    return found ? index : CB_ERR;
}

LRESULT ComboBoxControl::Remove(WPARAM index) {
    const LRESULT left = List(LB_DELETESTRING, index);
    if (!HasEdit()) InvalidateRect(window_, nullptr, TRUE);
    return left;
}

void ComboBoxControl::Reset() {
    const HWND window = window_;
    if (open_) Close(Ending::kCancelled);
    if (!IsWindow(window)) return;
    List(LB_RESETCONTENT);
    if (HasEdit()) SetEditText("");
    InvalidateRect(window_, nullptr, TRUE);
}

void ComboBoxControl::SetEditText(const char* text) {
    setting_text_ = true;
    SetWindowTextA(edit_, text);
    setting_text_ = false;
}

void ComboBoxControl::ShowCurrentInEdit() {
    typed_ = false;
    if (!HasEdit()) {
        InvalidateRect(window_, nullptr, TRUE);
        return;
    }
    SetEditText(TextOf(Current()).c_str());
    SendMessageA(edit_, EM_SETSEL, 0, -1);
}

LRESULT ComboBoxControl::Text(UINT message, WPARAM wParam, LPARAM lParam) {
    if (HasEdit()) {
        setting_text_ = message == WM_SETTEXT;
        const LRESULT result = SendMessageA(edit_, message, wParam, lParam);
        setting_text_ = false;
        return result;
    }
    const std::string text = TextOf(Current());
    if (message == WM_GETTEXTLENGTH) return static_cast<LRESULT>(text.size());
    if (message == WM_SETTEXT || wParam == 0 || lParam == 0) return CB_ERR;
    const std::size_t length = std::min<std::size_t>(text.size(), wParam - 1);
    auto* const buffer = reinterpret_cast<char*>(lParam);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return static_cast<LRESULT>(length);
}

void ComboBoxControl::EditCommand(int code) {
    switch (code) {
        case EN_UPDATE:
            if (!setting_text_) Tell(CBN_EDITUPDATE);
            return;
        case EN_CHANGE:
            if (setting_text_) return;
            typed_ = true;
            List(LB_SETCURSEL, static_cast<WPARAM>(-1));
            Tell(CBN_EDITCHANGE);
            return;
        case EN_SETFOCUS: GainFocus(); return;
        case EN_KILLFOCUS: LoseFocus(next_focus_); return;
        default: return;
    }
}

}  // namespace winbase
