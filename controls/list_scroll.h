#pragma once

#include <optional>

#include "platform/system.h"

// What the scroll bars of a list say, without the bars: the vertical one counts rows, the
// horizontal one pixels.

namespace list_scroll {

/// How a list fills its window. The header takes the room of one row.
struct Rows {
    int count = 0;
    int height = 1;  ///< of a row, above 0
    int client_height = 0;
};

bool Overflows(const Rows& rows);
/// The last position of the vertical bar.
int LastRow(const Rows& rows);
/// The first row to show instead of `first` when that would leave room below the last row; none
/// when all is well.
std::optional<int> PulledUp(const Rows& rows, int first);
/// Offset in pixels of a row; the largest number when it has none.
int OffsetOf(int row, int height);

/// Where a bar goes on a scroll message. `page` is the step of a page, `given` the position that
/// came with the message.
int Target(UINT code, const SCROLLINFO& bar, int page, int given);

/// The row that the keys lead to, or none for another key. `page` is the rows in view.
std::optional<int> RowByKey(UINT key, int selected, int count, int page);
/// The first row to show so that `row` is in view, `page` rows being shown from `first` on.
int FirstToShow(int row, int first, int page);

}  // namespace list_scroll
