#include <cstdlib>
#include <random>

#include "orderentry/combo_price_edit.h"
#include "orderentry/combo_volume_edit.h"
#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "orderentry/order_rules.h"
#include "orderentry/price_rules.h"
#include "orderentry/volume_rules.h"
#include "platform/text/bounded_text.h"
#include "tests/orderentry/pages/page_frame.h"

namespace tests {
namespace {

/// Texts per run; TEXT_ROUNDS asks for more, TEXT_SEED for others.
unsigned Setting(const char* name, unsigned usual) {
    const char* const text = std::getenv(name);
    return text ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : usual;
}

class RandomTexts : public PageTest {
protected:
    RandomTexts() {
        text::CopyText(contract_.szExchange, "SGE");
        text::CopyText(contract_.szContract, "Au(T+D)");
        contract_.dPriceTick = 0.01;
        contract_.nPriceDigits = 2;
        JSDyn1 quote{};
        quote.dAsk[0] = 300.00;
        quote.dLast = 299.95;
        host_.SetQuote(host_.AddSymbol("Au(T+D)", 12, 1, 2), quote);
        GetSymbolByName(&symbol_, "Au(T+D)");
        Make(price_, 10006, 20);
        Make(volume_, 10018, 60);
    }
    ~RandomTexts() override {
        price_.DestroyWindow();
        volume_.DestroyWindow();
    }

    void Make(CPriceEditEx& composite, int id, int top) {
        ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_DISABLED, 20, top, 144, 24, page_,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), AfxGetInstanceHandle(),
                          nullptr);
        composite.CreateOver(page_, id);
        composite.InnerEdit()->SetWindowText("1");
    }

    unsigned Any(unsigned end) { return static_cast<unsigned>(random_()) % end; }
    char AnyByte() {
        return Any(4) != 0 ? "0123456789.e- +"[Any(15)] : static_cast<char>(1 + Any(255));
    }
    std::string AnyText() {
        static constexpr const char* kWords[] = {"对手价", "最新价", "挂单价", "挂单价超一个价位",
                                                 "涨停价", "市价",   "nan",    "0x10"};
        if (Any(5) == 0) return kWords[Any(8)];
        std::string text(Any(3) != 0 ? Any(12) : Any(90), '\0');
        for (char& byte : text) byte = AnyByte();
        return text;
    }
    void Set(CWnd& edit, const std::string& text) { edit.SetWindowText(text.c_str()); }
    /// Once in all the ways that texts come into an edit.
    void Enter(CWnd& edit) {
        switch (Any(4)) {
            case 0: Set(edit, AnyText()); break;
            case 1: edit.SendMessage(WM_KEYDOWN, Any(2) != 0 ? VK_DELETE : VK_END, 1); break;
            default:
                edit.SetFocus();
                for (const char byte : AnyText()) {
                    edit.SendMessage(WM_CHAR, static_cast<unsigned char>(byte), 1);
                }
        }
    }
    static std::string Read(const CWnd& edit) {
        char text[32] = {};
        edit.GetWindowText(text, sizeof text);
        return text;
    }
    void Spin(CWnd& price, CWnd& volume) {
        const int delta = static_cast<int>(Any(5)) - 2;
        char stepped[kPriceTextSize];
        if (StepPrice(Read(price).c_str(), delta, Direction(), &contract_, symbol_, stepped)) {
            Set(price, stepped);
        }
        Set(volume, StepVolume(Read(volume).c_str(), delta));
    }
    char Direction() { return Any(2) != 0 ? '0' : '1'; }
    PreparedOrder Submit(const std::string& price, const std::string& volume) {
        return PrepareOrder({.contract = &contract_,
                             .symbol = symbol_,
                             .volume_text = volume.c_str(),
                             .price_text = price.c_str(),
                             .direction = Direction(),
                             .offset = '0',
                             .net = false,
                             .linked_position = 0});
    }

    std::mt19937 random_{Setting("TEXT_SEED", 11)};
    CZebContract contract_{};
    CHostSymbol symbol_{};
    CComboPriceEdit price_{10006, 10017};
    CComboVolumeEdit volume_{10018, 10019};
};

void ExpectReadable(const PreparedOrder& order) {
    const std::string sent(text::FieldText(order.request.szPrice));
    ASSERT_LE(sent.size(), 15U);
    ASSERT_EQ(sent.find_first_not_of("0123456789."), std::string::npos) << sent;
    ASSERT_GT(ReadNumber(sent.c_str()), 0) << sent;
    ASSERT_GE(int{order.request.nVolume}, 1);
}

TEST_F(RandomTexts, SendOnlyPricesThatCanBeRead) {
    const unsigned rounds = Setting("TEXT_ROUNDS", 2000);
    CWnd& price = *price_.InnerEdit();
    CWnd& volume = *volume_.InnerEdit();
    unsigned sent = 0;
    for (unsigned round = 0; round < rounds && !HasFatalFailure(); ++round) {
        Enter(price);
        Enter(volume);
        if (Any(3) == 0) Spin(price, volume);
        if (Any(50) == 0) platform::testing::PumpFor(120);
        const PreparedOrder order = Submit(Read(price), Read(volume));
        if (order.refusal != OrderRefusal::kNone) continue;
        ++sent;
        ExpectReadable(order);
    }
    EXPECT_GT(sent, rounds / 20);
}

}  // namespace
}  // namespace tests
