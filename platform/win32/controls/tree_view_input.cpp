// Mouse, keys and focus of the tree.

#include <algorithm>
#include <utility>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/tree_view.h"

namespace winbase {

namespace {

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

LRESULT TreeViewControl::InputMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN: Press(PointFrom(lParam)); return 0;
        case WM_LBUTTONDBLCLK: DoubleClick(PointFrom(lParam)); return 0;
        case WM_RBUTTONDOWN: right_pressed_ = true; return 0;
        case WM_RBUTTONUP: {
            const bool clicked = std::exchange(right_pressed_, false);
            if (clicked && Tell(NM_RCLICK) != 0) return 0;
            break;  // asks for a context menu
        }
        case WM_RBUTTONDBLCLK:
            right_pressed_ = true;
            Tell(NM_RDBLCLK);
            return 0;
        case WM_MOUSEWHEEL: {
            constexpr int kRowsPerNotch = 3;
            SetTop(top_ - GET_WHEEL_DELTA_WPARAM(wParam) * kRowsPerNotch / WHEEL_DELTA);
            return 0;
        }
        case WM_KEYDOWN: Key(wParam); return 0;
        case WM_SETFOCUS: GainFocus(); return 0;
        case WM_KILLFOCUS: LoseFocus(); return 0;
        default: break;
    }
    return DefWindowProcA(window_, message, wParam, lParam);
}

void TreeViewControl::Press(POINT point) {
    UINT flags = 0;
    const TreeItem* const hit = HitTest(point, &flags);
    const HTREEITEM handle = hit != nullptr ? hit->handle : nullptr;
    const bool handled = Tell(NM_CLICK) != 0;
    const TreeItem* const still = items_.Find(handle);
    if (!handled && still != nullptr) {
        if (flags == TVHT_ONITEMBUTTON && still->can_expand()) {
            Expand(handle, TVE_TOGGLE, By::kUser);
        } else if ((flags & TVHT_ONITEM) != 0) {
            Select(handle, TVC_BYMOUSE);
        }
    }
    // Last: a tree without a selection would select its first item with the focus.
    if (IsWindow(window_) && !focused_) SetFocus(window_);
}

void TreeViewControl::DoubleClick(POINT point) {
    UINT flags = 0;
    const TreeItem* const hit = HitTest(point, &flags);
    if (flags == TVHT_ONITEMBUTTON) {
        Press(point);
        return;
    }
    const HTREEITEM handle = hit != nullptr ? hit->handle : nullptr;
    if (Tell(NM_DBLCLK) != 0) return;
    if ((flags & TVHT_ONITEM) != 0) Expand(handle, TVE_TOGGLE, By::kUser);
}

void TreeViewControl::Key(WPARAM key) {
    NMTVKEYDOWN down{};
    down.wVKey = static_cast<WORD>(key);
    NMHDR header{};
    header.hwndFrom = window_;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    header.code = TVN_KEYDOWN;
    down.hdr = header;
    SendMessageA(GetParent(window_), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&down));
    if (IsWindow(window_)) Navigate(key);
}

void TreeViewControl::Navigate(WPARAM key) {
    if (key == VK_RETURN) {
        Tell(NM_RETURN);
        return;
    }
    const TreeItem* const caret = items_.Find(caret_);
    if (caret == nullptr) return;
    const int row = items_.RowOf(*caret);
    const int page = std::max(VisibleRows() - 1, 1);
    switch (key) {
        case VK_UP: MoveTo(row - 1); return;
        case VK_DOWN: MoveTo(row + 1); return;
        case VK_PRIOR: MoveTo(row - page); return;
        case VK_NEXT: MoveTo(row + page); return;
        case VK_HOME: MoveTo(0); return;
        case VK_END: MoveTo(static_cast<int>(items_.rows().size()) - 1); return;
        case VK_ADD: Expand(caret_, TVE_EXPAND, By::kUser); return;
        case VK_SUBTRACT: Expand(caret_, TVE_COLLAPSE, By::kUser); return;
        case VK_LEFT:
            if (caret->expanded() && caret->can_expand()) {
                Expand(caret_, TVE_COLLAPSE, By::kUser);
            } else if (caret->parent != &items_.root()) {
                Select(caret->parent->handle, TVC_BYKEYBOARD);
            }
            return;
        case VK_RIGHT:
            if (!caret->expanded()) {
                Expand(caret_, TVE_EXPAND, By::kUser);
            } else if (!caret->children.empty()) {
                Select(caret->children.front()->handle, TVC_BYKEYBOARD);
            }
            return;
        case VK_BACK:
            if (caret->parent != &items_.root()) Select(caret->parent->handle, TVC_BYKEYBOARD);
            return;
        default: return;
    }
}

void TreeViewControl::MoveTo(int row) {
    const int last = static_cast<int>(items_.rows().size()) - 1;
    const TreeItem* const item = items_.AtRow(std::clamp(row, 0, std::max(last, 0)));
    if (item != nullptr) Select(item->handle, TVC_BYKEYBOARD);
}

void TreeViewControl::GainFocus() {
    focused_ = true;
    ShowFocus();
    const TreeItem* const first = items_.AtRow(0);
    if (caret_ == nullptr && first != nullptr) Select(first->handle, TVC_UNKNOWN);
    Tell(NM_SETFOCUS);
}

void TreeViewControl::ShowFocus() {
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void TreeViewControl::LoseFocus() {
    focused_ = false;
    ShowFocus();
    Tell(NM_KILLFOCUS);
}

}  // namespace winbase
