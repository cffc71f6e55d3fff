#include "platform/win32/controls/tree_view.h"

#include <algorithm>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

LRESULT CALLBACK TreeViewControl::Procedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    return HostControl<TreeViewControl>(window, message, wParam, lParam);
}

LRESULT TreeViewControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE: SetFont(nullptr); return 0;
        case WM_DESTROY: RemoveAll(); return 0;
        case WM_SIZE: UpdateScrollBar(); return 0;
        case WM_SETFONT: SetFont(reinterpret_cast<HFONT>(wParam)); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_PAINT: Paint(); return 0;
        case WM_NCPAINT:
            DefWindowProcA(window_, message, wParam, lParam);
            if (HasFrame(window_)) PaintInputFrame(window_, focused_, nullptr);
            return 0;
        case WM_ERASEBKGND: {
            RECT client{};
            GetClientRect(window_, &client);
            FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_WINDOW));
            return 1;
        }
        case WM_ENABLE: InvalidateRect(window_, nullptr, TRUE); return 0;
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_VSCROLL: Scroll(LOWORD(wParam), static_cast<short>(HIWORD(wParam))); return 0;
        default: break;
    }
    const bool own = message >= TVM_INSERTITEMA && message <= TVM_GETITEMSTATE;
    return own ? ItemMessage(message, wParam, lParam) : InputMessage(message, wParam, lParam);
}

LRESULT TreeViewControl::ItemMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto handle = reinterpret_cast<HTREEITEM>(lParam);
    switch (message) {
        case TVM_INSERTITEMA:
            return reinterpret_cast<LRESULT>(
                Insert(*reinterpret_cast<const TVINSERTSTRUCTA*>(lParam)));
        case TVM_DELETEITEM: return Remove(handle) ? TRUE : FALSE;
        case TVM_EXPAND: return Expand(handle, static_cast<UINT>(wParam), By::kCall) ? TRUE : FALSE;
        case TVM_GETCOUNT: return static_cast<LRESULT>(items_.count());
        case TVM_GETNEXTITEM: {
            const TreeItem* const found = Relative(wParam, items_.Find(handle));
            return reinterpret_cast<LRESULT>(found != nullptr ? found->handle : nullptr);
        }
        case TVM_SELECTITEM:
            if (wParam != TVGN_CARET || (handle != nullptr && items_.Find(handle) == nullptr))
                return FALSE;
            return Select(handle, TVC_UNKNOWN) ? TRUE : FALSE;
        case TVM_GETITEMA: return GetItem(*reinterpret_cast<TVITEMA*>(lParam)) ? TRUE : FALSE;
        case TVM_SETITEMA: return SetItem(*reinterpret_cast<const TVITEMA*>(lParam)) ? TRUE : FALSE;
        case TVM_GETITEMSTATE: {
            const TreeItem* const item = items_.Find(reinterpret_cast<HTREEITEM>(wParam));
            return item != nullptr ? static_cast<LRESULT>(item->state & static_cast<UINT>(lParam))
                                   : 0;
        }
        default: return PlaceMessage(message, wParam, lParam);
    }
}

LRESULT TreeViewControl::PlaceMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case TVM_GETITEMRECT:
            return GetItemRect(wParam != 0, reinterpret_cast<RECT*>(lParam)) ? TRUE : FALSE;
        case TVM_GETVISIBLECOUNT: return VisibleRows();
        case TVM_HITTEST: {
            auto& test = *reinterpret_cast<TVHITTESTINFO*>(lParam);
            const TreeItem* const hit = HitTest(test.pt, &test.flags);
            test.hItem = hit != nullptr ? hit->handle : nullptr;
            return reinterpret_cast<LRESULT>(test.hItem);
        }
        case TVM_ENSUREVISIBLE: return Reveal(reinterpret_cast<HTREEITEM>(lParam)) ? TRUE : FALSE;
        case TVM_SETITEMHEIGHT: return SetItemHeight(static_cast<short>(wParam));
        case TVM_GETITEMHEIGHT: return item_height_;
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

