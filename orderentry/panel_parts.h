#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"

/// A panel's pages that belong to other folders.
enum class PanelPart { kClientRight, kWatch, kLogin, kLock };

/// Those pages as the panel knows them. The shell makes one for each panel, so that the folders
/// need not know each other's headers.
class PanelParts {
public:
    virtual ~PanelParts() = default;

    virtual bool Create(PanelPart part, CWnd* parent) = 0;
    virtual CWnd& Window(PanelPart part) = 0;
    /// Who gets what the user does with positions of the watch page: the panel's ticket.
    virtual void Connect(HWND row_receiver) = 0;

    virtual void ShowFunds(double available, double open_profit) = 0;
    /// Null for none.
    virtual void SetContract(const CZebContract* contract) = 0;
    virtual void RefreshPositions() = 0;
    virtual void ShowOrders(const CZebOrder* orders, int count) = 0;
};
