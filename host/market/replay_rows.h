#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "papercore/quote.h"

namespace market {

enum class Layout {
    kUnknown,
    kDepth,   ///< last price, volume of the day, five levels
    kQuotes,  ///< best bid and ask
    kTrades,
    kBars,       ///< of a minute
    kQuotedBars  ///< of a minute, with the best quote at its end
};

/// A row as it stands in the file. An empty field is 0.
struct Row {
    papercore::Instant time = 0;
    papercore::Day trading_day = 0;
    double open = 0, high = 0, low = 0, last = 0;
    double volume = 0;
    double turnover = 0;
    double open_interest = 0;
    std::array<double, papercore::kLevels> bid{}, bid_volume{}, ask{}, ask_volume{};
};

/// Recognises a file by the names of its columns, in any order, and reads its rows.
class RowReader {
public:
    /// kUnknown for a header that no layout has.
    Layout ReadHeader(std::string_view line);
    Layout Kind() const { return layout_; }

    /// Empty, or what is wrong with the row.
    std::string Read(std::string_view line, Row& row) const;

private:
    struct Column {
        int field = 0;
        std::size_t level = 0;
    };
    std::vector<Column> columns_;
    Layout layout_ = Layout::kUnknown;
};

/// "2019-09-16T14:01:33[.fraction]" is the market's own time; with a final Z it is universal time,
/// eight hours behind. False for anything else.
bool ReadTime(std::string_view text, papercore::Instant& time);

/// "2019-09-16". False for a day that isn't one.
bool ReadDay(std::string_view text, papercore::Day& day);

}  // namespace market
