#pragma once

#include <functional>
#include <mutex>
#include <vector>

#include "papercore/quote.h"

namespace terminal {

/// The latest quote of each contract on its way from the feed to the windows. However fast quotes
/// come, at most one of each contract waits, and it is the latest.
class QuoteBoard {
public:
    /// `wake` is called, on the thread that puts, when something waits and nobody was told yet.
    QuoteBoard(std::size_t contracts, std::function<void()> wake);

    /// Any thread. An index that is not there is ignored.
    void Put(int index, const papercore::Quote& quote);
    /// The windows' thread: hands out what waits, in the order of the table.
    void Take(const std::function<void(int index, const papercore::Quote& quote)>& give);
    /// The latest one, taken or not; its time is 0 before the first.
    papercore::Quote Latest(int index) const;

private:
    struct Place {
        papercore::Quote quote;
        bool waits = false;
    };

    std::function<void()> wake_;
    mutable std::mutex mutex_;
    std::vector<Place> places_;
    bool told_ = false;
};

}  // namespace terminal
