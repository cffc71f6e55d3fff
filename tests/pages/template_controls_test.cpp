#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/pages/test_module.h"
#include "tests/support/gbk_text.h"

// What hosts, tools and users know of the dialogs: numbers, kinds and captions.

namespace {

enum class Kind {
    kLabel,
    kEdit,
    kNumber,
    kPassword,
    kReadOnly,
    kText,
    kRichText,
    kButton,
    kCheck,
    kRadio,
    kGroup,
    kCombo,
    kTypedCombo,
    kList,
    kDate,
    kSpin,
    kTabs,
    kIcon,
};

enum class State { kShown, kHidden, kOff };

struct Expected {
    int id;
    Kind kind;
    const char* caption = "";
    State state = State::kShown;
};

Kind KindOfEdit(DWORD style) {
    if (style & ES_PASSWORD) return Kind::kPassword;
    if (style & ES_MULTILINE) return Kind::kText;
    if (style & ES_READONLY) return Kind::kReadOnly;
    return style & ES_NUMBER ? Kind::kNumber : Kind::kEdit;
}

Kind KindOfButton(DWORD style) {
    switch (style & BS_TYPEMASK) {
        case BS_AUTOCHECKBOX: return Kind::kCheck;
        case BS_AUTORADIOBUTTON: return Kind::kRadio;
        case BS_GROUPBOX: return Kind::kGroup;
        default: return Kind::kButton;
    }
}

Kind KindOf(const toolkit::DialogControl& control) {
    const std::string name = control.window_class;
    if (name == "Button") return KindOfButton(control.style);
    if (name == "Edit") return KindOfEdit(control.style);
    if (name == "RichEdit20A") return Kind::kRichText;
    if (name == "ComboBox") {
        return (control.style & 3) == CBS_DROPDOWNLIST ? Kind::kCombo : Kind::kTypedCombo;
    }
    if (name == "ListBox") return Kind::kList;
    if (name == "SysDateTimePick32") return Kind::kDate;
    if (name == "msctls_updown32") return Kind::kSpin;
    if (name == "SysTabControl32") return Kind::kTabs;
    return (control.style & SS_TYPEMASK) == SS_ICON ? Kind::kIcon : Kind::kLabel;
}

State StateOf(const toolkit::DialogControl& control) {
    if (control.style & WS_VISIBLE) return State::kShown;
    return control.style & WS_DISABLED ? State::kOff : State::kHidden;
}

const toolkit::DialogControl* Find(const toolkit::DialogTemplate& dialog, const Expected& wanted) {
    const auto same = [&wanted](const toolkit::DialogControl& control) {
        return control.id == wanted.id &&
               (control.id != -1 || std::string_view(control.text) == wanted.caption);
    };
    const auto found = std::find_if(dialog.controls.begin(), dialog.controls.end(), same);
    return found != dialog.controls.end() ? &*found : nullptr;
}

struct Dialog {
    UINT id;
    const char* title;
    std::vector<Expected> controls;
    /// Labels without a number that stand in the template beside these.
    int others = 0;
};

void ExpectControls(const Dialog& wanted) {
    SCOPED_TRACE(wanted.id);
    const toolkit::DialogTemplate* dialog = AfxGetModuleState()->FindTemplate(wanted.id);
    ASSERT_NE(dialog, nullptr);
    EXPECT_GBK_EQ(wanted.title, dialog->title);
    EXPECT_EQ(dialog->controls.size(),
              wanted.controls.size() + static_cast<unsigned>(wanted.others));
    for (const Expected& control : wanted.controls) {
        SCOPED_TRACE(testing_support::Readable(control.caption));
        SCOPED_TRACE(control.id);
        const toolkit::DialogControl* found = Find(*dialog, control);
        if (found == nullptr) {
            ADD_FAILURE() << "not there";
            continue;
        }
        EXPECT_EQ(KindOf(*found), control.kind);
        EXPECT_EQ(StateOf(*found), control.state);
        EXPECT_GBK_EQ(control.caption, found->text);
    }
}

TEST(TemplateControls, OfTheSession) {
    const Dialog dialogs[] = {
        {1008,
         "",
         {{10006, Kind::kPassword, "", State::kOff},
          {IDOK, Kind::kButton, "确定", State::kOff},
          {IDCANCEL, Kind::kButton, "取消", State::kOff},
          {10008, Kind::kButton, "退出", State::kOff},
          {10009, Kind::kButton, "", State::kOff},
          {10001, Kind::kLabel, "交易界面已锁定,请输入交易密码解锁", State::kOff}}},
        {10014,
         "",
         {{-1, Kind::kLabel, "当前密码："},
          {-1, Kind::kLabel, "新密码："},
          {-1, Kind::kLabel, "再次输入新密码："},
          {10006, Kind::kPassword},
          {10020, Kind::kPassword},
          {1005, Kind::kPassword},
          {IDOK, Kind::kButton, "修改"}}},
        {10016,
         "黄金交易登录",
         {{10007, Kind::kList},
          {10002, Kind::kCombo},
          {10006, Kind::kEdit},
          {10036, Kind::kCheck, "保存"},
          {10039, Kind::kLabel, "记住账号"},
          {10020, Kind::kPassword},
          {10008, Kind::kButton},
          {10044, Kind::kLabel, "通讯密码："},
          {10022, Kind::kPassword},
          {10010, Kind::kButton},
          {10043, Kind::kCombo},
          {10021, Kind::kPassword},
          {10009, Kind::kButton},
          {10041, Kind::kLabel},
          {IDOK, Kind::kButton, "确定"},
          {IDCANCEL, Kind::kButton, "取消"}},
         3},
        {10018,
         "",
         {{10006, Kind::kText}, {IDOK, Kind::kButton, "确认"}, {IDCANCEL, Kind::kButton, "退出"}}},
        {10023, "交易风险揭示书", {{IDOK, Kind::kButton, "确定"}, {10042, Kind::kRichText}}},
        {10029,
         "短信验证",
         {{-1, Kind::kLabel, "请输入验证码"},
          {10006, Kind::kEdit},
          {IDOK, Kind::kButton, "确定"},
          {IDCANCEL, Kind::kButton, "取消"},
          {10037, Kind::kLabel, "验证中，请耐心等待....", State::kHidden}}},
    };
    for (const Dialog& dialog : dialogs) ExpectControls(dialog);
}

TEST(TemplateControls, OfTheFunds) {
    const Dialog dialogs[] = {
        {10011, "", {}},
        {10012, "", {}},
        {10013,
         "",
         {{10001, Kind::kLabel, "转账银行："},
          {10002, Kind::kCombo},
          {10004, Kind::kLabel, "转帐方向："},
          {10009, Kind::kCombo},
          {10003, Kind::kLabel, "资金密码："},
          {10006, Kind::kPassword},
          {10012, Kind::kLabel, "银行密码："},
          {10020, Kind::kPassword},
          {10005, Kind::kLabel, "银行资金："},
          {10018, Kind::kReadOnly},
          {10008, Kind::kButton, "查询"},
          {10025, Kind::kLabel, "黄金资金："},
          {1006, Kind::kReadOnly},
          {1007, Kind::kButton, "查询"},
          {10026, Kind::kLabel, "转账金额："},
          {1008, Kind::kEdit},
          {10029, Kind::kButton, "转    帐"},
          {10027, Kind::kButton, "黄金 -> 银行", State::kHidden},
          {10023, Kind::kButton, "银行 -> 黄金", State::kHidden},
          {10028, Kind::kButton, "查  询", State::kHidden},
          {1040, Kind::kText}}},
        {10021, "", {{10042, Kind::kRichText}}},
        {10030,
         "",
         {{10032, Kind::kDate},
          {10046, Kind::kButton, "查  询"},
          {10044, Kind::kButton, "导  出"},
          {10045, Kind::kRichText}}},
    };
    for (const Dialog& dialog : dialogs) ExpectControls(dialog);
}

TEST(TemplateControls, OfOrderEntry) {
    const Dialog dialogs[] = {
        {1027, "", {}},
        {10002, "", {}},
        {10101,
         "",
         {{10001, Kind::kLabel, "合约名称:"},
          {10002, Kind::kTypedCombo},
          {10003, Kind::kLabel, "买卖方向:"},
          {10010, Kind::kRadio, "买入"},
          {10011, Kind::kRadio, "卖出"},
          {10012, Kind::kLabel, "开平状态:"},
          {10013, Kind::kRadio, "开仓"},
          {10014, Kind::kRadio, "平仓"},
          {10037, Kind::kCheck, "自动"},
          {10005, Kind::kLabel, "委托价格:"},
          {10006, Kind::kEdit, "", State::kOff},
          {10025, Kind::kLabel, "最大可开:"},
          {10020, Kind::kReadOnly},
          {10026, Kind::kLabel, "委托数量:"},
          {10018, Kind::kEdit, "", State::kOff},
          {10036, Kind::kCheck, "止盈止损", State::kHidden},
          {10038, Kind::kCheck, "自动止损", State::kHidden},
          {10008, Kind::kButton, "买入"},
          {10023, Kind::kButton, "复位"},
          {10021, Kind::kButton, "可开"}}},
        {10102, "", {}},
        {10103,
         "",
         {{10006, Kind::kEdit},
          {10017, Kind::kSpin},
          {10018, Kind::kNumber},
          {10019, Kind::kSpin},
          {10013, Kind::kRadio, "开仓"},
          {10014, Kind::kRadio, "平仓"},
          {10037, Kind::kCheck, "自动"},
          {10036, Kind::kCheck, "止盈止损", State::kHidden},
          {10038, Kind::kCheck, "自动止损", State::kHidden},
          {10023, Kind::kButton, "复位"},
          {10008, Kind::kButton, "买入"},
          {10010, Kind::kButton, "卖出"},
          {10009, Kind::kButton},
          {10015, Kind::kButton},
          {10016, Kind::kButton},
          {10022, Kind::kButton}}},
        {10104, "", {}},
        {10105,
         "下单提示",
         {{10001, Kind::kLabel, "合约代码："},
          {10003, Kind::kLabel, "买卖方向："},
          {10012, Kind::kLabel, "开平方向："},
          {10005, Kind::kLabel, "委托价格："},
          {1014, Kind::kLabel, "委托数量："},
          {1015, Kind::kLabel, "委托方式："},
          {1016, Kind::kLabel, "", State::kHidden},
          {1013, Kind::kIcon},
          {IDOK, Kind::kButton, "下单确认"},
          {IDCANCEL, Kind::kButton, "取消"}}},
        {10106, "", {}},
        {10107, "", {{10007, Kind::kList}}},
    };
    for (const Dialog& dialog : dialogs) ExpectControls(dialog);
}

TEST(TemplateControls, OfTheSoftKeyboards) {
    std::vector<Expected> keys = {{10086, Kind::kButton, "退格"},
                                  {10087, Kind::kButton, "大    写"},
                                  {10088, Kind::kButton, "关闭"},
                                  {10089, Kind::kButton, "回车"}};
    const std::string characters = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::vector<std::string> captions;
    for (const char character : characters) captions.emplace_back(1, character);
    for (std::size_t key = 0; key < captions.size(); ++key) {
        keys.push_back({10050 + static_cast<int>(key), Kind::kButton, captions[key].c_str()});
    }
    ExpectControls({10108, "", keys});
    std::vector<Expected> volumes = {{1054, Kind::kButton, "退格"}};
    for (const int id : {10008, 10009, 10021, 10027, 10023, 10028, 10029, 10030, 10046, 10047}) {
        volumes.push_back({id, Kind::kButton});
    }
    ExpectControls({10109, "", volumes});
}

TEST(TemplateControls, OfTheStops) {
    const Dialog frame = {10111,
                          "自动止盈止损设置",
                          {{10034, Kind::kTabs},
                           {10001, Kind::kLabel},
                           {IDOK, Kind::kButton, "确定"},
                           {IDCANCEL, Kind::kButton, "取消"}}};
    const Dialog stops = {
        10112,
        "",
        {{-1, Kind::kLabel,
          "止损止盈功能较复杂，请仔细查看《交易风险揭示书》以及《软件操作说明》后再行使用"},
         {-1, Kind::kGroup, "相对价位止损"},
         {-1, Kind::kGroup, "相对价位止盈"},
         {-1, Kind::kGroup, "绝对价格止损止盈(触发后自动全部取消)"},
         {-1, Kind::kLabel, "时止损。"},
         {-1, Kind::kLabel, "时止盈。"},
         {10036, Kind::kCheck, "启用止损策略"},
         {10010, Kind::kRadio, "当价格达到或超过开仓价"},
         {10006, Kind::kNumber},
         {10017, Kind::kSpin},
         {1132, Kind::kLabel, "个价位时自动止损。"},
         {10011, Kind::kRadio,
          "浮动止损：价格朝开仓方向或最优价格的反向波动，距离开仓价或今后最优价"},
         {10018, Kind::kNumber},
         {10019, Kind::kSpin},
         {1133, Kind::kLabel, "价位后止损，最小变动步长"},
         {1007, Kind::kNumber},
         {1008, Kind::kSpin},
         {1134, Kind::kLabel, "个价位。"},
         {1028, Kind::kCheck, "启用止盈策略"},
         {10013, Kind::kRadio, "当价格达到或超过开仓价"},
         {1009, Kind::kNumber},
         {1010, Kind::kSpin},
         {1135, Kind::kLabel, "个价位时自动止盈。"},
         {10014, Kind::kRadio, "当最新价超过开仓价", State::kOff},
         {1011, Kind::kNumber, "", State::kOff},
         {1012, Kind::kSpin, "", State::kOff},
         {1136, Kind::kLabel, "个价位时自动止盈，最大回撤", State::kOff},
         {1013, Kind::kNumber, "", State::kOff},
         {1014, Kind::kSpin, "", State::kOff},
         {1137, Kind::kLabel, "个价位。", State::kOff},
         {1034, Kind::kCheck, "对于做多持仓，当价格小于等于"},
         {1015, Kind::kEdit},
         {1016, Kind::kSpin},
         {1036, Kind::kCheck, "当价格大于等于"},
         {1019, Kind::kEdit},
         {1020, Kind::kSpin},
         {1035, Kind::kCheck, "对于做空持仓，当价格大于等于"},
         {1021, Kind::kEdit},
         {1022, Kind::kSpin},
         {1037, Kind::kCheck, "当价格小于等于"},
         {1017, Kind::kEdit},
         {1018, Kind::kSpin}},
        2};
    const Dialog settings = {10113,
                             "",
                             {{-1, Kind::kLabel, "连续"},
                              {-1, Kind::kLabel, "笔"},
                              {-1, Kind::kLabel, "达到或超过指定价位时，触发止损。"},
                              {-1, Kind::kLabel, "达到或超过指定价位时，触发止盈。"},
                              {-1, Kind::kLabel, "止损时，按照"},
                              {-1, Kind::kLabel, "止盈时，按照"},
                              {-1, Kind::kLabel, "发出委托。"},
                              {-1, Kind::kLabel, "止损调整"},
                              {-1, Kind::kLabel, "止盈调整"},
                              {-1, Kind::kLabel, "个价位发出委托。"},
                              {-1, Kind::kLabel, "止损止盈单有效期"},
                              {10006, Kind::kNumber},
                              {10017, Kind::kSpin},
                              {10002, Kind::kCombo},
                              {10018, Kind::kNumber},
                              {10019, Kind::kSpin},
                              {1007, Kind::kCombo},
                              {1008, Kind::kCombo},
                              {1009, Kind::kCombo},
                              {1010, Kind::kEdit},
                              {1011, Kind::kSpin},
                              {1012, Kind::kEdit},
                              {1013, Kind::kSpin},
                              {1034, Kind::kCheck, "启动自动追价。"},
                              {1042, Kind::kCombo},
                              {10048, Kind::kSpin, "", State::kOff},
                              {10049, Kind::kButton, "", State::kOff}},
                             4};
    for (const Dialog& dialog : {Dialog{1102, "", {}}, frame, stops, settings}) {
        ExpectControls(dialog);
    }
}

TEST(TemplateControls, OfTheLists) {
    const Dialog dialogs[] = {
        {10005, "", {}},
        {10006,
         "",
         {{10008, Kind::kButton, "持仓—分笔"},
          {10027, Kind::kButton, "平仓"},
          {10023, Kind::kButton, "平仓30%"},
          {10028, Kind::kButton, "平仓50%"},
          {10029, Kind::kButton, "平仓70%"},
          {10030, Kind::kButton, "平仓100%"},
          {10031, Kind::kButton, "止盈止损"}}},
        {10007,
         "",
         {{10008, Kind::kButton, "委托—可撤"},
          {10009, Kind::kButton, "撤单", State::kHidden},
          {10021, Kind::kButton, "全部撤单", State::kHidden}}},
        {10009, "", {{10008, Kind::kButton, "成交"}, {10044, Kind::kButton, "导  出"}}},
        {10010,
         "",
         {{10006, Kind::kRichText},
          {10008, Kind::kButton, "查询"},
          {10032, Kind::kDate},
          {10033, Kind::kDate}}},
    };
    for (const Dialog& dialog : dialogs) ExpectControls(dialog);
}

}  // namespace
