#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "papercore/paper_core.h"
#include "platform/text/bounded_text.h"
#include "tests/papercore/recording_ui.h"
#include "tests/papercore/scenario.h"

namespace papercore_tests {

using Lines = std::vector<std::string>;

inline constexpr papercore::Day kDay = 20260105;

/// Facts in memory; can be made to fail.
class ListStore : public Store {
public:
    std::atomic<bool> fails = false;
    std::atomic<int> appends = 0;
    std::vector<Fact> facts;
    /// Called on the core's thread before facts are kept.
    std::function<void()> on_append;

    std::string Load(State&) override { return {}; }
    std::string Append(std::span<const Fact> added) override {
        if (on_append) on_append();
        if (fails) return "disk full";
        ++appends;
        facts.insert(facts.end(), added.begin(), added.end());
        return {};
    }
    std::string Export(const std::function<void(std::string_view)>&) override { return {}; }
};

/// A core whose window side does nothing.
class TestCore final : public PaperCore {
public:
    using PaperCore::PaperCore;
    ~TestCore() override { Stop({}); }
    HBITMAP GetSkinBitmap(int, int) override { return nullptr; }
    COLORREF GetSkinColor() override { return 0; }
    void SetLoginRoute(int*, int) override {}
    void ShowStatusText(const char*, int) override {}
    void GetPromptText(int, char*, int) override {}
    void ShowLoginProgress(int, const char*) override {}
    void SetAccountDisplayName(const char*, int) override {}
    void SetFundsText(const char*, int) override {}
    void GetPanelBackColor(COLORREF*) override {}
    void NotifyEvent(int, WPARAM, LPARAM) override {}
    void NotifyInitDone(int) override {}
    void ForwardEvent(UINT, WPARAM, LPARAM) override {}
    void ReportSettlementText(int, int, const char*) override {}
};

inline Quote GoldQuote(double bid, double ask, std::int64_t size = 5) {
    Quote quote;
    quote.contract = kGold;
    quote.time = 1'767'600'000'000;
    quote.trading_day = kDay;
    quote.last = PriceFromYuan(bid);
    quote.previous_settlement = PriceFromYuan(900);
    quote.previous_close = PriceFromYuan(900);
    quote.bid[0] = {PriceFromYuan(bid), size};
    quote.ask[0] = {PriceFromYuan(ask), size};
    return quote;
}

/// A core with a recording front end; its password hash is quick and can be read.
class PaperCoreTest : public testing::Test {
public:
    ~PaperCoreTest() override { core_->Stop({}); }

protected:
    PaperCoreTest() { Make({}); }

    void Make(State state) {
        auto store = std::make_unique<ListStore>();
        store_ = store.get();
        CoreParts parts{SampleTerms(), std::move(store), {}, {}, {}};
        parts.hash = [this](std::string_view password, std::string_view salt) {
            if (no_hash_) return std::string();
            return std::string(password) + "+" + std::string(salt);
        };
        parts.make_salt = [] { return std::string("salt"); };
        core_ = std::make_unique<TestCore>(std::move(parts), std::move(state));
        core_->SetFrontEnd(front_end_);
        core_->Start();
    }

    void Quiet() {
        while (!core_->IsQuiet()) std::this_thread::yield();
    }
    Lines Told() {
        Quiet();
        return ui_.Take();
    }
    void LogIn() {
        core_->Login("demo", "secret", nullptr, nullptr);
        ASSERT_TRUE(ui_.WaitFor("prompt 22"));
        Told();
        core_->OnQuote(GoldQuote(899.99, 900.00));
        Told();
    }
    void Order(char direction, char offset, const char* price, int volume) {
        CInsertOrderRequest request{};
        text::CopyText(request.szExchange, "SGE");
        text::CopyText(request.szContract, kGold);
        text::CopyText(request.szPrice, price);
        request.cDirection = direction;
        request.cOffset = offset;
        request.cHedge = '1';
        request.cOrderType = '0';
        request.nVolume = volume;
        core_->InsertOrder(&request, nullptr, 6, 1);
    }

    RecordingUi ui_;
    CBaseUI* front_end_ = &ui_;
    std::atomic<bool> no_hash_ = false;
    ListStore* store_ = nullptr;
    std::unique_ptr<TestCore> core_;
};

}  // namespace papercore_tests
