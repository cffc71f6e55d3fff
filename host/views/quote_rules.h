#pragma once

#include <string>

#include "host/skin/palette.h"
#include "papercore/quote.h"

namespace views {

/// A price with decimal places, rounded; "--" for none.
std::string PriceText(papercore::Price price, int digits);

/// How a price stands to the one that it is compared with: -1, 0 or 1; 0 when either is missing.
int Tendency(papercore::Price price, papercore::Price against);

/// What the day is compared with: the previous settlement, else the previous close; 0 for none.
papercore::Price Reference(const papercore::Quote& quote);

/// Up, down, unchanged.
COLORREF TendencyColor(const skin::Palette& palette, int tendency);

/// Difference to the reference with its sign, and in percent with two places; "--" without.
std::string ChangeText(const papercore::Quote& quote, int digits);
std::string ChangePercentText(const papercore::Quote& quote);

/// A count with separators: "1,234,567".
std::string CountText(std::int64_t count);

/// "HH:MM:SS" of a market time.
std::string TimeText(papercore::Instant time);

}  // namespace views
