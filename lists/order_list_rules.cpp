#include "lists/order_list_rules.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "lists/bubble_order_rules.h"
#include "lists/order_status_rules.h"
#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"

namespace {

bool IsOpen(const CZebOrder& order) { return IsCancellable(order.cStatus); }

int OrderRefNumber(const CZebOrder& order) {
    const std::string_view ref = text::FieldText(order.szOrderRef);
    if (ref.size() < sizeof order.szOrderRef) return ReadInteger(order.szOrderRef);
    return ReadInteger(std::string(ref).c_str());
}

}  // namespace

bool IsRowCancellable(std::span<const CZebOrder> orders, int row) {
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < orders.size() && IsOpen(orders[index]);
}

bool IsAnyCancellable(std::span<const CZebOrder> orders) {
    return std::any_of(orders.begin(), orders.end(), IsOpen);
}

void KeepCancellable(EArray<CZebOrder>& orders) {
    CZebOrder* const first = orders.GetData();
    CZebOrder* const kept = std::remove_if(first, first + orders.GetCount(),
                                           [](const CZebOrder& order) { return !IsOpen(order); });
    orders.SetSize(static_cast<int>(kept - first));
}

void SortOrders(std::span<CZebOrder> orders) {
    std::vector<int> keys;
    keys.reserve(orders.size());
    for (const CZebOrder& order : orders) {
        keys.push_back(OrderRefNumber(order));
    }
    ReorderRecords(orders.data(), sizeof(CZebOrder), kOrderHead, BubbleOrderOfKeys(keys));
}

CancelRequest MakeCancelRequest(const CZebOrder& order) {
    return {order, std::string(text::FieldText(order.szOrderRef))};
}

std::vector<CancelRequest> CancelRequestsOfAll(std::span<const CZebOrder> orders) {
    std::vector<CancelRequest> requests;
    for (const CZebOrder& order : orders) {
        if (IsOpen(order)) requests.push_back(MakeCancelRequest(order));
    }
    return requests;
}
