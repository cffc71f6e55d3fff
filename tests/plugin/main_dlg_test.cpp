#include "plugin/main_dlg.h"

#include <algorithm>

#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/shell_test.h"
#include "tests/support/gbk_text.h"

namespace {

using MainDialog = tests::ShellTest;

std::string Place(const CWnd& window, const CWnd& parent) {
    CRect rect;
    window.GetWindowRect(&rect);
    parent.ScreenToClient(&rect);
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
           std::to_string(rect.Width()) + "x" + std::to_string(rect.Height());
}

bool Shown(const CWnd& window) { return (window.GetStyle() & WS_VISIBLE) != 0; }

TEST_F(MainDialog, StartsWithThePageOfOrderAndLists) {
    EXPECT_TRUE(Shown(shell->BSBase()));
    const CWnd* const others[] = {&shell->TranAccount(), &shell->ChangePwd(), &shell->Funds(),
                                  &shell->Combination(), &shell->Settlement()};
    for (const CWnd* page : others) {
        ASSERT_NE(nullptr, page->GetSafeHwnd());
        EXPECT_FALSE(Shown(*page));
    }
    EXPECT_EQ(0, shell->Menu().GetCount());
    EXPECT_EQ(22, shell->Menu().SendMessage(LB_GETITEMHEIGHT));
}

TEST_F(MainDialog, LaysMenuAndPagesOut) {
    struct {
        int width;
        int height;
        const char* menu;
        const char* first;
        const char* other;
    } const cases[] = {
        {900, 500, "1,1 139x498", "143,2 757x496", "139,2 757x496"},
        {1280, 800, "1,1 139x798", "143,2 1137x796", "139,2 1137x796"},
        {143, 4, "1,1 139x2", "143,2 0x0", "139,2 0x0"},
        {0, 0, "1,1 139x0", "143,2 0x0", "139,2 0x0"},
    };
    for (const auto& one : cases) {
        shell->MoveWindow(0, 0, one.width, one.height);
        EXPECT_EQ(one.menu, Place(shell->Menu(), *shell));
        EXPECT_EQ(one.first, Place(shell->BSBase(), *shell));
        for (const CWnd* page :
             {static_cast<CWnd*>(&shell->TranAccount()), static_cast<CWnd*>(&shell->ChangePwd()),
              static_cast<CWnd*>(&shell->Funds()), static_cast<CWnd*>(&shell->Combination()),
              static_cast<CWnd*>(&shell->Settlement())}) {
            EXPECT_EQ(one.other, Place(*page, *shell));
        }
    }
}

TEST_F(MainDialog, ShowsTheSkinsColourBetweenMenuAndPage) {
    core.skin_color = RGB(0x12, 0x34, 0x56);
    shell->Invalidate();
    shell->UpdateWindow();
    CDC* dc = shell->GetDC();
    for (const int x : {0, 140, 142}) EXPECT_EQ(core.skin_color, ::GetPixel(*dc, x, 200)) << x;
    shell->ReleaseDC(dc);
}

TEST_F(MainDialog, ShowsAndHidesOnePageAtATime) {
    struct {
        int page;
        CWnd* window;
    } const cases[] = {
        {0, &shell->BSBase()},      {1, &shell->BSBase()},      {2, &shell->BSBase()},
        {3, &shell->BSBase()},      {17, &shell->BSBase()},     {4, &shell->Funds()},
        {6, &shell->Combination()}, {7, &shell->TranAccount()}, {32, &shell->Settlement()},
    };
    for (const auto& one : cases) {
        const bool first_stays = one.window != &shell->BSBase();
        shell->ShowPage(0, SW_SHOW);
        shell->ShowPage(one.page, SW_SHOW);
        EXPECT_TRUE(Shown(*one.window)) << one.page;
        EXPECT_TRUE(Shown(shell->BSBase())) << one.page;
        shell->ShowPage(one.page, SW_HIDE);
        EXPECT_FALSE(Shown(*one.window)) << one.page;
        EXPECT_EQ(first_stays, Shown(shell->BSBase())) << one.page;
    }
    for (const int unknown : {-1, 8, 16, 31, 33, 40}) {
        shell->ShowPage(unknown, SW_SHOW);
        EXPECT_FALSE(Shown(shell->Settlement()) || Shown(shell->ChangePwd()));
    }
    EXPECT_EQ("", TakeLog());
}

TEST_F(MainDialog, AsksForTheFundsWhenTheirPageIsShown) {
    shell->ShowPage(4, SW_SHOW);
    EXPECT_EQ("", TakeLog());
    core.logged_in = true;
    shell->ShowPage(4, SW_HIDE);
    EXPECT_EQ("", TakeLog());
    shell->ShowPage(4, SW_SHOW);
    EXPECT_EQ("QueryAccount(0)", TakeLog());
}

TEST_F(MainDialog, PutsChangedParametersToWork) {
    core.trade_param.nOverTicks = 7;
    const std::string reload = "GetTradeParam(); ApplyTradeParam()";
    shell->ShowPage(5, SW_HIDE);
    shell->SendMessage(WM_TRADE_PARAM_CHANGED, 0, 1);
    shell->SendMessage(WM_TRADE_PARAM_CHANGED, 2, 1);
    EXPECT_EQ("", TakeLog());
    shell->ShowPage(5, SW_SHOW);
    EXPECT_EQ(0U, TakeLog().find(reload));
    shell->SendMessage(WM_TRADE_PARAM_CHANGED, 1, 0);
    EXPECT_EQ(0U, TakeLog().find(reload));
    ASSERT_EQ(2U, core.applied_params.size());
    EXPECT_EQ(7, core.applied_params[1].nOverTicks);
}

int g_digits = 0;

int CALLBACK KeepDigits(int a, int b, int c) {
    g_digits = a * 100 + b * 10 + c;
    return 9;
}

TEST_F(MainDialog, RunsAFunctionOfTheHost) {
    const int arguments[3] = {1, 2, 3};
    const auto function = reinterpret_cast<WPARAM>(&KeepDigits);
    EXPECT_EQ(
        0, shell->SendMessage(WM_RUN_ON_UI_THREAD, function, reinterpret_cast<LPARAM>(arguments)));
    EXPECT_EQ(123, g_digits);
    EXPECT_EQ(0, shell->SendMessage(WM_RUN_ON_UI_THREAD, function, 0));
    EXPECT_EQ(0, shell->SendMessage(WM_RUN_ON_UI_THREAD, 0, reinterpret_cast<LPARAM>(arguments)));
}

TEST_F(MainDialog, AsksForTheFundsAtATimerTickOnceActivityIsTwoSecondsOld) {
    constexpr DWORD kPeriod = 90000;
    struct {
        bool logged_in;
        DWORD tick_before;  ///< of the last activity, before the timer's; 0: none
        const char* calls;
    } const cases[] = {
        {true, 2000, "QueryAccount(0)"},
        {true, 60000, "QueryAccount(0)"},
        {true, 1999, ""},
        {true, 0, ""},
        {false, 60000, ""},
    };
    for (const auto& one : cases) {
        core.logged_in = one.logged_in;
        g_dwLastActivityTick = 0;
        shell->SetTimer(1, kPeriod, nullptr);
        platform::testing::PumpFor(kPeriod - 10);
        log.clear();
        g_dwLastActivityTick = one.tick_before == 0 ? 0 : ::GetTickCount() + 10 - one.tick_before;
        platform::testing::PumpFor(10);
        EXPECT_EQ(one.calls, TakeLog()) << one.tick_before;
    }
}

TEST_F(MainDialog, GoesOnAskingForTheFundsAtEveryTick) {
    core.logged_in = true;
    g_dwLastActivityTick = 1;
    platform::testing::PumpFor(90000 * 3);
    EXPECT_EQ("QueryAccount(0); QueryAccount(0); QueryAccount(0)", TakeLog({"QueryAccount"}));
    EXPECT_EQ(1U, g_dwLastActivityTick);
}

TEST_F(MainDialog, ForgetsAnyActivityWhenItIsMade) {
    g_dwLastActivityTick = 5;
    MakeShell();
    EXPECT_EQ(0U, g_dwLastActivityTick);
}

class WantedQuotes : public tests::ShellTest {
protected:
    void Hold(const char* contract) {
        CZebPosition position{};
        text::CopyText(position.szContract, contract);
        core.positions.push_back(position);
    }