HTREEITEM TreeViewControl::Insert(const TVINSERTSTRUCTA& insert) {
    const bool first_level = insert.hParent == nullptr || insert.hParent == TVI_ROOT;
    TreeItem* const parent = first_level ? &items_.root() : items_.Find(insert.hParent);
    if (parent == nullptr) return nullptr;
    TreeItem& item = items_.Insert(*parent, insert.hInsertAfter);
    Assign(item, insert.item);
    if ((insert.item.mask & TVIF_STATE) != 0) {
        items_.SetExpanded(item, (insert.item.state & insert.item.stateMask & TVIS_EXPANDED) != 0);
    }
    Changed();
    return item.handle;
}

void TreeViewControl::Assign(TreeItem& item, const TVITEMA& given) {
    if ((given.mask & TVIF_TEXT) != 0) item.text = given.pszText != nullptr ? given.pszText : "";
    if ((given.mask & TVIF_PARAM) != 0) item.data = given.lParam;
    if ((given.mask & TVIF_CHILDREN) != 0) item.announces_children = given.cChildren == 1;
}

bool TreeViewControl::GetItem(TVITEMA& wanted) const {
    const TreeItem* const item = items_.Find(wanted.hItem);
    if (item == nullptr) return false;
    if ((wanted.mask & TVIF_TEXT) != 0 && wanted.pszText != nullptr && wanted.cchTextMax > 0) {
        lstrcpynA(wanted.pszText, item->text.c_str(), wanted.cchTextMax);
    }
    if ((wanted.mask & TVIF_PARAM) != 0) wanted.lParam = item->data;
    if ((wanted.mask & TVIF_STATE) != 0) wanted.state = item->state & wanted.stateMask;
    if ((wanted.mask & TVIF_CHILDREN) != 0) wanted.cChildren = item->can_expand() ? 1 : 0;
    return true;
}

bool TreeViewControl::SetItem(const TVITEMA& given) {
    TreeItem* const item = items_.Find(given.hItem);
    if (item == nullptr) return false;
    Assign(*item, given);
    if ((given.mask & TVIF_STATE) != 0) {
        item->state = (item->state & ~given.stateMask) | (given.state & given.stateMask);
        items_.SetExpanded(*item, item->expanded());
    }
    Changed();
    return true;
}

bool TreeViewControl::Remove(HTREEITEM handle) {
    if (handle == nullptr || handle == TVI_ROOT) {
        RemoveAll();
        return true;
    }
    TreeItem* item = items_.Find(handle);
    if (item == nullptr) return false;
    const TreeItem* caret = items_.Find(caret_);
    const bool takes_caret = caret != nullptr && (caret == item || items_.IsBelow(*caret, *item));
    const TreeItem* heir = items_.Sibling(*item, 1);
    if (heir == nullptr) heir = items_.Sibling(*item, -1);
    const HTREEITEM next = heir != nullptr ? heir->handle : item->parent->handle;
    if (takes_caret) caret_ = nullptr;
    for (const HTREEITEM each : items_.Subtree(*item)) {
        TellChange(TVN_DELETEITEMA, 0, items_.Find(each), nullptr);
    }
    item = items_.Find(handle);
    if (item != nullptr) items_.Remove(*item);
    Changed();
    if (takes_caret && items_.Find(next) != nullptr) Select(next, TVC_UNKNOWN);
    return true;
}

void TreeViewControl::RemoveAll() {
    caret_ = nullptr;
    for (const HTREEITEM each : items_.Subtree(items_.root())) {
        TreeItem* item = items_.Find(each);
        if (item == nullptr) continue;
        TellChange(TVN_DELETEITEMA, 0, item, nullptr);
        item = items_.Find(each);
        if (item != nullptr) items_.Remove(*item);
    }
    Changed();
}

TreeItem* TreeViewControl::Relative(WPARAM relation, TreeItem* item) {
    const auto step = [&](int steps) {
        const int row = item != nullptr ? items_.RowOf(*item) : -1;
        return row >= 0 ? items_.AtRow(row + steps) : nullptr;
    };
    const auto first = [](const TreeItem& parent) {
        return parent.children.empty() ? nullptr : parent.children.front();
    };
    switch (relation) {
        case TVGN_ROOT: return first(items_.root());
        case TVGN_CARET: return items_.Find(caret_);
        case TVGN_FIRSTVISIBLE: return items_.AtRow(top_);
        case TVGN_CHILD: return first(item != nullptr ? *item : items_.root());
        case TVGN_NEXT: return item != nullptr ? items_.Sibling(*item, 1) : nullptr;
        case TVGN_PREVIOUS: return item != nullptr ? items_.Sibling(*item, -1) : nullptr;
        case TVGN_PARENT: return item != nullptr ? items_.Find(item->parent->handle) : nullptr;
        case TVGN_NEXTVISIBLE: return step(1);
        case TVGN_PREVIOUSVISIBLE: return step(-1);
        default: return nullptr;
    }
}

