#include "lists/list_cell.h"

#include <cstring>

namespace lists {

namespace {

/// Wider than any byte of a text is painted, so that most texts need not be measured.
constexpr int kWidestByte = 8;

/// A centred text without room would lose its beginning, which says what the rest is about.
UINT FormatWithRoom(HDC dc, const CellText& cell, const RECT& rect) {
    const int room = rect.right - rect.left;
    const auto bytes = static_cast<int>(std::strlen(cell.text));
    if ((cell.format & DT_CENTER) == 0 || bytes * kWidestByte <= room) return cell.format;
    SIZE size{};
    ::GetTextExtentPoint32A(dc, cell.text, bytes, &size);
    return size.cx > room ? cell.format & ~UINT{DT_CENTER} : cell.format;
}

}  // namespace

void DrawCellText(HDC dc, const CellText& cell, const RECT& rect, HFONT bold) {
    if (cell.text[0] == '\0') return;
    const HGDIOBJ former = cell.weight == CellWeight::kBold ? ::SelectObject(dc, bold) : nullptr;
    RECT room = rect;
    ::SetTextColor(dc, cell.color);
    ::DrawTextA(dc, cell.text, -1, &room, FormatWithRoom(dc, cell, rect));
    if (former != nullptr) ::SelectObject(dc, former);
}

}  // namespace lists
