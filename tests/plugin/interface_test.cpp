#include "tests/plugin/interface_test.h"

#include <cstdio>
#include <cstring>

#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/tagged_block.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/live_blocks.h"

namespace tests {

std::string TakenEvent::Summary() const {
    char text[64];
    std::snprintf(text, sizeof(text), has_block ? "%X[%d]" : "%X(%d)",
                  static_cast<unsigned>(wParam),
                  has_block ? static_cast<int>(payload.size()) : static_cast<int>(lParam));
    return text;
}

std::string_view TakenEvent::Text(std::size_t offset) const {
    const std::string_view rest = std::string_view(payload).substr(offset);
    return rest.substr(0, rest.find('\0'));
}

int TakenEvent::Number() const {
    int number = 0;
    std::memcpy(&number, payload.data(), sizeof(number));
    return number;
}

InterfaceTest::InterfaceTest() : blocks_at_first(LiveBlocks()) {
    platform::testing::StopClock();
    core.logged_in = true;
    frame.CreateEx(0, nullptr, "host", WS_POPUP | WS_VISIBLE, RECT{0, 0, 900, 500}, nullptr, 0);
}

InterfaceTest::~InterfaceTest() {
    ui.reset();
    frame.DestroyWindow();
    platform::testing::Pump();
    g_hParentWnd = nullptr;
    g_hFrameWnd = nullptr;
    EXPECT_EQ(LiveBlocks(), blocks_at_first) << "a block was lost";
}

void InterfaceTest::Start() {
    ui->Create(0, 0, 900, 500, frame);
    ASSERT_NE(Main(), nullptr);
    platform::testing::Pump();
    core.ForgetCalls();
    host.TakeCalls();
    blocks_in_use = LiveBlocks();
}

std::vector<TakenEvent> InterfaceTest::TakeEvents() {
    std::vector<TakenEvent> events;
    MSG message;
    while (::PeekMessageA(&message, Main(), WM_CORE_EVENT, WM_CORE_EVENT, PM_REMOVE)) {
        TakenEvent event{message.wParam, message.lParam, false, {}};
        auto* const payload = reinterpret_cast<char*>(message.lParam);
        event.has_block = IsLiveBlock(payload);
        if (event.has_block) {
            event.payload.assign(payload, static_cast<std::size_t>(TaggedBlockSize(payload)));
            FreeTaggedBlock(payload);
        }
        events.push_back(std::move(event));
    }
    return events;
}

std::string InterfaceTest::TakeSummary() {
    std::string summary;
    for (const TakenEvent& event : TakeEvents()) {
        summary += (summary.empty() ? "" : " ") + event.Summary();
    }
    return summary;
}

TakenEvent InterfaceTest::TakeEvent() {
    std::vector<TakenEvent> events = TakeEvents();
    EXPECT_EQ(events.size(), 1u);
    return events.empty() ? TakenEvent{} : events.front();
}

void InterfaceTest::AddContract(const char* code, int market, int number) {
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, code);
    contract.nPriceDigits = 2;
    contract.dPriceTick = 0.01;
    core.contracts.push_back(contract);
    host.AddSymbol(code, market, number, 2);
}

CZebError MakeError(int code, std::string_view text) {
    CZebError error{};
    error.nCode = code;
    text::CopyText(error.szText, text);
    return error;
}

}  // namespace tests
