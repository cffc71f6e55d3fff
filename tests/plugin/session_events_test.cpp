#include "plugin/contract/core_access.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/live_blocks.h"
#include "tests/plugin/shell_test.h"
#include "tests/support/gbk_text.h"

namespace {

using SessionEvents = tests::ShellTest;

TEST_F(SessionEvents, TellOfALostConnectionBeforeTheyEndTheSession) {
    struct {
        LPARAM status;
        const char* effects;
    } const cases[] = {
        {-1,
         "box \"黄金交易：联接断开了！\" \"提示a1\" information [确定] topmost; "
         "Logout(); frame session lost(0, 4)"},
        {-2,
         "box \"黄金交易联：被服务器断开了！\" \"提示a1\" information [确定] topmost; "
         "Logout(); frame session lost(0, 4)"},
        {0, ""},
        {-3, ""},
        {1, ""},
    };
    for (const auto& one : cases) {
        Send(EV_CONNECTION_LOST, one.status);
        EXPECT_GBK_EQ(one.effects, TakeLog()) << one.status;
    }
}

TEST_F(SessionEvents, AtALossResetPanelsAndLeaveFundsAndTickAlone) {
    core.logged_in = true;
    const CZebContract contract = AddContract("Au(T+D)", 12, 1);
    CPanelTradeDlg& panel = AddPanel("panel");
    panel.BindContract(12, 1, &contract);
    ASSERT_FALSE(ShowsLogin(panel));
    g_dAvailable = 5;
    g_dEquity = 6;
    g_dwLastActivityTick = 7;
    log.clear();
    Send(EV_CONNECTION_LOST, -1);
    EXPECT_EQ("Logout(); panel no contract; frame session lost(0, 4)",
              TakeLog({"Logout", "panel", "frame"}));
    EXPECT_TRUE(ShowsLogin(panel));
    EXPECT_EQ(0U, panel.Packed());
    EXPECT_EQ(5, g_dAvailable);
    EXPECT_EQ(6, g_dEquity);
    EXPECT_EQ(7U, g_dwLastActivityTick);
}

TEST_F(SessionEvents, WithoutAGrandparentTellNobodyOfALoss) {
    ::SetParent(*shell, frame);
    Send(EV_CONNECTION_LOST, -1);
    EXPECT_EQ("Logout()", TakeLog({"Logout", "frame", "parent"}));
}

TEST_F(SessionEvents, LoadContractsThenSumPositionsThenTellTheHost) {
    AddContract("Au(T+D)", 12, 1);
    AddContract("Ag(T+D)", 12, 2);
    Send(EV_CONTRACTS_READY);
    EXPECT_EQ("GetContractList(count); GetContractList(read)", TakeLog({"GetContractList"}));
    EXPECT_THAT(host.CallsOf("HOST_CONTRACTS_LOADED"),
                testing::ElementsAre("HOST_CONTRACTS_LOADED(4, 0)"));
    EXPECT_NE(nullptr, shell->BSBase().FindContractByCode("Ag(T+D)"));
}

TEST_F(SessionEvents, LeaveNoPageWithAContractOfAClearedTable) {
    core.logged_in = true;
    AddContract("Au(T+D)", 12, 1);
    AddContract("Ag(T+D)", 12, 2);
    Send(EV_CONTRACTS_READY);
    shell->ChangeStk(12, 2, AddPanel("kept").GetSafeHwnd());
    shell->ChangeStk(12, 1, AddPanel("gone").GetSafeHwnd());
    ASSERT_STREQ("Au(T+D)", shell->BSBase().OrderPage().Contract()->szContract);
    core.contracts.erase(core.contracts.begin());
    log.clear();
    Send(EV_CONTRACTS_READY);
    EXPECT_EQ(nullptr, shell->BSBase().OrderPage().Contract());
    EXPECT_EQ(
        "kept no contract; gone no contract; GetContractList(count); kept contract Ag(T+D); "
        "kept funds 0.00 0.00; gone funds 0.00 0.00",
        TakeLog({"kept", "gone", "GetContractList(c"}));
    // Both know their market and code, so a contract that comes back finds its panel.
    AddContract("Au(T+D)", 12, 1);
    Send(EV_CONTRACTS_READY);
    EXPECT_EQ("kept contract Ag(T+D); gone contract Au(T+D)",
              TakeLog({"kept contract", "gone contract"}));
}

TEST_F(SessionEvents, LeaveAPanelWithoutAContractAlone) {
    AddContract("Au(T+D)", 0, 0);
    AddPanel("panel");
    log.clear();
    Send(EV_CONTRACTS_READY);
    EXPECT_EQ("panel no contract; panel funds 0.00 0.00", TakeLog({"panel"}));
}

TEST_F(SessionEvents, StartTradingInTwelveSteps) {
    g_bNeedShowStopLossAndProfit = 1;
    AddContract("Au(T+D)", 12, 1);
    AddContract("Ag(T+D)", 12, 2);
    core.banks.resize(1);
    CPanelTradeDlg& panel = AddPanel("panel");
    shell->ChangeStk(12, 2, panel.GetSafeHwnd());
    ASSERT_TRUE(ShowsLogin(panel));
    core.logged_in = true;
    Send(EV_CONTRACTS_READY);
    log.clear();
    core.on_call = [this, &panel](std::string_view line) {
        const bool too_early = line.starts_with("GetOrderList") && ShowsLogin(panel);
        log.push_back(std::string(line) + (too_early ? " before the panel works" : ""));
    };

    Send(EV_INITIAL_LOAD_DONE);

    EXPECT_EQ(
        "BeginTrading(); QueryInitial1(); QueryInitial2(); QueryInitial3(); StartStopMonitor(); "
        "GetBankList(count); panel contract Ag(T+D); panel funds 0.00 0.00; GetOrderList(count); "
        "GetOrderList(count); NotifyInitDone(4); SendFunctionRequest(9336, \"\"); "
        "frame notice(1, 0); frame notice(1, 0)",
        TakeLog({"BeginTrading", "QueryInitial", "StartStop", "GetBankList(count", "panel contract",
                 "panel funds", "GetOrderList(count", "NotifyInitDone", "SendFunction", "frame"}));
    EXPECT_EQ(1U, g_dwLastActivityTick);
    EXPECT_FALSE(ShowsLogin(panel));
    EXPECT_EQ(12U | 2U << 16, panel.Packed());
    EXPECT_STREQ("Ag(T+D)", shell->BSBase().OrderPage().Contract()->szContract);
}

TEST_F(SessionEvents, StartTradingReadOrdersWithoutAnyPanel) {
    Send(EV_INITIAL_LOAD_DONE);
    EXPECT_EQ(
        "BeginTrading(); QueryInitial1(); QueryInitial2(); QueryInitial3(); "
        "GetOrderList(count); NotifyInitDone(4)",
        TakeLog(
            {"BeginTrading", "QueryInitial", "StartStop", "GetOrderList(count", "NotifyInitDone"}));
}

TEST_F(SessionEvents, ClearThePasswordsBeforeTheyTellOfTheChange) {
    CChangePwdDlg& page = shell->ChangePwd();
    const int fields[] = {CChangePwdDlg::kCurrentPassword, CChangePwdDlg::kNewPassword,
                          CChangePwdDlg::kRepeatedPassword};
    const auto fill = [&] {
        for (const int field : fields) page.SetDlgItemText(field, "secret");
    };
    fill();
    SendFailed(EV_PASSWORD_RESULT, TextBlock("no"));
    for (const int field : fields) EXPECT_EQ("secret", TextOf(page, field));
    std::string while_box_is_open = "no box";
    on_box = [&] { while_box_is_open = TextOf(page, fields[0]) + TextOf(page, fields[2]); };
    Send(EV_PASSWORD_RESULT, TextBlock("ok"));
    EXPECT_EQ("", while_box_is_open);
    for (const int field : fields) EXPECT_EQ("", TextOf(page, field));
}

TEST_F(SessionEvents, EndARefusedLogin) {
    SendFailed(EV_NOTICE, TextBlock("账号已被锁定"));
    EXPECT_GBK_EQ("box \"账号已被锁定\" \"登录失败\" plain [确定]; Logout()", TakeLog());
}

TEST_F(SessionEvents, ShowNoticesOfAnyLengthAndNoneThatIsEmpty) {
    const std::string notice(4000, 'n');
    Send(EV_SYSTEM_NOTICE, TextBlock(notice));
    EXPECT_GBK_EQ("box \"" + notice + "\" \"交易通知\" plain [确定][退出]", TakeLog());
    Send(EV_SYSTEM_NOTICE, TextBlock(""));
    EXPECT_EQ("", TakeLog());
    Send(EV_SYSTEM_NOTICE, Block("unfinished", 10));
    EXPECT_GBK_EQ("box \"unfinished\" \"交易通知\" plain [确定][退出]", TakeLog());
}

TEST_F(SessionEvents, StopQuietlyWhenTheMainDialogGoesWhileABoxIsOpen) {
    struct {
        int code;
        WORD failed;
    } const cases[] = {
        {EV_CONNECTION_LOST, 0},     {EV_NOTICE, kCoreEventFailed}, {EV_NOTICE, 0},
        {EV_TRANSFER_KIND1_DONE, 0}, {EV_PASSWORD_RESULT, 0},       {EV_CANCEL_RESULT, 0},
    };
    const int before = tests::LiveBlocks();
    for (const auto& one : cases) {
        on_box = [this] { shell.reset(); };
        const LPARAM payload = one.code == EV_CONNECTION_LOST ? -1 : TextBlock("0123456789");
        ::SendMessageA(*shell, WM_CORE_EVENT, MAKEWPARAM(one.code, one.failed), payload);
        on_box = nullptr;
        ASSERT_EQ(nullptr, shell) << one.code;
        MakeShell();
        EXPECT_EQ(before, tests::LiveBlocks()) << one.code;
    }
}

}  // namespace
