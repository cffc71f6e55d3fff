#include "stops/auto_stop_loss_pup.h"

#include "orderentry/volume_rules.h"
#include "platform/text/bounded_text.h"

/// A switch with two ways to set its rule: the controls of each, and the texts between them.
struct CGOLDAutoStopLossPup::RelativeControls {
    int check;
    int fixed;
    int fixed_edit;
    int fixed_spin;
    int floating;
    int edit;
    int spin;
    int step_edit;
    int step_spin;
    int texts[3];

    static const RelativeControls kOfStop;
    static const RelativeControls kOfProfit;
};

const CGOLDAutoStopLossPup::RelativeControls CGOLDAutoStopLossPup::RelativeControls::kOfStop = {
    kStop,           kFixedStop,
    kFixedStopTicks, kFixedStopSpin,
    kFloatStop,      kFloatStopTicks,
    kFloatStopSpin,  kFloatStep,
    kFloatStepSpin,  {kFixedStopText, kFloatStopText, kFloatStepText}};
const CGOLDAutoStopLossPup::RelativeControls CGOLDAutoStopLossPup::RelativeControls::kOfProfit = {
    kProfit,
    kFixedProfit,
    kFixedProfitTicks,
    kFixedProfitSpin,
    kPullback,
    kPullbackTarget,
    kPullbackTargetSpin,
    kPullbackTicks,
    kPullbackTicksSpin,
    {kFixedProfitText, kPullbackTargetText, kPullbackTicksText}};

/// A box, its price, and the field of the record.
struct CGOLDAutoStopLossPup::AbsoluteControls {
    int check;
    int edit;
    int spin;
    int sign;  ///< to which side of the last price the suggestion lies
    double (*get)(const CPresetStop&);
    void (*set)(CPresetStop&, double);

    static const AbsoluteControls kAll[4];
};

const CGOLDAutoStopLossPup::AbsoluteControls CGOLDAutoStopLossPup::AbsoluteControls::kAll[4] = {
    {kLongStop, kLongStopPrice, kLongStopSpin, -1,
     [](const CPresetStop& stop) { return double{stop.dLongStop}; },
     [](CPresetStop& stop, double price) { stop.dLongStop = price; }},
    {kLongProfit, kLongProfitPrice, kLongProfitSpin, 1,
     [](const CPresetStop& stop) { return double{stop.dLongProfit}; },
     [](CPresetStop& stop, double price) { stop.dLongProfit = price; }},
    {kShortStop, kShortStopPrice, kShortStopSpin, 1,
     [](const CPresetStop& stop) { return double{stop.dShortStop}; },
     [](CPresetStop& stop, double price) { stop.dShortStop = price; }},
    {kShortProfit, kShortProfitPrice, kShortProfitSpin, -1,
     [](const CPresetStop& stop) { return double{stop.dShortProfit}; },
     [](CPresetStop& stop, double price) { stop.dShortProfit = price; }},
};

namespace {

using Page = CGOLDAutoStopLossPup;

constexpr double kSet = 0.0001;
constexpr const char* kFirstDistance = "10";
constexpr const char* kFirstStep = "2";

/// Spins of distances, each with its edit.
constexpr int kDistances[][2] = {
    {Page::kFixedStopSpin, Page::kFixedStopTicks},
    {Page::kFloatStopSpin, Page::kFloatStopTicks},
    {Page::kFloatStepSpin, Page::kFloatStep},
    {Page::kFixedProfitSpin, Page::kFixedProfitTicks},
    {Page::kPullbackTargetSpin, Page::kPullbackTarget},
    {Page::kPullbackTicksSpin, Page::kPullbackTicks},
};

}  // namespace

BOOL CGOLDAutoStopLossPup::OnInitDialog() {
    CDialog::OnInitDialog();
    const std::string title =
        "自动止损止盈--[" + std::string(text::FieldText(m_pStop->szContract)) + "]";
    SetWindowText(title.c_str());
    ShowRelative(RelativeControls::kOfStop, StopRuleOf(*m_pStop));
    ShowRelative(RelativeControls::kOfProfit, ProfitRuleOf(*m_pStop));
    ShowAbsolute();
    UpdateStopEnable();
    return TRUE;
}

void CGOLDAutoStopLossPup::ShowRelative(const RelativeControls& controls,
                                        const RelativeRule& rule) {
    Check(controls.check, rule.on);
    Check(controls.fixed, rule.fixed);
    Check(controls.floating, rule.floating);
    SetDlgItemText(controls.fixed_edit, rule.fixed_distance.c_str());
    SetDlgItemText(controls.edit, rule.distance.c_str());
    SetDlgItemText(controls.step_edit, rule.step.c_str());
}

RelativeRule CGOLDAutoStopLossPup::ReadRelative(const RelativeControls& controls) const {
    RelativeRule rule;
    rule.on = IsChecked(controls.check);
    rule.fixed = IsChecked(controls.fixed);
    rule.floating = IsChecked(controls.floating);
    rule.fixed_distance = Text(controls.fixed_edit);
    rule.distance = Text(controls.edit);
    rule.step = Text(controls.step_edit);
    return rule;
}

void CGOLDAutoStopLossPup::ShowAbsolute() {
    if (!m_pContract) return;
    for (const AbsoluteControls& row : AbsoluteControls::kAll) {
        const double price = row.get(*m_pStop);
        if (!(price > kSet)) continue;
        Check(row.check, true);
        SetDlgItemText(row.edit, AbsolutePriceText(price, *m_pContract).c_str());
    }
}

