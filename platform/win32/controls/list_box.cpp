#include "platform/win32/controls/list_box.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

namespace {

constexpr int kRowPadding = 5;  // a row is so much higher than its text

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

LRESULT CALLBACK ListBoxControl::Procedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    return HostControl<ListBoxControl>(window, message, wParam, lParam);
}

LRESULT ListBoxControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            Create(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams);
            return 0;
        case WM_DESTROY: Clear(); return 0;
        case WM_SIZE:
            Fit();
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            if (!OwnerDrawn()) item_height_ = LineHeight(font_) + kRowPadding;
            Fit();
            if (LOWORD(lParam) != 0) InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_PAINT: Paint(); return 0;
        case WM_NCPAINT:
            DefWindowProcA(window_, message, wParam, lParam);
            if (HasFrame(window_)) PaintInputFrame(window_, focused_, nullptr);
            return 0;
        case WM_ERASEBKGND: {
            const HDC dc = reinterpret_cast<HDC>(wParam);
            RECT client{};
            GetClientRect(window_, &client);
            FillRect(dc, &client, AskColors(window_, dc, WM_CTLCOLORLISTBOX));
            return 1;
        }
        case WM_ENABLE: InvalidateRect(window_, nullptr, TRUE); return 0;
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_VSCROLL: Scroll(LOWORD(wParam), static_cast<short>(HIWORD(wParam))); return 0;
        default: break;
    }
    if (message >= LB_ADDSTRING && message <= LB_ITEMFROMPOINT)
        return ItemMessage(message, wParam, lParam);
    return InputMessage(message, wParam, lParam);
}

LRESULT ListBoxControl::ItemMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
        case LB_ADDSTRING: return Add(lParam);
        case LB_INSERTSTRING: return Insert(index, lParam);
        case LB_DELETESTRING: return Remove(wParam);
        case LB_RESETCONTENT:
            Clear();
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case LB_GETCOUNT: return items_.count();
        case LB_SETCURSEL: return SetCurrent(index);
        case LB_GETCURSEL: return current_;
        case LB_GETSEL: return items_.Has(index) ? (index == current_ ? 1 : 0) : LB_ERR;
        case LB_GETTEXT: return GetText(wParam, reinterpret_cast<char*>(lParam));
        case LB_GETTEXTLEN:
            if (!items_.Has(index)) return LB_ERR;
            return HasStrings() ? static_cast<LRESULT>(items_.at(index).text.size())
                                : sizeof(ULONG_PTR);
        case LB_GETITEMDATA:
            return items_.Has(index) ? static_cast<LRESULT>(items_.at(index).data) : LB_ERR;
        case LB_SETITEMDATA:
            if (!items_.Has(index)) return LB_ERR;
            items_.at(index).data = static_cast<ULONG_PTR>(lParam);
            return TRUE;
        case LB_FINDSTRING:
        case LB_FINDSTRINGEXACT: {
            if (lParam == 0) return LB_ERR;
            const auto match =
                message == LB_FINDSTRING ? ListItems::Match::kPrefix : ListItems::Match::kWhole;
            return items_.Find(reinterpret_cast<const char*>(lParam), index, match);
        }
        case LB_SELECTSTRING: {
            if (lParam == 0) return LB_ERR;
            const int found = items_.Find(reinterpret_cast<const char*>(lParam), index,
                                          ListItems::Match::kPrefix);
            return found < 0 ? LB_ERR : SetCurrent(found);
        }
        default: return PlaceMessage(message, wParam, lParam);
    }
}

