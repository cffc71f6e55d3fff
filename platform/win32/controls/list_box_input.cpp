// Mouse, keys and painting of the list box.

#include <algorithm>

#include "platform/win32/controls/combo_box.h"
#include "platform/win32/controls/control.h"
#include "platform/win32/controls/list_box.h"

namespace winbase {

namespace {

constexpr int kTextInset = 4;

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

LRESULT ListBoxControl::InputMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN: Press(PointFrom(lParam)); return 0;
        case WM_LBUTTONDBLCLK:
            if (IsDropList()) {
                Press(PointFrom(lParam));
            } else if (RowAt(PointFrom(lParam)) >= 0) {
                Tell(LBN_DBLCLK);
            }
            return 0;
        case WM_MOUSEMOVE: Drag(PointFrom(lParam)); return 0;
        case WM_LBUTTONUP: Release(PointFrom(lParam)); return 0;
        case WM_MOUSEACTIVATE:
            if (IsDropList()) return MA_NOACTIVATE;
            break;
        case WM_CAPTURECHANGED:
            pressed_ = false;
            if (IsDropList() && !passing_to_bar_) {
                SendMessageA(combo_, kComboCancel, 0, 0);
            }
            return 0;
        case WM_MOUSEWHEEL: {
            constexpr int kRowsPerNotch = 3;
            SetTop(top_ - GET_WHEEL_DELTA_WPARAM(wParam) * kRowsPerNotch / WHEEL_DELTA);
            return 0;
        }
        case WM_SETFOCUS: Focus(true); return 0;
        case WM_KILLFOCUS: Focus(false); return 0;
        case WM_KEYDOWN: Key(wParam); return 0;
        case WM_CHAR: Character(static_cast<unsigned char>(wParam)); return 0;
        default: break;
    }
    return DefWindowProcA(window_, message, wParam, lParam);
}

void ListBoxControl::Press(POINT point) {
    if (IsDropList()) {
        RECT client{};
        RECT whole{};
        GetClientRect(window_, &client);
        GetWindowRect(window_, &whole);
        POINT screen = point;
        ClientToScreen(window_, &screen);
        if (PtInRect(&client, point)) {
            pressed_ = true;
            Drag(point);
        } else if (PtInRect(&whole, screen)) {
            PressScrollBar(screen);
        } else {
            SendMessageA(combo_, kComboCancel, 0, 0);
        }
        return;
    }
    if (GetFocus() != window_) SetFocus(window_);
    const int row = RowAt(point);
    if (!IsWindow(window_) || row < 0) return;
    // Taking a capture that the window has already tells it of a loss first.
    SetCapture(window_);
    pressed_ = true;
    Highlight(row);
}

// The bar tracks with a capture of its own, which the list takes back afterwards.
void ListBoxControl::PressScrollBar(POINT screen) {
    passing_to_bar_ = true;
    ReleaseCapture();
    SendMessageA(window_, WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(screen.x, screen.y));
    if (!IsWindow(window_)) return;
    if (IsWindowVisible(window_)) SetCapture(window_);
    passing_to_bar_ = false;
}

void ListBoxControl::Drag(POINT point) {
    if (!IsDropList() && !pressed_) return;
    const int row = RowAt(point);
    if (row >= 0) {
        Highlight(row);
        return;
    }
    if (!pressed_ || items_.count() == 0) return;
    RECT client{};
    GetClientRect(window_, &client);
    if (point.y < 0) Highlight(top_ > 0 ? top_ - 1 : 0);
    if (point.y >= client.bottom) Highlight(std::min(top_ + VisibleRows(), items_.count() - 1));
    if (current_ >= 0) ShowRow(current_);
}

void ListBoxControl::Release(POINT point) {
    if (IsDropList()) {
        // The release that ends the click on the combo's own arrow picks nothing.
        pressed_ = false;
        if (RowAt(point) >= 0) SendMessageA(combo_, kComboPick, 0, 0);
        return;
    }
    if (!pressed_) return;
    pressed_ = false;
    ReleaseCapture();
    if (current_ >= 0) Tell(LBN_SELCHANGE);
}

void ListBoxControl::Key(WPARAM key) {
    if (items_.count() == 0) return;
    const int last = items_.count() - 1;
    const int page = std::max(VisibleRows() - 1, 1);
    switch (key) {
        case VK_UP: Choose(std::max(current_ - 1, 0)); return;
        case VK_DOWN: Choose(std::min(current_ + 1, last)); return;
        case VK_PRIOR: Choose(std::max(current_ - page, 0)); return;
        case VK_NEXT: Choose(std::min(current_ + page, last)); return;
        case VK_HOME: Choose(0); return;
        case VK_END: Choose(last); return;
        default: return;
    }
}

