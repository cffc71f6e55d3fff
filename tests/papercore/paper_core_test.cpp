#include "papercore/paper_core.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <memory>
#include <thread>

#include "papercore/records.h"
#include "platform/text/bounded_text.h"
#include "tests/papercore/paper_core_fixture.h"
#include "tests/support/gbk_text.h"

namespace {

using namespace papercore_tests;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(PaperCoreTest, ASessionBeginsInItsOrder) {
    bool logged_in_at_21 = true;
    int contracts_at_22 = 0;
    ui_.on_line = [&](const std::string& line) {
        if (line.starts_with("prompt 21")) logged_in_at_21 = core_->IsLoggedIn() != 0;
        if (line.starts_with("prompt 22")) contracts_at_22 = core_->GetContractList(nullptr, 0);
    };
    EXPECT_EQ(core_->GetContractList(nullptr, 0), 0);
    core_->Login("demo", "secret", nullptr, nullptr);
    const Lines told = (Quiet(), ui_.Take());
    ASSERT_EQ(told.size(), 20u);
    for (int prompt = 2; prompt <= 18; ++prompt) {
        EXPECT_EQ(told[static_cast<std::size_t>(prompt) - 2],
                  "prompt " + std::to_string(prompt) + " ok");
    }
    EXPECT_THAT(told[17], testing::StartsWith("login demo ok"));
    EXPECT_EQ(told[18], "prompt 21 ok");
    EXPECT_EQ(told[19], "prompt 22 ok");
    EXPECT_FALSE(logged_in_at_21);
    EXPECT_EQ(contracts_at_22, 4);
    CAccountInfo account{};
    core_->GetLoginAccount(&account);
    EXPECT_STREQ(account.szAccount, "demo");
}

TEST_F(PaperCoreTest, AWrongLoginIsRefusedByItsResultAndNoPromptHasAnError) {
    const struct {
        const char* account;
        const char* password;
        const char* reason;
    } wrong[] = {{nullptr, nullptr, "请输入账户"},
                 {"demo", "", "请输入密码"},
                 {"0123456789012345678901234567890123456789", "x", "账户名称过长"},
                 {"demo", "wrong", "账户或密码错误"},
                 {"other", "secret", "账户文件属于demo，不能用于other"}};
    LogIn();
    core_->Logout();
    EXPECT_EQ(core_->GetContractList(nullptr, 0), 0);
    for (const auto& [account, password, reason] : wrong) {
        core_->Login(account, password, nullptr, nullptr);
        const Lines told = (Quiet(), ui_.Take());
        ASSERT_EQ(told.size(), 3u);
        EXPECT_THAT(told[2], HasSubstr(std::string("refused: ") + reason))
            << testing_support::Readable(told[2]);
        EXPECT_FALSE(core_->IsLoggedIn());
    }
    core_->Login("demo", "secret", nullptr, nullptr);
    EXPECT_TRUE(ui_.WaitFor("prompt 22"));
}

TEST_F(PaperCoreTest, OrdersAreToldInTheirOrderAfterTheyAreKept) {
    LogIn();
    Order('0', '0', "900.00", 3);
    EXPECT_THAT(Told(), ElementsAre("order 1 1 0/3", "order 1 3 3/3", "trade 0000000001 of 1 3",
                                    "orders", "positions", "groups", "account", "insert ok"));
    Order('0', '0', "890.00", 2);
    EXPECT_THAT(Told(), ElementsAre("order 2 1 0/2", "orders", "account", "insert ok"));
    core_->CancelOrder(nullptr, "2", "note", 1);
    EXPECT_THAT(Told(), ElementsAre("order 2 4 0/2", "orders", "account"));
    core_->CancelOrder(nullptr, "2", "note", 1);
    EXPECT_THAT(Told(), ElementsAre(testing::StartsWith("cancel refused")));
}

TEST_F(PaperCoreTest, AClosingOrderFreezesLotsAndACancellationFreesThem) {
    LogIn();
    Order('0', '0', "900.00", 3);
    Told();
    Order('1', '1', "950.00", 2);
    EXPECT_THAT(Told(), ElementsAre("order 2 1 0/2", "orders", "positions", "groups", "account",
                                    "insert ok"));
    CZebPosition position{};
    EXPECT_EQ(core_->GetPositionList(nullptr, 0), 1);
    EXPECT_EQ(core_->GetPositionList(&position, 1), 1);
    EXPECT_EQ(position.nVolume, 3);
    EXPECT_EQ(position.nFrozen, 2);
    EXPECT_EQ(position.cDateType, 2);
    EXPECT_EQ(position.dOpenPrice, 900.00);
    EXPECT_EQ(position.dOpenProfit, 0);
    core_->CancelOrder(nullptr, "2", nullptr, 1);
    EXPECT_THAT(Told(), ElementsAre("order 2 4 0/2", "orders", "positions", "groups", "account"));
}

TEST_F(PaperCoreTest, RefusalsComeByTheirAnswerAndLeaveNoRow) {
    LogIn();
    Order('0', '0', "900.00", 1000);
    const Lines told = Told();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_THAT(told[0], HasSubstr("可用资金不足：需要 "));
    EXPECT_EQ(core_->GetOrderList(nullptr, 0), 0);
    core_->RefuseNext("今天不行");
    Order('0', '0', "900.00", 1);
    EXPECT_THAT(Told(), ElementsAre("insert refused: 今天不行"));
    Order('0', '0', "900.00", 1);
    EXPECT_THAT(Told(), testing::Contains("insert ok"));
    for (const char* ref : {"", "x", "99", "-1", "99999999999999999999", "1 "}) {
        core_->CancelOrder(nullptr, ref, nullptr, 1);
        EXPECT_THAT(Told(), ElementsAre(testing::StartsWith("cancel refused"))) << ref;
    }
    core_->CancelOrder(nullptr, "1", nullptr, 77);
    EXPECT_THAT(Told(), ElementsAre(testing::StartsWith("cancel refused"))) << "another session";
}

TEST_F(PaperCoreTest, FundsAreToldAfterEachChangeToTheFen) {
    LogIn();
    core_->QueryAccount(0);
    Quiet();
    EXPECT_EQ(ui_.LastFunds(), "1000000.00 0.00 0.00 1000000.00");
    Order('0', '0', "900.00", 1);
    Quiet();
    // 144,000.00 margin and 135.00 fee; marked at the last price, 899.99.
    EXPECT_EQ(ui_.LastFunds(), "999855.00 144000.00 0.00 855855.00");
}

TEST_F(PaperCoreTest, WhatIsSetCountsAtOnceAndIsKept) {
    LogIn();
    CTradeParam param{};
    core_->GetTradeParam(&param);
    EXPECT_EQ(param.nPanelBuy[1], 5) << "the default";
    std::memset(&param, 0x41, sizeof param);
    core_->SetTradeParam(&param);
    CTradeParam read{};
    core_->GetTradeParam(&read);
    EXPECT_EQ(std::memcmp(&param, &read, sizeof param), 0);
    Quiet();
    core_->GetTradeParam(&read);
    EXPECT_EQ(std::memcmp(&param, &read, sizeof param), 0);

    CPresetStop stop{};
    stop.dStopTicks = 10;
    text::CopyText(stop.szExchange, "SGE");
    text::CopyText(stop.szContract, kGold);
    core_->SetPresetStop("SGE", kGold, &stop);
    CPresetStop kept{};
    core_->GetPresetStop("SGE", kGold, &kept);
    EXPECT_EQ(kept.dStopTicks, 10);
    Order('0', '0', "900.00", 1);
    Quiet();
    PositionGroup lot{};
    ASSERT_EQ(core_->GetPositionDetailList(nullptr, 0), 1);
    core_->GetPositionDetailList(&lot, 1);
    EXPECT_EQ(lot.dStopLoss, 10) << "a new lot has the preset";
    CPresetStop of_lot{};
    core_->GetGroupStop(lot.nGroupID, &of_lot);
    EXPECT_EQ(of_lot.dStopTicks, 10);
    of_lot.dStopTicks = 20;
    core_->SetGroupStop(lot.nGroupID, &of_lot);
    Quiet();
    core_->GetPositionDetailList(&lot, 1);
    EXPECT_EQ(lot.dStopLoss, 20);
    core_->SetGroupStop(999, &of_lot);
    EXPECT_THAT(Told(), testing::Contains(testing::StartsWith("notice ")));
}

TEST_F(PaperCoreTest, AStopClosesItsLot) {
    LogIn();
    CPresetStop stop{};
    stop.dStopTicks = 10;
    core_->SetPresetStop("SGE", kGold, &stop);
    Order('0', '0', "900.00", 2);
    Told();
    core_->OnQuote(GoldQuote(899.80, 899.85));
    const Lines told = Told();
    EXPECT_THAT(told, testing::Contains("trade 0000000002 of 2 2"));
    EXPECT_EQ(core_->GetPositionDetailList(nullptr, 0), 0);
}

TEST_F(PaperCoreTest, QuestionsAreAnswered) {
    LogIn();
    CQueryMaxVolume query{};
    text::CopyText(query.szContract, kGold);
    query.cDirection = '0';
    query.cOffset = '0';
    query.dPrice = 900.00;
    core_->QueryMaxVolume(&query, 0);
    EXPECT_THAT(Told(), ElementsAre("most Au(T+D) 048 6"));
    core_->SendFunctionRequest(6027, "SGE|Au(T+D)");
    EXPECT_THAT(Told(), ElementsAre("function 6027 ok 0|0|0|Y|SGE|Au(T+D)|1|"));
    Quote closed = GoldQuote(1, 2);
    closed.phase = MarketPhase::kClosed;
    core_->OnQuote(closed);
    core_->SendFunctionRequest(6027, "SGE|Au(T+D)");
    EXPECT_THAT(Told(), ElementsAre("function 6027 ok 0|0|0|Y|SGE|Au(T+D)|2|"));
    core_->SendFunctionRequest(6027, "SGE|None");
    core_->SendFunctionRequest(6027, nullptr);
    EXPECT_THAT(Told(),
                ElementsAre("function 6027 ok 0|0|0|N|SGE|None|", "function 6027 ok 0|0|0|N||"));
    core_->SendFunctionRequest(9336, "");
    EXPECT_THAT(Told(), ElementsAre(testing::StartsWith("function 9336 refused")));
    core_->QueryBankBalance(nullptr, 0);
    core_->QueryBankTransfer(0);
    core_->BankTransfer(nullptr, 0);
    const Lines banks = Told();
    ASSERT_EQ(banks.size(), 3u);
    for (const std::string& line : banks) EXPECT_THAT(line, HasSubstr("refused"));
    core_->QueryInitial1();
    core_->QueryInitial2();
    core_->QueryInitial3();
    core_->RefreshOrders();
    EXPECT_THAT(Told(),
                ElementsAre("account", "orders", "trades", "positions", "groups", "orders"));
    EXPECT_EQ(core_->GetContractUnit(0, "SGE", kGold, 0, 0), 1000);
    EXPECT_EQ(core_->GetContractUnit(0, "SGE", nullptr, 0, 0), 0);
}

TEST_F(PaperCoreTest, PastTradesComeOneByOneAndTheLastIsMarked) {
    LogIn();
    core_->QueryTradeByDate(20200101, 20300101, 0);
    EXPECT_THAT(Told(), ElementsAre("past nothing last"));
    Order('0', '0', "900.00", 1);
    Order('0', '0', "900.00", 1);
    Told();
    core_->QueryTradeByDate(kDay, kDay, 0);
    EXPECT_THAT(Told(), ElementsAre("past 0000000001", "past 0000000002 last"));
    core_->QueryTradeByDate(kDay + 1, kDay + 9, 0);
    EXPECT_THAT(Told(), ElementsAre("past nothing last"));
}

TEST_F(PaperCoreTest, APasswordIsChangedWithTheOldOne) {
    LogIn();
    CChangePasswordRequest request{};
    text::CopyText(request.szOldPassword, "wrong");
    text::CopyText(request.szNewPassword, "new");
    core_->ChangePassword(&request, 0);
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("原密码错误")));
    text::CopyText(request.szOldPassword, "secret");
    core_->ChangePassword(&request, 0);
    EXPECT_THAT(Told(), ElementsAre("password ok 密码修改成功"));
    core_->Login("demo", "secret", nullptr, nullptr);
    EXPECT_THAT(Told(), testing::Contains(HasSubstr("账户或密码错误")));
    core_->Login("demo", "new", nullptr, nullptr);
    EXPECT_TRUE(ui_.WaitFor("prompt 22"));
}

