#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <future>
#include <limits>
#include <memory>
#include <string>
#include <variant>

#include "platform/text/bounded_text.h"
#include "tests/papercore/paper_core_fixture.h"
#include "tests/support/gbk_text.h"

// What comes at the wrong time, what fails, and what nobody waits for.

namespace {

using namespace papercore_tests;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

template <class Kind>
std::ptrdiff_t CountFacts(const std::vector<Fact>& facts) {
    return std::ranges::count_if(
        facts, [](const Fact& fact) { return std::holds_alternative<Kind>(fact); });
}

CChangePasswordRequest NewPassword(const char* before, const char* after) {
    CChangePasswordRequest request{};
    text::CopyText(request.szOldPassword, before);
    text::CopyText(request.szNewPassword, after);
    return request;
}

TEST_F(PaperCoreTest, ALogoutDuringALoginEndsIt) {
    for (const char* moment : {"prompt 2 ", "prompt 10", "login demo ok", "prompt 21"}) {
        ui_.on_line = [&](const std::string& line) {
            if (line.starts_with(moment)) core_->Logout();
        };
        core_->Login("demo", "secret", nullptr, nullptr);
        EXPECT_THAT(Told().back(), StartsWith(moment)) << "nothing comes behind it";
        EXPECT_FALSE(core_->IsLoggedIn()) << moment;
        EXPECT_EQ(core_->GetContractList(nullptr, 0), 0) << moment;
    }
    ui_.on_line = {};
    core_->Login("demo", "secret", nullptr, nullptr);
    core_->Logout();
    core_->Login("demo", "secret", nullptr, nullptr);
    EXPECT_THAT(Told(), Contains(StartsWith("prompt 22")));
    EXPECT_TRUE(core_->IsLoggedIn()) << "the login behind the logout counts";
}

TEST_F(PaperCoreTest, WithoutASessionNothingIsTradedOrChanged) {
    LogIn();
    core_->Logout();
    Order('0', '0', "900.00", 1);
    EXPECT_THAT(Told(), ElementsAre(StartsWith("insert refused: 尚未登录")));
    EXPECT_TRUE(core_->Look().orders->empty());
    CChangePasswordRequest request = NewPassword("secret", "other");
    core_->ChangePassword(&request, 0);
    Quiet();
    EXPECT_EQ(CountFacts<PasswordChanged>(store_->facts), 0);
}

TEST_F(PaperCoreTest, WhatWasSetLastIsReadWhileEarlierCallsAreKept) {
    LogIn();
    std::promise<void> go;
    std::shared_future<void> gone(go.get_future());
    ui_.on_line = [gone](const std::string& line) {
        if (line == "account") gone.wait();
    };
    std::vector<int> read;
    store_->on_append = [&] {
        CTradeParam param{};
        core_->GetTradeParam(&param);
        CPresetStop stop{};
        core_->GetPresetStop("SGE", kGold, &stop);
        read.push_back(param.nOverTicks * 10 + static_cast<int>(stop.dStopTicks));
    };
    core_->QueryAccount(0);
    for (const int ticks : {1, 2, 1}) {
        CTradeParam param{};
        param.nOverTicks = ticks;
        core_->SetTradeParam(&param);
        CPresetStop stop{};
        stop.dStopTicks = ticks;
        core_->SetPresetStop("SGE", kGold, &stop);
    }
    go.set_value();
    Quiet();
    EXPECT_THAT(read, ElementsAre(11, 11, 11, 11, 11, 11));
}

TEST_F(PaperCoreTest, WhatCouldNotBeKeptIsNeverTold) {
    LogIn();
    Order('0', '0', "890.00", 1);
    Told();
    const std::string funds = ui_.LastFunds();
    store_->fails = true;
    Order('0', '0', "900.00", 1);
    Told();
    store_->fails = false;
    core_->QueryAccount(0);
    EXPECT_THAT(Told(), ElementsAre("account"));
    EXPECT_EQ(ui_.LastFunds(), funds) << "without the order that was lost";
    core_->QueryTradeByDate(0, 99999999, 0);
    EXPECT_THAT(Told(), ElementsAre("past nothing last"));
    for (const char* ref : {"1", "2"}) {
        core_->CancelOrder(nullptr, ref, nullptr, 1);
        EXPECT_THAT(Told(), ElementsAre(HasSubstr("cancel refused: 账户文件无法写入"))) << ref;
    }
    CQueryMaxVolume query{};
    text::CopyText(query.szContract, kGold);
    query.cDirection = query.cOffset = '0';
    core_->QueryMaxVolume(&query, 0);
    EXPECT_THAT(Told(), ElementsAre("most Au(T+D) 048 0"));
    CPresetStop stop{};
    core_->SetGroupStop(1, &stop);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("notice 账户文件无法写入")));
    core_->SetPresetStop("SGE", kGold, &stop);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("notice 账户文件无法写入")));
    CTradeParam param{};
    core_->SetTradeParam(&param);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("notice 账户文件无法写入")));
    CChangePasswordRequest request = NewPassword("secret", "other");
    core_->ChangePassword(&request, 0);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("password refused: 账户文件无法写入")));
    core_->OnQuote(GoldQuote(700, 701));
    core_->OnDayEnd({0, kDay, kDay + 1, {}});
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(core_->Look().orders->size(), 1u);
    core_->Login("demo", "secret", nullptr, nullptr);
    EXPECT_THAT(Told().back(), HasSubstr("refused: 账户文件无法使用：disk full"));
}

