#include "lists/list_cell.h"

namespace lists {

void DrawCellText(HDC dc, const CellText& cell, const RECT& rect, HFONT bold) {
    if (cell.text[0] == '\0') return;
    const HGDIOBJ former = cell.weight == CellWeight::kBold ? ::SelectObject(dc, bold) : nullptr;
    RECT room = rect;
    ::SetTextColor(dc, cell.color);
    ::DrawTextA(dc, cell.text, -1, &room, cell.format);
    if (former != nullptr) ::SelectObject(dc, former);
}

}  // namespace lists
