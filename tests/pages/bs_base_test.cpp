#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "orderentry/gold_bs_base_dlg.h"
#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"
#include "plugin/settings/process_values.h"
#include "tests/pages/layout.h"
#include "tests/pages/page_doubles.h"
#include "tests/pages/test_module.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CZebContract Contract(const char* code) {
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, code);
    return contract;
}

/// The page of order and lists in a frame, with a core that knows two contracts.
class BSBase : public testing::Test {
protected:
    BSBase() {
        core.contracts = {Contract("Au(T+D)"), Contract("Ag(T+D)")};
        au = static_cast<unsigned>(host.AddSymbol("Au(T+D)", 12, 1, 2));
        ag = static_cast<unsigned>(host.AddSymbol("Ag(T+D)", 12, 2, 0));
        page.Create(CGoldBSBaseDlg::IDD, &frame);
        page.ShowWindow(SW_SHOW);
        page.MoveWindow(0, 0, 900, 300);
    }
    ~BSBase() override {
        g_hFrameWnd = nullptr;
        CContractManager::ClearContracts();
    }

    std::string OfferedContracts() {
        HWND list = ::GetDlgItem(page.OrderPage(), CGoldBsDlg::kContract);
        std::string offered;
        const LRESULT count = ::SendMessageA(list, CB_GETCOUNT, 0, 0);
        for (LRESULT item = 0; item < count; ++item) {
            char text[64] = "";
            ::SendMessageA(list, CB_GETLBTEXT, static_cast<WPARAM>(item),
                           reinterpret_cast<LPARAM>(text));
            offered += std::string(text) + ";";
        }
        return offered;
    }
    void Choose(int item) {
        HWND list = ::GetDlgItem(page.OrderPage(), CGoldBsDlg::kContract);
        ::SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(item), 0);
        ::SendMessageA(page.OrderPage(), WM_COMMAND,
                       MAKEWPARAM(CGoldBsDlg::kContract, CBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(list));
    }

    tests::RecordingCore core;
    tests::RecordingHost host;
    tests::FrontEndDoors doors{core, host};
    tests::PageFrame frame;
    tests::ReportDouble report;
    CGoldBSBaseDlg page{report};
    unsigned au = 0;
    unsigned ag = 0;
};

TEST_F(BSBase, PutsTheOrderPageAtTheLeftAndTheListsInTheRest) {
    CRect order;
    CRect lists;
    page.OrderPage().GetWindowRect(&order);
    report.Window().GetWindowRect(&lists);
    page.ScreenToClient(&order);
    page.ScreenToClient(&lists);
    EXPECT_EQ(tests::PlaceText(order), "0,4-220,300");
    EXPECT_EQ(tests::PlaceText(lists), "220,2-720,300");
    EXPECT_TRUE(page.OrderPage().IsWindowVisible());
    EXPECT_EQ(report.receiver, page.OrderPage().m_hWnd);
    EXPECT_EQ(report.source, &page);
}

TEST_F(BSBase, ShowsTheFiveLevelsUntilTheListsTakeTheirPlace) {
    const auto place_of = [&](CWnd& window) {
        CRect place;
        window.GetWindowRect(&place);
        page.ScreenToClient(&place);
        return tests::PlaceText(place);
    };
    EXPECT_TRUE(page.FiveLevels().IsWindowVisible());
    EXPECT_EQ(place_of(page.FiveLevels()), "720,2-900,300");
    page.SetPage(4);
    EXPECT_TRUE(page.FiveLevels().IsWindowVisible());
    for (const int list : {0, 1, 2, 3, 17}) {
        page.SetPage(list);
        EXPECT_FALSE(page.FiveLevels().IsWindowVisible()) << list;
        EXPECT_EQ(place_of(report.Window()), "220,2-900,300") << list;
        page.ShowFiveLevels();
        EXPECT_TRUE(page.FiveLevels().IsWindowVisible()) << list;
        EXPECT_EQ(place_of(report.Window()), "220,2-720,300") << list;
    }
}

TEST_F(BSBase, KnowsNoContractBeforeTheyAreLoaded) {
    EXPECT_EQ(page.FindContractByCode("Au(T+D)"), nullptr);
    EXPECT_EQ(page.FindContractBySymbol(au), nullptr);
    EXPECT_EQ(OfferedContracts(), "");
}

