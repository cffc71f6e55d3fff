#pragma once

#include <string>
#include <vector>

#include "controls/bmp_button_no_pic.h"
#include "controls/ower_check_box.h"
#include "orderentry/combo_price_edit.h"
#include "orderentry/combo_volume_edit.h"
#include "orderentry/order_rules.h"
#include "orderentry/report_pane.h"
#include "orderentry/stock5_bs_dlg.h"
#include "orderentry/stop_check_listener.h"
#include "orderentry/stop_dialog.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/position_records.h"

/// The order page: contract, direction, offset, price, volume, and the button that sends the order.
///
/// The composites for price and volume lie over hidden edits of the template that have their ids:
/// looking up such an id leads to the hidden edit. The records of the contracts are the container's
/// and may go in any loop of a message box or dialog; no handler keeps one across it.
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

    /// The lists, for what can be closed, who hears of changed stops, and the dialog that changes
    /// them. Each may be null.
    void Connect(const ReportPane* report, StopCheckListener* listener, StopDialog* stops);
    /// Shows the depth of each contract from its choice on; may be null.
    void SetFiveLevels(CStock5BSDlg* levels) { m_pLevels = levels; }
    /// What a clicked price goes to: the price's inner edit.
    HWND PriceWindow() const;

    /// Fills the drop-down in this order and selects nothing. The records must stay where they are
    /// until the next call; with 0 of them no contract is kept.
    void SetContracts(const CZebContract* contracts, int count);
    /// Selects a contract because the host did, so the host is not told back. Nothing happens for
    /// null, for the current one and for one that is not in the list.
    void SetContract(const CZebContract* contract);
    const CZebContract* Contract() const { return m_pContract; }
    /// What the container answers to a change: the contract behind the index in its array.
    void TakeContract(const CZebContract* contract) { m_pContract = contract; }
    /// Is a quote of this key one of the current contract?
    bool IsQuotedBy(unsigned int packed) const;

    void OnMaxVolumeResult(const CQueryMaxVolumeResult* result);
    /// Reads the trading parameters again: the default price.
    void ReloadSettings() { ApplyDefaultPrice(); }
    /// Puts the default price of the trading parameters into the price box.
    void ApplyDefaultPrice();
    /// Looks again whether the contract has preset stops.
    void RefreshStopCheck();
    void OnQuoteEvent(const JSDyn1& quote);
    /// A press anywhere in the host; heeded while the page is visible.
    void OnMousePress(CPoint screen);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    /// Enter: the volume hands the focus on to the button that sends, buttons are pressed.
    void OnOK() override;
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    void OnLButtonDown(UINT flags, CPoint point);
    LRESULT OnQueryContract(WPARAM selector, LPARAM buffer);
    LRESULT OnPositionRow(WPARAM row, LPARAM second);
    LRESULT OnPositionContract(WPARAM code, LPARAM);
    LRESULT OnRadioChecked(WPARAM, LPARAM id);
    LRESULT OnCheckChanged(WPARAM, LPARAM id);
    void OnContractSelected();
    void OnContractTyped();
    void OnPriceChanged() { ShowMaxVolume(m_cOffset); }
    void OnPriceLeft() { ShowMaxVolume(kOffsetOpen); }
    void OnPriceStep(NMHDR* header, LRESULT* result);
    void OnVolumeStep(NMHDR* header, LRESULT* result);
    void OnSubmit();
    void OnReset();
    void OnAskMaxVolume() { ShowMaxVolume(m_cOffset); }
    DECLARE_MESSAGE_MAP()

private:
    // Look
    void LayOut();
    void CoverPlaceHolder(CWnd& composite, int id);
    void OrderTabStops();
    void RefreshLook();
    void CheckRadios();
    void EnableOffsets();
    void ShowNet();
    void ShowLabel(int id, const char* text);
    void PaintSubmit(bool buy);

    // Contract
    int FindItem(const std::string& code) const;
    int LongestMatch(const std::string& typed);
    void SelectItem(int item);
    bool TakeSelected();
    void ShowContract();
    void LoseContract();

    // Ticket
    void Choose(int radio);
    void ResetDirection();
    void ShowMaxVolume(char offset);
    void ShowMaximum(int lots);
    std::string PriceText() const;
    std::string VolumeText() const;
    void SetVolumeText(const char* text);
    bool IsNet() const { return m_net.IsChecked() != FALSE; }
    void LoadForClosing(const PositionGroup& row);
    OrderTicket Ticket(const std::string& price, const std::string& volume) const;
    void Refuse(const PreparedOrder& order);
    void Send(PreparedOrder& order);

    // Stops
    void EditStops(COwerCheckBox& box);
    bool MayEditStops(COwerCheckBox& box);

    const ReportPane* m_pReport = nullptr;
    StopCheckListener* m_pStopListener = nullptr;
    StopDialog* m_pStopDialog = nullptr;
    CStock5BSDlg* m_pLevels = nullptr;
    const CZebContract* m_pContracts = nullptr;  ///< the container's, in the drop-down's order
    int m_nContracts = 0;
    const CZebContract* m_pContract = nullptr;
    int m_nContractIndex = 0;
    char m_cDirection = kDirectionBuy;
    char m_cOffset = kOffsetOpen;
    int m_bHasOffset = 1;
    CHostSymbol m_stSymbol{};
    int m_nLinkedPosition = 0;  ///< the lot that the page was loaded from, 0 for none
    bool m_bHostDriven = false;
    std::vector<int> m_vecCodeLength;  ///< bytes of each code, by the drop-down's position
    COLORREF m_crSide = 0;             ///< of the labels
    CComboPriceEdit m_price{kPrice, kPriceSpin};
    CComboVolumeEdit m_volume{kVolume, kVolumeSpin};
    COwerRadio m_buy;
    COwerRadio m_sell;
    COwerRadio m_open;
    COwerRadio m_close;
    COwerCheckBox m_net;
    COwerCheckBox m_stops;
    COwerCheckBox m_autoStop;
    CBmpButtonNoPic m_submit;
    CBmpButtonNoPic m_reset;
    CBmpButtonNoPic m_askMaxVolume;
};
