// Four threads of a core call all operations of its side while the windows are painted, locked,
// closed and made anew.
//
// SPINE_CALLS sets how often each operation is called whose event shows no box, all threads
// together; by default that is seldom enough for every run.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <thread>

#include "platform/testing/input.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/tagged_block.h"
#include "plugin/qm_interface_ui.h"
#include "plugin/settings/login_blocks.h"
#include "tests/plugin/live_blocks.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/temp_folder.h"

class StepDataMap {};

namespace {

constexpr int kThreads = 4;
const StepDataMap kSteps;

int CallsOfEach() {
    const char* wanted = std::getenv("SPINE_CALLS");
    return wanted != nullptr ? std::max(std::atoi(wanted), kThreads) : 100;
}

/// Sees every event first, and whether those of one thread arrive in its order. It answers from
/// empty lists and writes nothing down.
class CountingCore : public tests::RecordingCore {
public:
    CountingCore() { logged_in = true; }

    void ShowLoginProgress(int, const char*) override {}
    void StartSession() override {}
    void NotifyEvent(int, WPARAM wParam, LPARAM lParam) override {
        ++events;
        if (wParam == EV_ORDER_CHANGE) {
            const auto& order = *reinterpret_cast<const CZebOrder*>(lParam);
            CheckOrder(order.nSession, order.nVolume);
        }
        if (wParam == EV_FUNCTION_RESULT) {
            int function = 0;
            std::memcpy(&function, reinterpret_cast<const char*>(lParam), sizeof(function));
            CheckOrder(kThreads + function % kThreads, function / kThreads);
        }
    }

    int events = 0;
    int out_of_order = 0;

private:
    void CheckOrder(int stream, int number) {
        int& last = last_[static_cast<std::size_t>(stream)];
        if (number <= last) ++out_of_order;
        last = number;
    }

    std::array<int, 2 * kThreads> last_{};
};

/// What a call is made with: which thread it is, and the how manyeth call of the thread.
struct Turn {
    CBaseUI& ui;
    int thread;
    int number;
};
using Call = void (*)(const Turn& turn);

CZebError Refused() { return {7, "refused"}; }

void Funds(const Turn& turn) {
    static const auto made = [] {
        CZebAccountSummary summary{};
        std::strcpy(summary.Available, "100");
        return summary;
    }();
    turn.ui.OnQueryAccountResult(nullptr, nullptr, const_cast<CZebAccountSummary*>(&made), 1,
                                 kSteps);
}

void Order(const Turn& turn) {
    CZebOrder order{};
    order.nSession = turn.thread;
    order.nVolume = turn.number;
    turn.ui.OnOrderChange(nullptr, &order);
}

void Reply(const Turn& turn) {
    turn.ui.OnResult_WithReturnData(turn.number * kThreads + turn.thread, nullptr, nullptr, "text");
}

void PastTrade(const Turn& turn) {
    CZebTrade trade{};
    turn.ui.OnQueryTradeByDateResult(nullptr, nullptr, &trade, 1, 1);
}

void TransferRow(const Turn& turn) {
    CBankTransfer transfer{};
    turn.ui.OnQueryBankTransferResult(nullptr, nullptr, &transfer, 1, 1);
}

/// Operations whose events show no box.
const Call kQuiet[] = {
    [](const Turn& turn) { turn.ui.OnQueryNoticeResult(nullptr, nullptr, nullptr, 1); },
    [](const Turn& turn) { turn.ui.OnQueryCFMMCResult(nullptr, nullptr, nullptr, 1); },
    [](const Turn& turn) { turn.ui.OnBatchQueryResult(nullptr, nullptr, 1); },
    Funds,
    [](const Turn& turn) { turn.ui.OnQueryMarginRateResult(nullptr, nullptr, "", "", 1); },
    [](const Turn& turn) {
        CQueryMaxVolumeResult result{};
        turn.ui.OnQueryMaxVolumeResult(nullptr, nullptr, &result, 1);
    },
    PastTrade,
    [](const Turn& turn) { turn.ui.OnInsertOrderResult(nullptr, nullptr, nullptr, 1); },
    [](const Turn& turn) {
        CBankResult result{};
        turn.ui.OnQueryBankBalanceResult(nullptr, nullptr, &result, 1);
    },
    TransferRow,
    [](const Turn& turn) {
        turn.ui.OnQueryBankTransferWithLSHResult(nullptr, nullptr, nullptr, 1, 1);
    },
    Order,
    [](const Turn& turn) {
        CZebTrade trade{};
        turn.ui.OnTrade(nullptr, &trade);
    },
    [](const Turn& turn) {
        turn.ui.OnNetworkStatus(nullptr, ZEB_CONNECTION_TRADE, ZEB_CONNECTION_STATUS{});
    },
    [](const Turn& turn) { turn.ui.OnExchangeStatus(nullptr, "", ZEB_EXCHANGE_STATUS{}); },
    [](const Turn& turn) { turn.ui.OnSystemNotice(nullptr, ""); },
    [](const Turn& turn) { turn.ui.OnSystemInit(nullptr, 1); },
    [](const Turn& turn) { turn.ui.OnLowMemory(); },
    [](const Turn& turn) { turn.ui.OnError(nullptr, nullptr); },
    [](const Turn& turn) { turn.ui.OnUpdateOrderList(nullptr); },
    [](const Turn& turn) { turn.ui.OnUpdateTradeList(nullptr); },
    [](const Turn& turn) { turn.ui.OnUpdatePositionList(nullptr); },
    [](const Turn& turn) { turn.ui.OnUpdatePositionDetailList(nullptr); },
    [](const Turn& turn) { turn.ui.OnUpdatePositionGroupList(nullptr); },
    [](const Turn& turn) { turn.ui.OnStopProfitLossMsg(nullptr, "", "", 1, 1); },
    [](const Turn& turn) {
        turn.ui.OnChasePriceMsg(nullptr, "", "", ChasePrice_STATUS{}, 1, 1, 1);
    },
    [](const Turn& turn) { turn.ui.OnCombinationMsg("key", 1); },
    [](const Turn& turn) { turn.ui.OnUpdateChasePriceList(); },
    Reply,
    [](const Turn& turn) { turn.ui.OnHeartRequestResult(nullptr, nullptr, nullptr, 1); },
};

/// Those that keep their block, or keep their caller waiting while everything is read anew.
const Call kSeldom[] = {
    [](const Turn& turn) {
        CLoginResult result{};
        turn.ui.OnLoginResult(nullptr, nullptr, &result, 1);
    },
    [](const Turn& turn) { turn.ui.OnQuerySettleResult(nullptr, nullptr, nullptr, 1, 1); },
    [](const Turn& turn) { turn.ui.OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr); },
};