TEST_F(PaperCoreTest, AFirstLoginThatCouldNotBeKeptIsRefused) {
    store_->fails = true;
    core_->Login("demo", "secret", nullptr, nullptr);
    EXPECT_THAT(Told().back(), HasSubstr("refused: 账户文件无法使用：disk full"));
    EXPECT_FALSE(core_->IsLoggedIn());
}

TEST_F(PaperCoreTest, NoHashMeansNoLogin) {
    no_hash_ = true;
    core_->Login("demo", "secret", nullptr, nullptr);
    EXPECT_THAT(Told().back(), HasSubstr("login demo refused"));
    EXPECT_THAT(store_->facts, IsEmpty());
    no_hash_ = false;
    core_->Login("demo", "a password of more than 32 bytes..", nullptr, nullptr);
    EXPECT_THAT(Told().back(), HasSubstr("密码过长"));
    LogIn();
    no_hash_ = true;
    CChangePasswordRequest request = NewPassword("secret", "other");
    core_->ChangePassword(&request, 0);
    EXPECT_THAT(Told(), ElementsAre(StartsWith("password refused")));
    core_->Login("demo", "anything", nullptr, nullptr);
    EXPECT_THAT(Told().back(), HasSubstr("login demo refused"));
    EXPECT_FALSE(core_->IsLoggedIn());
}

// The one test that waits for real time: a second, which is the core's own pause.
TEST_F(PaperCoreTest, ABurstOfPricesIsToldOnceAndEndsWithTheLastOne) {
    LogIn();
    CPresetStop stop{};
    stop.dStopTicks = 1000;
    stop.dStopFloat = 10;
    core_->SetPresetStop("SGE", kGold, &stop);
    Order('0', '0', "900.00", 1);
    Told();
    for (int step = 0; step <= 50; ++step) {
        core_->OnQuote(GoldQuote(900.00 + step * 0.1, 900.05 + step * 0.1));
    }
    EXPECT_THAT(Told(), Not(Contains("orders"))) << "nothing but prices moved";
    // Gathered in a new list, as Told took what came before.
    ASSERT_TRUE(ui_.WaitFor("account"));
    EXPECT_THAT(Told(), ElementsAre("groups", "account"));
    EXPECT_EQ(ui_.LastFunds(), "1004865.00 144000.00 0.00 855865.00");
    EXPECT_EQ(core_->Look().funds.balance, 100'486'500);
    PositionGroup lot{};
    ASSERT_EQ(core_->GetPositionDetailList(&lot, 1), 1);
    EXPECT_EQ(lot.dFloatBase, 905.00) << "the best price so far, kept before it is shown";
    EXPECT_GT(CountFacts<FloatBaseMoved>(store_->facts), 0);
}

