#pragma once

#include <string>

#include "plugin/contract/my_event_utils.h"
#include "stops/auto_stop_loss_pup.h"
#include "stops/set_stop_loss.h"

/// The stop dialog: a tab strip with the stops of one contract and the account's settings.
///
/// For future positions OK ends it. For a position it first asks the core for the state of the
/// market, and the answer ends it or holds it open; the account's settings are stored by then.
class CGOLDAutoStopLossPupBase : public CDialog, private MyEventUtils {
public:
    static constexpr UINT IDD = 10111;
    static constexpr int kTabs = 10034;
    static constexpr int kPrompt = 10001;
    static constexpr int kLink = 21011;

    /// The record is filled in on OK; the caller stores it. A title with "预设" in it asks for the
    /// stops of future positions; 63 bytes of it are used. Neither contract nor record is owned:
    /// the contract is the caller's own copy, since the table may be loaded anew meanwhile.
    CGOLDAutoStopLossPupBase(const CZebContract* contract, CPresetStop* stop, const char* title,
                             CWnd* parent);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnFunctionReply(const CAccountInfo* account, int function, const char* text) override;

    void OnTabChanged(NMHDR* header, LRESULT* result);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    DECLARE_MESSAGE_MAP()

private:
    bool IsPreset() const;
    void CreatePages();
    void ShowSelectedPage();
    void ShowNote();
    void StoreSettings();
    void AskMarketState();

    std::string m_strTitle;
    CPresetStop* m_pStop;
    CTabCtrl m_tabs;
    CGOLDAutoStopLossPup m_stops;
    GOLDSetStopLoss m_settings;
    CStatic m_link;  ///< in place of the line below the tabs, for a position
    bool m_bAsked = false;
    CPresetStop m_asked{};  ///< the record as it was when the market's state was asked for
};
