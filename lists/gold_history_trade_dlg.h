#pragma once

#include "controls/bmp_button_no_pic.h"
#include "platform/toolkit/toolkit.h"

/// Asks for the trades of some days. They come as an event to the dispatcher, not into this page.
class CGoldHistoryTradeDlg : public CDialog {
public:
    static constexpr UINT IDD = 10010;
    static constexpr int kText = 10006;
    static constexpr int kQuery = 10008;
    static constexpr int kFrom = 10032;
    static constexpr int kTo = 10033;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    void OnQuery();
    DECLARE_MESSAGE_MAP()

private:
    CRichEditCtrl m_edit;
    CBmpButtonNoPic m_btnQuery;
    CDateTimeCtrl m_from;
    CDateTimeCtrl m_to;
};
