#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "orderentry/panel_trade_dlg.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"
#include "tests/pages/layout.h"
#include "tests/pages/page_doubles.h"
#include "tests/pages/test_module.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace {

using testing::ElementsAre;

constexpr char kLoginFace[] = "login";
constexpr char kWorkingFace[] = "working";
constexpr char kLockFace[] = "lock";

/// A panel in a frame.
class PanelTrade : public testing::Test {
protected:
    void Open(bool logged_in) {
        core.logged_in = logged_in;
        panel.Create(CPanelTradeDlg::IDD, &frame);
        panel.ShowWindow(SW_SHOW);
        panel.MoveWindow(0, 0, 280, 480);
        log.calls.clear();
    }

    /// Which pages are visible, as one word; anything between two faces shows as it is.
    std::string Face() {
        const bool login = Shown(PanelPart::kLogin);
        const bool lock = Shown(PanelPart::kLock);
        int working = Shown(PanelPart::kClientRight) + Shown(PanelPart::kWatch);
        for (HWND child = ::GetWindow(panel, GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            const bool own = std::find(std::begin(log.windows), std::end(log.windows), child) ==
                             std::end(log.windows);
            if (own && ::IsWindowVisible(child)) ++working;
        }
        if (login && !lock && working == 0) return kLoginFace;
        if (lock && !login && working == 0) return kLockFace;
        if (!login && !lock && working == 4) return kWorkingFace;
        return "mixed";
    }
    bool Shown(PanelPart part) {
        return ::IsWindowVisible(log.windows[static_cast<int>(part)]) != FALSE;
    }
    CRect PlaceOf(PanelPart part) {
        CRect place;
        ::GetWindowRect(log.windows[static_cast<int>(part)], &place);
        panel.ScreenToClient(&place);
        return place;
    }
    bool TicketEnabled() {
        for (HWND child = ::GetWindow(panel, GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            HWND buy = ::GetDlgItem(child, CPanelBSDlg::kBuy);
            if (buy != nullptr) return ::IsWindowEnabled(buy) != FALSE;
        }
        return false;
    }

    tests::RecordingCore core;
    tests::RecordingHost host;
    tests::FrontEndDoors doors{core, host};
    tests::PageFrame frame;
    tests::PanelPartsDouble::Log log;
    CPanelTradeDlg panel{std::make_unique<tests::PanelPartsDouble>(log)};
};

TEST_F(PanelTrade, OpensWithTheFaceOfTheSession) {
    Open(false);
    EXPECT_EQ(Face(), kLoginFace);
    panel.DestroyWindow();
    Open(true);
    EXPECT_EQ(Face(), kWorkingFace);
}

TEST_F(PanelTrade, StacksItsPagesAndCoversThemByLoginAndLock) {
    Open(true);
    EXPECT_EQ(tests::PlaceText(PlaceOf(PanelPart::kClientRight)), "0,60-280,109");
    EXPECT_EQ(tests::PlaceText(PlaceOf(PanelPart::kWatch)), "0,304-280,480");
    EXPECT_EQ(tests::PlaceText(PlaceOf(PanelPart::kLogin)), "0,0-280,480");
    EXPECT_EQ(tests::PlaceText(PlaceOf(PanelPart::kLock)), "0,0-280,480");
}

TEST_F(PanelTrade, ChangesItsFace) {
    struct Step {
        const char* name;
        bool logged_in;
        void (*act)(CPanelTradeDlg& one);
        const char* face;
    };
    static const auto send = [](CPanelTradeDlg& p, WORD code) {
        p.SendMessage(WM_CORE_EVENT, code, 0);
    };
    const Step steps[] = {
        {"locked", true, [](CPanelTradeDlg& p) { p.ShowLocked(true); }, kLockFace},
        {"unlocked", true, [](CPanelTradeDlg& p) { p.ShowLocked(false); }, kWorkingFace},
        {"logged out", true, [](CPanelTradeDlg& p) { p.ShowLogin(); }, kLoginFace},
        {"loaded", true, [](CPanelTradeDlg& p) { send(p, EV_INITIAL_LOAD_DONE); }, kWorkingFace},
        {"another event", true, [](CPanelTradeDlg& p) { send(p, EV_TRADE_LIST); }, kWorkingFace},
        {"lock message", true, [](CPanelTradeDlg& p) { p.SendMessage(WM_LOCK_PANEL, 3); },
         kLockFace},
        {"cancelled", true, [](CPanelTradeDlg& p) { p.SendMessage(WM_LOCK_PANEL, 1); }, kLockFace},
        {"unlock message", true, [](CPanelTradeDlg& p) { p.SendMessage(WM_LOCK_PANEL, 0); },
         kWorkingFace},
        {"lost", true, [](CPanelTradeDlg& p) { send(p, EV_CONNECTION_LOST); }, kLoginFace},
        // Only the message asks for a session.
        {"unlock message logged out", false,
         [](CPanelTradeDlg& p) { p.SendMessage(WM_LOCK_PANEL, 0); }, kLoginFace},
        {"unlocked logged out", false, [](CPanelTradeDlg& p) { p.ShowLocked(false); },
         kWorkingFace},
    };
    Open(true);
    for (const Step& step : steps) {
        SCOPED_TRACE(step.name);
        core.logged_in = step.logged_in;
        step.act(panel);
        EXPECT_EQ(Face(), step.face);
    }
}

TEST_F(PanelTrade, HandsItsContractToEveryPageAndLetsItGo) {
    Open(true);
    CZebContract contract{};
    text::CopyText(contract.szContract, "Au(T+D)");
    EXPECT_FALSE(TicketEnabled());
    panel.BindContract(12, 1, &contract);
    EXPECT_EQ(panel.Packed(), 12U | 1U << 16);
    EXPECT_TRUE(TicketEnabled());
    panel.BindContract(12, 1, nullptr);
    EXPECT_EQ(panel.Packed(), 12U | 1U << 16);
    EXPECT_FALSE(TicketEnabled());
    panel.BindContract(12, 1, &contract);
    panel.ShowLogin();
    EXPECT_EQ(panel.Packed(), 0U);
    EXPECT_FALSE(TicketEnabled());
    EXPECT_THAT(log.calls,
                ElementsAre("contract Au(T+D)", "no contract", "contract Au(T+D)", "no contract"));
}

TEST_F(PanelTrade, PassesFundsOrdersAndPositionsOn) {
    Open(true);
    panel.ShowFunds(3, 2.5, -1);
    panel.ShowOrders(nullptr, 4);
    panel.SendMessage(WM_CORE_EVENT, EV_POSITION_LIST, 0);
    EXPECT_THAT(log.calls, ElementsAre("funds 2.500000 -1.000000", "orders 4", "positions"));
    EXPECT_NE(log.receiver, nullptr);
}

}  // namespace
