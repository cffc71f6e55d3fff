// The rows that a list keeps itself, when it is not virtual.

#include <new>

#include "controls/ower_draw_list_view.h"
#include "platform/text/bounded_text.h"

ListCell* COwerDrawListView::FindCell(int row, int column) {
    if (m_bVirtual || row < 0 || column < 0) return nullptr;
    const auto row_index = static_cast<std::size_t>(row);
    const auto column_index = static_cast<std::size_t>(column);
    if (row_index >= m_rows.size() || column_index >= m_columns.size()) return nullptr;
    Row& cells = m_rows[row_index];
    return column_index < cells.size() ? &cells[column_index] : nullptr;
}

ListCell* COwerDrawListView::MakeCell(int row, int column) {
    if (m_bVirtual || row < 0 || column < 0) return nullptr;
    const auto row_index = static_cast<std::size_t>(row);
    if (row_index >= m_rows.size() || static_cast<std::size_t>(column) >= m_columns.size()) {
        return nullptr;
    }
    // Columns may have been added since the row was.
    Row& cells = m_rows[row_index];
    if (cells.size() < m_columns.size()) cells.resize(m_columns.size());
    return FindCell(row, column);
}

void COwerDrawListView::RowsChanged() { SetRowCount(static_cast<int>(m_rows.size()), TRUE); }

int COwerDrawListView::InsertRow(LPCSTR text) {
    if (m_bVirtual) return -1;
    try {
        m_rows.emplace_back(m_columns.size());
    } catch (const std::bad_alloc&) {
        return -1;
    }
    const int row = static_cast<int>(m_rows.size()) - 1;
    SetItemText(row, 0, text);
    RowsChanged();
    return row;
}

void COwerDrawListView::DeleteRow(int row) {
    if (m_bVirtual || row < 0 || static_cast<std::size_t>(row) >= m_rows.size()) return;
    m_rows.erase(m_rows.begin() + row);
    RowsChanged();
}

void COwerDrawListView::DeleteAllRows() {
    if (m_bVirtual) return;
    m_rows.clear();
    RowsChanged();
}

void COwerDrawListView::ClearRows() {
    if (!m_bVirtual) m_rows.clear();
}

void COwerDrawListView::SetItemText(int row, int column, LPCSTR text) {
    ListCell* const cell = MakeCell(row, column);
    if (cell == nullptr) return;
    text::CopyText(cell->szText, kCellTextSize, text);
    Invalidate(FALSE);
}

void COwerDrawListView::SetItemTip(int row, int column, LPCSTR text) {
    ListCell* const cell = MakeCell(row, column);
    if (cell != nullptr) text::CopyText(cell->szTip, kCellTextSize, text);
}

void COwerDrawListView::SetItemBkColor(int row, int column, COLORREF color) {
    ListCell* const cell = FindCell(row, column);
    if (cell == nullptr) return;
    cell->crBack = color;
    Invalidate(FALSE);
}

void COwerDrawListView::SetItemTextColor(int row, int column, COLORREF color) {
    ListCell* const cell = FindCell(row, column);
    if (cell == nullptr) return;
    cell->crText = color;
    Invalidate(FALSE);
}

void COwerDrawListView::SetItemEditable(int row, int column, BOOL editable) {
    ListCell* const cell = FindCell(row, column);
    if (cell != nullptr) cell->bEditable = editable != FALSE;
}

void COwerDrawListView::SetItemCheck(int row, int column, BOOL check) {
    ListCell* const cell = FindCell(row, column);
    if (cell != nullptr) cell->bChecked = check != FALSE;
}

BOOL COwerDrawListView::GetItemCheck(int row, int column) {
    const ListCell* const cell = FindCell(row, column);
    return cell != nullptr ? cell->bChecked : FALSE;
}

ListCell* COwerDrawListView::GetItem(int row, int column) { return FindCell(row, column); }