/// Those that show one.
const Call kBoxes[] = {
    [](const Turn& turn) { turn.ui.OnQueryNoticeResult(nullptr, nullptr, "notice", 1); },
    [](const Turn& turn) {
        CZebError error = Refused();
        turn.ui.OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_ERROR, &error);
    },
    [](const Turn& turn) {
        CZebError error = Refused();
        turn.ui.OnBatchQueryResult(nullptr, &error, 1);
    },
    [](const Turn& turn) {
        CZebError error = Refused();
        turn.ui.OnQueryAccountResult(nullptr, &error, nullptr, 1, kSteps);
    },
    [](const Turn& turn) {
        CZebError error = Refused();
        turn.ui.OnInsertOrderResult(nullptr, &error, nullptr, 1);
    },
    [](const Turn& turn) { turn.ui.OnCancelOrderResult(nullptr, nullptr, "a", "b", 1); },
    [](const Turn& turn) { turn.ui.OnChangePasswordResult(nullptr, nullptr, 1); },
    [](const Turn& turn) {
        CBankResult result{1, {}, 0, {}};
        turn.ui.OnBankTransferResult(nullptr, nullptr, &result, 1);
    },
    [](const Turn& turn) {
        turn.ui.OnNetworkStatus(nullptr, ZEB_CONNECTION_TRADE, ZEB_CONNECTION_BROKEN);
    },
    [](const Turn& turn) { turn.ui.OnSystemNotice(nullptr, "notice"); },
    Order,
    Reply,
};

class CoreStorm : public ::testing::Test {
protected:
    CoreStorm() {
        platform::testing::StopClock();
        frame_.CreateEx(0, nullptr, "host", WS_POPUP | WS_VISIBLE, RECT{0, 0, 900, 500}, nullptr,
                        0);
        core_.Omit({"GetPositionDetailList", "GetPositionGroupList", "GetContractList",
                    "GetOrderList", "GetTradeList", "GetPositionList", "GetBankList",
                    "ShowStatusText", "ForwardEvent", "IsLoggedIn", "GetSkinBitmap", "GetSkinColor",
                    "GetPanelBackColor", "QueryAccount", "ReportSettlementText"});
        Open();
    }
    ~CoreStorm() override {
        g_storm = nullptr;
        frame_.DestroyWindow();
        platform::testing::Pump();
    }