TEST_F(PaperCoreTest, AFailingStoreStopsTheAccountAndTellsItOnce) {
    LogIn();
    store_->fails = true;
    Order('0', '0', "900.00", 1);
    const Lines told = Told();
    ASSERT_EQ(told.size(), 2u);
    EXPECT_THAT(told[0], testing::StartsWith("notice "));
    EXPECT_THAT(told[1], testing::StartsWith("insert refused"));
    EXPECT_EQ(core_->GetOrderList(nullptr, 0), 0);
    EXPECT_EQ(core_->Fault(), "disk full");
    store_->fails = false;
    Order('0', '0', "900.00", 1);
    EXPECT_THAT(Told(), ElementsAre(testing::StartsWith("insert refused")));
}

TEST_F(PaperCoreTest, ASecondReadOfAListGivesWhatTheFirstPromised) {
    LogIn();
    for (int order = 0; order < 3; ++order) Order('0', '0', "890.00", 1);
    Quiet();
    EXPECT_EQ(core_->GetOrderList(nullptr, 0), 3);
    Order('0', '0', "890.00", 1);
    Quiet();
    CZebOrder records[8];
    EXPECT_EQ(core_->GetOrderList(records, 8), 3) << "as promised";
    EXPECT_EQ(core_->GetOrderList(records, 8), 4) << "without a promise the newest";
    EXPECT_EQ(core_->GetOrderList(nullptr, 0), 4);
    EXPECT_EQ(core_->GetOrderList(records, 2), 2);
    EXPECT_EQ(core_->GetOrderList(records, -1), 0);
}

