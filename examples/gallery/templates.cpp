#include "examples/gallery/templates.h"

#include "controls/templates.h"
#include "examples/gallery/ids.h"

namespace gallery {

namespace {

using toolkit::CheckBox;
using toolkit::Control;
using toolkit::DefaultButton;
using toolkit::DialogControl;
using toolkit::DialogTemplate;
using toolkit::DropDown;
using toolkit::GroupBox;
using toolkit::Label;
using toolkit::List;
using toolkit::PushButton;
using toolkit::RadioButton;
using toolkit::TextEdit;

constexpr DWORD kShown = WS_VISIBLE | WS_TABSTOP;

// Columns of the page begin at these dialog units; one unit is 1.5 pixels both ways.
constexpr short kFirst = 8;
constexpr short kSecond = 172;
constexpr short kThird = 360;
constexpr short kInput = 44;  // from a label to its input

constexpr DialogControl kControls[] = {
    GroupBox(-1, "按钮", {kFirst, 4, 152, 132}),
    DefaultButton(kOpenAsk, "对话框", {16, 20, 64, 18}),
    PushButton(kOpenBox, "消息框", {88, 20, 64, 18}),
    PushButton(kOpenQuestion, "询问", {16, 42, 64, 18}),
    PushButton(kOpenSave, "另存为", {88, 42, 64, 18}),
    PushButton(kOpenPopup, "弹出窗口", {16, 64, 64, 18}),
    PushButton(-1, "不可用", {88, 64, 64, 18}, BS_PUSHBUTTON | WS_DISABLED),
    CheckBox(kCheckOn, "止损", {16, 90, 44, 12}),
    CheckBox(kCheckOff, "止盈", {62, 90, 44, 12}),
    Control(kCheckDisabled, "Button", "不可用", BS_AUTOCHECKBOX | WS_VISIBLE | WS_DISABLED,
            {108, 90, 48, 12}),
    RadioButton(kRadioFirst, "开仓", {16, 110, 44, 12}, WS_GROUP),
    RadioButton(kRadioSecond, "平仓", {62, 110, 44, 12}),
    Control(kRadioDisabled, "Button", "不可用", BS_AUTORADIOBUTTON | WS_VISIBLE | WS_DISABLED,
            {108, 110, 48, 12}),

    Label(-1, "文本", {kSecond, 10, 36, 8}),
    TextEdit(kPlainText, {kSecond + kInput, 6, 128, 16}),
    Label(-1, "密码", {kSecond, 32, 36, 8}),
    TextEdit(kPassword, {kSecond + kInput, 28, 128, 16}, ES_AUTOHSCROLL | ES_PASSWORD),
    Label(-1, "只读", {kSecond, 54, 36, 8}),
    TextEdit(kReadOnly, {kSecond + kInput, 50, 128, 16}, ES_AUTOHSCROLL | ES_READONLY),
    Label(-1, "不可用", {kSecond, 76, 36, 8}),
    TextEdit(kDisabledEdit, {kSecond + kInput, 72, 128, 16}, ES_AUTOHSCROLL | WS_DISABLED),
    Label(-1, "数量", {kSecond, 98, 36, 8}),
    TextEdit(kSpinEdit, {kSecond + kInput, 94, 112, 16}, ES_AUTOHSCROLL | ES_NUMBER | ES_RIGHT),
    Control(kSpin, "msctls_updown32", "", WS_VISIBLE, {kSecond + kInput + 114, 94, 14, 16}),
    Label(-1, "合约", {kSecond, 120, 36, 8}),
    DropDown(kPickList, {kSecond + kInput, 116, 60, 90}),
    DropDown(kEditList, {kSecond + kInput + 68, 116, 60, 90}, CBS_DROPDOWN | CBS_AUTOHSCROLL),
    Label(-1, "日期", {kSecond, 142, 36, 8}),
    Control(kDate, "SysDateTimePick32", "", kShown, {kSecond + kInput, 138, 60, 16}),
    Control(kDisabledList, "ComboBox", "", WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST | WS_DISABLED,
            {kSecond + kInput + 68, 138, 60, 60}),

    TextEdit(kLongText, {kThird, 6, 120, 66},
             ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL),
    Control(kRichText, "RichEdit20A", "",
            kShown | WS_BORDER | ES_MULTILINE | ES_READONLY | WS_VSCROLL, {kThird, 78, 120, 76}),
    List(kListBox, {kThird + 128, 6, 72, 66}),
    Control(kTree, "SysTreeView32", "",
            kShown | WS_BORDER | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT,
            {kThird + 128, 78, 72, 76}),
    Control(kTabs, "SysTabControl32", "", kShown, {kThird + 208, 6, 210, 148}),
    Label(-1, "页签下面的内容由页面自己画", {kThird + 216, 34, 190, 12}),
    Label(-1, "左对齐", {kThird + 216, 56, 190, 10}),
    Label(-1, "居中", {kThird + 216, 72, 190, 10}, SS_CENTER),
    Label(-1, "右对齐 172944.00", {kThird + 216, 88, 190, 10}, SS_RIGHT),
    Control(-1, "Static", "不可用的文字", WS_VISIBLE | WS_DISABLED, {kThird + 216, 104, 190, 10}),

    Label(kStatus, "就绪", {kFirst, 144, 152, 10}),
};

constexpr DialogControl kAskControls[] = {
    Label(-1, "委托价格", {12, 16, 40, 8}),
    TextEdit(kAskPrice, {56, 12, 92, 16}),
    Label(-1, "委托数量", {12, 38, 40, 8}),
    TextEdit(kAskVolume, {56, 34, 92, 16}, ES_AUTOHSCROLL | ES_NUMBER),
    DefaultButton(IDOK, "确定", {56, 62, 44, 18}),
    PushButton(IDCANCEL, "取消", {104, 62, 44, 18}),
};

constexpr DialogTemplate kDialogs[] = {
    {.id = kControlsPage,
     .style = toolkit::kPageStyle | WS_VISIBLE,
     .ex_style = WS_EX_CONTROLPARENT,
     .width = 786,
     .height = 162,
     .controls = kControls},
    {.id = kAskDialog,
     .title = "下单",
     .style = toolkit::kModalStyle | DS_CENTER,
     .width = 160,
     .height = 92,
     .controls = kAskControls},
};

const toolkit::TemplateTable kAll[] = {kDialogs, controls::kTemplates};

}  // namespace

const std::span<const toolkit::TemplateTable> kTables = kAll;

}  // namespace gallery
