#include <cstdlib>
#include <cstring>
#include <random>

#include "tests/lists/trades/trade_page_stage.h"

// A core whose list is another one each time that it is asked for.

namespace tests {
namespace {

unsigned Setting(const char* name, unsigned usual) {
    const char* const text = std::getenv(name);
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : usual;
}

class ChangingTrades : public RecordingCore {
public:
    explicit ChangingTrades(unsigned seed) : random_(seed) {}

    int GetTradeList(CZebTrade* buffer, int capacity) override {
        if (buffer == nullptr) return Any(0, 3) == 0 ? Any(-3, 200) : Any(0, 12);
        for (int i = 0; i < capacity; ++i) Fill(buffer[i]);
        last_ = Any(0, 2) == 0 ? Any(-5, capacity + 50) : capacity;
        last_ = capacity > 0 ? std::clamp(last_, 0, capacity) : 0;
        return last_;
    }
    int Any(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }
    int Last() const { return last_; }

private:
    void Fill(CZebTrade& trade) {
        if (Any(0, 2) != 0) {
            trade =
                MakeTrade(std::to_string(Any(-5, 120)).c_str(), std::to_string(Any(0, 9)).c_str());
            return;
        }
        auto* const bytes = reinterpret_cast<char*>(&trade);
        const int same = Any(-1, 255);
        for (std::size_t i = 0; i < sizeof trade; ++i) {
            bytes[i] = static_cast<char>(same < 0 ? Any(0, 255) : same);
        }
    }

    std::mt19937 random_;
    int last_ = 0;
};

TEST_F(TradePage, SurvivesACoreThatChangesItsListAllTheTime) {
    ChangingTrades core(Setting("CORE_SEED", 1));
    const FrontEndDoors doors(core);
    auto& list = *static_cast<COwerDrawListView*>(page_.GetDlgItem(CGoldTradeDlg::kList));
    const unsigned rounds = Setting("CORE_ROUNDS", 300);
    for (unsigned round = 0; round < rounds; ++round) {
        switch (core.Any(0, 9)) {
            case 0: platform::testing::Click(List(), 10, 22 * core.Any(1, 12) + 11); break;
            case 1: ::SendMessageA(List(), WM_VSCROLL, SB_BOTTOM, 0); break;
            case 2: ::SendMessageA(List(), WM_VSCROLL, SB_TOP, 0); break;
            default: break;
        }
        page_.Refresh();
        ASSERT_EQ(core.Last(), list.GetRowCount()) << round;
        platform::testing::Pump();
    }
}

}  // namespace
}  // namespace tests
