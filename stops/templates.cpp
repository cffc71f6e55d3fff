#include "stops/templates.h"

#include "stops/auto_stop_loss_pup_base.h"
#include "stops/gold_combination_dlg.h"

namespace stops {

namespace {

using toolkit::CheckBox;
using toolkit::Control;
using toolkit::DefaultButton;
using toolkit::DialogControl;
using toolkit::DialogTemplate;
using toolkit::DropDown;
using toolkit::GroupBox;
using toolkit::Label;
using toolkit::Pixels;
using toolkit::PushButton;
using toolkit::RadioButton;
using toolkit::TextEdit;
using toolkit::Units;

using Stops = CGOLDAutoStopLossPup;
using Settings = GOLDSetStopLoss;

constexpr DWORD kWholeNumber = ES_AUTOHSCROLL | ES_NUMBER | ES_RIGHT;
constexpr DWORD kPrice = ES_AUTOHSCROLL | ES_RIGHT;

constexpr DialogControl Spin(int id, toolkit::Placement place) {
    return Control(id, "msctls_updown32", "", WS_VISIBLE, place);
}

/// What the pull-back would need. It is hidden: such a strategy is not set here.
constexpr DialogControl Hidden(DialogControl control) {
    control.style = (control.style & ~DWORD{WS_VISIBLE}) | WS_DISABLED;
    return control;
}

constexpr DialogControl kStopControls[] = {
    Label(-1, "止损止盈功能较复杂，请仔细查看《交易风险揭示书》以及《软件操作说明》后再行使用",
          Pixels(12, 12, 608, 16)),

    GroupBox(-1, "相对价位止损", Pixels(12, 36, 608, 132)),
    CheckBox(Stops::kStop, "启用止损策略", Pixels(24, 56, 120, 18)),
    RadioButton(Stops::kFixedStop, "当价格达到或超过开仓价", Pixels(40, 82, 160, 18), WS_GROUP),
    TextEdit(Stops::kFixedStopTicks, Pixels(204, 80, 56, 22), kWholeNumber),
    Spin(Stops::kFixedStopSpin, Pixels(260, 80, 16, 22)),
    Label(Stops::kFixedStopText, "个价位时自动止损。", Pixels(280, 84, 120, 16)),
    RadioButton(Stops::kFloatStop,
                "浮动止损：价格朝开仓方向或最优价格的反向波动，距离开仓价或今后最优价",
                Pixels(40, 110, 460, 18)),
    TextEdit(Stops::kFloatStopTicks, Pixels(60, 132, 56, 22), kWholeNumber),
    Spin(Stops::kFloatStopSpin, Pixels(116, 132, 16, 22)),
    Label(Stops::kFloatStopText, "价位后止损，最小变动步长", Pixels(136, 136, 152, 16)),
    TextEdit(Stops::kFloatStep, Pixels(292, 132, 56, 22), kWholeNumber),
    Spin(Stops::kFloatStepSpin, Pixels(348, 132, 16, 22)),
    Label(Stops::kFloatStepText, "个价位。", Pixels(368, 136, 60, 16)),

    GroupBox(-1, "相对价位止盈", Pixels(12, 180, 608, 104)),
    CheckBox(Stops::kProfit, "启用止盈策略", Pixels(24, 200, 120, 18)),
    RadioButton(Stops::kFixedProfit, "当价格达到或超过开仓价", Pixels(40, 226, 160, 18), WS_GROUP),
    TextEdit(Stops::kFixedProfitTicks, Pixels(204, 224, 56, 22), kWholeNumber),
    Spin(Stops::kFixedProfitSpin, Pixels(260, 224, 16, 22)),
    Label(Stops::kFixedProfitText, "个价位时自动止盈。", Pixels(280, 228, 120, 16)),
    Hidden(RadioButton(Stops::kPullback, "当最新价超过开仓价", Pixels(40, 254, 136, 18))),
    Hidden(TextEdit(Stops::kPullbackTarget, Pixels(180, 252, 56, 22), kWholeNumber)),
    Hidden(Spin(Stops::kPullbackTargetSpin, Pixels(236, 252, 16, 22))),
    Hidden(
        Label(Stops::kPullbackTargetText, "个价位时自动止盈，最大回撤", Pixels(256, 256, 160, 16))),
    Hidden(TextEdit(Stops::kPullbackTicks, Pixels(420, 252, 56, 22), kWholeNumber)),
    Hidden(Spin(Stops::kPullbackTicksSpin, Pixels(476, 252, 16, 22))),
    Hidden(Label(Stops::kPullbackTicksText, "个价位。", Pixels(496, 256, 60, 16))),

    GroupBox(-1, "绝对价格止损止盈(触发后自动全部取消)", Pixels(12, 296, 608, 84)),
    CheckBox(Stops::kLongStop, "对于做多持仓，当价格小于等于", Pixels(24, 318, 192, 18)),
    TextEdit(Stops::kLongStopPrice, Pixels(220, 316, 72, 22), kPrice),
    Spin(Stops::kLongStopSpin, Pixels(292, 316, 16, 22)),
    Label(-1, "时止损。", Pixels(312, 320, 52, 16)),
    CheckBox(Stops::kLongProfit, "当价格大于等于", Pixels(368, 318, 108, 18)),
    TextEdit(Stops::kLongProfitPrice, Pixels(476, 316, 72, 22), kPrice),
    Spin(Stops::kLongProfitSpin, Pixels(548, 316, 16, 22)),
    Label(-1, "时止盈。", Pixels(568, 320, 48, 16)),
    CheckBox(Stops::kShortStop, "对于做空持仓，当价格大于等于", Pixels(24, 350, 192, 18)),
    TextEdit(Stops::kShortStopPrice, Pixels(220, 348, 72, 22), kPrice),
    Spin(Stops::kShortStopSpin, Pixels(292, 348, 16, 22)),
    Label(-1, "时止损。", Pixels(312, 352, 52, 16)),
    CheckBox(Stops::kShortProfit, "当价格小于等于", Pixels(368, 350, 108, 18)),
    TextEdit(Stops::kShortProfitPrice, Pixels(476, 348, 72, 22), kPrice),
    Spin(Stops::kShortProfitSpin, Pixels(548, 348, 16, 22)),
    Label(-1, "时止盈。", Pixels(568, 352, 48, 16)),
};

constexpr DialogControl kSettingControls[] = {
    Label(-1, "连续", Pixels(24, 30, 32, 16)),
    TextEdit(Settings::kStopTicks, Pixels(60, 24, 56, 24), kWholeNumber),
    Spin(Settings::kStopTicksSpin, Pixels(116, 24, 16, 24)),
    Label(-1, "笔", Pixels(140, 30, 16, 16)),
    DropDown(Settings::kStopTriggerPrice, Pixels(160, 24, 96, 140)),
    Label(-1, "达到或超过指定价位时，触发止损。", Pixels(264, 30, 204, 16)),
    Label(-1, "连续", Pixels(24, 62, 32, 16)),
    TextEdit(Settings::kProfitTicks, Pixels(60, 56, 56, 24), kWholeNumber),
    Spin(Settings::kProfitTicksSpin, Pixels(116, 56, 16, 24)),
    Label(-1, "笔", Pixels(140, 62, 16, 16)),
    DropDown(Settings::kProfitTriggerPrice, Pixels(160, 56, 96, 140)),
    Label(-1, "达到或超过指定价位时，触发止盈。", Pixels(264, 62, 204, 16)),

    Label(-1, "止损时，按照", Pixels(24, 102, 80, 16)),
    DropDown(Settings::kStopOrderPrice, Pixels(160, 96, 96, 140)),
    Label(-1, "发出委托。", Pixels(264, 102, 80, 16)),
    Label(-1, "止盈时，按照", Pixels(24, 134, 80, 16)),
    DropDown(Settings::kProfitOrderPrice, Pixels(160, 128, 96, 140)),
    Label(-1, "发出委托。", Pixels(264, 134, 80, 16)),

    Label(-1, "止损调整", Pixels(24, 174, 80, 16)),
    TextEdit(Settings::kStopAdjust, Pixels(160, 168, 80, 24), kPrice),
    Spin(Settings::kStopAdjustSpin, Pixels(240, 168, 16, 24)),
    Label(-1, "个价位发出委托。", Pixels(264, 174, 120, 16)),
    Label(-1, "止盈调整", Pixels(24, 206, 80, 16)),
    TextEdit(Settings::kProfitAdjust, Pixels(160, 200, 80, 24), kPrice),
    Spin(Settings::kProfitAdjustSpin, Pixels(240, 200, 16, 24)),
    Label(-1, "个价位发出委托。", Pixels(264, 206, 120, 16)),

    Label(-1, "止损止盈单有效期", Pixels(24, 246, 112, 16)),
    DropDown(Settings::kValidity, Pixels(160, 240, 96, 80)),
    CheckBox(Settings::kAutoChase, "启动自动追价。", Pixels(24, 278, 120, 18)),
    Hidden(PushButton(Settings::kIdleButton, "", Pixels(264, 276, 72, 24))),
    Hidden(Spin(Settings::kIdleSpin, Pixels(344, 276, 16, 24))),
};

constexpr DialogControl kFrameControls[] = {
    Control(CGOLDAutoStopLossPupBase::kTabs, "SysTabControl32", "",
            WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, Pixels(12, 12, 640, 424)),
    Label(CGOLDAutoStopLossPupBase::kPrompt, "", Pixels(12, 444, 456, 32)),
    DefaultButton(IDOK, "确定", Pixels(476, 444, 84, 28)),
    PushButton(IDCANCEL, "取消", Pixels(568, 444, 84, 28)),
};

// The ground inside of group boxes is the page's, so pages are not clipped.
constexpr DialogTemplate Page(UINT id, std::span<const DialogControl> controls) {
    return {.id = id,
            .style = toolkit::kPageStyle,
            .ex_style = WS_EX_CONTROLPARENT,
            .width = Units(632),
            .height = Units(396),
            .controls = controls};
}

constexpr DialogTemplate kDialogs[] = {
    Page(CGOLDCombinationDlg::IDD, {}),
    {.id = CGOLDAutoStopLossPupBase::IDD,
     .title = "自动止盈止损设置",
     .width = Units(664),
     .height = Units(484),
     .controls = kFrameControls},
    Page(CGOLDAutoStopLossPup::IDD, kStopControls),
    Page(GOLDSetStopLoss::IDD, kSettingControls),
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace stops