void CGOLDAutoStopLossPup::ReadControls() {
    const RelativeDistance stop = DistanceOf(ReadRelative(RelativeControls::kOfStop));
    m_pStop->dStopTicks = stop.ticks;
    m_pStop->dStopFloat = stop.step;
    const RelativeDistance profit = DistanceOf(ReadRelative(RelativeControls::kOfProfit));
    m_pStop->dProfitTicks = profit.ticks;
    m_pStop->dProfitPullback = profit.step;
    for (const AbsoluteControls& row : AbsoluteControls::kAll) {
        row.set(*m_pStop, AbsolutePrice(IsChecked(row.check), Text(row.edit).c_str()));
    }
}

std::string CGOLDAutoStopLossPup::Text(int id) const {
    char text[64] = {};
    GetDlgItemText(id, text, sizeof text);
    return text;
}

void CGOLDAutoStopLossPup::FillIfEmpty(int id, const char* text) {
    if (Text(id).empty()) SetDlgItemText(id, text);
}

void CGOLDAutoStopLossPup::UpdateRelative(const RelativeControls& controls) {
    const bool on = IsChecked(controls.check);
    if (!on) {
        Check(controls.fixed, false);
        Check(controls.floating, false);
    }
    Enable(controls.fixed, on);
    Enable(controls.floating, on);
    for (const int text : controls.texts) Enable(text, on);
    const bool fixed = IsChecked(controls.fixed);
    Enable(controls.fixed_edit, fixed);
    Enable(controls.fixed_spin, fixed);
    const bool floating = IsChecked(controls.floating);
    for (const int id : {controls.edit, controls.spin, controls.step_edit, controls.step_spin}) {
        Enable(id, floating);
    }
}

void CGOLDAutoStopLossPup::UpdateStopEnable() {
    UpdateRelative(RelativeControls::kOfStop);
    UpdateRelative(RelativeControls::kOfProfit);
    for (const AbsoluteControls& row : AbsoluteControls::kAll) {
        Enable(row.edit, IsChecked(row.check));
        Enable(row.spin, IsChecked(row.check));
    }
}

BOOL CGOLDAutoStopLossPup::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    const bool handled =
        HIWORD(wParam) == BN_CLICKED &&
        (OnRadio(RelativeControls::kOfStop, id) || OnRadio(RelativeControls::kOfProfit, id) ||
         OnSwitch(id) || OnAbsolute(id));
    return handled || CDialog::OnCommand(wParam, lParam);
}

bool CGOLDAutoStopLossPup::OnRadio(const RelativeControls& controls, int id) {
    if (id == controls.fixed) {
        FillIfEmpty(controls.fixed_edit, kFirstDistance);
    } else if (id == controls.floating) {
        FillIfEmpty(controls.edit, kFirstDistance);
        FillIfEmpty(controls.step_edit, kFirstStep);
    } else {
        return false;
    }
    UpdateStopEnable();
    return true;
}

// A rule that is just switched on loses its numbers in the record. Users know it so, and it harms
// nothing: on OK the controls are written over it.
bool CGOLDAutoStopLossPup::OnSwitch(int id) {
    if (id != kStop && id != kProfit) return false;
    UpdateStopEnable();
    if (!IsChecked(id)) return true;
    if (id == kStop) {
        m_pStop->dStopTicks = 0.0;
        m_pStop->dStopFloat = 0.0;
    } else {
        m_pStop->dProfitTicks = 0.0;
        m_pStop->dProfitPullback = 0.0;
    }
    return true;
}

bool CGOLDAutoStopLossPup::OnAbsolute(int id) {
    for (const AbsoluteControls& row : AbsoluteControls::kAll) {
        if (row.check != id) continue;
        UpdateStopEnable();
        if (!IsChecked(id)) {
            row.set(*m_pStop, 0.0);
            return true;
        }
        const std::string price = SuggestedPrice(m_pContract, row.sign);
        if (!price.empty()) SetDlgItemText(row.edit, price.c_str());
        return true;
    }
    return false;
}

BOOL CGOLDAutoStopLossPup::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto& step = *reinterpret_cast<const NMUPDOWN*>(lParam);
    if (step.hdr.code != static_cast<UINT>(UDN_DELTAPOS)) {
        return CDialog::OnNotify(wParam, lParam, result);
    }
    const int spin = static_cast<int>(wParam);
    if (!StepDistance(spin, step.iDelta)) StepPrice(spin, step.iDelta);
    *result = 1;  // the up-down control's own number stays out of it
    return TRUE;
}

bool CGOLDAutoStopLossPup::StepDistance(int spin, int delta) {
    for (const auto& [distance_spin, edit] : kDistances) {
        if (distance_spin != spin) continue;
        SetDlgItemText(edit, StepVolume(Text(edit).c_str(), delta).c_str());
        return true;
    }
    return false;
}

void CGOLDAutoStopLossPup::StepPrice(int spin, int delta) {
    if (!m_pContract) return;
    for (const AbsoluteControls& row : AbsoluteControls::kAll) {
        if (row.spin != spin) continue;
        SetDlgItemText(row.edit,
                       SteppedStopPrice(Text(row.edit).c_str(), delta, *m_pContract).c_str());
    }
}
