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

// One column of labels, one of inputs, the buttons behind them; rows are 32 pixels apart.
constexpr DialogControl kTranAccountControls[] = {
    Label(Child::kBankLabel, "转账银行：", Pixels(24, 22, 64, 16), SS_RIGHT),
    DropDown(Child::kBank, Pixels(92, 16, 200, 200)),
    Control(Child::kQueryTransfers, "Button", "查  询", kHiddenButton, Pixels(300, 16, 72, 24)),
    Label(Child::kDirectionLabel, "转帐方向：", Pixels(24, 54, 64, 16), SS_RIGHT),
    DropDown(Child::kDirection, Pixels(92, 48, 200, 160)),
    Label(Child::kFundPasswordLabel, "资金密码：", Pixels(24, 86, 64, 16), SS_RIGHT),
    TextEdit(Child::kFundPassword, Pixels(92, 80, 200, 24), kPassword),
    Label(Child::kBankPasswordLabel, "银行密码：", Pixels(24, 118, 64, 16), SS_RIGHT),
    TextEdit(Child::kBankPassword, Pixels(92, 112, 200, 24), kPassword),
    Label(Child::kBankBalanceLabel, "银行资金：", Pixels(24, 150, 64, 16), SS_RIGHT),
    TextEdit(Child::kBankBalance, Pixels(92, 144, 200, 24), kReadOnly),
    PushButton(Child::kQueryBankBalance, "查询", Pixels(300, 144, 72, 24)),
    Label(Child::kGoldFundsLabel, "黄金资金：", Pixels(24, 182, 64, 16), SS_RIGHT),
    TextEdit(Child::kGoldFunds, Pixels(92, 176, 200, 24), kReadOnly),
    PushButton(Child::kQueryGoldFunds, "查询", Pixels(300, 176, 72, 24)),
    Label(Child::kAmountLabel, "转账金额：", Pixels(24, 214, 64, 16), SS_RIGHT),
    TextEdit(Child::kAmount, Pixels(92, 208, 200, 24)),
    PushButton(Child::kTransfer, "转    帐", Pixels(92, 248, 104, 28)),
    Control(Child::kGoldToBank, "Button", "黄金 -> 银行", kHiddenButton, Pixels(204, 248, 104, 28)),
    Control(Child::kBankToGold, "Button", "银行 -> 黄金", kHiddenButton, Pixels(316, 248, 104, 28)),
    Control(Child::kNote, "Edit", "", kReading, Pixels(428, 16, 320, 260)),
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

constexpr DialogTemplate kDialogs[] = {
    Page(CQueryAccountDlg::IDD, {}),
    Page(CTranAccountDlg::IDD, {}),
    Page(CTranAccountChildDlg::IDD, kTranAccountControls, 760),
    Page(CGoldFundsdlg::IDD, kFundsControls),
    Page(CSettlementDlg::IDD, kSettlementControls),
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace funds
