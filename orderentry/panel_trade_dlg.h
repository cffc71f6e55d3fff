#pragma once

#include <memory>

#include "orderentry/panel_bs_dlg.h"
#include "orderentry/panel_parts.h"
#include "orderentry/panel_price_chart_dlg.h"

/// The compact form of the front end beside a chart: prices, funds, ticket and watch page of one
/// contract, or instead of them the login link or the lock.
class CPanelTradeDlg : public CDialog {
public:
    static constexpr UINT IDD = 1027;

    explicit CPanelTradeDlg(std::unique_ptr<PanelParts> parts) : m_parts(std::move(parts)) {}
    /// The window goes first, while the pages in it are still there.
    ~CPanelTradeDlg() override { DestroyWindow(); }

    /// Who hears of stops that were changed here.
    void SetOwner(StopCheckListener* owner) { m_bs.Connect(owner); }

    /// Null unbinds, but keeps market and code.
    void BindContract(unsigned short market, unsigned short code, const CZebContract* contract);
    /// market | code << 16 of the bound contract, 0 for none.
    unsigned int Packed() const { return m_wMarket | static_cast<unsigned int>(m_wCode) << 16; }

    /// The logged-out look, bound to nothing.
    void ShowLogin();
    /// The lock alone, or the working pages.
    void ShowLocked(bool locked);

    void ShowFunds(double equity, double available, double open_profit);
    void RefreshPositions() { m_parts->RefreshPositions(); }
    void ShowOrders(const CZebOrder* orders, int count) { m_parts->ShowOrders(orders, count); }
    void RefreshStopCheck() { m_bs.RefreshStopCheck(); }
    void ReloadSettings() { m_bs.ReloadSettings(); }
    /// A quote of the bound contract.
    void OnQuote(const JSDyn1& quote);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    LRESULT OnCoreEvent(WPARAM wParam, LPARAM lParam);
    LRESULT OnLock(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    enum class Face { kLogin, kWorking, kLocked };
    void ShowFace(Face face);
    void LayOut();
    void Unbind();

    std::unique_ptr<PanelParts> m_parts;
    unsigned short m_wMarket = 0;
    unsigned short m_wCode = 0;
    CHostSymbol m_symbol{};
    CPanelPriceChartDlg m_priceChart;
    CPanelBSDlg m_bs;
};
