#include "tests/lists/positions/position_page_stage.h"

// The buttons of the position page that close a part of the selected row.

namespace tests {
namespace {

using Page = CGoldPositionDlg;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNoRow = "平仓1%- 平仓30%- 平仓50%- 平仓70%- 平仓100%-";

class QuickClose : public PositionPage {
protected:
    QuickClose() {
        JSDyn1 quote = MakeQuote(301);
        quote.dBid[0] = 300.98;
        quote.dAsk[0] = 301.02;
        host.SetQuote(kGold, quote);
    }

    void HoldLotsOfGold(int volume, int frozen) {
        CZebPosition gold = MakePosition("Au(T+D)", '0', volume, 300);
        gold.nFrozen = frozen;
        Hold({gold});
    }

    /// What reached the core, one line each: "direction offset lots price type source group".
    std::vector<std::string> Sent() const {
        std::vector<std::string> lines;
        for (const RecordingCore::Insert& insert : core.inserts) {
            const CInsertOrderRequest& request = insert.request;
            char line[128];
            text::FormatText(line, sizeof line, "%c %c %d %s %d %d %d", request.cDirection,
                             request.cOffset, int{request.nVolume}, request.szPrice,
                             insert.price_type, insert.source, int{request.nGroupID});
            lines.emplace_back(line);
        }
        return lines;
    }
};

TEST_F(QuickClose, OffersPartsOfTheSelectedRow) {
    HoldGoldAndSilver();
    EXPECT_GBK_EQ(kNoRow, CloseButtons());
    ClickRow(0);
    EXPECT_GBK_EQ("平仓1手+ 平仓30%- 平仓1手+ 平仓2手+ 平仓3手+", CloseButtons());
    EXPECT_TRUE(Enabled(Page::kStop));
    ClickRow(1);
    EXPECT_GBK_EQ("平仓1手+ 平仓30%- 平仓1手+ 平仓1手+ 平仓2手+", CloseButtons());
    ClickRow(2);
    EXPECT_GBK_EQ(kNoRow, CloseButtons());
    EXPECT_FALSE(Enabled(Page::kStop));
}

TEST_F(QuickClose, FollowsEveryRefresh) {
    HoldLotsOfGold(100, 0);
    ClickRow(0);
    EXPECT_GBK_EQ("平仓1手+ 平仓30手+ 平仓50手+ 平仓70手+ 平仓100手+", CloseButtons());
    HoldLotsOfGold(1, 0);
    EXPECT_GBK_EQ("平仓1手+ 平仓30%- 平仓50%- 平仓70%- 平仓1手+", CloseButtons());
    HoldLotsOfGold(6, 6);
    EXPECT_GBK_EQ("平仓0手- 平仓30%- 平仓50%- 平仓70%- 平仓100%-", CloseButtons());
    EXPECT_TRUE(Enabled(Page::kStop));
    Hold({});
    EXPECT_GBK_EQ(kNoRow, CloseButtons());
    EXPECT_FALSE(Enabled(Page::kStop));
}

TEST_F(QuickClose, TakesTheSelectedRowOfTheListOnShow) {
    HoldGoldAndSilver();
    ClickRow(1);
    ShowLots();
    EXPECT_GBK_EQ("平仓1手+ 平仓30%- 平仓50%- 平仓70%- 平仓1手+", CloseButtons());
    ClickRow(2);
    EXPECT_GBK_EQ("平仓1手+ 平仓30%- 平仓1手+ 平仓1手+ 平仓2手+", CloseButtons());
    ShowLots();
    EXPECT_GBK_EQ(kNoRow, CloseButtons()) << "there is no third total";
}

TEST_F(QuickClose, SendsWhatTheButtonSays) {
    core.trade_param.nClosePriceType = 1;
    core.trade_param.nCloseOverTicks = 2;
    HoldLotsOfGold(10, 0);
    ClickRow(0);
    for (const int id :
         {Page::kClose1, Page::kClose30, Page::kClose50, Page::kClose70, Page::kClose100}) {
        Press(id);
    }
    EXPECT_THAT(Sent(),
                ElementsAre("1 1 1 300.98 1 6 0", "1 1 3 300.98 1 6 0", "1 1 5 300.98 1 6 0",
                            "1 1 7 300.98 1 6 0", "1 1 10 300.98 1 6 0"));
    EXPECT_EQ(BytesOf(core.trade_param), BytesOf(core.inserts[0].param));
    EXPECT_EQ(BytesOf(dialogs.questions[4].request), BytesOf(core.inserts[4].request));
    EXPECT_TRUE(dialogs.questions[0].close);
    EXPECT_GBK_EQ("平仓1手+ 平仓3手+ 平仓5手+ 平仓7手+ 平仓10手+", CloseButtons());
}

TEST_F(QuickClose, TiesTheCloseOfALotToTheLot) {
    core.trade_param.nClosePriceType = 1;
    PositionGroup lot = MakeLot(77, "Au(T+D)", '1', 3, 300);
    lot.cDateType = 2;
    HoldLots({MakeLot(76, "Au(T+D)", '1', 9, 300), lot});
    ShowLots();
    ClickRow(1);
    Press(Page::kClose70);
    EXPECT_THAT(Sent(), ElementsAre("0 2 2 301.00 6 6 77"));
    EXPECT_FALSE(dialogs.questions[0].close);
}

TEST_F(QuickClose, SendsNothingUnlessTheUserAgrees) {
    dialogs.answer = false;
    HoldGoldAndSilver();
    ClickRow(0);
    Press(Page::kClose100);
    ShowLots();
    Press(Page::kClose100);
    EXPECT_EQ(2U, dialogs.questions.size());
    EXPECT_THAT(core.inserts, IsEmpty());
}

TEST_F(QuickClose, SendsWhatWasAskedAboutThoughTheListChanges) {
    HoldGoldAndSilver();
    ClickRow(0);
    dialogs.on_question = [this] { Hold({MakePosition("Ag99.99", '1', 50, 4000)}); };
    Press(Page::kClose100);
    ASSERT_EQ(1U, core.inserts.size());
    EXPECT_STREQ("Au(T+D)", core.inserts[0].request.szContract);
    EXPECT_EQ(3, core.inserts[0].request.nVolume);
}

TEST_F(QuickClose, SendsNothingForAPageThatIsGone) {
    HoldGoldAndSilver();
    ClickRow(0);
    dialogs.on_question = [this] { page.DestroyWindow(); };
    page.CloseTotal(*page.GetPositionAt(0), 1);
    EXPECT_EQ(1U, dialogs.questions.size());
    EXPECT_THAT(core.inserts, IsEmpty());
}

TEST_F(QuickClose, ReadsSettingsAndAccountBeforeItLooksForTheContract) {
    HoldGoldAndSilver();
    ClickRow(0);
    core.ForgetCalls();
    for (const char* const mode : {"totals", "lots"}) {
        SCOPED_TRACE(mode);
        Press(Page::kClose100);
        EXPECT_THAT(core.TakeCalls(),
                    ElementsAre("GetTradeParam()", "GetLoginAccount()", "GetTradeParam()",
                                testing::StartsWith("InsertOrder(")));
        ShowLots();
        core.ForgetCalls();
    }
    CContractManager::ClearContracts();
    Press(Page::kClose100);
    EXPECT_THAT(core.TakeCalls(), ElementsAre("GetTradeParam()", "GetLoginAccount()",
                                              testing::StartsWith("ShowStatusText(")));
}

TEST_F(QuickClose, DoesNotCloseATotalByNothing) {
    HoldGoldAndSilver();
    page.CloseTotal(*page.GetPositionAt(0), 0);
    page.CloseTotal(*page.GetPositionAt(0), -1);
    EXPECT_THAT(dialogs.questions, IsEmpty());
}

TEST_F(QuickClose, SaysWhyItDoesNotCloseAnUnknownContract) {
    HoldGoldAndSilver();
    CContractManager::ClearContracts();
    ClickRow(0);
    core.ForgetCalls();
    Press(Page::kClose100);
    ShowLots();
    Press(Page::kClose100);
    EXPECT_THAT(dialogs.questions, IsEmpty());
    EXPECT_THAT(core.inserts, IsEmpty());
    const std::string line = "ShowStatusText(\"快捷平仓未发送：没有合约Au(T+D)\", 0)";
    EXPECT_THAT(core.CallsOf("ShowStatusText"), ElementsAre(line, line));
}

TEST_F(QuickClose, DoesNothingWithoutSelectionOrDialogs) {
    HoldGoldAndSilver();
    for (const int id : {Page::kClose1, Page::kClose100, Page::kStop}) {
        page.SendMessage(WM_COMMAND, static_cast<WPARAM>(id), 0);
    }
    EXPECT_THAT(dialogs.questions, IsEmpty());
    EXPECT_THAT(dialogs.offered, IsEmpty());
    ClickRow(0);
    page.SetDialogs(nullptr);
    Press(Page::kClose100);
    Press(Page::kStop);
    EXPECT_THAT(core.inserts, IsEmpty());
}

TEST_F(QuickClose, GivesTheKeyboardToTheListWhenAButtonIsDisabled) {
    HoldGoldAndSilver();
    ClickRow(0);
    ::SetFocus(Control(Page::kClose100));
    Hold({});
    EXPECT_EQ(Control(Page::kList), ::GetFocus());
}

}  // namespace
}  // namespace tests
