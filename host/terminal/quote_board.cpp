#include "host/terminal/quote_board.h"

#include <utility>

namespace terminal {

QuoteBoard::QuoteBoard(std::size_t contracts, std::function<void()> wake)
    : wake_(std::move(wake)), places_(contracts) {}

void QuoteBoard::Put(int index, const papercore::Quote& quote) {
    if (index < 0 || static_cast<std::size_t>(index) >= places_.size()) return;
    bool tell = false;
    {
        const std::scoped_lock lock(mutex_);
        Place& place = places_[static_cast<std::size_t>(index)];
        place.quote = quote;
        place.waits = true;
        tell = !std::exchange(told_, true);
    }
    if (tell && wake_) wake_();
}

void QuoteBoard::Take(const std::function<void(int, const papercore::Quote&)>& give) {
    std::vector<std::pair<int, papercore::Quote>> waiting;
    {
        const std::scoped_lock lock(mutex_);
        told_ = false;
        for (std::size_t index = 0; index < places_.size(); ++index) {
            Place& place = places_[index];
            if (std::exchange(place.waits, false)) {
                waiting.emplace_back(static_cast<int>(index), place.quote);
            }
        }
    }
    for (const auto& [index, quote] : waiting) give(index, quote);
}

papercore::Quote QuoteBoard::Latest(int index) const {
    const std::scoped_lock lock(mutex_);
    if (index < 0 || static_cast<std::size_t>(index) >= places_.size()) return {};
    return places_[static_cast<std::size_t>(index)].quote;
}

}  // namespace terminal