    void Open() {
        ui_.Create(0, 0, 900, 500, frame_);
        panel_ = ui_.CreatePanel(0, 0, 0, 0, frame_);
        ui_.OnSize(600, 0, 250, 450, panel_);
        ui_.ShowWindow(SW_SHOW, panel_);
    }

    /// What a user and a host do meanwhile, one thing after the other.
    void DoSomething() {
        switch (deed_++ % 8) {
            case 0: ui_.LockScreen(1); break;
            case 1: ui_.LockScreen(0); break;
            case 2: ui_.ShowWindow(SW_HIDE, 0); break;
            case 3: ui_.ShowWindow(SW_SHOW, 0); break;
            case 4: ui_.Close(); break;
            case 5: ui_.OnDestroyWindow(panel_); break;
            case 6: ui_.OnDestroyWindow(0); break;
            default: Open(); break;
        }
        frame_.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }

    /// Calls each of `calls` so often, all threads together, and serves the windows meanwhile.
    template <std::size_t N>
    void Run(const Call (&calls)[N], int times) {
        std::atomic<int> running = kThreads;
        std::vector<std::thread> threads;
        for (int thread = 0; thread < kThreads; ++thread) {
            threads.emplace_back([&, thread] {
                for (int number = 1; number <= times / kThreads; ++number) {
                    const Turn turn{ui_, thread, first_ + number};
                    for (const Call call : calls) call(turn);
                }
                --running;
                ::PostMessageA(frame_, WM_NULL, 0, 0);
            });
        }
        constexpr int kMessagesBetweenDeeds = 50;
        MSG message;
        for (int count = 1; running > 0; ++count) {
            if (::GetMessageA(&message, nullptr, 0, 0) <= 0) break;
            ::TranslateMessage(&message);
            ::DispatchMessageA(&message);
            if (count % kMessagesBetweenDeeds == 0) DoSomething();
        }
        for (std::thread& thread : threads) thread.join();
        first_ += times;
        platform::testing::Pump();
    }

    void ExpectNothingLost() {
        ui_.OnDestroyWindow(0);
        EXPECT_GT(core_.events, 0);
        EXPECT_EQ(core_.out_of_order, 0);
    }

    /// Answers the topmost box each time the windows have nothing to do.
    void AnswerBoxes() {
        g_storm = this;
        platform::testing::WhenIdle(OnIdle, nullptr);
    }

private:
    static void OnIdle(void*) {
        if (g_storm == nullptr) return;
        platform::testing::WhenIdle(OnIdle, nullptr);
        // A deed may have taken the activation away from the boxes that are open.
        HWND box = nullptr;
        ::EnumThreadWindows(::GetCurrentThreadId(), FindBox, reinterpret_cast<LPARAM>(&box));
        if (box == nullptr) return;
        if (++g_storm->answers_ % 10 == 0) g_storm->DoSomething();
        ::PostMessageA(box, WM_COMMAND, IDOK, 0);
    }

    static BOOL CALLBACK FindBox(HWND window, LPARAM found) {
        if (window == g_storm->frame_.GetSafeHwnd() || !::IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }

    static inline CoreStorm* g_storm = nullptr;

    testing_support::TempFolder folder_;
    tests::RecordingHost host_;
    CountingCore core_;
    tests::FrontEndDoors doors_{core_, host_};
    CWnd frame_;
    QmInterfaceUI ui_;
    unsigned int panel_ = 0;
    int deed_ = 0;
    int answers_ = 0;
    int first_ = 0;
};

/// Blocks that nobody will free: the pages' own are gone with their pages.
int LostBlocks() { return tests::LiveBlocks() - static_cast<int>(KeptLoginBlocks().size()); }

class CoreStorms : public CoreStorm {};

TEST_F(CoreStorms, LoseNoBlockAndKeepTheOrderOfEachThread) {
    Run(kQuiet, CallsOfEach());
    ExpectNothingLost();
}

TEST_F(CoreStorms, LoseNoBlockWhileTheCallersWaitForTheWindows) {
    Run(kSeldom, std::min(CallsOfEach(), 400));
}

TEST_F(CoreStorms, LoseNoBlockWhileBoxesAreAnswered) {
    AnswerBoxes();
    Run(kBoxes, std::min(CallsOfEach(), 100));
    ExpectNothingLost();
}

/// Runs when the tests above are through and have let go of their windows.
class BlocksAtTheEnd : public ::testing::Environment {
public:
    void TearDown() override { EXPECT_EQ(LostBlocks(), 0); }
};

[[maybe_unused]] const auto* const kBlocksAtTheEnd =
    ::testing::AddGlobalTestEnvironment(new BlocksAtTheEnd);

}  // namespace
