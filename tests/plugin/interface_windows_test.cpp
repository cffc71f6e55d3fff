// The host's side of the exported class: its windows, and what they are told.

#include <gmock/gmock.h>

#include <climits>

#include "orderentry/gold_bs_dlg.h"
#include "orderentry/panel_trade_dlg.h"
#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/interface_test.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::WindowOf;

constexpr unsigned int kNoPanel = 0xFFFFFFFF;
constexpr int kFirstPage = 10000001;

bool IsShown(HWND window) {
    return (static_cast<DWORD>(::GetWindowLongA(window, GWL_STYLE)) & WS_VISIBLE) != 0;
}

RECT PlaceOf(HWND window) {
    RECT place;
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

void ExpectPlace(HWND window, const RECT& expected) {
    const RECT place = PlaceOf(window);
    EXPECT_TRUE(::EqualRect(&place, &expected))
        << place.left << "," << place.top << " - " << place.right << "," << place.bottom;
}

/// Which look a panel has, by the pages that it shows.
std::string FaceOf(unsigned int panel) {
    std::string shown;
    const HWND first = ::GetWindow(WindowOf(panel), GW_CHILD);
    for (HWND page = first; page != nullptr; page = ::GetWindow(page, GW_HWNDNEXT)) {
        shown += IsShown(page) ? '1' : '0';
    }
    if (shown == "111100") return "working";
    if (shown == "000010") return "login";
    return shown == "000001" ? "locked" : shown;
}

unsigned int KeyOf(unsigned int panel) {
    return static_cast<CPanelTradeDlg*>(CWnd::FromHandlePermanent(WindowOf(panel)))->Packed();
}

class HostSide : public tests::InterfaceTest {
protected:
    /// All that a host may ask, on an object that has no living main dialog.
    void ExpectNothingIsDone(QmInterfaceUI& one) {
        unsigned int list[4] = {};
        JSDyn1 quote{};
        int unused = 5;
        one.OnSize(1, 2, 3, 4, 0);
        one.OnDestroyWindow(0);
        one.ShowWindow(SW_SHOW, 0);
        one.OnDyn(1, 2, &quote);
        one.OnCodeListChanged();
        one.CodeTableChanged(1);
        one.gMouseDown({1, 2});
        one.ShowWindow_Script(kFirstPage, SW_SHOW);
        one.CurStkChanged(1, 2, 0);
        EXPECT_EQ(one.GetStkList(list, 4), 0);
        EXPECT_EQ(one.GetMainDlg(), nullptr);
        EXPECT_EQ(one.GetMenuCtrl(unused), nullptr);
        EXPECT_EQ(one.CreateConditionOrderDlg(frame), nullptr);
        EXPECT_EQ(one.GetConditionParentDlg(), nullptr);
    }
    /// Loads the contracts and lets the pages go live, as the core does after a login.
    void Load() {
        ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
        core.ForgetCalls();
    }
    CGoldBsDlg& OrderPage() {
        const HWND page = ui->CreateConditionOrderDlg(nullptr);
        return *static_cast<CGoldBsDlg*>(CWnd::FromHandlePermanent(page));
    }
    std::string OrderContract() {
        const CZebContract* contract = OrderPage().Contract();
        return contract != nullptr ? std::string(text::FieldText(contract->szContract)) : "";
    }
};

TEST_F(HostSide, DoesNothingBeforeCreate) {
    ExpectNothingIsDone(*ui);
    ui->LockScreen(1);
    ui->Close();
    EXPECT_EQ(AddPanel(), kNoPanel);
    EXPECT_THAT(core.Calls(), IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(HostSide, DoesNothingOnceTheWindowIsGone) {
    Start();
    ui->OnDestroyWindow(0);
    core.ForgetCalls();
    ExpectNothingIsDone(*ui);
    EXPECT_THAT(core.Calls(), IsEmpty());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(HostSide, CreatesTheMainDialogInTheHostsWindow) {
    EXPECT_EQ(ui->Create(10, 20, 600, 400, frame), 1);
    EXPECT_EQ(g_hParentWnd, frame.GetSafeHwnd());
    EXPECT_EQ(::GetParent(Main()), frame.GetSafeHwnd());
    EXPECT_TRUE(IsShown(Main()));
    ExpectPlace(Main(), {10, 20, 610, 420});
    ui->OnSize(1, 2, 300, 200, 0);
    ExpectPlace(Main(), {1, 2, 301, 202});
    ui->ShowWindow(SW_HIDE, 0);
    EXPECT_FALSE(IsShown(Main()));
}

TEST_F(HostSide, CreateAnswersOneWhateverCameOfIt) {
    EXPECT_EQ(ui->Create(0, 0, 10, 10, reinterpret_cast<HWND>(0x7654)), 1);
    EXPECT_EQ(ui->GetMainDlg(), nullptr);
    ExpectNothingIsDone(*ui);
    EXPECT_EQ(ui->Create(0, 0, 10, 10, frame), 1);
    EXPECT_NE(ui->GetMainDlg(), nullptr);
}

TEST_F(HostSide, CreatesAgainInPlaceOfWhatWasThere) {
    Start();
    const unsigned int panel = AddPanel();
    const HWND first = Main();
    ui->Create(0, 0, 600, 400, frame);
    EXPECT_FALSE(::IsWindow(first));
    EXPECT_FALSE(::IsWindow(WindowOf(panel)));
    ASSERT_TRUE(::IsWindow(Main()));
    ui->OnUpdateOrderList(nullptr);
    EXPECT_EQ(TakeSummary(), "2B(0)") << "events find the new window";

    ui->OnDestroyWindow(0);
    EXPECT_EQ(ui->GetMainDlg(), nullptr);
    ui->Create(0, 0, 600, 400, frame);
    EXPECT_NE(ui->GetMainDlg(), nullptr);
}

TEST_F(HostSide, SurvivesANewMainDialogWhileABoxOfTheOldOneIsOpen) {
    Start();
    static QmInterfaceUI* g_ui;
    static HWND g_frame;
    g_ui = &*ui;
    g_frame = frame;
    platform::testing::WhenIdle(
        [](void*) {
            const HWND box = ::GetActiveWindow();
            g_ui->OnDestroyWindow(0);
            g_ui->Create(0, 0, 600, 400, g_frame);
            ::PostMessageA(box, WM_COMMAND, IDOK, 0);
        },
        nullptr);
    ui->OnNetworkStatus(nullptr, ZEB_CONNECTION_TRADE, ZEB_CONNECTION_BROKEN);
    platform::testing::Pump();
    EXPECT_NE(ui->GetMainDlg(), nullptr);
}

TEST_F(HostSide, CreatesPanelsHiddenAndWithoutASize) {
    Start();
    core.panel_color = RGB(1, 2, 3);
    const unsigned int number = ui->CreatePanel(5, 6, 700, 800, frame);
    const HWND panel = WindowOf(number);
    ASSERT_TRUE(::IsWindow(panel));
    EXPECT_EQ(::GetParent(panel), frame.GetSafeHwnd());
    EXPECT_FALSE(IsShown(panel));
    ExpectPlace(panel, {0, 0, 0, 0});
    EXPECT_EQ(crPanelBack, RGB(1, 2, 3));
    ui->OnSize(10, 20, 220, 400, number);
    ExpectPlace(panel, {10, 20, 230, 420});
    ui->ShowWindow(SW_SHOW, number);
    EXPECT_TRUE(IsShown(panel));
    ui->ShowWindow(SW_HIDE, number);
    EXPECT_FALSE(IsShown(panel));
    EXPECT_EQ(ui->CreatePanel(0, 0, 0, 0, reinterpret_cast<HWND>(0x7654)), kNoPanel);
}

TEST_F(HostSide, MovesAndShowsAPanelWithoutTheMainWindow) {
    Start();
    ui->OnDestroyWindow(0);
    ui->LockScreen(1);
    const unsigned int panel = AddPanel();
    ASSERT_NE(panel, kNoPanel);
    ui->OnSize(10, 20, 220, 400, panel);
    ExpectPlace(WindowOf(panel), {10, 20, 230, 420});
    ui->ShowWindow(SW_SHOW, panel);
    EXPECT_TRUE(IsShown(WindowOf(panel)));
    EXPECT_EQ(FaceOf(panel), "locked");
}

TEST_F(HostSide, IgnoresWindowsThatAreNoPanels) {
    Start();
    const unsigned int panel = AddPanel();
    const auto stranger = static_cast<unsigned int>(reinterpret_cast<ULONG_PTR>(frame.m_hWnd));
    for (const unsigned int unknown : {kNoPanel, 1u, stranger}) {
        ui->OnSize(1, 1, 1, 1, unknown);
        ui->ShowWindow(SW_HIDE, unknown);
        ui->OnDestroyWindow(unknown);
    }
    EXPECT_TRUE(::IsWindow(frame));
    EXPECT_TRUE(IsShown(frame));
    EXPECT_TRUE(::IsWindow(WindowOf(panel)));
    EXPECT_TRUE(::IsWindow(Main()));
}

TEST_F(HostSide, DestroysOnePanelOrAllWindows) {
    Start();
    const unsigned int first = AddPanel();
    const unsigned int second = AddPanel();
    ui->OnDestroyWindow(first);
    EXPECT_FALSE(::IsWindow(WindowOf(first)));
    EXPECT_TRUE(::IsWindow(WindowOf(second)));
    ui->OnDestroyWindow(first);
    const HWND main = Main();
    ui->OnDestroyWindow(0);
    EXPECT_FALSE(::IsWindow(WindowOf(second)));
    EXPECT_FALSE(::IsWindow(main));
    EXPECT_TRUE(::IsWindow(frame));
}

TEST_F(HostSide, GoesWithItsWindows) {
    Start();
    const HWND main = Main();
    const unsigned int panel = AddPanel();
    ui.reset();
    EXPECT_FALSE(::IsWindow(main));
    EXPECT_FALSE(::IsWindow(WindowOf(panel)));
}

TEST_F(HostSide, LeavesItsWindowsToTheOriginalWhenCopied) {
    Start();
    {
        QmInterfaceUI copy(*ui);
        QmInterfaceUI assigned;
        assigned = *ui;
        ExpectNothingIsDone(copy);
        ExpectNothingIsDone(assigned);
    }
    EXPECT_TRUE(::IsWindow(Main()));
    QmInterfaceUI bare;
    *ui = bare;
    EXPECT_TRUE(::IsWindow(Main())) << "what is assigned to keeps its windows";
}

TEST_F(HostSide, LocksPanelsNowAndWhenTheyAreShown) {
    Start();
    const unsigned int panel = AddPanel();
    EXPECT_EQ(FaceOf(panel), "working");
    ui->LockScreen(1);
    EXPECT_EQ(FaceOf(panel), "locked");
    const unsigned int later = AddPanel();
    EXPECT_EQ(FaceOf(later), "working");
    ui->ShowWindow(SW_SHOW, later);
    EXPECT_EQ(FaceOf(later), "locked");
    ui->LockScreen(0);
    EXPECT_EQ(FaceOf(panel), "working");
    EXPECT_EQ(FaceOf(later), "working");
}

TEST_F(HostSide, ShowsAPanelAsItIsWhileNobodyIsLoggedIn) {
    Start();
    core.logged_in = false;
    const unsigned int panel = AddPanel();
    EXPECT_EQ(FaceOf(panel), "login");
    ui->ShowWindow(SW_SHOW, panel);
    EXPECT_EQ(FaceOf(panel), "login");
}

TEST_F(HostSide, ClosesByHidingLoggingOutAndResettingThePanels) {
    Start();
    const unsigned int panel = AddPanel();
    core.ForgetCalls();
    bool hidden_first = false;
    core.on_call = [&](std::string_view line) {
        if (line == "Logout()") hidden_first = !IsShown(Main()) && FaceOf(panel) == "working";
    };
    ui->Close();
    core.on_call = nullptr;
    EXPECT_EQ(core.CallsOf("Logout").size(), 1u);
    EXPECT_TRUE(hidden_first);
    EXPECT_EQ(FaceOf(panel), "login");
}

TEST_F(HostSide, ClosesNothingWithoutASession) {
    Start();
    const unsigned int panel = AddPanel();
    core.logged_in = false;
    core.ForgetCalls();
    ui->Close();
    EXPECT_THAT(core.Calls(), IsEmpty());
    EXPECT_TRUE(IsShown(Main()));
    EXPECT_EQ(FaceOf(panel), "working");
}

TEST_F(HostSide, KeepsContractsUntilTheInitialLoadIsDone) {
    AddContract("Au(T+D)", 12, 3);
    AddContract("Ag(T+D)", 12, 4);
    core.logged_in = false;
    Start();
    const unsigned int panel = AddPanel();
    ui->CurStkChanged(12, 3, panel);
    EXPECT_EQ(KeyOf(panel), 0u);
    EXPECT_EQ(OrderContract(), "");
    core.logged_in = true;
    Load();
    EXPECT_EQ(KeyOf(panel), tests::SymbolKey(12, 3));
    EXPECT_EQ(OrderContract(), "Au(T+D)");
}

TEST_F(HostSide, ForgetsTheContractOfADestroyedPanel) {
    AddContract("Au(T+D)", 12, 3);
    core.logged_in = false;
    Start();
    const unsigned int panel = AddPanel();
    ui->CurStkChanged(12, 3, panel);
    const auto readings_of_a_load = [this] {
        core.ForgetCalls();
        core.logged_in = true;
        ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
        core.logged_in = false;
        return core.CallsOf("GetOrderList").size();
    };
    const std::size_t for_the_panel_as_well = readings_of_a_load();
    EXPECT_EQ(readings_of_a_load(), for_the_panel_as_well);
    ui->OnDestroyWindow(panel);
    EXPECT_LT(readings_of_a_load(), for_the_panel_as_well);
}

TEST_F(HostSide, HandsAContractToPanelOrderPageAndOrderList) {
    AddContract("Au(T+D)", 12, 3);
    AddContract("Ag(T+D)", 12, 4);
    Start();
    Load();
    const unsigned int panel = AddPanel();
    const unsigned int other = AddPanel();
    core.ForgetCalls();
    ui->CurStkChanged(12, 4, panel);
    EXPECT_EQ(KeyOf(panel), tests::SymbolKey(12, 4));
    EXPECT_EQ(KeyOf(other), 0u);
    EXPECT_EQ(OrderContract(), "Ag(T+D)");
    EXPECT_FALSE(core.CallsOf("GetOrderList").empty());
    ui->CurStkChanged(1, 1, panel);
    EXPECT_EQ(OrderContract(), "Ag(T+D)") << "an unknown contract changes nothing there";
}

TEST_F(HostSide, WantsQuotesOfPositionsWhileItIsVisible) {
    AddContract("Au(T+D)", 12, 3);
    CZebPosition position{};
    text::CopyText(position.szContract, "Au(T+D)");
    core.positions.push_back(position);
    Start();
    unsigned int list[4] = {};
    ui->ShowWindow(SW_HIDE, 0);
    EXPECT_EQ(ui->GetStkList(list, 4), 0);
    ui->ShowWindow(SW_SHOW, 0);
    ASSERT_EQ(ui->GetStkList(list, 4), 1);
    EXPECT_EQ(list[0], tests::SymbolKey(12, 3));
}

TEST_F(HostSide, ShowsPagesByTheMenusNumbers) {
    Start();
    const HWND order_list = ui->GetConditionParentDlg()->GetSafeHwnd();
    ui->ShowWindow_Script(kFirstPage, SW_HIDE);
    EXPECT_FALSE(IsShown(order_list));
    for (const int unknown : {kFirstPage + 40, kFirstPage - 1, 0, INT_MIN, INT_MAX}) {
        ui->ShowWindow_Script(unknown, SW_SHOW);
        EXPECT_FALSE(IsShown(order_list)) << unknown;
    }
    ui->ShowWindow_Script(kFirstPage + 17, SW_SHOW);
    EXPECT_TRUE(IsShown(order_list));
}

TEST_F(HostSide, TellsItsWindows) {
    Start();
    int unused = 5;
    CWnd* const menu = ui->GetMenuCtrl(unused);
    EXPECT_EQ(menu->GetSafeHwnd(), ::GetDlgItem(Main(), 10000));
    EXPECT_EQ(unused, 5);
    const HWND order_page = ui->CreateConditionOrderDlg(frame);
    EXPECT_NE(::GetDlgItem(order_page, CGoldBsDlg::kSubmit), nullptr);
    EXPECT_EQ(ui->GetConditionParentDlg()->GetSafeHwnd(), ::GetParent(order_page));
    EXPECT_EQ(::GetParent(::GetParent(order_page)), Main());
}

TEST_F(HostSide, HandsRefreshesToTheCore) {
    ui->OnRefresh();
    EXPECT_THAT(core.TakeCalls(), ElementsAre("RefreshOrders()"));
    ui->SetUICallBack(nullptr);
    ui->OnRefresh();
    ui->SetFrameWnd(frame);
    EXPECT_EQ(g_hFrameWnd, frame.GetSafeHwnd());
}

}  // namespace
