#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include "papercore/engine_requests.h"
#include "papercore/record_list.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/position_records.h"

namespace papercore {

template <class Record>
using Shared = std::shared_ptr<const RecordList<Record>>;

/// The lists as they were after one event.
struct Lists {
    Shared<CZebContract> contracts;
    Shared<CZebOrder> orders;
    Shared<CZebTrade> trades;
    Shared<CZebPosition> positions;
    Shared<PositionGroup> lots;
    Funds funds;
};

/// The newest lists, and for each thread that has begun to read one the list that it was promised.
class Published {
public:
    void Set(Lists lists);
    Lists Get() const;

    /// The two steps of a list read: with no buffer the count, which pins the list for this
    /// thread; then at most `capacity` records of what was pinned, or else of the newest list.
    template <class Record>
    int Read(Shared<Record> Lists::*list, Record* buffer, int capacity);
    /// Forgets what was promised.
    void Unpin();

private:
    template <class Record>
    using Pins = std::map<std::thread::id, Shared<Record>>;
    template <class Record>
    Pins<Record>& PinsOf();

    mutable std::mutex mutex_;
    Lists lists_;
    Pins<CZebContract> contract_pins_;
    Pins<CZebOrder> order_pins_;
    Pins<CZebTrade> trade_pins_;
    Pins<CZebPosition> position_pins_;
    Pins<PositionGroup> lot_pins_;
};

}  // namespace papercore
