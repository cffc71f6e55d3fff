#include "platform/win32/controls/tab_control.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

namespace {

constexpr int kTextInset = 12;
constexpr int kTabHeight = 20;

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

LRESULT CALLBACK TabControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return HostControl<TabControl>(window, message, wParam, lParam);
}

LRESULT TabControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: Paint(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_SIZE:
            Layout();
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            Layout();
            RepaintTabs();
            return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_ENABLE: RepaintTabs(); return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: Click(PointFrom(lParam)); return 0;
        case WM_MOUSEMOVE: {
            const int over = HitTest(PointFrom(lParam));
            if (over == hovered_) return 0;
            hovered_ = over;
            TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
            TrackMouseEvent(&track);
            RepaintTabs();
            return 0;
        }
        case WM_MOUSELEAVE:
            hovered_ = -1;
            RepaintTabs();
            return 0;
        case WM_KEYDOWN: Key(wParam); return 0;
        default: break;
    }
    if (message >= TCM_GETITEMCOUNT && message <= TCM_SETCURFOCUS)
        return ItemMessage(message, wParam, lParam);
    return DefWindowProcA(window_, message, wParam, lParam);
}

LRESULT TabControl::ItemMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto index = static_cast<int>(wParam);
    switch (message) {
        case TCM_GETITEMCOUNT: return static_cast<LRESULT>(items_.size());
        case TCM_INSERTITEMA: return Insert(index, *reinterpret_cast<const TCITEMA*>(lParam));
        case TCM_GETITEMA: return GetItem(index, *reinterpret_cast<TCITEMA*>(lParam));
        case TCM_SETITEMA: return SetItem(index, *reinterpret_cast<const TCITEMA*>(lParam));
        case TCM_DELETEITEM: return Remove(index);
        case TCM_DELETEALLITEMS: Clear(); return TRUE;
        case TCM_GETITEMRECT:
            if (!Has(index)) return FALSE;
            *reinterpret_cast<RECT*>(lParam) = items_[static_cast<std::size_t>(index)].rect;
            return TRUE;
        case TCM_GETCURSEL: return current_;
        case TCM_GETCURFOCUS: return focused_item_;
        case TCM_SETCURSEL: return SetCurrent(index);
        case TCM_SETCURFOCUS:
            if (Has(index)) Choose(index);
            return 0;
        case TCM_HITTEST: {
            auto& test = *reinterpret_cast<TCHITTESTINFO*>(lParam);
            const int hit = HitTest(test.pt);
            test.flags = hit >= 0 ? TCHT_ONITEMLABEL : TCHT_NOWHERE;
            return hit;
        }
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT TabControl::Insert(int index, const TCITEMA& item) {
    if (index < 0) return -1;
    const int place = std::min(index, static_cast<int>(items_.size()));
    Item added;
    if ((item.mask & TCIF_TEXT) != 0 && item.pszText != nullptr) added.text = item.pszText;
    if ((item.mask & TCIF_PARAM) != 0) added.data = item.lParam;
    items_.insert(items_.begin() + place, std::move(added));
    if (current_ < 0 && items_.size() == 1) {
        current_ = focused_item_ = 0;
    } else if (place <= current_) {
        ++current_;
    }
    Layout();
    RepaintTabs();
    return place;
}

LRESULT TabControl::GetItem(int index, TCITEMA& item) const {
    if (!Has(index)) return FALSE;
    const Item& found = items_[static_cast<std::size_t>(index)];
    if ((item.mask & TCIF_PARAM) != 0) item.lParam = found.data;
    if ((item.mask & TCIF_TEXT) != 0 && item.pszText != nullptr && item.cchTextMax > 0) {
        lstrcpynA(item.pszText, found.text.c_str(), item.cchTextMax);
    }
    return TRUE;
}

LRESULT TabControl::SetItem(int index, const TCITEMA& item) {
    if (!Has(index)) return FALSE;
    Item& found = items_[static_cast<std::size_t>(index)];
    if ((item.mask & TCIF_TEXT) != 0) found.text = item.pszText != nullptr ? item.pszText : "";
    if ((item.mask & TCIF_PARAM) != 0) found.data = item.lParam;
    Layout();
    RepaintTabs();
    return TRUE;
}

LRESULT TabControl::Remove(int index) {
    if (!Has(index)) return FALSE;
    items_.erase(items_.begin() + index);
    if (current_ == index) current_ = -1;
    if (current_ > index) --current_;
    focused_item_ = std::min(focused_item_, static_cast<int>(items_.size()) - 1);
    Layout();
    RepaintTabs();
    return TRUE;
}

void TabControl::Clear() {
    items_.clear();
    current_ = focused_item_ = -1;
    RepaintTabs();
}

LRESULT TabControl::SetCurrent(int index) {
    if (index != -1 && !Has(index)) return -1;
    const int old = current_;
    current_ = focused_item_ = index;
    RepaintTabs();
    return old;
}

LRESULT TabControl::Tell(UINT code) {
    NMHDR header{};
    return TellParent(window_, header, code);
}

void TabControl::Choose(int index) {
    if (index == current_) return;
    const HWND window = window_;
    const bool refused = Tell(TCN_SELCHANGING) != 0;
    if (!IsWindow(window) || refused) return;
    SetCurrent(index);
    Tell(TCN_SELCHANGE);
}

void TabControl::Click(POINT point) {
    const HWND window = window_;
    const int hit = HitTest(point);
    if (hit < 0) return;
    if (hit == current_) {
        SetFocus(window_);
    } else {
        Choose(hit);
    }
    if (IsWindow(window)) Tell(NM_CLICK);
}

void TabControl::Key(WPARAM key) {
    const HWND window = window_;
    NMTCKEYDOWN down{};
    down.wVKey = static_cast<WORD>(key);
    NMHDR header{};
    header.hwndFrom = window_;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    header.code = TCN_KEYDOWN;
    down.hdr = header;
    SendMessageA(GetParent(window_), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&down));
    if (!IsWindow(window)) return;
    if (key == VK_LEFT && current_ > 0) Choose(current_ - 1);
    if (key == VK_RIGHT && Has(current_ + 1)) Choose(current_ + 1);
}

