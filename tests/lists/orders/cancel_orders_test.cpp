#include <atomic>
#include <functional>
#include <thread>

#include "platform/text/gbk.h"
#include "tests/lists/orders/order_page_stage.h"

namespace tests {
namespace {

using platform::testing::AnswerNextBox;
using platform::testing::PumpFor;
using platform::testing::SeenBox;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr DWORD kRefreshMillis = 1500;

class CancelOrders : public OrderPage {
protected:
    enum class Answer { kNone, kYes, kNo };

    /// The user's next answer; nothing is asked if that is expected to be so.
    void WillAnswer(Answer answer) {
        box_ = {};
        if (answer != Answer::kNone) AnswerNextBox(answer == Answer::kYes ? IDYES : IDNO, &box_);
    }
    void ExpectQuestion(bool asked, const char* question) {
        EXPECT_EQ(asked, box_.shown);
        if (!asked) return;
        EXPECT_GBK_EQ("提示", text::GbkFromUtf8(box_.title));
        EXPECT_GBK_EQ(question, text::GbkFromUtf8(box_.text));
    }
    std::size_t Refreshes() { return core_.CallsOf("RefreshOrders").size(); }
    /// Before the user answers, `event` happens.
    void MeanwhileDo(std::function<void()> event) {
        meanwhile_ = std::move(event);
        platform::testing::WhenIdle(
            [](void* test) { static_cast<CancelOrders*>(test)->meanwhile_(); }, this);
    }

