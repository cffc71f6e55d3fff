#include "tests/papercore/store/trader.h"

#include <csignal>
#include <random>
#include <thread>
#include <vector>

#include "tests/papercore/paper_core_fixture.h"
#include "tests/papercore/store/watched_disk.h"

namespace papercore_tests {
namespace {

constexpr Fen kFunds = 100'000'000'000'000;

class Teller : public RecordingUi {
public:
    explicit Teller(const Mortal::Mouth& mouth) : mouth_(mouth) {
        on_line = [this](const std::string& line) {
            if (line.starts_with("order ") || line.starts_with("trade ")) mouth_.Say(line);
        };
    }
    void OnInsertOrderResult(const CAccountInfo*, CZebError* error, CInsertOrderRequest*,
                             int number) override {
        if (error->nCode == 0) mouth_.Say("answer " + std::to_string(number));
    }

private:
    const Mortal::Mouth& mouth_;
};

/// A core on an account file, and what a person does with it.
class Trader {
public:
    Trader(const std::string& path, const Mortal::Mouth& mouth) : ui_(mouth) {
        std::string fault;
        std::unique_ptr<Store> store = OpenStore(path, fault);
        State state;
        if (store) fault = store->Load(state);
        if (!fault.empty()) {
            mouth.Say("fault " + fault);
            return;
        }
        EngineSettings settings;
        settings.starting_funds = kFunds;
        CoreParts parts{SampleTerms(), std::move(store), settings, {}, {}};
        parts.hash = [](std::string_view password, std::string_view) {
            return std::string(password);
        };
        parts.make_salt = [] { return std::string("salt"); };
        core_ = std::make_unique<TestCore>(std::move(parts), std::move(state));
        core_->SetFrontEnd(&ui_);
        core_->Start();
        core_->Login("demo", "secret", nullptr, nullptr);
        Quiet();
    }
    bool IsReady() const { return core_ && core_->IsLoggedIn(); }

    void Quiet() {
        while (!core_->IsQuiet()) std::this_thread::yield();
    }
    void Market(double bid, std::int64_t size) {
        core_->OnQuote(GoldQuote(bid, bid + 0.01, size));
        Quiet();
    }
    void Order(char direction, char offset, double price, int volume) {
        CInsertOrderRequest request{};
        text::CopyText(request.szExchange, "SGE");
        text::CopyText(request.szContract, kGold);
        text::FormatText(request.szPrice, sizeof request.szPrice, "%.2f", price);
        request.cDirection = direction;
        request.cOffset = offset;
        request.cHedge = '1';
        request.cOrderType = '0';
        request.nVolume = volume;
        core_->InsertOrder(&request, nullptr, 6, 1);
        Quiet();
    }
    std::vector<CZebOrder> Orders() {
        std::vector<CZebOrder> orders(static_cast<std::size_t>(core_->GetOrderList(nullptr, 0)));
        core_->GetOrderList(orders.data(), static_cast<int>(orders.size()));
        return orders;
    }
    void Cancel(CZebOrder& order) {
        core_->CancelOrder(&order, order.szOrderRef, "", order.nSession);
        Quiet();
    }
    void Preset(double stop_ticks, double profit_ticks) {
        CPresetStop stop{};
        stop.dStopTicks = stop_ticks;
        stop.dProfitTicks = profit_ticks;
        core_->SetPresetStop("SGE", kGold, &stop);
        Quiet();
    }
    void EndDay(Day next) {
        core_->OnDayEnd({0, kDay, next, {{kGold, PriceFromYuan(901)}}});
        Quiet();
    }

private:
    Teller ui_;
    std::unique_ptr<TestCore> core_;
};

void Die() { static_cast<void>(raise(SIGKILL)); }

}  // namespace

void LiveOneDay(const std::string& path, const Death& death, const Mortal::Mouth& mouth) {
    WatchedDisk disk;
    disk.syncs = false;
    disk.before = [&](WatchedDisk::Step, int number) {
        if (!death.after && number == death.step) Die();
        return SQLITE_OK;
    };
    disk.after = [&](int number) {
        if (death.after && number == death.step) Die();
    };
    {
        Trader trader(path, mouth);
        if (!trader.IsReady()) return;
        trader.Market(899.99, 50);
        trader.Preset(10, 0);
        trader.Order('0', '0', 900.00, 3);
        trader.Order('0', '0', 890.00, 1);
        trader.Cancel(trader.Orders().back());
        trader.Order('0', '0', 899.95, 2);
        trader.Market(899.80, 50);
        trader.Market(899.85, 50);
        trader.EndDay(kDay + 1);
    }
    mouth.Say("done " + std::to_string(disk.Steps()));
}

void LiveUnderLoad(const std::string& path, unsigned seed, const Mortal::Mouth& mouth) {
    Trader trader(path, mouth);
    if (!trader.IsReady()) return;
    trader.Preset(3, 4);
    std::mt19937 random(seed);
    const auto below = [&](unsigned end) { return static_cast<int>(random() % end); };
    for (int round = 0;; ++round) {
        const double price = 895 + below(1000) / 100.0;
        trader.Market(price, 3 + below(5));
        trader.Order(below(2) == 0 ? '0' : '1', below(4) == 0 ? '1' : '0',
                     price + below(200) / 100.0 - 1, 1 + below(4));
        if (round % 3 != 0) continue;
        std::vector<CZebOrder> orders = trader.Orders();
        if (!orders.empty()) trader.Cancel(orders[random() % orders.size()]);
    }
}

}  // namespace papercore_tests
