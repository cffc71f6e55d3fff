#include "controls/list_cell_paint.h"

#include <cstring>

#include "controls/list_text.h"
#include "platform/text/bounded_text.h"
#include "platform/toolkit/toolkit.h"

namespace list_cell {

namespace {

constexpr int kTextInset = 3;

void Fill(HDC dc, const RECT& rect, COLORREF color) {
    const CBrush brush(color);
    ::FillRect(dc, &rect, brush);
}

int WidthOf(HDC dc, const char* text, std::size_t length) {
    SIZE size{};
    ::GetTextExtentPoint32A(dc, text, static_cast<int>(length), &size);
    return size.cx;
}

int GlyphWidth(HDC dc) {
    constexpr const char* kGlyph = "国";
    return WidthOf(dc, kGlyph, std::strlen(kGlyph));
}

/// Sets a text colour for a scope, if there is one.
class ScopedTextColor {
public:
    ScopedTextColor(HDC dc, COLORREF color) : dc_(dc), former_(::GetTextColor(dc)) {
        if (list_colors::IsSet(color)) ::SetTextColor(dc, color);
    }
    ~ScopedTextColor() { ::SetTextColor(dc_, former_); }
    ScopedTextColor(const ScopedTextColor&) = delete;
    ScopedTextColor& operator=(const ScopedTextColor&) = delete;

private:
    HDC dc_;
    COLORREF former_;
};

}  // namespace

void PaintHeader(HDC dc, const ListColumn* column, const RECT& rect) {
    Fill(dc, {rect.left, rect.top, rect.right, rect.bottom - 1}, list_colors::kHeader);
    const RECT frame{rect.left - 1, rect.top, rect.right, rect.bottom};
    const CBrush grid(list_colors::kGrid);
    ::FrameRect(dc, &frame, grid);
    if (column == nullptr) return;
    char title[64];
    text::CopyText(title, column->szTitle);
    RECT place = rect;
    ::InflateRect(&place, -kTextInset, -kTextInset);
    ::DrawTextA(dc, title, -1, &place, column->nHeaderFormat);
}

void Paint(HDC dc, const ListColumn& column, ListCell& cell, const RECT& rect) {
    if (list_colors::IsSet(cell.crBack)) {
        Fill(dc, {rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1}, cell.crBack);
    }
    cell.rcCell = rect;
    const std::string_view whole = text::FieldText(cell.szText);
    if (whole.empty()) return;
    const int allowance = column.bHasIcon != 0 ? kIconWidth : 0;
    RECT place = rect;
    ::InflateRect(&place, -kTextInset, 0);
    place.left += allowance;
    const int room = place.right - place.left;
    const ScopedTextColor color(dc, cell.crText);
    if (WidthOf(dc, whole.data(), whole.size()) <= room) {
        ::DrawTextA(dc, whole.data(), static_cast<int>(whole.size()), &place, column.nCellFormat);
        return;
    }
    char cut[kCellTextSize];
    const std::size_t length =
        CopyWithDots(cut, sizeof cut, whole, CharactersBeforeDots(room, GlyphWidth(dc)));
    ::DrawTextA(dc, cut, static_cast<int>(length), &place, column.nCellFormat);
}

}  // namespace list_cell
