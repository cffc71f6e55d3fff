#include "stops/set_stop_loss.h"

#include <string>

#include "orderentry/number_rules.h"
#include "orderentry/volume_rules.h"

namespace {

constexpr const char* kPriceWords[] = {"对手价", "最新价", "挂单价", "涨停价", "跌停价"};
constexpr const char* kValidityWords[] = {"当日有效", "永久有效"};

/// A spin and its edit. Counts have no meaning below 1, adjustments go anywhere.
struct SpinEdit {
    int spin;
    int edit;
    bool count;
};
constexpr SpinEdit kSpins[] = {
    {GOLDSetStopLoss::kStopTicksSpin, GOLDSetStopLoss::kStopTicks, true},
    {GOLDSetStopLoss::kProfitTicksSpin, GOLDSetStopLoss::kProfitTicks, true},
    {GOLDSetStopLoss::kStopAdjustSpin, GOLDSetStopLoss::kStopAdjust, false},
    {GOLDSetStopLoss::kProfitAdjustSpin, GOLDSetStopLoss::kProfitAdjust, false},
};

}  // namespace

BOOL GOLDSetStopLoss::OnInitDialog() {
    CDialog::OnInitDialog();
    FillCombos();
    LoadControls();
    return TRUE;
}

void GOLDSetStopLoss::FillCombos() {
    const auto add = [this](int combo, const char* word) {
        SendDlgItemMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(word));
    };
    for (const int combo :
         {kStopTriggerPrice, kProfitTriggerPrice, kStopOrderPrice, kProfitOrderPrice}) {
        for (const char* word : kPriceWords) add(combo, word);
    }
    for (const char* word : kValidityWords) add(kValidity, word);
}

void GOLDSetStopLoss::ShowNumber(int id, int number) {
    SetDlgItemText(id, std::to_string(number).c_str());
}

void GOLDSetStopLoss::LoadControls() {
    ShowNumber(kStopTicks, m_nStopTicks);
    ShowNumber(kProfitTicks, m_nProfitTicks);
    ShowNumber(kStopAdjust, m_nStopAdjust);
    ShowNumber(kProfitAdjust, m_nProfitAdjust);
    SendDlgItemMessage(kStopTriggerPrice, CB_SETCURSEL, m_nStopTriggerPrice);
    SendDlgItemMessage(kProfitTriggerPrice, CB_SETCURSEL, m_nProfitTriggerPrice);
    SendDlgItemMessage(kStopOrderPrice, CB_SETCURSEL, m_nStopOrderPrice);
    SendDlgItemMessage(kProfitOrderPrice, CB_SETCURSEL, m_nProfitOrderPrice);
    CheckDlgButton(kAutoChase, m_bAutoChase != 0 ? BST_CHECKED : BST_UNCHECKED);
    SendDlgItemMessage(kValidity, CB_SETCURSEL, m_nValidity != 0 ? 1 : 0);
}

int GOLDSetStopLoss::ReadNumber(int id) const {
    char text[64] = {};
    GetDlgItemText(id, text, sizeof text);
    return ReadInteger(text);
}

unsigned char GOLDSetStopLoss::ReadRow(int id) const {
    return RowNumber(::SendDlgItemMessageA(m_hWnd, id, CB_GETCURSEL, 0, 0));
}

void GOLDSetStopLoss::ReadControls() {
    m_nStopTicks = ReadNumber(kStopTicks);
    m_nProfitTicks = ReadNumber(kProfitTicks);
    m_nStopAdjust = ReadNumber(kStopAdjust);
    m_nProfitAdjust = ReadNumber(kProfitAdjust);
    m_nStopTriggerPrice = ReadRow(kStopTriggerPrice);
    m_nProfitTriggerPrice = ReadRow(kProfitTriggerPrice);
    m_nStopOrderPrice = ReadRow(kStopOrderPrice);
    m_nProfitOrderPrice = ReadRow(kProfitOrderPrice);
    m_bAutoChase = IsDlgButtonChecked(kAutoChase) == BST_CHECKED ? 1 : 0;
    m_nValidity = ReadRow(kValidity) == 1 ? 1 : 0;
}

BOOL GOLDSetStopLoss::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto& step = *reinterpret_cast<const NMUPDOWN*>(lParam);
    if (step.hdr.code != static_cast<UINT>(UDN_DELTAPOS)) {
        return CDialog::OnNotify(wParam, lParam, result);
    }
    Step(static_cast<int>(wParam), step.iDelta);
    *result = 1;  // the up-down control's own number stays out of it
    return TRUE;
}

void GOLDSetStopLoss::Step(int spin, int delta) {
    for (const SpinEdit& pair : kSpins) {
        if (pair.spin != spin) continue;
        char text[64] = {};
        GetDlgItemText(pair.edit, text, sizeof text);
        const std::string stepped =
            pair.count ? StepVolume(text, delta) : SteppedAdjustment(text, delta);
        SetDlgItemText(pair.edit, stepped.c_str());
    }
}
