#pragma once

#include "platform/toolkit/toolkit.h"
#include "stops/stop_setting_rules.h"

/// Page of the stop dialog: how stops fire, for the whole account. The frame fills the settings
/// before the page is created and takes them after ReadControls.
class GOLDSetStopLoss : public CDialog, public StopSettings {
public:
    static constexpr UINT IDD = 10113;
    static constexpr int kStopTicks = 10006;
    static constexpr int kStopTicksSpin = 10017;
    static constexpr int kStopTriggerPrice = 10002;
    static constexpr int kProfitTicks = 10018;
    static constexpr int kProfitTicksSpin = 10019;
    static constexpr int kProfitTriggerPrice = 1007;
    static constexpr int kStopOrderPrice = 1008;
    static constexpr int kProfitOrderPrice = 1009;
    static constexpr int kStopAdjust = 1010;
    static constexpr int kStopAdjustSpin = 1011;
    static constexpr int kProfitAdjust = 1012;
    static constexpr int kProfitAdjustSpin = 1013;
    static constexpr int kAutoChase = 1034;
    static constexpr int kValidity = 1042;
    static constexpr int kIdleSpin = 10048;
    static constexpr int kIdleButton = 10049;

    /// Shows the settings; the page's opening does it.
    void LoadControls();
    /// Takes the settings from the controls. An emptied edit counts as 0.
    void ReadControls();

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    void FillCombos();
    void ShowNumber(int id, int number);
    int ReadNumber(int id) const;
    unsigned char ReadRow(int id) const;
    void Step(int spin, int delta);
};
