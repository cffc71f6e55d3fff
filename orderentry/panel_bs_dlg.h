#pragma once

#include "controls/bmp_button.h"
#include "controls/bs_button.h"
#include "controls/ower_check_box.h"
#include "orderentry/price_edit.h"
#include "orderentry/stop_check_listener.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/market_records.h"

/// The ticket of a panel: one contract, a buy and a sell button that send the order at once.
class CPanelBSDlg : public CDialog {
public:
    static constexpr UINT IDD = 10103;
    static constexpr int kPrice = 10006;
    static constexpr int kPriceSpin = 10017;
    static constexpr int kVolume = 10018;
    static constexpr int kVolumeSpin = 10019;
    static constexpr int kOpen = 10013;
    static constexpr int kClose = 10014;
    static constexpr int kNet = 10037;
    static constexpr int kStops = 10036;
    static constexpr int kAutoStop = 10038;
    static constexpr int kReset = 10023;
    static constexpr int kBuy = 10008;
    static constexpr int kSell = 10010;
    static constexpr int kBuyFirst = 10009;
    static constexpr int kBuySecond = 10015;
    static constexpr int kSellFirst = 10016;
    static constexpr int kSellSecond = 10022;

    /// The window goes first, while the members that paint it are still there.
    ~CPanelBSDlg() override { DestroyWindow(); }

    /// Who hears of changed stops; may be null.
    void Connect(StopCheckListener* listener) { m_pStopListener = listener; }
    /// Null for none, which disables what trades.
    void SetContract(const CZebContract* contract);
    void OnQuoteEvent(const JSDyn1& quote);
    void RefreshStopCheck();
    /// Reads the trading parameters again, which name the small buttons.
    void ReloadSettings();

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    DECLARE_MESSAGE_MAP()

private:
    StopCheckListener* m_pStopListener = nullptr;
    const CZebContract* m_pContract = nullptr;
    bool m_bEnabled = false;
    char m_cOffset = kOffsetOpen;
    CHostSymbol m_stSymbol{};
    int m_nLinkedPosition = 0;
    CPriceEdit m_price{63};
    COwerRadio m_open;
    COwerRadio m_close;
    COwerCheckBox m_net;
    COwerCheckBox m_stops;
    COwerCheckBox m_autoStop;
    CBmpButton m_reset;
    CBSButton m_buy;
    CBSButton m_sell;
    CBmpButton m_small[4];
    CBrush m_controlGround{0x292929};
};
