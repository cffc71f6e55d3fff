#pragma once

#include "stops/auto_stop_loss_pup.h"
#include "stops/set_stop_loss.h"

/// The stop dialog: a tab strip with the stops of one contract and the account's settings.
class CGOLDAutoStopLossPupBase : public CDialog {
public:
    static constexpr UINT IDD = 10111;
    static constexpr int kTabs = 10034;
    static constexpr int kPrompt = 10001;

    /// The record is filled in on OK; the caller stores it. A title with "预设" in it asks for the
    /// stops of future positions. Nothing is owned, the title included.
    CGOLDAutoStopLossPupBase(const CZebContract* contract, CPresetStop* stop, const char* title,
                             CWnd* parent)
        : CDialog(IDD, parent), m_pTitle(title), m_stops(contract, stop) {}

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;

    void OnTabChanged(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    void ShowSelectedPage();

    const char* m_pTitle;
    CTabCtrl m_tabs;
    CGOLDAutoStopLossPup m_stops;
    GOLDSetStopLoss m_settings;
};
