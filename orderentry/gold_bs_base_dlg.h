#pragma once

#include "orderentry/gold_bs_dlg.h"
#include "orderentry/report_pane.h"
#include "orderentry/stock5_bs_dlg.h"
#include "plugin/contract/earray.h"

/// The page of order and lists: the order page at the left, the lists in the rest, the five levels.
/// It owns the contracts in the core's order and lets its children reach each other.
class CGoldBSBaseDlg : public CDialog, public ContractSource {
public:
    static constexpr UINT IDD = 10002;

    /// The pane must outlive this page.
    explicit CGoldBSBaseDlg(ReportPane& report) : m_report(report) {}
    /// The window goes first, while the pages in it are still there.
    ~CGoldBSBaseDlg() override { DestroyWindow(); }

    /// Reads the contracts from the core into the array and the process-wide table. The order page
    /// lets its contract go first; panels must have done so before.
    void LoadContracts();
    const CZebContract* FindContractByCode(const char* code) const override;
    /// Asks the host about each contract; null for an unknown key (market | code << 16).
    const CZebContract* FindContractBySymbol(unsigned int packed) const;
    bool ContractsLoaded() const { return m_bContractLoaded; }

    /// The view by the number of the menu entry. Those of the lists, 0, 1, 2, 3 and 17, take the
    /// place of the five levels, which are shown at first.
    void SetPage(int page);
    void ShowFiveLevels();
    /// A quote, for the lists and, if it is about their contract, for order page and five levels.
    void OnQuote(unsigned int packed, const JSDyn1& quote);
    /// A press anywhere in the host, on the screen.
    void OnMousePress(CPoint screen);

    /// Window of the host's condition order page, which goes with the order page. May be null.
    void SetConditionTarget(HWND target) { m_hConditionTarget = target; }

    CGoldBsDlg& OrderPage() { return m_bs; }
    CStock5BSDlg& FiveLevels() { return m_stock5; }
    ReportPane& Report() { return m_report; }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    LRESULT OnContractSelected(WPARAM index, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    void LayOut();

    ReportPane& m_report;
    CGoldBsDlg m_bs;
    CStock5BSDlg m_stock5;
    EArray<CZebContract> m_contracts{32};
    bool m_bContractLoaded = false;
    HWND m_hConditionTarget = nullptr;
};
