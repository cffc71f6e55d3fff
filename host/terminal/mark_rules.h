#pragma once

#include <string>
#include <vector>

#include "host/views/chart_view.h"
#include "papercore/published.h"

namespace terminal {

/// Lines on the chart of a contract: working orders, average open prices, and where the stops of
/// its lots stand now.
std::vector<views::ChartMark> MarksOf(const papercore::Lists& lists, const std::string& contract,
                                      papercore::Price tick);

}  // namespace terminal
