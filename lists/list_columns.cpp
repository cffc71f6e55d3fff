#include "lists/list_columns.h"

#include <algorithm>

namespace lists {

namespace {

constexpr UINT kHeaderFormat = DT_SINGLELINE | DT_CENTER | DT_VCENTER;

}  // namespace

void MakeList(COwerDrawListView& list, CWnd& page, int id, void* context) {
    list.Create(CRect(0, 0, 0, 0), &page, static_cast<UINT>(id));
    list.SetVirtual();
    list.SetDrawContext(context);
    list.ShowWindow(SW_SHOW);
}

void SetColumns(COwerDrawListView& list, std::span<const Column> columns) {
    list.DeleteAllColumns();
    for (const Column& column : columns) {
        list.InsertColumn(column.title, column.width, kHeaderFormat, column.format, FALSE, FALSE);
    }
}

void FitColumn(COwerDrawListView& list, WideColumn& wide) {
    if (list.m_hWnd == nullptr || list.GetColumnWidth(wide.column) != wide.width) return;
    CRect room;
    list.GetClientRect(&room);
    int others = 0;
    for (int column = 0; column < std::ssize(list.m_columns); ++column) {
        if (column != wide.column) others += list.GetColumnWidth(column);
    }
    // A list whose columns are exactly as wide as it is has a scroll bar.
    const int width = std::max(wide.least, room.Width() - others - 1);
    if (width == wide.width) return;
    wide.width = width;
    list.SetColumnWidth(wide.column, width);
}

}  // namespace lists
