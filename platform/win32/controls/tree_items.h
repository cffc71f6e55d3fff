#pragma once

#include <commctrl.h>
#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace winbase {

struct TreeItem {
    HTREEITEM handle = nullptr;
    TreeItem* parent = nullptr;
    std::vector<TreeItem*> children;
    std::string text;
    LPARAM data = 0;
    UINT state = 0;                   ///< TVIS_...
    bool announces_children = false;  ///< has a button before its children are there

    bool expanded() const { return (state & TVIS_EXPANDED) != 0; }
    bool can_expand() const { return !children.empty() || announces_children; }
};

/// The items of a tree and the order of its rows; no window. Handles are small numbers that are not
/// used again, so one that outlived its item finds nothing.
class TreeItems {
public:
    TreeItems() { root_.state = TVIS_EXPANDED; }
    TreeItems(const TreeItems&) = delete;
    TreeItems& operator=(const TreeItems&) = delete;

    /// The unseen parent of the first level; its handle is null.
    TreeItem& root() { return root_; }
    std::size_t count() const { return items_.size(); }
    /// Null for a handle of no item.
    TreeItem* Find(HTREEITEM handle) const;

    /// Behind the sibling `after`; TVI_FIRST puts it first, anything that is no sibling last.
    TreeItem& Insert(TreeItem& parent, HTREEITEM after);
    /// The item with all below it.
    void Remove(TreeItem& item);
    void SetExpanded(TreeItem& item, bool expanded);

    /// `steps` among the item's siblings, null behind either end.
    TreeItem* Sibling(const TreeItem& item, int steps) const;
    /// 0 for the first level.
    int Level(const TreeItem& item) const;
    bool IsBelow(const TreeItem& item, const TreeItem& ancestor) const;
    /// The item and all below it, parents behind their children.
    std::vector<HTREEITEM> Subtree(const TreeItem& item) const;

    /// What shows when there is room for all: items without a collapsed ancestor, from the top.
    const std::vector<TreeItem*>& rows() const;
    /// -1 for an item that is hidden in a collapsed one.
    int RowOf(const TreeItem& item) const;
    TreeItem* AtRow(int row) const;

private:
    TreeItem root_;
    std::unordered_map<HTREEITEM, std::unique_ptr<TreeItem>> items_;
    std::uintptr_t last_handle_ = 0;
    mutable std::vector<TreeItem*> rows_;
    mutable bool rows_are_old_ = false;
};

}  // namespace winbase