    std::vector<unsigned int> Wanted(int capacity) {
        std::vector<unsigned int> list(static_cast<std::size_t>(std::max(capacity, 0)) + 1, kGuard);
        const int count = shell->GetStkList(list.data(), capacity);
        EXPECT_EQ(kGuard, list[static_cast<std::size_t>(count)]);
        list.resize(static_cast<std::size_t>(count));
        return list;
    }

    void SelectContract(const char* code, int market, int number) {
        core.logged_in = true;
        AddContract(code, market, number);
        shell->LoadContracts();
        shell->ChangeStk(static_cast<unsigned short>(market), static_cast<unsigned short>(number),
                         nullptr);
    }

    static constexpr unsigned int kGuard = 0xABCDABCD;
};

constexpr unsigned int Key(int market, int code) {
    return static_cast<unsigned>(market) | static_cast<unsigned>(code) << 16;
}

TEST_F(WantedQuotes, AreThePositionsOnceAndTheOrderPagesContractAlways) {
    host.AddSymbol("Au(T+D)", 12, 1, 2);
    host.AddSymbol("no code", 12, 0xFFFF, 2);
    host.AddSymbol("no market", 0xFFFF, 3, 2);
    for (const char* held : {"Au(T+D)", "unknown", "Au(T+D)", "no code", "no market"}) Hold(held);
    SelectContract("Ag(T+D)", 12, 2);
    Hold("Ag(T+D)");
    // The order page's contract is there twice: it is not looked for among the others.
    EXPECT_THAT(Wanted(10), testing::ElementsAre(Key(12, 1), Key(12, 2), Key(12, 2)));
    EXPECT_THAT(Wanted(10), testing::ElementsAre(Key(12, 2)));
    Hold("Au(T+D)");
    EXPECT_THAT(Wanted(10), testing::ElementsAre(Key(12, 2)));
}

TEST_F(WantedQuotes, AreOfferedAgainUntilAllFitted) {
    host.AddSymbol("Au(T+D)", 12, 1, 2);
    host.AddSymbol("Ag(T+D)", 12, 2, 2);
    for (const char* held : {"Au(T+D)", "Au(T+D)", "Ag(T+D)"}) Hold(held);
    // Two positions are looked at, though they need one place only.
    EXPECT_THAT(Wanted(2), testing::ElementsAre(Key(12, 1)));
    EXPECT_THAT(Wanted(3), testing::ElementsAre(Key(12, 1), Key(12, 2)));
    EXPECT_THAT(Wanted(3), testing::ElementsAre());
}

TEST_F(WantedQuotes, StayOpenWhileThereIsNoPosition) {
    host.AddSymbol("Au(T+D)", 12, 1, 2);
    EXPECT_THAT(Wanted(3), testing::ElementsAre());
    Hold("Au(T+D)");
    EXPECT_THAT(Wanted(0), testing::ElementsAre());
    EXPECT_THAT(Wanted(-1), testing::ElementsAre());
    EXPECT_EQ(0, shell->GetStkList(nullptr, 5));
    EXPECT_THAT(Wanted(3), testing::ElementsAre(Key(12, 1)));
}

TEST_F(WantedQuotes, TakeACoreThatDeliversLessThanItPromised) {
    host.AddSymbol("Au(T+D)", 12, 1, 2);
    Hold("Au(T+D)");
    core.promised_too_many = 40;
    EXPECT_THAT(Wanted(60), testing::ElementsAre(Key(12, 1)));
    core.positions.clear();
    core.promised_too_many = -5;
    EXPECT_THAT(Wanted(60), testing::ElementsAre());
}

TEST_F(WantedQuotes, AreNoneWithoutACoreOrAHost) {
    Hold("Au(T+D)");
    g_pfnHostCallBack = nullptr;
    EXPECT_THAT(Wanted(3), testing::ElementsAre());
    g_pUICallBack = nullptr;
    EXPECT_THAT(Wanted(3), testing::ElementsAre());
}

class Panels : public tests::ShellTest {
protected:
    Panels() {
        core.logged_in = true;
        AddContract("Au(T+D)", 12, 1);
        AddContract("Ag(T+D)", 12, 2);
        shell->LoadContracts();
    }
};

TEST_F(Panels, AreMovedShownLockedAndResetByTheirWindows) {
    CPanelTradeDlg& first = AddPanel();
    CPanelTradeDlg& second = AddPanel();
    shell->MovePanel(second.GetSafeHwnd(), 10, 20, 300, 400);
    EXPECT_EQ("10,20 300x400", Place(second, frame));
    EXPECT_NE("10,20 300x400", Place(first, frame));
    shell->ShowPanel(second.GetSafeHwnd(), SW_SHOW, 0);
    EXPECT_TRUE(Shown(second));
    EXPECT_FALSE(Shown(first));
    shell->LockPanels(1);
    EXPECT_FALSE(::IsWindowVisible(TicketButton(second)));
    shell->ShowPanel(second.GetSafeHwnd(), SW_SHOW, 0);
    EXPECT_TRUE(::IsWindowVisible(TicketButton(second)));
    shell->ResetPanels();
    EXPECT_TRUE(ShowsLogin(first));
    EXPECT_TRUE(ShowsLogin(second));
    core.logged_in = false;
    shell->ShowPanel(second.GetSafeHwnd(), SW_SHOW, 0);
    EXPECT_TRUE(ShowsLogin(second));
}

TEST_F(Panels, IgnoreWindowsThatAreNone) {
    CPanelTradeDlg& panel = AddPanel();
    const std::string place = Place(panel, frame);
    for (const HWND window : {HWND{}, frame.GetSafeHwnd(), shell->GetSafeHwnd()}) {
        shell->MovePanel(window, 1, 1, 1, 1);
        shell->ShowPanel(window, SW_SHOW, 1);
        shell->RemovePanel(window);
        shell->SetPanelStk(shell->BSBase().FindContractByCode("Au(T+D)"), 12, 1, window);
    }
    EXPECT_EQ(place, Place(panel, frame));
    EXPECT_EQ(0U, panel.Packed());
    EXPECT_EQ(1U, shell->LivePanels().size());
}

TEST_F(Panels, TakeTheHostsContractOrKeepItUntilTheLogin) {
    CPanelTradeDlg& first = AddPanel();
    CPanelTradeDlg& second = AddPanel("second");
    shell->ChangeStk(12, 1, first.GetSafeHwnd());
    EXPECT_EQ(Key(12, 1), first.Packed());
    EXPECT_EQ(0U, second.Packed());
    EXPECT_STREQ("Au(T+D)", shell->BSBase().OrderPage().Contract()->szContract);
    EXPECT_NE("", TakeLog({"GetOrderList"}));

    core.logged_in = false;
    log.clear();
    shell->ChangeStk(12, 2, second.GetSafeHwnd());
    EXPECT_EQ(0U, second.Packed());
    EXPECT_STREQ("Au(T+D)", shell->BSBase().OrderPage().Contract()->szContract);
    EXPECT_EQ("", TakeLog({"GetOrderList", "second"}));
    core.logged_in = true;
    shell->ApplyKeptStks();
    EXPECT_EQ(Key(12, 2), second.Packed());
    EXPECT_EQ(Key(12, 1), first.Packed());
    EXPECT_STREQ("Ag(T+D)", shell->BSBase().OrderPage().Contract()->szContract);
}

TEST_F(Panels, ShowTheFundsWithAFloatingLossWhoeverWorksThemOut) {
    const HWND panel = AddPanel("a").GetSafeHwnd();
    g_dAvailable = 1000;
    shell->Positions().m_dProfitOpen = 5;
    for (const int use_profile : {0, 1}) {
        g_nUseProfile = use_profile;
        log.clear();
        shell->Positions().m_dProfitHold = -100;
        shell->ChangeStk(12, 1, panel);
        shell->Positions().m_dProfitHold = 100;
        shell->ChangeStk(12, 2, panel);
        EXPECT_EQ(
            "a contract Au(T+D); a funds 900.00 5.00; a contract Ag(T+D); "
            "a funds 1000.00 5.00",
            TakeLog({"a contract", "a funds"}));
    }
}

TEST_F(Panels, LoseTheirContractToAnUnknownOne) {
    CPanelTradeDlg& panel = AddPanel("a");
    shell->ChangeStk(12, 1, panel.GetSafeHwnd());
    log.clear();
    shell->ChangeStk(12, 99, panel.GetSafeHwnd());
    EXPECT_EQ("a no contract; a funds 0.00 0.00", TakeLog({"a no", "a contract", "a funds"}));
    EXPECT_STREQ("Au(T+D)", shell->BSBase().OrderPage().Contract()->szContract);
}

TEST_F(Panels, ForgetTheContractKeptForOneThatGoes) {
    core.logged_in = false;
    CPanelTradeDlg& gone = AddPanel();
    shell->ChangeStk(12, 2, gone.GetSafeHwnd());
    shell->RemovePanel(gone.GetSafeHwnd());
    EXPECT_TRUE(shell->LivePanels().empty());
    core.logged_in = true;
    log.clear();
    shell->ApplyKeptStks();
    EXPECT_EQ("GetOrderList(count)", TakeLog({"GetOrderList(count"}));
}

TEST_F(Panels, MayLoseTheirWindowsBehindTheMainDialogsBack) {
    CPanelTradeDlg& panel = AddPanel();
    AddPanel();
    const HWND window = panel.GetSafeHwnd();
    ::DestroyWindow(window);
    EXPECT_EQ(1U, shell->LivePanels().size());
    const JSDyn1 quote{};
    shell->BroadcastDyn(kBroadcastQuote, 0, &quote);
    shell->ResetPanels();
    shell->LockPanels(0);
    shell->ShowFundsOnPanels(1, 2, 3);
    shell->ShowOrdersOnPanels(nullptr, 0);
    shell->RefreshStopChecks();
    shell->MovePanel(window, 0, 0, 5, 5);
    Send(EV_POSITION_LIST);
    Send(EV_INITIAL_LOAD_DONE);
    shell->DestroyPanels();
    EXPECT_TRUE(shell->LivePanels().empty());
}

TEST_F(Panels, OutliveTheMainWindowButNotItsObject) {
    const HWND panel = AddPanel().GetSafeHwnd();
    shell->DestroyWindow();
    EXPECT_TRUE(::IsWindow(panel));
    shell.reset();
    EXPECT_FALSE(::IsWindow(panel));
}

TEST_F(Panels, HearOfNoOtherKindOfBroadcast) {
    AddPanel();
    const JSDyn1 quote{};
    for (const int kind : {0, 2, 4, -1}) EXPECT_EQ(0, shell->BroadcastDyn(kind, 0, &quote));
    EXPECT_EQ(0, shell->BroadcastDyn(kBroadcastQuote, 0, nullptr));
    EXPECT_EQ(0, shell->BroadcastDyn(kBroadcastPress, 0xFFFF0005, nullptr));
}

}  // namespace
