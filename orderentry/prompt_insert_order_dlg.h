#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/order_records.h"

/// Shows an order in words and asks whether to send it.
class CPromptInsertOrderDlg : public CDialog {
public:
    static constexpr UINT IDD = 10105;
    static constexpr int kIcon = 1013;
    static constexpr int kContract = 10001;
    static constexpr int kDirection = 10003;
    static constexpr int kOffset = 10012;
    static constexpr int kPrice = 10005;
    static constexpr int kVolume = 1014;
    static constexpr int kOrderType = 1015;
    static constexpr int kExtra = 1016;

    /// The request is not owned and must outlive the dialog.
    CPromptInsertOrderDlg(const CInsertOrderRequest* request, CWnd* parent)
        : CDialog(IDD, parent), m_pRequest(request) {}

protected:
    BOOL OnInitDialog() override;

    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    DECLARE_MESSAGE_MAP()

private:
    const CInsertOrderRequest* m_pRequest;
};

/// May the order go? Asks the user over `window` unless the trading parameters say not to; for a
/// quick close (`bClose`) they must say so twice. A loop runs meanwhile.
bool ConfirmOrder(CWnd* window, const CInsertOrderRequest& request, bool bClose);
