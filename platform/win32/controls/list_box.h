#pragma once

#include <windows.h>

#include "platform/win32/controls/list_items.h"

namespace winbase {

/// The list box with one selected row, and the drop-down list of a combo box. The latter is a popup
/// that belongs to its combo, follows the pointer and tells the combo what was picked.
class ListBoxControl {
public:
    explicit ListBoxControl(HWND window) : window_(window) {}
    ListBoxControl(const ListBoxControl&) = delete;
    ListBoxControl& operator=(const ListBoxControl&) = delete;

    /// Window procedure of "ListBox" and "ComboLBox"; the parameter of the latter's creation is the
    /// combo's window.
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    LRESULT ItemMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT PlaceMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT InputMessage(UINT message, WPARAM wParam, LPARAM lParam);

    bool HasStyle(DWORD style) const {
        return (static_cast<DWORD>(GetWindowLongA(window_, GWL_STYLE)) & style) != 0;
    }
    bool OwnerDrawn() const { return HasStyle(LBS_OWNERDRAWFIXED); }
    bool HasStrings() const { return !OwnerDrawn() || HasStyle(LBS_HASSTRINGS); }
    bool IsDropList() const { return combo_ != nullptr; }
    HWND Receiver() const { return combo_ != nullptr ? combo_ : GetParent(window_); }

    void Create(void* parameter);
    void AskItemHeight();
    LRESULT Add(LPARAM lParam);
    LRESULT Insert(int index, LPARAM lParam);
    LRESULT Remove(WPARAM index);
    void Clear();
    void TellDeleted(int index) const;
    LRESULT GetText(WPARAM index, char* buffer) const;
    LRESULT SetCurrent(int index);
    LRESULT SetItemHeight(WPARAM height);
    LRESULT ItemFromPoint(LPARAM point) const;
    BOOL GetItemRect(WPARAM index, RECT* rect) const;

    int VisibleRows() const;
    int RowAt(POINT point) const;  ///< -1 outside the rows
    void ShowRow(int index);
    void SetTop(int top);
    void Fit();
    void UpdateScrollBar();
    void Scroll(int code, int position);
    void Highlight(int index);
    void RepaintRow(int index);
    void Tell(int code) const;

    void Press(POINT point);
    void Drag(POINT point);
    void Release(POINT point);
    void PressScrollBar(POINT point);
    void Key(WPARAM key);
    void Character(unsigned char byte);
    void Choose(int index);
    void Focus(bool focused);

    void Paint();
    void PaintRow(HDC dc, int index, const RECT& row);
    void AskRow(HDC dc, int index, const RECT& row, UINT action);
    void DrawRowNow(int index, UINT action);

    HWND window_;
    HWND combo_ = nullptr;
    ListItems items_;
    HFONT font_ = nullptr;
    int item_height_ = 17;
    int current_ = -1;
    int top_ = 0;
    bool focused_ = false;
    bool focus_shown_ = false;  ///< what owner-drawn rows are told of the focus
    bool pressed_ = false;
    bool has_bar_ = false;
    bool passing_to_bar_ = false;  ///< the bar of a drop list has the pointer for a while
};

}  // namespace winbase
