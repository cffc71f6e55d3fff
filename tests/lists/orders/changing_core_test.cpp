#include <cstdlib>
#include <cstring>
#include <random>

#include "tests/lists/orders/order_page_stage.h"

// A core whose list is another one each time that it is asked for.

namespace tests {
namespace {

unsigned Setting(const char* name, unsigned usual) {
    const char* const text = std::getenv(name);
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : usual;
}

class ChangingCore : public RecordingCore {
public:
    explicit ChangingCore(unsigned seed) : random_(seed) { Omit({"ShowStatusText"}); }

    int GetOrderList(CZebOrder* buffer, int capacity) override {
        if (buffer == nullptr) {
            return Any(0, 3) == 0 ? Any(-3, 200) : Any(0, 12);
        }
        for (int i = 0; i < capacity; ++i) Fill(buffer[i]);
        return Any(0, 2) == 0 ? Any(-5, capacity + 50) : capacity;
    }
    void GetTradeParam(CTradeParam* param) override {
        *param = {};
        param->bNoCancelConfirm = 1;
    }
    void CancelOrder(CZebOrder* order, const char*, const char*, int) override {
        ++cancelled;
        EXPECT_TRUE(order->cStatus >= '0' && order->cStatus <= '2');
    }

    int Any(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }

    int cancelled = 0;

private:
    void Fill(CZebOrder& order) {
        if (Any(0, 2) != 0) {
            order = MakeOrder(std::to_string(Any(-5, 50)).c_str(),
                              "0123456789epx"[static_cast<std::size_t>(Any(0, 12))]);
            return;
        }
        auto* const bytes = reinterpret_cast<char*>(&order);
        const int same = Any(-1, 255);
        for (std::size_t i = 0; i < sizeof order; ++i) {
            bytes[i] = static_cast<char>(same < 0 ? Any(0, 255) : same);
        }
    }

    std::mt19937 random_;
};

TEST_F(OrderPage, SurvivesACoreThatChangesItsListAllTheTime) {
    ChangingCore core(Setting("CORE_SEED", 1));
    const FrontEndDoors doors(core);
    const unsigned rounds = Setting("CORE_ROUNDS", 300);
    for (unsigned round = 0; round < rounds; ++round) {
        switch (core.Any(0, 9)) {
            case 0: Press(CGoldOrderDlg::kMode); break;
            case 1: page_.CancelAll(); break;
            case 2: page_.CancelRow(core.Any(-2, 60)); break;
            case 3: Click(core.Any(0, 12)); break;
            case 4: ::SendMessageA(Control(CGoldOrderDlg::kList), WM_VSCROLL, SB_BOTTOM, 0); break;
            default: break;
        }
        page_.Refresh(round % 2 == 0);
        platform::testing::PumpFor(round % 16 == 0 ? 2000 : 0);
    }
    EXPECT_GT(core.cancelled, static_cast<int>(rounds / 10));
}

}  // namespace
}  // namespace tests
