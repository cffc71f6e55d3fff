#pragma once

#include <vector>

#include "controls/ower_check_box.h"
#include "orderentry/combo_price_edit.h"
#include "orderentry/combo_volume_edit.h"
#include "orderentry/report_pane.h"
#include "orderentry/stop_check_listener.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/order_records.h"

/// The order page: contract, direction, offset, price, volume, and the button that sends the order.
/// Enter and Escape do nothing.
class CGoldBsDlg : public CDialog {
public:
    static constexpr UINT IDD = 10101;
    static constexpr int kContractLabel = 10001;
    static constexpr int kContract = 10002;
    static constexpr int kDirectionLabel = 10003;
    static constexpr int kBuy = 10010;
    static constexpr int kSell = 10011;
    static constexpr int kOffsetLabel = 10012;
    static constexpr int kOpen = 10013;
    static constexpr int kClose = 10014;
    static constexpr int kCloseToday = 10015;
    static constexpr int kNet = 10037;
    static constexpr int kPriceLabel = 10005;
    static constexpr int kPrice = 10006;
    static constexpr int kPriceSpin = 10017;
    static constexpr int kMaxVolumeLabel = 10025;
    static constexpr int kMaxVolume = 10020;
    static constexpr int kVolumeLabel = 10026;
    static constexpr int kVolume = 10018;
    static constexpr int kVolumeSpin = 10019;
    static constexpr int kStops = 10036;
    static constexpr int kAutoStop = 10038;
    static constexpr int kSubmit = 10008;
    static constexpr int kReset = 10023;
    static constexpr int kAskMaxVolume = 10021;

    /// The window goes first, while the members that paint it are still there.
    ~CGoldBsDlg() override { DestroyWindow(); }

    /// Pixels that the page takes of its container.
    static constexpr int kWidth = 220;

    /// The lists, for what can be closed, and who hears of changed stops. Both may be null.
    void Connect(const ReportPane* report, StopCheckListener* listener);

    /// Fills the drop-down in this order and selects nothing. The records must stay where they are
    /// until the next call; with 0 of them no contract is kept.
    void SetContracts(const CZebContract* contracts, int count);
    /// Selects a contract because the host did, so the host is not told back. Nothing happens for
    /// null, for the current one and for one that is not in the list.
    void SetContract(const CZebContract* contract);
    const CZebContract* Contract() const { return m_pContract; }
    /// What the container answers to a change: the contract behind the index in its array.
    void TakeContract(const CZebContract* contract) { m_pContract = contract; }
    /// The host's symbol of the current contract, zero when there is none.
    const CHostSymbol& Symbol() const { return m_stSymbol; }

    void OnMaxVolumeResult(const CQueryMaxVolumeResult* result);
    /// Reads the trading parameters again.
    void ReloadSettings();
    /// Looks again whether the contract has preset stops.
    void RefreshStopCheck();
    void OnQuoteEvent(const JSDyn1& quote);
    /// A press anywhere in the host while the page is visible.
    void OnMousePress(CPoint screen);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    LRESULT OnQueryContract(WPARAM selector, LPARAM buffer);
    void OnContractSelected();
    DECLARE_MESSAGE_MAP()

private:
    void LayOut();
    void CoverPlaceHolder(CWnd& composite, int id);

    const ReportPane* m_pReport = nullptr;
    StopCheckListener* m_pStopListener = nullptr;
    const CZebContract* m_pContracts = nullptr;
    int m_nContracts = 0;
    const CZebContract* m_pContract = nullptr;
    int m_nContractIndex = 0;
    char m_cDirection = kDirectionBuy;
    char m_cOffset = kOffsetOpen;
    int m_bHasOffset = 1;
    CHostSymbol m_stSymbol{};
    int m_nLinkedPosition = 0;  ///< the lot that the page was loaded from, 0 for none
    bool m_bHostDriven = false;
    std::vector<int> m_vecCodeLength;
    CComboPriceEdit m_price{kPrice, kPriceSpin};
    CComboVolumeEdit m_volume{kVolume, kVolumeSpin};
    COwerRadio m_buy;
    COwerRadio m_sell;
    COwerRadio m_open;
    COwerRadio m_close;
    COwerCheckBox m_net;
    COwerCheckBox m_stops;
    COwerCheckBox m_autoStop;
};
