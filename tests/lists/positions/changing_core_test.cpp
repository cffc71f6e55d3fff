#include <cstdlib>
#include <cstring>
#include <random>

#include "plugin/contract/core_access.h"
#include "tests/lists/positions/position_page_stage.h"

// A core whose lists are others each time that they are asked for, with anything in their fields.

namespace tests {
namespace {

/// POSITION_REFRESHES in the environment asks for more than a usual run has time for.
int Refreshes() {
    constexpr int kUsual = 1500;
    const char* const wanted = std::getenv("POSITION_REFRESHES");
    return wanted != nullptr ? std::atoi(wanted) : kUsual;
}

class ChangingCore : public RecordingCore {
public:
    int GetPositionList(CZebPosition* buffer, int capacity) override {
        return Serve(buffer, capacity);
    }
    int GetPositionDetailList(PositionGroup* buffer, int capacity) override {
        return Serve(buffer, capacity);
    }
    void GetGroupStop(int, CPresetStop* stop) override { Garble(*stop); }
    void SetGroupStop(int, CPresetStop*) override {}
    void GetTradeParam(CTradeParam* param) override { Garble(*param); }
    void ShowStatusText(const char*, int) override {}
    void InsertOrder(CInsertOrderRequest*, CTradeParam*, unsigned char, int) override { ++sent; }

    int Any(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }

    template <class Record>
    void Garble(Record& record) {
        auto* const bytes = reinterpret_cast<unsigned char*>(&record);
        for (std::size_t i = 0; i < sizeof record; ++i) {
            bytes[i] = static_cast<unsigned char>(random_());
        }
    }

    int sent = 0;

private:
    /// Promises and gives as it likes: more than before, less, nothing, the same records again.
    template <class Record>
    int Serve(Record* buffer, int capacity) {
        if (buffer == nullptr) return Any(0, 3) == 0 ? Any(-3, 300) : Any(0, 6);
        for (int i = 0; i < capacity; ++i) Fill(buffer[i]);
        return Any(0, 2) == 0 ? Any(-5, capacity + 20) : capacity;
    }

    template <class Record>
    void Fill(Record& record) {
        if (Any(0, 1) == 0) Garble(record);
        if (Any(0, 3) != 0) text::CopyText(record.szContract, kContracts[Any(0, 2)]);
        if (Any(0, 3) != 0) record.cDirection = Any(0, 1) == 0 ? '0' : '1';
        if (Any(0, 1) == 0) record.nVolume = Any(0, 300);
        if (Any(0, 1) == 0) record.nFrozen = Any(0, 10);
    }

    static constexpr const char* kContracts[] = {"Au(T+D)", "Ag99.99", "nobody's"};
    std::mt19937 random_{20240611};
};

class ChangingPositions : public PositionPage {
protected:
    ChangingPositions() { g_pUICallBack = &changing; }
    ~ChangingPositions() override { g_pUICallBack = &core; }

    void Step() {
        const bool lots = changing.Any(0, 1) == 0;
        switch (changing.Any(0, 9)) {
            case 0: page.SendMessage(WM_COMMAND, Page::kMode, 0); break;
            case 1: Choose(); break;
            case 2: ShakeQuote(); break;
            case 3: page.OnQuote(static_cast<unsigned>(kGold), {}); break;
            case 4: Close(); break;
            default: Refresh(lots); break;
        }
    }

    void Refresh(bool lots) {
        ++refreshed;
        page.Refresh(lots, changing.Any(0, 5) != 0);
    }

    /// A row that may be there or not, as a click or a double click.
    void Choose() {
        const int y = changing.Any(0, 260);
        HWND list = Control(Page::kList);
        const UINT message = changing.Any(0, 1) == 0 ? WM_LBUTTONDOWN : WM_LBUTTONDBLCLK;
        ::SendMessageA(list, message, MK_LBUTTON, MAKELPARAM(20, y));
        ::SendMessageA(list, WM_LBUTTONUP, 0, MAKELPARAM(20, y));
    }

    void ShakeQuote() {
        JSDyn1 quote{};
        changing.Garble(quote);
        if (changing.Any(0, 1) == 0) quote.dLast = changing.Any(1, 500);
        host.SetQuote(changing.Any(0, 1) == 0 ? kGold : kSilver, quote);
    }

    void Close() {
        constexpr int kButtons[] = {Page::kClose1, Page::kClose50, Page::kClose100};
        page.SendMessage(WM_COMMAND, static_cast<WPARAM>(kButtons[changing.Any(0, 2)]), 0);
    }

    using Page = CGoldPositionDlg;
    ChangingCore changing;
    int refreshed = 0;
};

TEST_F(ChangingPositions, AreNeverReadPastTheirEnd) {
    int asked = 0;
    dialogs.on_question = [&] {
        ++asked;
        Refresh(asked % 2 == 0);
    };
    const int refreshes = Refreshes();
    int painted = 0;
    for (int i = 0; refreshed < refreshes; ++i) {
        Step();
        if (i % 8 != 0) continue;
        platform::testing::Pump();
        painted += Cell(0, 0).text.empty() ? 0 : 1;
        host.TakeCalls();
        dialogs.questions.clear();
        receiver.rows.clear();
        receiver.contracts.clear();
        funds.TakeShown();
    }
    EXPECT_GT(painted, 0);
    EXPECT_GT(changing.sent, 0);
    EXPECT_GT(asked, 0);
}

}  // namespace
}  // namespace tests
