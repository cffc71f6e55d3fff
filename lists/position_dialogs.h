#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/parameter_records.h"

/// The questions that the position page has other folders ask. The shell fills it. A loop runs
/// while either is open, so records must be the caller's own copies, and its window may be gone
/// afterwards.
class PositionDialogs {
public:
    virtual ~PositionDialogs() = default;
    /// May the order go? `bClose` says whether the setting for closing orders counts too.
    virtual bool ConfirmOrder(CWnd* window, const CInsertOrderRequest& request, bool bClose) = 0;
    /// Shows the record under the title and answers whether the user accepted; it holds the new
    /// stops then.
    virtual bool EditStops(const CZebContract& contract, CPresetStop& stop, const char* title,
                           CWnd* parent) = 0;
};
