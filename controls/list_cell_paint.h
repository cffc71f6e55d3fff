#pragma once

#include "controls/list_records.h"
#include "platform/system.h"

// How a list paints its header and the cells that it keeps itself. The font is selected already.

namespace list_cell {

/// Ground and frame; the title too when the column exists.
void PaintHeader(HDC dc, const ListColumn* column, const RECT& rect);
/// Ground and text, cut with dots where it does not fit. Leaves the rectangle in the cell.
void Paint(HDC dc, const ListColumn& column, ListCell& cell, const RECT& rect);

}  // namespace list_cell
