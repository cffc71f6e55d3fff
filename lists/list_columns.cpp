#include "lists/list_columns.h"

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

}  // namespace lists
