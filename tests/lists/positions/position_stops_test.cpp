#include "platform/text/gbk.h"
#include "plugin/settings/process_values.h"
#include "tests/lists/positions/position_page_stage.h"

// Stops that are set from the position page.

namespace tests {
namespace {

using Page = CGoldPositionDlg;
using platform::testing::AnswerNextBox;
using platform::testing::SeenBox;
using testing::ElementsAre;
using testing::IsEmpty;

class StopsOfPositions : public PositionPage {
protected:
    StopsOfPositions() {
        dialogs.edit = [](CPresetStop& stop) { stop.dLongStop = 290; };
        CPresetStop stored{};
        stored.dStopTicks = 30;
        core.group_stops[11] = stored;
        HoldGoldAndSilver();
        core.Omit({"IsLoggedIn", "GetSkinBitmap", "GetSkinColor", "GetPanelBackColor",
                   "GetPositionList"});
    }

    std::vector<int> GroupsWithStops() const {
        std::vector<int> groups;
        for (const auto& [group, stop] : core.group_stops) {
            if (stop.dLongStop == 290) groups.push_back(group);
        }
        return groups;
    }
};

TEST_F(StopsOfPositions, StartFromTheLotsAndGoBackToIt) {
    ShowLots();
    ClickRow(0);
    core.ForgetCalls();
    Press(Page::kStop);
    EXPECT_THAT(dialogs.titles, ElementsAre("Au(T+D) 买入方向 设置止盈止损"));
    EXPECT_THAT(dialogs.contracts, ElementsAre("Au(T+D)"));
    ASSERT_EQ(1U, dialogs.offered.size());
    EXPECT_STREQ("SGE", dialogs.offered[0].szExchange);
    EXPECT_STREQ("Au(T+D)", dialogs.offered[0].szContract);
    EXPECT_EQ(30, dialogs.offered[0].dStopTicks);
    EXPECT_THAT(GroupsWithStops(), ElementsAre(11));
    EXPECT_EQ(2U, core.CallsOf("GetPositionDetailList").size()) << "the list is read anew";
}

TEST_F(StopsOfPositions, AreNotStoredWhenTheUserCancels) {
    dialogs.answer = false;
    ShowLots();
    ClickRow(2);
    core.ForgetCalls();
    Press(Page::kStop);
    EXPECT_THAT(dialogs.titles, ElementsAre("Ag99.99 卖出方向 设置止盈止损"));
    EXPECT_THAT(GroupsWithStops(), IsEmpty());
    EXPECT_EQ(2U, core.CallsOf("GetPositionDetailList").size()) << "the list is read anew anyway";
}

TEST_F(StopsOfPositions, OfAnotherContractAreNotStored) {
    dialogs.edit = [](CPresetStop& stop) {
        stop.dLongStop = 290;
        text::CopyText(stop.szContract, "Ag99.99");
    };
    ShowLots();
    ClickRow(0);
    Press(Page::kStop);
    EXPECT_THAT(GroupsWithStops(), IsEmpty());
}

TEST_F(StopsOfPositions, OfATotalGoToAllItsLotsOnceTheUserKnows) {
    PositionGroup bought_later = MakeLot(14, "Au(T+D)", '0', 1, 300);
    PositionGroup sold = MakeLot(15, "Au(T+D)", '1', 1, 300);
    dialogs.on_question = [&] {
        core.position_details.push_back(bought_later);
        core.position_details.push_back(sold);
    };
    ClickRow(0);
    SeenBox box;
    AnswerNextBox(IDYES, &box);
    Press(Page::kStop);
    EXPECT_GBK_EQ("提示", text::GbkFromUtf8(box.title));
    EXPECT_GBK_EQ(
        "在总仓中设置止盈止损，所有的该买卖方向的合约都会具有一样的止盈止损设置。\r\n\r\n"
        "是否继续?",
        text::GbkFromUtf8(box.text));
    EXPECT_THAT(dialogs.titles, ElementsAre("Au(T+D) 买入方向 设置止盈止损"));
    EXPECT_EQ(30, dialogs.offered[0].dStopTicks) << "those of the first lot";
    EXPECT_THAT(GroupsWithStops(), ElementsAre(11, 12, 14));
}

TEST_F(StopsOfPositions, OfATotalStayWhenTheUserDoesNotWantThat) {
    ClickRow(0);
    AnswerNextBox(IDNO);
    Press(Page::kStop);
    EXPECT_THAT(dialogs.titles, IsEmpty());
    dialogs.answer = false;
    AnswerNextBox(IDYES);
    Press(Page::kStop);
    EXPECT_EQ(1U, dialogs.titles.size());
    EXPECT_THAT(GroupsWithStops(), IsEmpty());
}

TEST_F(StopsOfPositions, NeedALotThatThePageHolds) {
    HoldLots({MakeLot(15, "Au(T+D)", '1', 1, 300)});
    core.position_details = {MakeLot(16, "Au(T+D)", '0', 1, 300)};
    ClickRow(0);
    Press(Page::kStop);
    CContractManager::ClearContracts();
    Press(Page::kStop);
    EXPECT_THAT(dialogs.titles, IsEmpty());
    EXPECT_THAT(core.CallsOf("ShowStatusText"), IsEmpty()) << "contract or not, without a word";
}

TEST_F(StopsOfPositions, NeedAContractThatIsKnown) {
    CContractManager::ClearContracts();
    ClickRow(0);
    core.ForgetCalls();
    Press(Page::kStop);
    ShowLots();
    Press(Page::kStop);
    EXPECT_THAT(dialogs.titles, IsEmpty());
    const std::string line = "ShowStatusText(\"止损止盈未设置：没有合约Au(T+D)\", 0)";
    EXPECT_THAT(core.CallsOf("ShowStatusText"), ElementsAre(line, line));
}

TEST_F(StopsOfPositions, AreRefusedWhereTheyAreNotOffered) {
    ClickRow(0);
    g_bNeedShowStopLossAndProfit = 0;
    SeenBox box;
    AnswerNextBox(IDOK, &box);
    Press(Page::kStop);
    EXPECT_TRUE(box.shown);
    EXPECT_GBK_EQ("不支持止损止盈", text::GbkFromUtf8(box.text));
    EXPECT_GBK_EQ("错误", text::GbkFromUtf8(box.title));
    EXPECT_THAT(dialogs.titles, IsEmpty());
}

TEST_F(StopsOfPositions, KeepTheirRowThoughTheListsChange) {
    dialogs.on_question = [this] {
        HoldLots({MakeLot(99, "Ag99.99", '1', 1, 4000)});
        CContractManager::ClearContracts();
    };
    ShowLots();
    ClickRow(0);
    Press(Page::kStop);
    EXPECT_THAT(GroupsWithStops(), ElementsAre(11));
}

TEST_F(StopsOfPositions, SurviveThePageThatAskedForThem) {
    ShowLots();
    ClickRow(0);
    dialogs.on_question = [this] { page.DestroyWindow(); };
    Press(Page::kStop);
    EXPECT_THAT(GroupsWithStops(), IsEmpty());
}

}  // namespace
}  // namespace tests
