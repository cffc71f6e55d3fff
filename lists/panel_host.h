#pragma once

#include "plugin/contract/order_records.h"

/// Where the lists publish what host and panels show. The main dialog does it.
class PanelHost {
public:
    virtual ~PanelHost() = default;
    /// The line of the program around us; nobody need have one.
    virtual void ShowFundsLine(double /*equity*/, double /*available*/, double /*open_profit*/) {}
    virtual void ShowFundsOnPanels(double equity, double available, double open_profit) = 0;
    virtual void ShowOrdersOnPanels(const CZebOrder* orders, int count) = 0;
};