TEST_F(BSBase, LoadsTheContractsInTheCoresOrder) {
    page.LoadContracts();
    EXPECT_EQ(OfferedContracts(), "Au(T+D);Ag(T+D);");
    EXPECT_STREQ(page.FindContractByCode("Ag(T+D)")->szContract, "Ag(T+D)");
    EXPECT_STREQ(page.FindContractBySymbol(ag)->szContract, "Ag(T+D)");
    EXPECT_EQ(page.FindContractByCode("ag(t+d)"), nullptr);
    EXPECT_EQ(page.FindContractBySymbol(ag + 1), nullptr);
    ASSERT_NE(CContractManager::FindContract("Au(T+D)"), nullptr);
    EXPECT_NE(CContractManager::FindContract("Au(T+D)"), page.FindContractByCode("Au(T+D)"));
    EXPECT_EQ(page.OrderPage().Contract(), nullptr);
}

TEST_F(BSBase, LetsAllOldContractsGoWhenTheyAreLoadedAgain) {
    page.LoadContracts();
    page.OrderPage().SetContract(page.FindContractByCode("Ag(T+D)"));
    core.contracts = {Contract("mAu(T+D)")};
    page.LoadContracts();
    EXPECT_EQ(OfferedContracts(), "mAu(T+D);");
    EXPECT_EQ(page.OrderPage().Contract(), nullptr);
    EXPECT_EQ(page.FindContractByCode("Ag(T+D)"), nullptr);
    EXPECT_EQ(CContractManager::FindContract("Ag(T+D)"), nullptr);
}

TEST_F(BSBase, TakesAContractFromTheHostWithoutTellingItBack) {
    page.LoadContracts();
    page.OrderPage().SetContract(page.FindContractBySymbol(ag));
    EXPECT_STREQ(page.OrderPage().Contract()->szContract, "Ag(T+D)");
    EXPECT_THAT(host.CallsOf("HOST_SUBSCRIBE"), IsEmpty());
    page.OrderPage().SetContract(nullptr);
    EXPECT_STREQ(page.OrderPage().Contract()->szContract, "Ag(T+D)");
    Choose(0);
    EXPECT_STREQ(page.OrderPage().Contract()->szContract, "Au(T+D)");
    EXPECT_EQ(host.CallsOf("HOST_SUBSCRIBE").size(), 1U);
}

TEST_F(BSBase, TellsTheFrameOfEachChangeOfContract) {
    page.LoadContracts();
    g_hFrameWnd = frame;
    Choose(1);
    MSG message{};
    ASSERT_TRUE(::PeekMessageA(&message, frame, WM_FRAME_NOTICE, WM_FRAME_NOTICE, PM_REMOVE));
    EXPECT_EQ(message.wParam, static_cast<WPARAM>(kFrameReady));
    EXPECT_EQ(message.lParam, 0);
    EXPECT_FALSE(::PeekMessageA(&message, frame, WM_FRAME_NOTICE, WM_FRAME_NOTICE, PM_REMOVE));
}

TEST_F(BSBase, AnswersTheHostsQuestionForItsContract) {
    page.LoadContracts();
    char answer[64] = "untouched";
    const auto ask = [&](WPARAM selector) {
        page.OrderPage().SendMessage(WM_QUERY_CONTRACT, selector, reinterpret_cast<LPARAM>(answer));
    };
    ask(kQueryContractText);
    EXPECT_STREQ(answer, "untouched");
    Choose(0);
    ask(1);
    EXPECT_STREQ(answer, "untouched");
    ask(kQueryContractText);
    EXPECT_STREQ(answer, "SGE|Au(T+D)");
}

TEST_F(BSBase, HandsPagesAndQuotesToTheLists) {
    page.SetPage(17);
    page.OnQuote(au, JSDyn1{});
    EXPECT_THAT(report.calls, ElementsAre("page 17", "quote " + std::to_string(au)));
}

TEST_F(BSBase, StaysOpenOnEnterAndEscape) {
    page.OrderPage().SetFocus();
    platform::testing::Key(VK_RETURN);
    platform::testing::Key(VK_ESCAPE);
    EXPECT_TRUE(page.IsWindowVisible());
    EXPECT_TRUE(page.OrderPage().IsWindowVisible());
}

}  // namespace
