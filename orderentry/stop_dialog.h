#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/parameter_records.h"

/// The dialog for the stops of a contract, as order page and tickets know it. The shell fills it.
class StopDialog {
public:
    virtual ~StopDialog() = default;
    /// Shows the record under the title and answers whether the user accepted; it holds the new
    /// stops then. A loop runs meanwhile: the contract must be the caller's own copy.
    virtual bool Edit(const CZebContract& contract, CPresetStop& stop, const char* title,
                      CWnd* parent) = 0;
};
