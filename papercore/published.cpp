#include "papercore/published.h"

#include <algorithm>

namespace papercore {

template <>
Published::Pins<CZebContract>& Published::PinsOf() {
    return contract_pins_;
}
template <>
Published::Pins<CZebOrder>& Published::PinsOf() {
    return order_pins_;
}
template <>
Published::Pins<CZebTrade>& Published::PinsOf() {
    return trade_pins_;
}
template <>
Published::Pins<CZebPosition>& Published::PinsOf() {
    return position_pins_;
}
template <>
Published::Pins<PositionGroup>& Published::PinsOf() {
    return lot_pins_;
}

void Published::Set(Lists lists) {
    const std::scoped_lock lock(mutex_);
    lists_ = std::move(lists);
}

Lists Published::Get() const {
    const std::scoped_lock lock(mutex_);
    return lists_;
}

void Published::Unpin() {
    const std::scoped_lock lock(mutex_);
    contract_pins_.clear();
    order_pins_.clear();
    trade_pins_.clear();
    position_pins_.clear();
    lot_pins_.clear();
}

template <class Record>
int Published::Read(Shared<Record> Lists::*list, Record* buffer, int capacity) {
    Shared<Record> read;
    {
        const std::scoped_lock lock(mutex_);
        Pins<Record>& pins = PinsOf<Record>();
        const auto pin = pins.find(std::this_thread::get_id());
        if (buffer && pin != pins.end()) {
            read = std::move(pin->second);
            pins.erase(pin);
        } else {
            read = lists_.*list;
            if (!buffer) pins[std::this_thread::get_id()] = read;
        }
    }
    if (!read) return 0;
    const auto count = static_cast<int>(std::min<std::size_t>(read->size(), INT32_MAX));
    if (!buffer) return count;
    const std::size_t room = capacity > 0 ? static_cast<std::size_t>(capacity) : 0;
    const std::size_t taken = std::min(read->size(), room);
    read->CopyTo(buffer, taken);
    return static_cast<int>(taken);
}

template int Published::Read(Shared<CZebContract> Lists::*, CZebContract*, int);
template int Published::Read(Shared<CZebOrder> Lists::*, CZebOrder*, int);
template int Published::Read(Shared<CZebTrade> Lists::*, CZebTrade*, int);
template int Published::Read(Shared<CZebPosition> Lists::*, CZebPosition*, int);
template int Published::Read(Shared<PositionGroup> Lists::*, PositionGroup*, int);

}  // namespace papercore