TEST_F(PaperCoreTest, AnOrderOfAStopIsCancelledFromTheList) {
    LogIn();
    CPresetStop stop{};
    stop.dStopTicks = 10;
    core_->SetPresetStop("SGE", kGold, &stop);
    Order('0', '0', "900.00", 2);
    Quote nobody = GoldQuote(899.80, 899.85);
    nobody.bid[0] = {};
    core_->OnQuote(nobody);
    Told();
    CZebOrder orders[2];
    ASSERT_EQ(core_->GetOrderList(orders, 2), 2);
    EXPECT_EQ(orders[1].nSession, -1);
    EXPECT_EQ(orders[1].cStatus, '1');
    // A caller may have no more of the record than a trade's worth of bytes.
    const auto part = std::make_unique<char[]>(824);
    std::memcpy(part.get(), &orders[1], 824);
    auto* const order = reinterpret_cast<CZebOrder*>(part.get());
    core_->CancelOrder(order, order->szOrderRef, nullptr, orders[1].nSession);
    EXPECT_THAT(Told(), ElementsAre("order 2 4 0/2", "orders", "positions", "groups", "account"));
    PositionGroup lot{};
    ASSERT_EQ(core_->GetPositionDetailList(&lot, 1), 1);
    EXPECT_EQ(lot.dStopLoss, 0) << "the strategy has fired and protects nothing any more";
    CPresetStop left{};
    core_->GetGroupStop(lot.nGroupID, &left);
    EXPECT_EQ(left.dStopTicks, 0);
}

TEST_F(PaperCoreTest, SleepingStopsAreStartedAfterALoginOnly) {
    LogIn();
    CTradeParam param{};
    core_->GetTradeParam(&param);
    param.nValidity = 1;
    core_->SetTradeParam(&param);
    CPresetStop stop{};
    stop.dStopTicks = 10;
    core_->SetPresetStop("SGE", kGold, &stop);
    Order('0', '0', "900.00", 2);
    core_->OnDayEnd({1'767'601'000'000, kDay, kDay + 1, {{kGold, PriceFromYuan(900.00)}}});
    Quiet();
    core_->Logout();
    core_->StartStopMonitor();
    Quote low = GoldQuote(899.00, 899.05);
    low.trading_day = kDay + 1;
    core_->OnQuote(low);
    Quiet();
    EXPECT_EQ(core_->Look().lots->size(), 1u) << "still asleep";
    core_->Login("demo", "secret", nullptr, nullptr);
    ASSERT_TRUE(ui_.WaitFor("prompt 22"));
    core_->OnQuote(low);
    Quiet();
    EXPECT_EQ(core_->Look().lots->size(), 1u) << "nobody started it";
    core_->StartStopMonitor();
    core_->OnQuote(low);
    Quiet();
    EXPECT_EQ(core_->Look().lots->size(), 0u);
}

TEST_F(PaperCoreTest, BestPricesAreToldWithTheOrderThatTheyAreKeptWith) {
    LogIn();
    CPresetStop stop{};
    stop.dStopTicks = 1000;
    stop.dStopFloat = 10;
    core_->SetPresetStop("SGE", kGold, &stop);
    Order('0', '0', "900.00", 1);
    Told();
    core_->OnQuote(GoldQuote(901.00, 901.05));
    Order('0', '0', "890.00", 1);
    EXPECT_THAT(Told(), Contains("groups"));
    PositionGroup lot{};
    ASSERT_EQ(core_->GetPositionDetailList(&lot, 1), 1);
    EXPECT_EQ(lot.dFloatBase, 901.00);
}

TEST_F(PaperCoreTest, NumbersOfTenDigitsAreCancelledToo) {
    State state;
    state.last_order = 1'500'000'000;
    Make(std::move(state));
    LogIn();
    Order('0', '0', "890.00", 1);
    EXPECT_THAT(Told(), Contains("order 1500000001 1 0/1"));
    core_->CancelOrder(nullptr, "1500000001", nullptr, 1);
    EXPECT_THAT(Told(), Contains("order 1500000001 4 0/1"));
    core_->CancelOrder(nullptr, "\xB0", nullptr, 1);
    EXPECT_THAT(Told(), ElementsAre("cancel refused: 委托不存在，不能撤单")) << "no half character";
}

