#pragma once

#include <string>
#include <vector>

#include "papercore/units.h"

namespace views {

/// What was traded in a stretch of time.
struct Candle {
    papercore::Instant begin = 0;
    papercore::Price open = 0;
    papercore::Price high = 0;
    papercore::Price low = 0;
    papercore::Price close = 0;
    std::int64_t volume = 0;
};

/// Which candles are on show and how they are laid out across `width` pixels.
struct CandleSpan {
    int first = 0;
    int count = 0;
    int pitch = 8;  ///< pixels from one candle to the next
    int left = 0;   ///< of the first one's pitch

    int CenterOf(int index) const { return left + (index - first) * pitch + pitch / 2; }
    /// The candle at a place, the nearest one beyond the ends; -1 when none is shown.
    int At(int x) const;
};

/// The newest candle stands at the right end, `skipped` candles of the newest left out.
CandleSpan SpanOf(int candles, int width, int pitch, int skipped);

/// Prices up and down a height.
struct PriceScale {
    papercore::Price low = 0;
    papercore::Price high = 1;
    int top = 0;
    int height = 1;

    int YOf(papercore::Price price) const;
    papercore::Price PriceAt(int y) const;
};

/// Covers all candles of a span, and `also` as far as it is not more than half of the range away;
/// a margin on both sides, never flat.
PriceScale ScaleOf(const std::vector<Candle>& candles, const CandleSpan& span,
                   const std::vector<papercore::Price>& also, papercore::Price tick, int top,
                   int height);

/// Round prices inside a scale, at least `distance` pixels apart, rising.
std::vector<papercore::Price> RoundPrices(const PriceScale& scale, int distance);

/// "HH:MM" of a time; "MM-DD" at the first candle of another day than the one before.
std::string AxisText(papercore::Instant time, papercore::Instant before);

}  // namespace views
