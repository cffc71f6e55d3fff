#include "host/terminal/frame_layout.h"

#include <algorithm>

namespace terminal {
namespace {

constexpr int kTopHeight = 36;
constexpr int kStatusHeight = 26;
constexpr int kSplit = 4;
constexpr int kPanelWidth = 220;
constexpr int kLeastQuotes = 200;
constexpr int kLeastChart = 240;
constexpr int kLeastDepth = 168;
constexpr int kLeastPages = 200;
constexpr int kLeastMarket = 160;

/// Into the room that is left when the others keep their least; the least wins over the room.
int Fitted(int wanted, int least, int room) { return std::max(least, std::min(wanted, room)); }

RECT Box(int left, int top, int right, int bottom) {
    return {left, top, std::max(left, right), std::max(top, bottom)};
}

}  // namespace

FrameLayout ArrangeFrame(SIZE client, int panels, LeftColumn left_column, PaneSizes& sizes) {
    const int width = std::max<int>(client.cx, 0);
    const int height = std::max<int>(client.cy, 0);
    panels = std::clamp(panels, 0, kMostPanels);
    const int panels_width = panels * kPanelWidth;

    const int between = height - kTopHeight - kStatusHeight - kSplit;
    sizes.pages_height = Fitted(sizes.pages_height, kLeastPages, between - kLeastMarket);
    const int across = width - panels_width - 2 * kSplit;
    sizes.quotes_width =
        Fitted(sizes.quotes_width, kLeastQuotes, across - kLeastChart - kLeastDepth);
    sizes.depth_width =
        Fitted(sizes.depth_width, kLeastDepth, across - kLeastChart - sizes.quotes_width);

    FrameLayout layout;
    layout.top = Box(0, 0, width, std::min(kTopHeight, height));
    layout.status = Box(0, std::max(height - kStatusHeight, kTopHeight), width, height);
    const int market_top = kTopHeight;
    const int pages_top = std::max(height - kStatusHeight - sizes.pages_height, market_top);
    const int market_bottom = std::max(pages_top - kSplit, market_top);
    layout.pages_split = Box(0, market_bottom, width, pages_top);
    layout.pages = Box(0, pages_top, width, layout.status.top);

    const int panels_left = std::max(width - panels_width, 0);
    const int depth_left = panels_left - sizes.depth_width;
    const bool detailed = market_bottom - market_top - left_column.quotes >= left_column.detail;
    const int quotes_bottom = detailed ? market_top + left_column.quotes : market_bottom;
    layout.quotes = Box(0, market_top, sizes.quotes_width, quotes_bottom);
    layout.detail = Box(0, quotes_bottom, sizes.quotes_width, market_bottom);
    layout.quotes_split =
        Box(sizes.quotes_width, market_top, sizes.quotes_width + kSplit, market_bottom);
    layout.chart = Box(layout.quotes_split.right, market_top, depth_left - kSplit, market_bottom);
    layout.depth_split = Box(layout.chart.right, market_top, depth_left, market_bottom);
    layout.depth = Box(layout.depth_split.right, market_top, panels_left, market_bottom);
    for (int panel = 0; panel < panels; ++panel) {
        const int left = panels_left + panel * kPanelWidth;
        layout.panels[static_cast<std::size_t>(panel)] =
            Box(left, market_top, left + kPanelWidth, market_bottom);
    }
    return layout;
}

}  // namespace terminal