void ListBoxControl::Character(unsigned char byte) {
    if (!HasStrings() || byte <= ' ') return;
    const int found =
        items_.Find(std::string(1, static_cast<char>(byte)), current_, ListItems::Match::kPrefix);
    if (found >= 0) Choose(found);
}

void ListBoxControl::Choose(int index) {
    Highlight(index);
    ShowRow(index);
    Tell(LBN_SELCHANGE);
}

void ListBoxControl::Highlight(int index) {
    if (index == current_) return;
    const int old = current_;
    if (focused_ && OwnerDrawn()) {
        // Its owner takes the focus mark away and gives it back apart from the selection.
        focus_shown_ = false;
        DrawRowNow(old, ODA_FOCUS);
    }
    current_ = index;
    DrawRowNow(old, ODA_SELECT);
    DrawRowNow(current_, ODA_SELECT);
    focus_shown_ = focused_;
    if (focused_ && OwnerDrawn()) DrawRowNow(current_, ODA_FOCUS);
}

void ListBoxControl::Focus(bool focused) {
    focused_ = focus_shown_ = focused;
    DrawRowNow(current_, ODA_FOCUS);
    if (HasFrame(window_)) RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    Tell(focused ? LBN_SETFOCUS : LBN_KILLFOCUS);
}

void ListBoxControl::RepaintRow(int index) {
    RECT row{};
    if (GetItemRect(static_cast<WPARAM>(index), &row)) InvalidateRect(window_, &row, TRUE);
}

// An owner-drawn row is drawn at once, as owners expect; others wait for the next paint.
void ListBoxControl::DrawRowNow(int index, UINT action) {
    if (!items_.Has(index)) return;
    if (!OwnerDrawn() || !IsWindowVisible(window_)) {
        RepaintRow(index);
        return;
    }
    RECT row{};
    RECT client{};
    GetItemRect(static_cast<WPARAM>(index), &row);
    GetClientRect(window_, &client);
    if (row.bottom <= 0 || row.top >= client.bottom) return;
    const HDC dc = GetDC(window_);
    if (dc == nullptr) return;
    AskRow(dc, index, row, action);
    ReleaseDC(window_, dc);
}

void ListBoxControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    {
        const UseFont use(dc, font_);
        AskColors(window_, dc, WM_CTLCOLORLISTBOX);
        RECT client{};
        GetClientRect(window_, &client);
        RECT row{0, 0, client.right, item_height_};
        for (int index = top_; index < items_.count() && row.top < client.bottom; ++index) {
            RECT damaged{};
            if (IntersectRect(&damaged, &row, &paint.rcPaint)) PaintRow(dc, index, row);
            OffsetRect(&row, 0, item_height_);
        }
    }
    EndPaint(window_, &paint);
}

void ListBoxControl::PaintRow(HDC dc, int index, const RECT& row) {
    if (OwnerDrawn()) {
        AskRow(dc, index, row, ODA_DRAWENTIRE);
        return;
    }
    const bool selected = index == current_;
    const COLORREF old = GetTextColor(dc);
    SetBkMode(dc, TRANSPARENT);
    if (selected) {
        FillRect(dc, &row, GetSysColorBrush(COLOR_HIGHLIGHT));
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    } else if (!IsWindowEnabled(window_)) {
        SetTextColor(dc, look::kDisabled);
    }
    RECT text = row;
    InflateRect(&text, -kTextInset, 0);
    const std::string& bytes = items_.at(index).text;
    DrawTextA(dc, bytes.c_str(), static_cast<int>(bytes.size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SetTextColor(dc, old);
}

void ListBoxControl::AskRow(HDC dc, int index, const RECT& row, UINT action) {
    const UseFont use(dc, font_);
    if (action == ODA_SELECT) AskColors(window_, dc, WM_CTLCOLORLISTBOX);
    DRAWITEMSTRUCT draw{};
    draw.CtlType = ODT_LISTBOX;
    draw.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    draw.itemID = static_cast<UINT>(index);
    draw.itemAction = action;
    draw.itemState = (index == current_ ? ODS_SELECTED : 0U) |
                     (index == current_ && focus_shown_ ? ODS_FOCUS : 0U) |
                     (IsWindowEnabled(window_) ? 0U : ODS_DISABLED);
    draw.hwndItem = window_;
    draw.hDC = dc;
    draw.rcItem = row;
    draw.itemData = items_.at(index).data;
    SendMessageA(Receiver(), WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
}

}  // namespace winbase