LRESULT ListBoxControl::PlaceMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case LB_GETTOPINDEX: return top_;
        case LB_SETTOPINDEX: SetTop(static_cast<int>(wParam)); return 0;
        case LB_GETITEMHEIGHT: return item_height_;
        case LB_SETITEMHEIGHT: return SetItemHeight(static_cast<WPARAM>(lParam));
        case LB_GETITEMRECT:
            return GetItemRect(wParam, reinterpret_cast<RECT*>(lParam)) ? 1 : LB_ERR;
        case LB_ITEMFROMPOINT: return ItemFromPoint(lParam);
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void ListBoxControl::Create(void* parameter) {
    assert(!HasStyle(LBS_OWNERDRAWVARIABLE) && "rows have one height");
    char name[32] = "";
    GetClassNameA(window_, name, sizeof name);
    if (lstrcmpiA(name, "ComboLBox") == 0) combo_ = static_cast<HWND>(parameter);
    item_height_ = LineHeight(nullptr) + kRowPadding;
    has_bar_ = HasStyle(WS_VSCROLL);
    if (OwnerDrawn()) AskItemHeight();
    Fit();
}

void ListBoxControl::AskItemHeight() {
    MEASUREITEMSTRUCT measure{};
    measure.CtlType = ODT_LISTBOX;
    measure.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    measure.itemID = static_cast<UINT>(-1);
    measure.itemHeight = static_cast<UINT>(item_height_);
    SendMessageA(Receiver(), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    if (measure.itemHeight > 0 && measure.itemHeight < 256)
        item_height_ = static_cast<int>(measure.itemHeight);
}

LRESULT ListBoxControl::Add(LPARAM lParam) {
    if (HasStyle(LBS_SORT) && HasStrings() && lParam != 0) {
        return Insert(items_.SortedPlace(reinterpret_cast<const char*>(lParam)), lParam);
    }
    return Insert(-1, lParam);
}

LRESULT ListBoxControl::Insert(int index, LPARAM lParam) {
    ListItems::Item item;
    if (HasStrings()) {
        if (lParam != 0) item.text = reinterpret_cast<const char*>(lParam);
    } else {
        item.data = static_cast<ULONG_PTR>(lParam);
    }
    const int place = index == -1 ? items_.count() : index;
    if (!items_.Insert(place, std::move(item))) return LB_ERR;
    if (current_ >= place) ++current_;
    UpdateScrollBar();
    InvalidateRect(window_, nullptr, TRUE);
    return place;
}

LRESULT ListBoxControl::Remove(WPARAM index) {
    const auto place = static_cast<int>(index);
    if (!items_.Has(place)) return LB_ERR;
    TellDeleted(place);
    items_.Remove(place);
    if (current_ == place) current_ = -1;
    if (current_ > place) --current_;
    UpdateScrollBar();
    InvalidateRect(window_, nullptr, TRUE);
    return items_.count();
}

void ListBoxControl::Clear() {
    for (int index = items_.count() - 1; index >= 0; --index) TellDeleted(index);
    items_.Clear();
    current_ = -1;
    top_ = 0;
    UpdateScrollBar();
}

void ListBoxControl::TellDeleted(int index) const {
    if (!OwnerDrawn()) return;
    DELETEITEMSTRUCT deleted{};
    deleted.CtlType = ODT_LISTBOX;
    deleted.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    deleted.itemID = static_cast<UINT>(index);
    deleted.hwndItem = window_;
    deleted.itemData = items_.at(index).data;
    SendMessageA(Receiver(), WM_DELETEITEM, deleted.CtlID, reinterpret_cast<LPARAM>(&deleted));
}

LRESULT ListBoxControl::GetText(WPARAM index, char* buffer) const {
    if (!items_.Has(static_cast<int>(index)) || buffer == nullptr) return LB_ERR;
    const ListItems::Item& item = items_.at(static_cast<int>(index));
    if (!HasStrings()) {
        std::memcpy(buffer, &item.data, sizeof item.data);
        return sizeof item.data;
    }
    // The caller's buffer has room for LB_GETTEXTLEN and a terminator: this call's contract.
    std::memcpy(buffer, item.text.c_str(), item.text.size() + 1);
    return static_cast<LRESULT>(item.text.size());
}

LRESULT ListBoxControl::SetCurrent(int index) {
    if (index != -1 && !items_.Has(index)) return LB_ERR;
    Highlight(index);
    if (index >= 0) ShowRow(index);
    return index;
}

LRESULT ListBoxControl::SetItemHeight(WPARAM height) {
    if (height == 0 || height > 255) return LB_ERR;
    item_height_ = static_cast<int>(height);
    Fit();
    InvalidateRect(window_, nullptr, TRUE);
    return LB_OKAY;
}

LRESULT ListBoxControl::ItemFromPoint(LPARAM lParam) const {
    const POINT point = PointFrom(lParam);
    RECT client{};
    GetClientRect(window_, &client);
    const bool outside = !PtInRect(&client, point);
    const int last = std::max(std::min(items_.count(), top_ + VisibleRows()) - 1, 0);
    const int y = std::clamp<int>(point.y, 0, std::max<int>(client.bottom - 1, 0));
    const int row = std::min(top_ + y / item_height_, last);
    return MAKELRESULT(row, outside ? 1 : 0);
}

BOOL ListBoxControl::GetItemRect(WPARAM index, RECT* rect) const {
    const auto place = static_cast<int>(index);
    if (!items_.Has(place) || rect == nullptr) return FALSE;
    GetClientRect(window_, rect);
    rect->top = (place - top_) * item_height_;
    rect->bottom = rect->top + item_height_;
    return TRUE;
}

int ListBoxControl::VisibleRows() const {
    RECT client{};
    GetClientRect(window_, &client);
    return std::max<int>(client.bottom / item_height_, 1);
}

int ListBoxControl::RowAt(POINT point) const {
    RECT client{};
    GetClientRect(window_, &client);
    if (!PtInRect(&client, point)) return -1;
    const int row = top_ + point.y / item_height_;
    return row < items_.count() ? row : -1;
}

void ListBoxControl::ShowRow(int index) {
    if (index < top_) SetTop(index);
    if (index >= top_ + VisibleRows()) SetTop(index - VisibleRows() + 1);
}

void ListBoxControl::SetTop(int top) {
    const int target = std::clamp(top, 0, std::max(items_.count() - VisibleRows(), 0));
    if (target == top_) return;
    top_ = target;
    UpdateScrollBar();
    InvalidateRect(window_, nullptr, TRUE);
}

void ListBoxControl::Fit() {
    UpdateScrollBar();
    if (HasStyle(LBS_NOINTEGRALHEIGHT)) return;
    // Only whole rows are shown: the window gives up what is left over.
    RECT client{};
    RECT whole{};
    GetClientRect(window_, &client);
    GetWindowRect(window_, &whole);
    const int rest = client.bottom % item_height_;
    if (rest == 0 || client.bottom < item_height_) return;
    SetWindowPos(window_, nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top - rest,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ListBoxControl::UpdateScrollBar() {
    top_ = std::clamp(top_, 0, std::max(items_.count() - VisibleRows(), 0));
    // Told at creation: the style goes while the bar is hidden.
    if (!has_bar_) return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    if (HasStyle(LBS_DISABLENOSCROLL)) info.fMask |= SIF_DISABLENOSCROLL;
    info.nMax = std::max(items_.count() - 1, 0);
    info.nPage = static_cast<UINT>(VisibleRows());
    info.nPos = top_;
    SetScrollInfo(window_, SB_VERT, &info, TRUE);
}

void ListBoxControl::Scroll(int code, int position) {
    switch (code) {
        case SB_LINEUP: SetTop(top_ - 1); return;
        case SB_LINEDOWN: SetTop(top_ + 1); return;
        case SB_PAGEUP: SetTop(top_ - VisibleRows()); return;
        case SB_PAGEDOWN: SetTop(top_ + VisibleRows()); return;
        case SB_TOP: SetTop(0); return;
        case SB_BOTTOM: SetTop(items_.count()); return;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: SetTop(position); return;
        default: return;
    }
}

void ListBoxControl::Tell(int code) const {
    if (!IsDropList() && !HasStyle(LBS_NOTIFY)) return;
    SendMessageA(Receiver(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window_), code),
                 reinterpret_cast<LPARAM>(window_));
}

}  // namespace winbase
