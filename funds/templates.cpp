#include "funds/templates.h"

#include "funds/gold_funds_dlg.h"
#include "funds/query_account_dlg.h"
#include "funds/settlement_dlg.h"
#include "funds/tran_account_child_dlg.h"
#include "funds/tran_account_dlg.h"

namespace funds {

namespace {

using toolkit::Control;
using toolkit::DialogControl;
using toolkit::DialogTemplate;
using toolkit::DropDown;
using toolkit::Label;
using toolkit::Pixels;
using toolkit::PushButton;
using toolkit::TextEdit;
using toolkit::Units;

using Child = CTranAccountChildDlg;

constexpr DWORD kPassword = ES_AUTOHSCROLL | ES_PASSWORD;
constexpr DWORD kReadOnly = ES_AUTOHSCROLL | ES_READONLY | ES_RIGHT;
constexpr DWORD kReading =
    WS_VISIBLE | WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY;
constexpr DWORD kHiddenButton = BS_PUSHBUTTON | WS_TABSTOP;

// One column of labels, one of inputs, the buttons behind them; rows are 33 pixels apart.
constexpr DialogControl kTranAccountControls[] = {
    Label(Child::kBankLabel, "转账银行：", Pixels(24, 21, 64, 15), SS_RIGHT),
    DropDown(Child::kBank, Pixels(93, 15, 198, 200)),
    Control(Child::kQueryTransfers, "Button", "查  询", kHiddenButton, Pixels(300, 15, 72, 24)),
    Label(Child::kDirectionLabel, "转帐方向：", Pixels(24, 54, 64, 15), SS_RIGHT),
    DropDown(Child::kDirection, Pixels(93, 48, 198, 160)),
    Label(Child::kFundPasswordLabel, "资金密码：", Pixels(24, 87, 64, 15), SS_RIGHT),
    TextEdit(Child::kFundPassword, Pixels(93, 81, 198, 24), kPassword),
    Label(Child::kBankPasswordLabel, "银行密码：", Pixels(24, 120, 64, 15), SS_RIGHT),
    TextEdit(Child::kBankPassword, Pixels(93, 114, 198, 24), kPassword),
    Label(Child::kBankBalanceLabel, "银行资金：", Pixels(24, 153, 64, 15), SS_RIGHT),
    TextEdit(Child::kBankBalance, Pixels(93, 147, 198, 24), kReadOnly),
    PushButton(Child::kQueryBankBalance, "查询", Pixels(300, 147, 72, 24)),
    Label(Child::kGoldFundsLabel, "黄金资金：", Pixels(24, 186, 64, 15), SS_RIGHT),
    TextEdit(Child::kGoldFunds, Pixels(93, 180, 198, 24), kReadOnly),
    PushButton(Child::kQueryGoldFunds, "查询", Pixels(300, 180, 72, 24)),
    Label(Child::kAmountLabel, "转账金额：", Pixels(24, 219, 64, 15), SS_RIGHT),
    TextEdit(Child::kAmount, Pixels(93, 213, 198, 24)),
    PushButton(Child::kTransfer, "转    帐", Pixels(93, 252, 104, 28)),
    Control(Child::kGoldToBank, "Button", "黄金 -> 银行", kHiddenButton, Pixels(204, 252, 104, 28)),
    Control(Child::kBankToGold, "Button", "银行 -> 黄金", kHiddenButton, Pixels(316, 252, 104, 28)),
    Control(Child::kNote, "Edit", "", kReading, Pixels(429, 15, 318, 264)),
};

constexpr DialogControl kFundsControls[] = {
    Control(CGoldFundsdlg::kText, "RichEdit20A", "", kReading & ~DWORD{WS_BORDER},
            Pixels(4, 4, 592, 292)),
};

constexpr DialogControl kSettlementControls[] = {
    Control(CSettlementDlg::kDate, "SysDateTimePick32", "", WS_VISIBLE | WS_TABSTOP,
            Pixels(3, 5, 80, 20)),
    PushButton(CSettlementDlg::kQuery, "查  询", Pixels(88, 5, 60, 20)),
    PushButton(CSettlementDlg::kSave, "导  出", Pixels(538, 5, 60, 20)),
    Control(CSettlementDlg::kReport, "RichEdit20A", "", kReading | WS_HSCROLL | ES_AUTOHSCROLL,
            Pixels(3, 30, 594, 270)),
};

constexpr DialogTemplate Page(UINT id, std::span<const DialogControl> controls, int width = 600,
                              int height = 300) {
    return {.id = id,
            .style = toolkit::kPageStyle | WS_CLIPCHILDREN,
            .ex_style = WS_EX_CONTROLPARENT,
            .width = Units(width),
            .height = Units(height),
            .controls = controls};
}

// The bank page paints behind its tabs, which show its ground where they have no picture.
constexpr DialogTemplate kDialogs[] = {
    Page(CQueryAccountDlg::IDD, {}),
    {.id = CTranAccountDlg::IDD,
     .style = toolkit::kPageStyle,
     .ex_style = WS_EX_CONTROLPARENT,
     .width = Units(760),
     .height = Units(324)},
    Page(CTranAccountChildDlg::IDD, kTranAccountControls, 760),
    Page(CGoldFundsdlg::IDD, kFundsControls),
    Page(CSettlementDlg::IDD, kSettlementControls),
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace funds