bool TreeViewControl::Select(HTREEITEM to, UINT cause) {
    if (to == caret_) return true;
    const LRESULT refused =
        TellChange(TVN_SELCHANGINGA, cause, items_.Find(caret_), items_.Find(to));
    TreeItem* const item = items_.Find(to);
    if (refused != 0 || (to != nullptr && item == nullptr)) return false;
    const HTREEITEM from = caret_;
    if (TreeItem* const old = items_.Find(from)) old->state &= ~UINT{TVIS_SELECTED};
    if (item != nullptr) item->state |= TVIS_SELECTED;
    caret_ = to;
    InvalidateRect(window_, nullptr, TRUE);
    Reveal(to);
    TellChange(TVN_SELCHANGEDA, cause, items_.Find(from), items_.Find(to));
    return true;
}

// By call the parent is told of the first expansion only; what a person does it is always told.
bool TreeViewControl::Expand(HTREEITEM handle, UINT action, By by) {
    TreeItem* item = items_.Find(handle);
    if (item == nullptr || !item->can_expand()) return false;
    if (action == TVE_TOGGLE) action = item->expanded() ? TVE_COLLAPSE : TVE_EXPAND;
    const bool expand = action == TVE_EXPAND;
    if (expand == item->expanded() && (by == By::kCall || !expand)) return expand;
    const bool tell = by == By::kUser || (item->state & TVIS_EXPANDEDONCE) == 0;
    if (tell && TellChange(TVN_ITEMEXPANDINGA, action, nullptr, item) != 0) return false;
    item = items_.Find(handle);
    if (item == nullptr || (expand && item->children.empty())) return false;
    items_.SetExpanded(*item, expand);
    Changed();
    const TreeItem* const caret = items_.Find(caret_);
    if (!expand && caret != nullptr && items_.IsBelow(*caret, *item)) Select(handle, TVC_UNKNOWN);
    if (tell) TellChange(TVN_ITEMEXPANDEDA, action, nullptr, items_.Find(handle));
    item = items_.Find(handle);
    if (item != nullptr && expand) item->state |= TVIS_EXPANDEDONCE;
    return true;
}

bool TreeViewControl::Reveal(HTREEITEM handle) {
    const TreeItem* item = items_.Find(handle);
    int steps = item != nullptr ? items_.Level(*item) : 0;
    while (item != nullptr && items_.RowOf(*item) < 0) {
        if (steps-- == 0) return false;  // the parent collapses what is expanded
        // The outermost of the collapsed ones first, so that each step shows more.
        const TreeItem* collapsed = item->parent;
        while (items_.RowOf(*collapsed) < 0) collapsed = collapsed->parent;
        if (!Expand(collapsed->handle, TVE_EXPAND, By::kUser)) return false;
        item = items_.Find(handle);
    }
    if (item == nullptr) return false;
    const int old_top = top_;
    const int row = items_.RowOf(*item);
    if (row < top_) SetTop(row);
    if (row >= top_ + VisibleRows()) SetTop(row - VisibleRows() + 1);
    return top_ != old_top;
}

LRESULT TreeViewControl::TellChange(UINT code, UINT action, const TreeItem* from,
                                    const TreeItem* to) {
    const auto describe = [](const TreeItem* item, TVITEMA& described) {
        if (item == nullptr) return;
        described.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_STATE;
        described.hItem = item->handle;
        described.lParam = item->data;
        described.state = item->state;
        described.stateMask = ~0U;
    };
    NMTREEVIEWA change{};
    change.action = action;
    describe(from, change.itemOld);
    describe(to, change.itemNew);
    return TellParent(window_, change.hdr, code);
}

LRESULT TreeViewControl::Tell(UINT code) {
    NMHDR header{};
    return TellParent(window_, header, code);
}

}  // namespace winbase
