#pragma once

#include "platform/types.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/parameter_records.h"

// Whether the user is asked before an order goes out, and what the question says.

enum class OrderOrigin {
    kOrderPage,
    kQuickClose,
};

/// Closing by a button is asked about unless both settings are off.
bool MustConfirm(const CTradeParam& param, OrderOrigin origin);

/// The words for CInsertOrderRequest::cOrderType, GBK.
const char* OrderTypeText(char type);

/// The lines of the question, GBK.
struct ConfirmationText {
    char contract[64];
    char direction[64];
    char offset[64];
    char price[64];
    char volume[64];
    char order_type[64];
};
ConfirmationText DescribeOrder(const CInsertOrderRequest& request);
/// Their colour.
COLORREF ConfirmationColor(const CInsertOrderRequest& request);
