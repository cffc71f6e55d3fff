#include "host/terminal/templates.h"

#include "host/terminal/ids.h"
#include "host/terminal/param_dlg.h"
#include "host/terminal/sign_in_dlg.h"

namespace terminal {
namespace {

using toolkit::CheckBox;
using toolkit::DefaultButton;
using toolkit::DialogControl;
using toolkit::DialogTemplate;
using toolkit::DropDown;
using toolkit::GroupBox;
using toolkit::Label;
using toolkit::Pixels;
using toolkit::PushButton;
using toolkit::TextEdit;
using toolkit::Units;

constexpr DWORD kNumber = ES_AUTOHSCROLL | ES_NUMBER;
constexpr int kOpenList = 200;

constexpr DialogControl kSignInControls[] = {
    Label(-1, "账户", Pixels(24, 28, 40, 15)),
    TextEdit(SignInDlg::kAccount, Pixels(72, 24, 216, 24)),
    Label(-1, "密码", Pixels(24, 61, 40, 15)),
    TextEdit(SignInDlg::kPassword, Pixels(72, 57, 216, 24), ES_AUTOHSCROLL | ES_PASSWORD),
    Label(SignInDlg::kMessage, "", Pixels(72, 90, 216, 33)),
    DefaultButton(IDOK, "登录", Pixels(72, 129, 104, 27)),
    PushButton(IDCANCEL, "稍后", Pixels(184, 129, 104, 27)),
    Label(SignInDlg::kHint, "", Pixels(24, 171, 264, 33)),
};

constexpr DialogControl kParamControls[] = {
    GroupBox(-1, "询问", Pixels(12, 12, 420, 60)),
    CheckBox(ParamDlg::kConfirmOrders, "下单前确认", Pixels(24, 36, 120, 24)),
    CheckBox(ParamDlg::kConfirmCloses, "平仓前确认", Pixels(156, 36, 120, 24)),
    CheckBox(ParamDlg::kConfirmCancels, "撤单前确认", Pixels(288, 36, 120, 24)),

    GroupBox(-1, "下单", Pixels(12, 84, 420, 129)),
    Label(-1, "默认价格", Pixels(24, 112, 72, 15)),
    DropDown(ParamDlg::kDefaultPrice, Pixels(108, 108, 144, kOpenList)),
    CheckBox(ParamDlg::kOverPrice, "委托价格超价", Pixels(24, 141, 120, 24)),
    TextEdit(ParamDlg::kOverTicks, Pixels(156, 141, 48, 24), kNumber),
    Label(-1, "个价位", Pixels(212, 145, 60, 15)),
    CheckBox(ParamDlg::kResetPrice, "下单后恢复默认价格", Pixels(24, 174, 168, 24)),
    CheckBox(ParamDlg::kResetDirection, "下单后恢复买入开仓", Pixels(228, 174, 168, 24)),

    GroupBox(-1, "快捷平仓", Pixels(12, 225, 420, 60)),
    Label(-1, "平仓价格", Pixels(24, 253, 72, 15)),
    DropDown(ParamDlg::kClosePrice, Pixels(108, 249, 96, kOpenList)),
    Label(-1, "超", Pixels(216, 253, 20, 15)),
    TextEdit(ParamDlg::kCloseTicks, Pixels(240, 249, 48, 24), kNumber),
    Label(-1, "个价位", Pixels(296, 253, 60, 15)),

    GroupBox(-1, "面板按钮", Pixels(12, 297, 420, 60)),
    Label(-1, "买入", Pixels(24, 325, 36, 15)),
    DropDown(ParamDlg::kPanelBuy1, Pixels(60, 321, 72, kOpenList)),
    DropDown(ParamDlg::kPanelBuy2, Pixels(140, 321, 72, kOpenList)),
    Label(-1, "卖出", Pixels(228, 325, 36, 15)),
    DropDown(ParamDlg::kPanelSell1, Pixels(264, 321, 72, kOpenList)),
    DropDown(ParamDlg::kPanelSell2, Pixels(344, 321, 72, kOpenList)),

    Label(ParamDlg::kFault, "", Pixels(12, 376, 220, 15)),
    DefaultButton(IDOK, "保存", Pixels(248, 369, 88, 27)),
    PushButton(IDCANCEL, "取消", Pixels(344, 369, 88, 27)),
};

constexpr DialogControl kHelpControls[] = {
    Label(-1, "F1", Pixels(24, 24, 84, 15)),
    Label(-1, "本页", Pixels(120, 24, 270, 15)),
    Label(-1, "F5", Pixels(24, 48, 84, 15)),
    Label(-1, "刷新委托、成交和持仓", Pixels(120, 48, 270, 15)),
    Label(-1, "F9", Pixels(24, 72, 84, 15)),
    Label(-1, "光标到下单页", Pixels(120, 72, 270, 15)),
    Label(-1, "Ctrl+1 … 6", Pixels(24, 96, 84, 15)),
    Label(-1, "切换页面", Pixels(120, 96, 270, 15)),
    Label(-1, "↑ ↓", Pixels(24, 120, 84, 15)),
    Label(-1, "在行情表中切换合约", Pixels(120, 120, 270, 15)),
    Label(-1, "← →", Pixels(24, 144, 84, 15)),
    Label(-1, "在图表中前后移动，滚轮缩放", Pixels(120, 144, 270, 15)),
    Label(-1, "Esc", Pixels(24, 168, 84, 15)),
    Label(-1, "关闭弹出的窗口，从不下单、撤单或平仓", Pixels(120, 168, 270, 15)),
    DefaultButton(IDOK, "关闭", Pixels(153, 201, 96, 27)),
};

constexpr DialogTemplate kDialogs[] = {
    {.id = kSignInDialog,
     .title = "登录模拟账户",
     .width = Units(312),
     .height = Units(216),
     .controls = kSignInControls},
    {.id = kParamDialog,
     .title = "交易设置",
     .width = Units(444),
     .height = Units(408),
     .controls = kParamControls},
    {.id = kHelpDialog,
     .title = "快捷键",
     .width = Units(402),
     .height = Units(240),
     .controls = kHelpControls},
};

}  // namespace

const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace terminal
