#pragma once

#include "orderentry/contract_rules.h"
#include "platform/toolkit/toolkit.h"

/// Groups of positions that share take-profit and stop, as a tree of two levels.
class CGOLDCombinationDlg : public CDialog {
public:
    static constexpr UINT IDD = 1102;
    static constexpr int kList = 10024;

    /// Where the legs' contracts are found; may be null.
    void SetContracts(const ContractSource* contracts) { m_pContracts = contracts; }
    /// A core event as the main dialog got it; the block stays the caller's.
    void OnCoreEvent(WPARAM wParam, LPARAM lParam);

protected:
    void OnOK() override {}
    void OnCancel() override {}

    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    /// What the event is about: EV_COMBINATION_MSG one group by its key, the others all groups.
    void OnGroupEvent(int code, const char* key);

    const ContractSource* m_pContracts = nullptr;
};
