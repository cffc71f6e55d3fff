#pragma once

#include <string>

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/parameter_records.h"
#include "stops/stop_setting_rules.h"

/// Page of the stop dialog: the stops of one contract.
class CGOLDAutoStopLossPup : public CDialog {
public:
    static constexpr UINT IDD = 10112;

    // Relative stop
    static constexpr int kStop = 10036;
    static constexpr int kFixedStop = 10010;
    static constexpr int kFixedStopTicks = 10006;
    static constexpr int kFixedStopSpin = 10017;
    static constexpr int kFixedStopText = 1132;
    static constexpr int kFloatStop = 10011;
    static constexpr int kFloatStopTicks = 10018;
    static constexpr int kFloatStopSpin = 10019;
    static constexpr int kFloatStopText = 1133;
    static constexpr int kFloatStep = 1007;
    static constexpr int kFloatStepSpin = 1008;
    static constexpr int kFloatStepText = 1134;
    // Relative take-profit
    static constexpr int kProfit = 1028;
    static constexpr int kFixedProfit = 10013;
    static constexpr int kFixedProfitTicks = 1009;
    static constexpr int kFixedProfitSpin = 1010;
    static constexpr int kFixedProfitText = 1135;
    static constexpr int kPullback = 10014;
    static constexpr int kPullbackTarget = 1011;
    static constexpr int kPullbackTargetSpin = 1012;
    static constexpr int kPullbackTargetText = 1136;
    static constexpr int kPullbackTicks = 1013;
    static constexpr int kPullbackTicksSpin = 1014;
    static constexpr int kPullbackTicksText = 1137;
    // Absolute prices
    static constexpr int kLongStop = 1034;
    static constexpr int kLongStopPrice = 1015;
    static constexpr int kLongStopSpin = 1016;
    static constexpr int kLongProfit = 1036;
    static constexpr int kLongProfitPrice = 1019;
    static constexpr int kLongProfitSpin = 1020;
    static constexpr int kShortStop = 1035;
    static constexpr int kShortStopPrice = 1021;
    static constexpr int kShortStopSpin = 1022;
    static constexpr int kShortProfit = 1037;
    static constexpr int kShortProfitPrice = 1017;
    static constexpr int kShortProfitSpin = 1018;

    /// Neither is owned; the contract may be null.
    CGOLDAutoStopLossPup(const CZebContract* contract, CPresetStop* stop)
        : m_pContract(contract), m_pStop(stop) {}

    /// Writes what the controls say into the record.
    void ReadControls();

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    struct RelativeControls;
    struct AbsoluteControls;

    void ShowRelative(const RelativeControls& controls, const RelativeRule& rule);
    RelativeRule ReadRelative(const RelativeControls& controls) const;
    void ShowAbsolute();
    void UpdateStopEnable();
    void UpdateRelative(const RelativeControls& controls);

    bool OnRadio(const RelativeControls& controls, int id);
    bool OnSwitch(int id);
    bool OnAbsolute(int id);
    bool StepDistance(int spin, int delta);
    void StepPrice(int spin, int delta);

    bool IsChecked(int id) const { return IsDlgButtonChecked(id) == BST_CHECKED; }
    void Check(int id, bool checked) { CheckDlgButton(id, checked ? BST_CHECKED : BST_UNCHECKED); }
    void Enable(int id, bool enabled) { ::EnableWindow(::GetDlgItem(m_hWnd, id), enabled); }
    std::string Text(int id) const;
    void FillIfEmpty(int id, const char* text);

    const CZebContract* m_pContract;
    CPresetStop* m_pStop;
};
