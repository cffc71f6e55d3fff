#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "platform/text/bounded_text.h"
#include "tests/papercore/paper_core_fixture.h"

// Requests with any bytes in every field. Debug builds check all sums after each event.

namespace {

using namespace papercore_tests;

class PaperCoreFuzz : public PaperCoreTest {
protected:
    unsigned Any(unsigned below) { return static_cast<unsigned>(random_() % below); }

    /// Some bytes of a record become anything; seldom all of them.
    template <class Record>
    void Spoil(Record& record) {
        auto* const bytes = reinterpret_cast<unsigned char*>(&record);
        const std::size_t count = Any(4) == 0 ? sizeof record : Any(6);
        for (std::size_t byte = 0; byte < count; ++byte) {
            bytes[Any(sizeof record)] = static_cast<unsigned char>(Any(256));
        }
    }
    std::string AnyText() {
        std::string text(Any(80), '\0');
        for (char& byte : text) byte = static_cast<char>(Any(255) + 1);
        return text;
    }
    double AnyNumber() {
        const double numbers[] = {0,   1,     10,   -5,   900,      899.995,
                                  NAN, 1e300, 1e18, -1e9, INFINITY, -INFINITY};
        return numbers[Any(std::size(numbers))];
    }
    const char* Half(const char* text) { return Any(8) == 0 ? nullptr : text; }

    void AskOrder();
    void AskQuestion();
    void AskSetting();
    void AskOdd();

    std::mt19937 random_{20260105};
    std::vector<std::string> sent_;
};

void PaperCoreFuzz::AskOrder() {
    const char* const prices[] = {"900.00", "899.99", "890", "对手价", "市价", "", "1e9", "-1"};
    CInsertOrderRequest request{};
    text::CopyText(request.szExchange, "SGE");
    text::CopyText(request.szContract, Any(6) ? kGold : "Au99.99");
    text::CopyText(request.szPrice, prices[Any(std::size(prices))]);
    request.cDirection = Any(2) ? '0' : '1';
    request.cOffset =
        "\0"
        "012"[Any(4)];
    request.cHedge = '1';
    request.cOrderType = "01abcdef"[Any(8)];
    request.nVolume = static_cast<int>(Any(4));
    request.nGroupID = Any(6) ? 0 : static_cast<int>(Any(20));
    if (Any(2)) Spoil(request);
    sent_.emplace_back(reinterpret_cast<const char*>(&request), sizeof request);
    core_->InsertOrder(&request, nullptr, static_cast<unsigned char>(Any(8)),
                       static_cast<int>(Any(7)));
}

void PaperCoreFuzz::AskQuestion() {
    CQueryMaxVolume query{};
    text::CopyText(query.szContract, kGold);
    query.cDirection = Any(2) ? '0' : '1';
    query.cOffset = '0';
    query.dPrice = AnyNumber();
    if (Any(3) == 0) Spoil(query);
    core_->QueryMaxVolume(Half("x") ? &query : nullptr, 0);
    const std::string text = AnyText();
    core_->CancelOrder(nullptr, Half(text.c_str()), nullptr, 1);
    core_->CancelOrder(nullptr, std::to_string(Any(60)).c_str(), nullptr, Any(2) ? 1 : -1);
    core_->SendFunctionRequest(Any(2) ? kFunctionMarketState : 9336, Half(text.c_str()));
    core_->QueryTradeByDate(static_cast<int>(random_()), static_cast<int>(random_()), 0);
    static_cast<void>(core_->GetContractUnit(0, Half(text.c_str()), Half(text.c_str()), 0, 0));
}

void PaperCoreFuzz::AskSetting() {
    CPresetStop stop{};
    stop.dProfitTicks = AnyNumber();
    stop.dStopTicks = AnyNumber();
    stop.dStopFloat = AnyNumber();
    stop.dLongStop = AnyNumber();
    stop.dShortProfit = AnyNumber();
    if (Any(3) == 0) Spoil(stop);
    const std::string text = AnyText();
    if (Any(2)) core_->SetPresetStop("SGE", kGold, Half("x") ? &stop : nullptr);
    core_->SetPresetStop(Half(text.c_str()), Half(text.c_str()), &stop);
    core_->SetGroupStop(static_cast<int>(Any(30)), Half("x") ? &stop : nullptr);
    CTradeParam param{};
    core_->GetTradeParam(&param);
    Spoil(param);
    core_->SetTradeParam(Half("x") ? &param : nullptr);
    core_->GetPresetStop(Half(text.c_str()), Half(kGold), Half("x") ? &stop : nullptr);
    core_->GetGroupStop(static_cast<int>(random_()), &stop);
}

void PaperCoreFuzz::AskOdd() {
    CChangePasswordRequest password{};
    Spoil(password);
    core_->ChangePassword(Half("x") ? &password : nullptr, 0);
    CBankRequest bank{};
    Spoil(bank);
    core_->BankTransfer(Half("x") ? &bank : nullptr, 0);
    core_->StartStopMonitor();
    const double bid = 890 + Any(2000) / 100.0;
    core_->OnQuote(GoldQuote(bid, bid + 0.01, Any(9)));
    CLoginResult* const nothing = nullptr;
    core_->GetLoginResult(nothing);
    core_->GetLoginAccount(nullptr);
}

TEST_F(PaperCoreFuzz, EveryOrderIsAnsweredAndEveryByteOfItKept) {
    LogIn();
    for (int round = 0; round < 2000; ++round) {
        AskOrder();
        switch (Any(4)) {
            case 0: AskQuestion(); break;
            case 1: AskSetting(); break;
            default: AskOdd(); break;
        }
        if (round % 100 == 99) Quiet();
    }
    const Lines told = Told();
    EXPECT_EQ(std::ranges::count_if(
                  told, [](const std::string& line) { return line.starts_with("insert "); }),
              2000);
    std::size_t accepted = 0;
    for (const Fact& fact : store_->facts) {
        const auto* order = std::get_if<OrderAccepted>(&fact);
        if (!order || order->order.session == kCoreSession) continue;
        ++accepted;
        EXPECT_THAT(sent_, testing::Contains(order->order.request));
    }
    EXPECT_GT(accepted, 50u) << "not all of them are nonsense";
    EXPECT_EQ(core_->Fault(), "");
}

TEST_F(PaperCoreFuzz, LoginsMayHaveAnyBytes) {
    for (int round = 0; round < 200; ++round) {
        const std::string name = AnyText();
        const std::string word = AnyText();
        core_->Login(Half(name.c_str()), Half(word.c_str()), nullptr, nullptr);
        if (Any(4) == 0) core_->Logout();
        if (round % 10 == 0) core_->Logout();
    }
    Quiet();
    CAccountInfo account{};
    core_->GetLoginAccount(&account);
    EXPECT_LE(text::FieldText(account.szAccount).size(), 31u);
}

}  // namespace
