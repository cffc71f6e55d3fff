#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct TCITEMA;
struct TCHITTESTINFO;

namespace winbase {

/// Tabs with texts in one row. What a tab shows below them is the parent's affair.
class TabControl {
public:
    explicit TabControl(HWND window) : window_(window) {}
    TabControl(const TabControl&) = delete;
    TabControl& operator=(const TabControl&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    struct Item {
        std::string text;
        LPARAM data = 0;
        RECT rect{};
    };

    LRESULT ItemMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool Has(LRESULT index) const {
        return index >= 0 && index < static_cast<LRESULT>(items_.size());
    }

    LRESULT Insert(int index, const TCITEMA& item);
    LRESULT GetItem(int index, TCITEMA& item) const;
    LRESULT SetItem(int index, const TCITEMA& item);
    LRESULT Remove(int index);
    void Clear();
    LRESULT SetCurrent(int index);
    /// Asks the parent, changes, tells the parent: what a click or a key does.
    void Choose(int index);
    int HitTest(POINT point) const;
    void Layout();
    /// The row of tabs alone; what stands on the page is not painted over.
    void RepaintTabs();
    void Click(POINT point);
    void Key(WPARAM key);
    LRESULT Tell(UINT code);

    void Paint();
    void PaintItem(HDC dc, int index) const;

    HWND window_;
    HFONT font_ = nullptr;
    std::vector<Item> items_;
    int current_ = -1;
    int focused_item_ = -1;
    int hovered_ = -1;
};

}  // namespace winbase