TEST_F(PaperCoreTest, WhatAPersonTestsWithComesThrough) {
    LogIn();
    core_->Disconnect(-2);
    core_->Notice("交易所通知");
    EXPECT_THAT(Told(), ElementsAre("network -2", "notice 交易所通知"));
    core_->SetDelay(30);
    const auto before = std::chrono::steady_clock::now();
    core_->QueryAccount(0);
    Quiet();
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(30));
}

TEST_F(PaperCoreTest, FundsOfAQuietCoreAreThoseOfTheLastPrice) {
    LogIn();
    Order('0', '0', "900.00", 1);
    Told();
    const Fen before = core_->Look().funds.balance;
    for (const double bid : {899.00, 898.00, 897.00}) {
        const Fen balance = core_->Look().funds.balance;
        core_->OnQuote(GoldQuote(bid, bid + 0.01));
        Quiet();
        EXPECT_LT(core_->Look().funds.balance, balance) << bid;
    }
    EXPECT_EQ(before - core_->Look().funds.balance, FenFromYuan((899.99 - 897.00) * 1000));
}

TEST_F(PaperCoreTest, MatchingGoesOnAfterALogoutAndNobodyIsTold) {
    LogIn();
    Order('0', '0', "890.00", 1);
    Told();
    core_->Logout();
    core_->OnQuote(GoldQuote(889.00, 889.50));
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(core_->Look().trades->size(), 1u);
    EXPECT_EQ(core_->GetTradeList(nullptr, 0), 0);
}