    SeenBox box_;

private:
    std::function<void()> meanwhile_;
};

TEST_F(CancelOrders, OneByEveryWayUnderEverySettingStatusAndAnswer) {
    const struct {
        char status;
        bool cancellable;
    } kStatuses[] = {{'0', true},  {'1', true},  {'2', true},  {'3', false},
                     {'4', false}, {'5', false}, {'6', false}, {'7', false},
                     {'e', false}, {'p', false}, {'x', false}, {'\0', false}};
    const struct {
        int no_question;
        Answer answer;
        bool sent;
    } kAnswers[] = {{0, Answer::kYes, true},
                    {0, Answer::kNo, false},
                    {1, Answer::kNone, true},
                    {-1, Answer::kNone, true}};
    const std::function<void()> kWays[] = {
        [this] { DoubleClick(1); },
        [this] {
            Click(1);
            Press(CGoldOrderDlg::kCancel);
        },
        [this] {
            Click(1);
            platform::testing::Key(VK_RETURN);
        },
    };
    for (const auto& [status, cancellable] : kStatuses) {
        Show({MakeOrder("9", '0'), MakeOrder("8", status), MakeOrder("7", '0')});
        for (const auto& [no_question, answer, sent] : kAnswers) {
            for (const auto& cancel : kWays) {
                SCOPED_TRACE(testing::Message() << status << " " << no_question << " " << sent);
                core_.trade_param.bNoCancelConfirm = no_question;
                core_.ForgetCalls();
                WillAnswer(cancellable ? answer : Answer::kNone);
                cancel();
                ExpectQuestion(cancellable && no_question == 0, "确定要手动撤单？");
                if (!cancellable) {
                    EXPECT_THAT(core_.Calls(), IsEmpty());
                } else if (sent) {
                    EXPECT_THAT(
                        core_.Calls(),
                        ElementsAre("GetTradeParam()", "CancelOrder(8, \"8\", \"WY: 手动撤单\", 7)",
                                    "ShowStatusText(\"WY: 手动撤单\", 3013)"));
                } else {
                    EXPECT_THAT(core_.Calls(), ElementsAre("GetTradeParam()"));
                }
                PumpFor(2 * kRefreshMillis);
                EXPECT_EQ(cancellable && sent ? 1U : 0U, Refreshes());
            }
        }
    }
}

TEST_F(CancelOrders, WithAQuestionOfYesAndNoAndNothingElse) {
    Show({MakeOrder("9", '0')});
    for (const bool all : {false, true}) {
        int parts = 0;
        MeanwhileDo([&parts] {
            const HWND box = ::GetActiveWindow();
            EXPECT_NE(nullptr, ::GetDlgItem(box, IDNO));
            EXPECT_EQ(::GetDlgItem(box, IDYES), ::GetFocus());
            for (HWND part = ::GetWindow(box, GW_CHILD); part != nullptr;
                 part = ::GetWindow(part, GW_HWNDNEXT)) {
                if (::IsWindowVisible(part)) ++parts;
            }
        });
        AnswerNextBox(IDNO);
        all ? page_.CancelAll() : page_.CancelRow(0);
        EXPECT_EQ(3, parts) << "both buttons and the text";
    }
}

TEST_F(CancelOrders, AllThatCanBeInTheOrderOfTheList) {
    const struct {
        int no_question;
        Answer answer;
        bool sent;
    } kAnswers[] = {{0, Answer::kYes, true}, {0, Answer::kNo, false}, {1, Answer::kNone, true}};
    Show({MakeOrder("5", '0'), MakeOrder("6", '1'), MakeOrder("7", '2'), MakeOrder("8", '3'),
          MakeOrder("9", 'e')});
    for (const auto& [no_question, answer, sent] : kAnswers) {
        core_.trade_param.bNoCancelConfirm = no_question;
        core_.ForgetCalls();
        WillAnswer(answer);
        Press(CGoldOrderDlg::kCancelAll);
        ExpectQuestion(no_question == 0, "确定要全部撤单？");
        if (sent) {
            constexpr char kNote[] = "ShowStatusText(\"WY：手动撤单\", 3013)";
            EXPECT_THAT(core_.Calls(),
                        ElementsAre("GetTradeParam()", "CancelOrder(7, \"7\", \"WY：手动撤单\", 7)",
                                    kNote, "CancelOrder(6, \"6\", \"WY：手动撤单\", 7)", kNote,
                                    "CancelOrder(5, \"5\", \"WY：手动撤单\", 7)", kNote));
        } else {
            EXPECT_THAT(core_.Calls(), ElementsAre("GetTradeParam()"));
        }
        PumpFor(2 * kRefreshMillis);
        EXPECT_EQ(sent ? 1U : 0U, Refreshes());
    }
}

TEST_F(CancelOrders, NothingWhereThereIsNothingToCancel) {
    page_.CancelAll();
    page_.CancelRow(0);
    Show({MakeOrder("5", '3'), MakeOrder("6", '4')});
    page_.CancelAll();
    for (const int row : {-1, 0, 1, 2, 3, 1 << 30}) page_.CancelRow(row);
    PumpFor(2 * kRefreshMillis);
    EXPECT_THAT(core_.Calls(), IsEmpty());
}

TEST_F(CancelOrders, HandsTheCoreTheWholeRecord) {
    CZebOrder order = MakeOrder("41", '1');
    std::fill(std::begin(order.szOrderRef), std::end(order.szOrderRef), '4');  // to the last byte
    order.reserved432[0] = 'r';
    core_.trade_param.bNoCancelConfirm = 1;
    Show({order});
    DoubleClick(0);
    ASSERT_EQ(1U, core_.cancels.size());
    const auto bytes = [](const CZebOrder& record) {
        return std::string(reinterpret_cast<const char*>(&record), sizeof record);
    };
    EXPECT_TRUE(bytes(order) == bytes(core_.cancels[0].order));
    EXPECT_EQ(std::string(sizeof order.szOrderRef, '4'), core_.cancels[0].order_ref);
}

TEST_F(CancelOrders, AsksForTheListOnceAWhileAfterTheLastCancel) {
    core_.trade_param.bNoCancelConfirm = 1;
    Show({MakeOrder("8", '0'), MakeOrder("7", '0')});
    page_.CancelRow(0);
    PumpFor(kRefreshMillis - 100);
    page_.CancelRow(1);
    PumpFor(kRefreshMillis - 100);
    page_.CancelAll();
    PumpFor(kRefreshMillis - 20);
    page_.SendMessage(WM_TIMER, 2);  // none of the page's
    EXPECT_EQ(0U, Refreshes());
    PumpFor(100);
    EXPECT_EQ(1U, Refreshes());
    PumpFor(10 * kRefreshMillis);
    EXPECT_EQ(1U, Refreshes());
}

TEST_F(CancelOrders, TheOneThatWasPointedAtWhateverBecomesOfTheRow) {
    const std::vector<CZebOrder> kLater[] = {
        {},                                           // the list is empty
        {MakeOrder("9", '0')},                        // the row is gone
        {MakeOrder("10", '0'), MakeOrder("9", '0')},  // another one stands there
        {MakeOrder("9", '0'), MakeOrder("8", '3')},   // it is filled
    };
    for (const auto& later : kLater) {
        Show({MakeOrder("9", '0'), MakeOrder("8", '0')});
        MeanwhileDo([&] { Show(later); });
        AnswerNextBox(IDYES);
        DoubleClick(1);
        EXPECT_THAT(core_.CallsOf("CancelOrder"),
                    ElementsAre("CancelOrder(8, \"8\", \"WY: 手动撤单\", 7)"));
        PumpFor(2 * kRefreshMillis);
    }
}

TEST_F(CancelOrders, AllThatAreThereWhenTheUserAnswers) {
    Show({MakeOrder("9", '0'), MakeOrder("8", '0')});
    MeanwhileDo([this] { Show({MakeOrder("9", '3'), MakeOrder("8", '0'), MakeOrder("7", '0')}); });
    AnswerNextBox(IDYES);
    Press(CGoldOrderDlg::kCancelAll);
    EXPECT_THAT(core_.CallsOf("CancelOrder"),
                ElementsAre("CancelOrder(8, \"8\", \"WY：手动撤单\", 7)",
                            "CancelOrder(7, \"7\", \"WY：手动撤单\", 7)"));
}

TEST_F(CancelOrders, NoneOfAllWhenNoneIsLeftButAsksForTheListStill) {
    Show({MakeOrder("9", '0')});
    MeanwhileDo([this] { Show({MakeOrder("9", '3')}); });
    AnswerNextBox(IDYES);
    page_.CancelAll();
    EXPECT_THAT(core_.Calls(), IsEmpty());
    PumpFor(2 * kRefreshMillis);
    EXPECT_THAT(core_.Calls(), ElementsAre("RefreshOrders()"));
}

TEST_F(CancelOrders, AllEvenIfTheCoreSendsAnotherListMeanwhile) {
    core_.trade_param.bNoCancelConfirm = 1;
    Show({MakeOrder("9", '0'), MakeOrder("8", '0'), MakeOrder("7", '0')});
    core_.on_call = [this](std::string_view line) {
        if (!line.starts_with("CancelOrder")) return;
        core_.orders.assign(200, MakeOrder("1", '3'));
        page_.Refresh(true);
    };
    Press(CGoldOrderDlg::kCancelAll);
    EXPECT_EQ(3U, core_.CallsOf("CancelOrder").size());
}

TEST_F(CancelOrders, KeepsOtherThreadsOffTheListUntilAllIsSent) {
    core_.trade_param.bNoCancelConfirm = 1;
    Show({MakeOrder("9", '0'), MakeOrder("8", '0')});
    COwerDrawListView& list = List();
    std::atomic<int> readers = 0;
    std::atomic<bool> came_in = false;
    std::thread reader;
    // The painter of a row that is not there takes the lock and lets it go.
    const auto read = [&] {
        RECT rect{};
        ++readers;
        list.m_pfnDrawCell(nullptr, -1, 0, &rect, nullptr, nullptr, list.m_pContext);
        came_in = true;
    };
    core_.on_call = [&](std::string_view line) {
        if (!line.starts_with("CancelOrder")) return;
        if (!reader.joinable()) {
            reader = std::thread(read);
            while (readers == 0) std::this_thread::yield();
        }
        for (int turn = 0; turn < 1000 && !came_in; ++turn) std::this_thread::yield();
        EXPECT_FALSE(came_in);
    };
    for (const bool all : {false, true}) {
        readers = 0;
        came_in = false;
        all ? page_.CancelAll() : page_.CancelRow(0);
        ASSERT_TRUE(reader.joinable());
        reader.join();
        EXPECT_TRUE(came_in);
    }
}

TEST_F(CancelOrders, NothingWhenThePageGoesDuringTheQuestion) {
    for (const bool all : {false, true}) {
        Show({MakeOrder("9", '0')});
        MeanwhileDo([this] { page_.DestroyWindow(); });
        AnswerNextBox(IDYES);
        if (all) {
            Press(CGoldOrderDlg::kCancelAll);
        } else {
            DoubleClick(0);
        }
        EXPECT_THAT(core_.CallsOf("CancelOrder"), IsEmpty());
        page_.Create(CGoldOrderDlg::IDD, &frame_);
        page_.MoveWindow(0, 0, 900, 300);
        page_.ShowToolbar(true);
        page_.ShowWindow(SW_SHOW);
        platform::testing::Pump();
    }
}

}  // namespace
}  // namespace tests
