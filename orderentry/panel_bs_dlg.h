#pragma once

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

    /// Who hears of changed stops; may be null.
    void Connect(StopCheckListener* listener) { m_pStopListener = listener; }
    /// Null for none, which disables what trades.
    void SetContract(const CZebContract* contract);
    void OnQuoteEvent(const JSDyn1& quote);
    void RefreshStopCheck();
    /// Reads the trading parameters again, which name the small buttons.
    void ReloadSettings();

protected:
    void OnOK() override {}
    void OnCancel() override {}

private:
    StopCheckListener* m_pStopListener = nullptr;
    const CZebContract* m_pContract = nullptr;
    bool m_bEnabled = false;
    char m_cOffset = kOffsetOpen;
    CHostSymbol m_stSymbol{};
    int m_nLinkedPosition = 0;
};
