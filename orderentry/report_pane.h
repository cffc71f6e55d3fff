#pragma once

#include "orderentry/contract_rules.h"
#include "platform/toolkit/toolkit.h"

/// The lists beside the order page, as its container knows them. The shell fills it with the report
/// page, so that neither folder needs the other's headers.
class ReportPane {
public:
    virtual ~ReportPane() = default;

    virtual bool Create(CWnd* parent) = 0;
    /// Asked for once Create has succeeded.
    virtual CWnd& Window() = 0;
    /// Who gets what the user does with rows: the order page.
    virtual void Connect(const ContractSource& contracts, HWND row_receiver) = 0;
    /// The combination of lists, by the number of the menu entry.
    virtual void SetPage(int page) = 0;
    virtual void OnQuote(unsigned int packed, const JSDyn1& quote) = 0;

    /// Lots of the contract that an order of this direction can close.
    virtual int CloseVolume(const char* contract, char direction) const = 0;
    /// The positions' losses, 0 or less.
    virtual double HoldLoss() const = 0;
};
