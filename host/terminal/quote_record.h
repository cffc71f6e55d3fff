#pragma once

#include "papercore/quote.h"
#include "plugin/contract/market_records.h"

namespace terminal {

/// A quote as the front end reads it: prices in yuan, sizes that don't fit at their largest.
JSDyn1 RecordOf(const papercore::Quote& quote);

}  // namespace terminal
