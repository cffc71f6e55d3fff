#include "host/terminal/quote_record.h"

#include <algorithm>
#include <limits>

namespace terminal {
namespace {

std::uint32_t Size(std::int64_t volume) {
    constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(volume, 0, kMost));
}

}  // namespace

JSDyn1 RecordOf(const papercore::Quote& quote) {
    JSDyn1 record{};
    record.dPreClose = papercore::YuanFromPrice(quote.previous_close);
    record.dLast = papercore::YuanFromPrice(quote.last);
    record.fUpperLimit = static_cast<float>(papercore::YuanFromPrice(quote.upper_limit));
    record.fLowerLimit = static_cast<float>(papercore::YuanFromPrice(quote.lower_limit));
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        record.dBid[level] = papercore::YuanFromPrice(quote.bid[level].price);
        record.nBidVolume[level] = Size(quote.bid[level].volume);
        record.dAsk[level] = papercore::YuanFromPrice(quote.ask[level].price);
        record.nAskVolume[level] = Size(quote.ask[level].volume);
    }
    record.dRefPrice = papercore::YuanFromPrice(
        quote.previous_settlement > 0 ? quote.previous_settlement : quote.previous_close);
    return record;
}

}  // namespace terminal
