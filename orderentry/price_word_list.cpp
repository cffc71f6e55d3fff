#include "orderentry/price_word_list.h"

#include <algorithm>
#include <string>

namespace orderentry {

bool CreateWordList(CPriceListBox& list, CWnd& edit) {
    list.SetEdit(&edit);
    const CRect nowhere(0, 0, 0, 0);
    if (!list.CreateEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, "LISTBOX", "",
                       WS_POPUP | WS_BORDER | LBS_NOINTEGRALHEIGHT, nowhere, &edit, 0)) {
        return false;
    }
    list.SetFont(edit.GetFont(), FALSE);
    return true;
}

void PlaceWordList(CPriceListBox& list, const CRect& above, int width) {
    constexpr int kBorders = 2;
    const int row = std::max(1, static_cast<int>(list.SendMessage(LB_GETITEMHEIGHT)));
    list.SetCurSel(-1);
    ::SetWindowPos(list, HWND_TOPMOST, above.left, above.bottom, width,
                   list.GetCount() * row + kBorders, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

bool IsShown(const CWnd& list) { return list.GetSafeHwnd() && list.IsWindowVisible(); }

bool IsPointerOver(const CWnd& list) {
    if (!IsShown(list)) return false;
    CPoint pointer;
    CRect place;
    GetCursorPos(&pointer);
    list.GetWindowRect(&place);
    return place.PtInRect(pointer) != FALSE;
}

void TakeRow(CWnd& edit, const CListBox& list, WPARAM row) {
    const int index = static_cast<int>(row);
    const int length = list.GetSafeHwnd() ? list.GetTextLen(index) : LB_ERR;
    if (length != LB_ERR) {
        std::string text(static_cast<std::size_t>(length) + 1, '\0');
        list.GetText(index, text.data());
        edit.SetWindowText(text.c_str());
    }
    ::SetFocus(nullptr);
}

}  // namespace orderentry
