#pragma once

#include <span>
#include <string>
#include <vector>

#include "plugin/contract/earray.h"
#include "plugin/contract/order_records.h"

// Which orders the list shows, in which order, and which of them can be cancelled.

/// False for a row that there is none of, also for the one behind the last.
bool IsRowCancellable(std::span<const CZebOrder> orders, int row);
bool IsAnyCancellable(std::span<const CZebOrder> orders);

/// Leaves the cancellable ones, in their order.
void KeepCancellable(EArray<CZebOrder>& orders);

/// Newest first: by the number in szOrderRef, those of one number in the core's order. Only the
/// first kOrderHead bytes of the records move.
void SortOrders(std::span<CZebOrder> orders);

/// What a sort moves of an order: as much as a trade has. No field that is read lies behind it.
inline constexpr std::size_t kOrderHead = sizeof(CZebTrade);

/// What CancelOrder takes.
struct CancelRequest {
    CZebOrder order;
    std::string order_ref;
};
CancelRequest MakeCancelRequest(const CZebOrder& order);
std::vector<CancelRequest> CancelRequestsOfAll(std::span<const CZebOrder> orders);