TEST_F(PaperCoreTest, TextsThatEndInHalfACharacterLoseTheHalf) {
    LogIn();
    CInsertOrderRequest request{};
    text::CopyText(request.szContract, kGold);
    text::CopyText(request.szPrice, "890.00");
    std::memset(request.szNote, 'n', sizeof request.szNote);
    request.szNote[sizeof request.szNote - 1] = '\xB0';
    request.cDirection = request.cOffset = '0';
    request.nVolume = 1;
    core_->InsertOrder(&request, nullptr, 6, 1);
    EXPECT_THAT(Told(), Contains("insert ok"));
    const auto& accepted = std::get<OrderAccepted>(store_->facts.back());
    EXPECT_EQ(accepted.order.note, std::string(23, 'n'));
    EXPECT_EQ(accepted.order.request[123], '\xB0') << "the request itself stays whole";
    core_->Login("other\xB0", "secret", nullptr, nullptr);
    EXPECT_THAT(Told().back(), HasSubstr("不能用于other"));
}

TEST_F(PaperCoreTest, TheMarketIsClosedBetweenTheDays) {
    LogIn();
    core_->SendFunctionRequest(kFunctionMarketState, "SGE|Au(T+D)");
    core_->OnDayEnd({0, kDay, kDay + 1, {{kGold, PriceFromYuan(900)}}});
    core_->SendFunctionRequest(kFunctionMarketState, "SGE|Au(T+D)|");
    const Lines told = Told();
    EXPECT_EQ(told.front(), "function 6027 ok 0|0|0|Y|SGE|Au(T+D)|1|");
    EXPECT_EQ(told.back(), "function 6027 ok 0|0|0|Y|SGE|Au(T+D)|2|") << "no quote of that day yet";
}

TEST_F(PaperCoreTest, ALogoutForgetsTheListsThatWerePromised) {
    LogIn();
    for (int order = 0; order < 3; ++order) Order('0', '0', "890.00", 1);
    Quiet();
    EXPECT_EQ(core_->GetOrderList(nullptr, 0), 3);
    core_->Logout();
    CZebOrder records[8];
    EXPECT_EQ(core_->GetOrderList(records, 8), 0);
    core_->OnDayEnd({0, kDay, kDay + 1, {}});
    core_->Login("demo", "secret", nullptr, nullptr);
    Quiet();
    EXPECT_EQ(core_->GetOrderList(records, 8), 0) << "of a session that is over";
}

TEST_F(PaperCoreTest, AfterItsEndRequestsAreDropped) {
    LogIn();
    core_->Stop({});
    core_->QueryAccount(0);
    core_->OnQuote(GoldQuote(899, 900));
    EXPECT_TRUE(core_->IsQuiet());
    EXPECT_THAT(ui_.Take(), IsEmpty());
}

TEST_F(PaperCoreTest, WithoutAFrontEndItWorksForItself) {
    front_end_ = nullptr;
    Make({});
    core_->Login("demo", "secret", nullptr, nullptr);
    core_->OnQuote(GoldQuote(899.99, 900.00));
    core_->OnDayEnd({0, kDay, kDay + 1, {}});
    core_->Disconnect(-1);
    core_->Notice("x");
    core_->QueryAccount(0);
    core_->QueryInitial2();
    core_->QueryInitial3();
    core_->RefreshOrders();
    core_->QueryTradeByDate(0, 99999999, 0);
    core_->SendFunctionRequest(9336, nullptr);
    core_->QueryBankTransfer(0);
    Order('0', '0', "900.00", 1);
    store_->fails = true;
    core_->SetTradeParam(std::make_unique<CTradeParam>().get());
    Quiet();
    EXPECT_EQ(core_->Fault(), "disk full");
    EXPECT_FALSE(core_->IsLoggedIn());
}

}  // namespace