int TabControl::HitTest(POINT point) const {
    for (std::size_t index = 0; index < items_.size(); ++index) {
        if (PtInRect(&items_[index].rect, point)) return static_cast<int>(index);
    }
    return -1;
}

void TabControl::RepaintTabs() {
    RECT tabs{};
    GetClientRect(window_, &tabs);
    tabs.bottom = std::min<LONG>(tabs.bottom, kTabHeight);
    InvalidateRect(window_, &tabs, TRUE);
}

void TabControl::Layout() {
    const HDC dc = CreateCompatibleDC(nullptr);
    {
        const UseFont use(dc, font_);
        LONG left = 0;
        for (Item& item : items_) {
            SIZE size{};
            GetTextExtentPoint32A(dc, item.text.c_str(), static_cast<int>(item.text.size()), &size);
            item.rect = {left, 0, left + size.cx + 2 * kTextInset, kTabHeight};
            left = item.rect.right;
        }
    }
    DeleteDC(dc);
}

void TabControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    RECT client{};
    GetClientRect(window_, &client);
    FillColor(dc, client, look::kGround);
    RECT page = client;
    page.top = kTabHeight - 1;
    const HBRUSH line = CreateSolidBrush(look::kLine);
    FrameRect(dc, &page, line);
    DeleteObject(line);
    const UseFont use(dc, font_);
    SetBkMode(dc, TRANSPARENT);
    for (std::size_t index = 0; index < items_.size(); ++index)
        PaintItem(dc, static_cast<int>(index));
    EndPaint(window_, &paint);
}

void TabControl::PaintItem(HDC dc, int index) const {
    const Item& item = items_[static_cast<std::size_t>(index)];
    const bool current = index == current_;
    RECT tab = item.rect;
    if (current) {
        // The page's line opens under its tab, and an accent stands above it.
        const HBRUSH line = CreateSolidBrush(look::kLine);
        FrameRect(dc, &tab, line);
        DeleteObject(line);
        FillColor(dc, {tab.left + 1, tab.top + 2, tab.right - 1, tab.bottom}, look::kGround);
        FillColor(dc, {tab.left, tab.top, tab.right, tab.top + 2}, look::kAccent);
    } else if (index == hovered_) {
        FillColor(dc, {tab.left + 1, tab.top + 2, tab.right - 1, tab.bottom - 1}, look::kHover);
    }
    SetTextColor(dc, !IsWindowEnabled(window_) ? look::kDisabled
                     : current                 ? look::kText
                                               : look::kSecondary);
    DrawTextA(dc, item.text.c_str(), static_cast<int>(item.text.size()), &tab,
              DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
    if (current && GetFocus() == window_) {
        InflateRect(&tab, -3, -4);
        DrawFocusRing(dc, tab);
    }
}

}  // namespace winbase
