#pragma once

#include "plugin/contract/order_records.h"

// What an order's status means.

/// The words for a status code, GBK; a code that nobody knows has words too.
const char* OrderStatusText(char status);

/// Can an order of this status still be cancelled?
bool IsCancellable(char status);

/// Lots of the order: cores that leave the volume at 0 tell it in its parts.
int OrderVolume(const CZebOrder& order);
