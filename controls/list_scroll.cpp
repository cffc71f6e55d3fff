#include "controls/list_scroll.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace list_scroll {

namespace {

int Saturated(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
}

std::int64_t TotalHeight(const Rows& rows) {
    return std::int64_t{rows.height} * rows.count + rows.height;
}

}  // namespace

bool Overflows(const Rows& rows) { return TotalHeight(rows) > rows.client_height; }

int LastRow(const Rows& rows) {
    // Rounds a row up once more than a third of it is hidden.
    constexpr int kRoundUp = 15;
    if (!Overflows(rows)) return 0;
    return Saturated((TotalHeight(rows) - rows.client_height + kRoundUp) / rows.height);
}

std::optional<int> PulledUp(const Rows& rows, int first) {
    if (first == 0) return std::nullopt;
    const std::int64_t left = std::int64_t{rows.count} - first;
    const int shown = rows.client_height / rows.height;
    if (left >= shown - 1) return std::nullopt;
    return Saturated(std::max<std::int64_t>(first - (shown - left), 0));
}

int OffsetOf(int row, int height) { return Saturated(std::int64_t{row} * height); }

int Target(UINT code, const SCROLLINFO& bar, int page, int given) {
    std::int64_t target = bar.nPos;
    switch (code) {
        case SB_LINEUP: target -= 1; break;
        case SB_LINEDOWN: target += 1; break;
        case SB_PAGEUP: target -= page; break;
        case SB_PAGEDOWN: target += page; break;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK: target = given; break;
        case SB_TOP: target = bar.nMin; break;
        case SB_BOTTOM: target = bar.nMax; break;
        default: break;
    }
    return Saturated(std::max<std::int64_t>(std::min<std::int64_t>(target, bar.nMax), bar.nMin));
}

std::optional<int> RowByKey(UINT key, int selected, int count, int page) {
    std::int64_t row = selected;
    switch (key) {
        case VK_UP: row -= 1; break;
        case VK_DOWN: row += 1; break;
        case VK_PRIOR: row -= page; break;
        case VK_NEXT: row += page; break;
        case VK_HOME: row = 0; break;
        case VK_END: row = INT_MAX; break;
        default: return std::nullopt;
    }
    return Saturated(std::clamp<std::int64_t>(row, 0, std::max(count - 1, 0)));
}

int FirstToShow(int row, int first, int page) {
    if (row < first) return row;
    return row - first >= page ? row - page + 1 : first;
}

}  // namespace list_scroll
