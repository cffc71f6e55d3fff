#pragma once

#include <array>

#include "platform/system.h"

namespace terminal {

inline constexpr int kMostPanels = 3;

/// What a person moves by dragging splitters, in pixels; remembered.
struct PaneSizes {
    int quotes_width = 508;
    int depth_width = 200;
    int pages_height = 356;
};

/// Where everything stands in the frame's client area.
struct FrameLayout {
    RECT top{};  ///< account, funds, session, the words that it is paper
    RECT quotes{};
    RECT detail{};        ///< below the quotes, where they leave room for it; else empty
    RECT quotes_split{};  ///< between quotes and chart
    RECT chart{};
    RECT depth_split{};  ///< between chart and depth
    RECT depth{};
    std::array<RECT, kMostPanels> panels{};  ///< to the right of the depth
    RECT pages_split{};                      ///< between market and pages
    RECT pages{};
    RECT status{};
};

/// How high the panes on the left want to be.
struct LeftColumn {
    int quotes = 0;  ///< all rows of the list
    int detail = 0;  ///< the least that is worth showing
};

/// Divides a client area of any size; `panels` (0 to 3) are shown. Sizes that leave no room for
/// the rest are taken smaller, never below what the pane needs as long as there is room at all.
/// `sizes` comes back as it was used, so that a drag beyond the end stops there.
FrameLayout ArrangeFrame(SIZE client, int panels, LeftColumn left, PaneSizes& sizes);

}  // namespace terminal
