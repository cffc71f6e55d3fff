#pragma once

#include <commctrl.h>
#include <windows.h>

#include "platform/win32/controls/tree_items.h"

namespace winbase {

/// The tree. It keeps its items in a TreeItems and tells the parent what happens to them. The
/// parent may change the tree while it is told, so that items are carried by handle across
/// notifications.
class TreeViewControl {
public:
    explicit TreeViewControl(HWND window) : window_(window) {}
    TreeViewControl(const TreeViewControl&) = delete;
    TreeViewControl& operator=(const TreeViewControl&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    LRESULT ItemMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT PlaceMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT InputMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Items
    HTREEITEM Insert(const TVINSERTSTRUCTA& insert);
    bool GetItem(TVITEMA& wanted) const;
    bool SetItem(const TVITEMA& given);
    void Assign(TreeItem& item, const TVITEMA& given);
    bool Remove(HTREEITEM handle);
    void RemoveAll();
    TreeItem* Relative(WPARAM relation, TreeItem* item);

    // Selection and expansion
    bool Select(HTREEITEM to, UINT cause);  ///< false when the parent refused
    enum class By { kCall, kUser };
    bool Expand(HTREEITEM handle, UINT action, By by);
    /// True when the tree had to scroll.
    bool Reveal(HTREEITEM handle);
    LRESULT TellChange(UINT code, UINT action, const TreeItem* from, const TreeItem* to);
    LRESULT Tell(UINT code);

    // Places
    bool HasStyle(DWORD style) const {
        return (static_cast<DWORD>(GetWindowLongA(window_, GWL_STYLE)) & style) != 0;
    }
    void SetFont(HFONT font);
    LRESULT SetItemHeight(int height);
    int VisibleRows() const;
    int IndentOf(const TreeItem& item) const;  ///< where what belongs to the text begins
    RECT RowRect(int row) const;
    RECT TextRect(const TreeItem& item, int row) const;
    RECT ButtonRect(const TreeItem& item, int row) const;
    bool GetItemRect(bool text_only, RECT* rect) const;
    TreeItem* HitTest(POINT point, UINT* flags) const;
    void SetTop(int top);
    void UpdateScrollBar();
    void Scroll(int code, int position);
    void Changed();

    // Input
    void Press(POINT point);
    void DoubleClick(POINT point);
    void Key(WPARAM key);
    void Navigate(WPARAM key);
    void MoveTo(int row);
    void GainFocus();
    void LoseFocus();
    void ShowFocus();

    // Painting
    void Paint();
    void PaintRows(HDC dc, const RECT& damaged, bool tell);
    void PaintRow(HDC dc, const TreeItem& item, int row, bool tell);
    void PaintItem(HDC dc, const TreeItem& item, int row, const NMTVCUSTOMDRAW& colors) const;
    void PaintLines(HDC dc, const TreeItem& item, int row) const;
    LRESULT TellDrawing(NMTVCUSTOMDRAW& drawing, DWORD stage);

    HWND window_;
    TreeItems items_;
    HFONT font_ = nullptr;
    HTREEITEM caret_ = nullptr;
    int item_height_ = 20;
    bool own_height_ = false;  ///< set by message, so that the font no longer decides
    int top_ = 0;
    bool focused_ = false;
    bool right_pressed_ = false;
};

}  // namespace winbase
