#pragma once

#include "controls/ower_draw_list_view.h"

namespace gallery {

/// A day of invented orders: the columns and the painter of a virtual list.
class OrderRows {
public:
    static constexpr int kCount = 260;

    /// Columns, painter and row count; the list is virtual from now on.
    static void Attach(COwerDrawListView& list);
    /// The filled texts of a row that a list keeps itself: contracts with preset stops.
    static void FillStops(COwerDrawListView& list);

private:
    static void DrawCell(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd* parent,
                         void* context);
};

}  // namespace gallery
