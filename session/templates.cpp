#include "session/templates.h"

#include "session/change_pwd_dlg.h"
#include "session/gold_login_dlg.h"
#include "session/lock_dlg.h"
#include "session/msg_dlg.h"
#include "session/risk_context_dlg.h"
#include "session/verify_dlg.h"

namespace session {

namespace {

using toolkit::Control;
using toolkit::DefaultButton;
using toolkit::DialogControl;
using toolkit::DialogTemplate;
using toolkit::DropDown;
using toolkit::Label;
using toolkit::Pixels;
using toolkit::PushButton;
using toolkit::TextEdit;
using toolkit::Units;

constexpr DWORD kPassword = ES_AUTOHSCROLL | ES_PASSWORD;
constexpr DWORD kReading =
    WS_VISIBLE | WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY;

constexpr DialogControl kChangePwdControls[] = {
    Label(-1, "当前密码：", Pixels(24, 30, 99, 15), SS_RIGHT),
    TextEdit(CChangePwdDlg::kCurrentPassword, Pixels(129, 24, 180, 24), kPassword),
    Label(-1, "新密码：", Pixels(24, 63, 99, 15), SS_RIGHT),
    TextEdit(CChangePwdDlg::kNewPassword, Pixels(129, 57, 180, 24), kPassword),
    Label(-1, "再次输入新密码：", Pixels(24, 96, 99, 15), SS_RIGHT),
    TextEdit(CChangePwdDlg::kRepeatedPassword, Pixels(129, 90, 180, 24), kPassword),
    DefaultButton(IDOK, "修改", Pixels(129, 129, 90, 27)),
};

// The buttons come first, so that the text does not stand there selected.
constexpr DialogControl kMsgControls[] = {
    DefaultButton(IDOK, "确认", {436, 202, 56, 18}),
    PushButton(IDCANCEL, "退出", {496, 202, 56, 18}),
    Control(CMsgDlg::kBody, "Edit", "", kReading, {8, 8, 544, 186}),
};

constexpr DialogControl kRiskControls[] = {
    DefaultButton(IDOK, "确定", Pixels(544, 432, 84, 28)),
    Control(CRiskContextDlg::kText, "RichEdit20A", "", kReading, Pixels(12, 12, 616, 408)),
};

constexpr DialogControl kVerifyControls[] = {
    Label(-1, "请输入验证码", Pixels(16, 22, 76, 16)),
    TextEdit(CVerifyDlg::kCode, Pixels(96, 16, 168, 24)),
    Control(CVerifyDlg::kWaiting, "Static", "验证中，请耐心等待....", SS_LEFT,
            Pixels(96, 48, 168, 16)),
    DefaultButton(IDOK, "确定", Pixels(96, 76, 80, 28)),
    PushButton(IDCANCEL, "取消", Pixels(184, 76, 80, 28)),
};

// Everything is hidden and disabled: the page itself says where the panel is unlocked.
constexpr DialogControl kLockControls[] = {
    Control(CLockDlg::kNotice, "Static", "交易界面已锁定,请输入交易密码解锁", WS_DISABLED,
            Pixels(12, 12, 220, 16)),
    Control(CLockDlg::kPassword, "Edit", "", kPassword | WS_BORDER | WS_TABSTOP | WS_DISABLED,
            Pixels(12, 36, 188, 24)),
    Control(CLockDlg::kKeyboard, "Button", "", BS_PUSHBUTTON | WS_TABSTOP | WS_DISABLED,
            Pixels(208, 36, 24, 24)),
    Control(IDOK, "Button", "确定", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_DISABLED,
            Pixels(12, 72, 68, 28)),
    Control(IDCANCEL, "Button", "取消", BS_PUSHBUTTON | WS_TABSTOP | WS_DISABLED,
            Pixels(88, 72, 68, 28)),
    Control(CLockDlg::kExit, "Button", "退出", BS_PUSHBUTTON | WS_TABSTOP | WS_DISABLED,
            Pixels(164, 72, 68, 28)),
};

// The rows of the login stand 29 pixels apart, labels 3 pixels below their inputs. The label of
// the check box covers the box's own caption, so it stands above it.
constexpr DialogControl kLoginControls[] = {
    Control(CGoldLoginDlg::kServers, "ListBox", "",
            LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VISIBLE | WS_VSCROLL | WS_BORDER | WS_TABSTOP,
            Pixels(30, 120, 190, 155)),
    Label(CGoldLoginDlg::kAccountTypeLabel, "账号类型：", Pixels(230, 123, 65, 22)),
    DropDown(CGoldLoginDlg::kAccountType, Pixels(295, 120, 151, 96)),
    Label(CGoldLoginDlg::kAccountLabel, "账    号：", Pixels(230, 152, 65, 22)),
    TextEdit(CGoldLoginDlg::kAccount, Pixels(295, 149, 151, 22)),
    Label(CGoldLoginDlg::kKeepAccountLabel, "记住账号", Pixels(466, 152, 48, 16)),
    Control(CGoldLoginDlg::kKeepAccount, "Button", "保存",
            BS_AUTOCHECKBOX | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS, Pixels(453, 149, 40, 22)),
    Label(CGoldLoginDlg::kPasswordLabel, "交易密码：", Pixels(230, 181, 65, 22)),
    TextEdit(CGoldLoginDlg::kPassword, Pixels(295, 178, 151, 22), kPassword),
    PushButton(CGoldLoginDlg::kPasswordKeys, "", Pixels(452, 180, 20, 20)),
    Label(CGoldLoginDlg::kLinePasswordLabel, "通讯密码：", Pixels(230, 210, 65, 22)),
    TextEdit(CGoldLoginDlg::kLinePassword, Pixels(295, 207, 151, 22), kPassword),
    PushButton(CGoldLoginDlg::kLinePasswordKeys, "", Pixels(452, 209, 20, 20)),
    DropDown(CGoldLoginDlg::kPasswordType, Pixels(222, 236, 73, 96)),
    TextEdit(CGoldLoginDlg::kDynamicPassword, Pixels(295, 236, 151, 22), kPassword),
    PushButton(CGoldLoginDlg::kDynamicPasswordKeys, "", Pixels(452, 238, 20, 20)),
    Label(CGoldLoginDlg::kStatus, "", Pixels(230, 264, 264, 18)),
    DefaultButton(IDOK, "确定", Pixels(295, 288, 80, 22)),
    PushButton(IDCANCEL, "取消", Pixels(383, 288, 80, 22)),
};

constexpr DWORD kModal = toolkit::kModalStyle;

constexpr DialogTemplate kDialogs[] = {
    {.id = CLockDlg::IDD,
     .style = toolkit::kPageStyle,
     .ex_style = WS_EX_CONTROLPARENT,
     .width = Units(244),
     .height = Units(112),
     .controls = kLockControls},
    {.id = CChangePwdDlg::IDD,
     .style = toolkit::kPageStyle | WS_CLIPCHILDREN,
     .ex_style = WS_EX_CONTROLPARENT,
     .width = Units(600),
     .height = Units(300),
     .controls = kChangePwdControls},
    {.id = CGoldLoginDlg::IDD,
     .title = "黄金交易登录",
     .style = kModal,
     .width = Units(514),
     .height = Units(313),
     .controls = kLoginControls},
    {.id = CMsgDlg::IDD, .style = kModal, .width = 560, .height = 227, .controls = kMsgControls},
    {.id = CRiskContextDlg::IDD,
     .title = "交易风险揭示书",
     .style = kModal,
     .width = Units(640),
     .height = Units(472),
     .controls = kRiskControls},
    {.id = CVerifyDlg::IDD,
     .title = "短信验证",
     .style = kModal,
     .width = Units(280),
     .height = Units(116),
     .controls = kVerifyControls},
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace session