TEST_F(PaperCoreTest, ItStopsWhileAPushWaitsForTheCaller) {
    std::atomic<bool> reached = false;
    std::atomic<bool> let_go = false;
    ui_.on_line = [&](const std::string& line) {
        if (!line.starts_with("prompt 22")) return;
        reached = true;
        while (!let_go) std::this_thread::yield();
    };
    core_->Login("demo", "secret", nullptr, nullptr);
    while (!reached) std::this_thread::yield();
    core_->Stop([&] { let_go = true; });
    EXPECT_TRUE(core_->IsQuiet());
}

// Feed, requests, readers and a front end at once: for the thread checker.
TEST_F(PaperCoreTest, ThreadsReadAndAskWhileQuotesCome) {
    LogIn();
    std::atomic<bool> over = false;
    std::vector<std::thread> threads;
    for (int reader = 0; reader < 4; ++reader) {
        threads.emplace_back([&] {
            std::vector<CZebOrder> orders;
            CPresetStop stop{};
            while (!over) {
                const int count = core_->GetOrderList(nullptr, 0);
                orders.resize(static_cast<std::size_t>(count) + 16);
                const int read = core_->GetOrderList(orders.data(), count);
                EXPECT_EQ(read, count);
                core_->GetGroupStop(1, &stop);
                static_cast<void>(core_->Look());
            }
        });
    }
    threads.emplace_back([&] {
        for (int step = 0; step < 300; ++step) {
            core_->OnQuote(GoldQuote(899.0 + step % 3, 899.5 + step % 3, 5 + step % 4));
        }
    });
    for (int order = 0; order < 100; ++order) {
        Order(order % 2 ? '1' : '0', '\0', order % 3 ? "900.00" : "899.00", 1);
        if (order % 5 == 0) core_->QueryAccount(0);
    }
    threads.back().join();
    threads.pop_back();
    Quiet();
    over = true;
    for (std::thread& thread : threads) thread.join();
    const Lines told = Told();
    const auto answers = std::ranges::count_if(
        told, [](const std::string& line) { return line.starts_with("insert "); });
    EXPECT_EQ(answers, 100);
    EXPECT_GT(core_->Look().orders->size(), 0u);
}

}  // namespace
