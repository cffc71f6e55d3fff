#pragma once

#include "plugin/contract/order_records.h"

/// Where the lists publish what every panel shows. The main dialog does it.
class PanelHost {
public:
    virtual ~PanelHost() = default;
    virtual void ShowFundsOnPanels(double equity, double available, double open_profit) = 0;
    virtual void ShowOrdersOnPanels(const CZebOrder* orders, int count) = 0;
};
