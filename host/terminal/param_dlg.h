#pragma once

#include "host/terminal/ids.h"
#include "host/terminal/param_rules.h"
#include "platform/toolkit/toolkit.h"

namespace terminal {

/// The trading parameters as the user sets them. Modal; IDOK leaves the choices in the object.
class ParamDlg : public CDialog {
public:
    enum Control : int {
        kConfirmOrders = 20201,
        kConfirmCloses,
        kConfirmCancels,
        kOverPrice,
        kOverTicks,
        kResetPrice,
        kResetDirection,
        kDefaultPrice,
        kClosePrice,
        kCloseTicks,
        kPanelBuy1,
        kPanelBuy2,
        kPanelSell1,
        kPanelSell2,
        kFault,
    };

    explicit ParamDlg(CWnd* parent) : CDialog(kParamDialog, parent) {}

    ParamChoices choices;

protected:
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnOverPrice();
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    DECLARE_MESSAGE_MAP()

private:
    template <class Table>
    void Fill(int id, const Table& table, int chosen);
    int Chosen(int id) const;
    bool ReadTicks(int id, int& ticks);
};

}  // namespace terminal
