#include "platform/win32/controls/tree_items.h"

#include <algorithm>

namespace winbase {

TreeItem* TreeItems::Find(HTREEITEM handle) const {
    const auto found = items_.find(handle);
    return found != items_.end() ? found->second.get() : nullptr;
}

TreeItem& TreeItems::Insert(TreeItem& parent, HTREEITEM after) {
    auto item = std::make_unique<TreeItem>();
    TreeItem& inserted = *item;
    inserted.handle = reinterpret_cast<HTREEITEM>(++last_handle_);
    inserted.parent = &parent;
    items_.emplace(inserted.handle, std::move(item));
    auto& siblings = parent.children;
    auto place = siblings.end();
    if (after == TVI_FIRST) {
        place = siblings.begin();
    } else {
        const auto found =
            std::find_if(siblings.begin(), siblings.end(),
                         [&](const TreeItem* each) { return each->handle == after; });
        if (found != siblings.end()) place = found + 1;
    }
    siblings.insert(place, &inserted);
    rows_are_old_ = true;
    return inserted;
}

void TreeItems::Remove(TreeItem& item) {
    auto& siblings = item.parent->children;
    siblings.erase(std::find(siblings.begin(), siblings.end(), &item));
    for (const HTREEITEM handle : Subtree(item)) items_.erase(handle);
    rows_are_old_ = true;
}

void TreeItems::SetExpanded(TreeItem& item, bool expanded) {
    item.state = expanded ? item.state | TVIS_EXPANDED : item.state & ~UINT{TVIS_EXPANDED};
    rows_are_old_ = true;
}

TreeItem* TreeItems::Sibling(const TreeItem& item, int steps) const {
    const auto& siblings = item.parent->children;
    const auto place =
        std::find(siblings.begin(), siblings.end(), &item) - siblings.begin() + steps;
    if (place < 0 || place >= static_cast<std::ptrdiff_t>(siblings.size())) return nullptr;
    return siblings[static_cast<std::size_t>(place)];
}

int TreeItems::Level(const TreeItem& item) const {
    int level = 0;
    for (const TreeItem* at = item.parent; at != &root_; at = at->parent) ++level;
    return level;
}

bool TreeItems::IsBelow(const TreeItem& item, const TreeItem& ancestor) const {
    for (const TreeItem* at = item.parent; at != nullptr; at = at->parent) {
        if (at == &ancestor) return true;
    }
    return false;
}

std::vector<HTREEITEM> TreeItems::Subtree(const TreeItem& item) const {
    std::vector<const TreeItem*> open{&item};
    std::vector<HTREEITEM> found;
    while (!open.empty()) {
        const TreeItem* const next = open.back();
        open.pop_back();
        if (next != &root_) found.push_back(next->handle);
        open.insert(open.end(), next->children.begin(), next->children.end());
    }
    std::reverse(found.begin(), found.end());
    return found;
}

const std::vector<TreeItem*>& TreeItems::rows() const {
    if (!rows_are_old_) return rows_;
    rows_are_old_ = false;
    rows_.clear();
    std::vector<TreeItem*> open(root_.children.rbegin(), root_.children.rend());
    while (!open.empty()) {
        TreeItem* const next = open.back();
        open.pop_back();
        rows_.push_back(next);
        if (next->expanded())
            open.insert(open.end(), next->children.rbegin(), next->children.rend());
    }
    return rows_;
}

int TreeItems::RowOf(const TreeItem& item) const {
    const auto found = std::find(rows().begin(), rows().end(), &item);
    return found != rows().end() ? static_cast<int>(found - rows().begin()) : -1;
}

TreeItem* TreeItems::AtRow(int row) const {
    if (row < 0 || row >= static_cast<int>(rows().size())) return nullptr;
    return rows()[static_cast<std::size_t>(row)];
}

}  // namespace winbase
