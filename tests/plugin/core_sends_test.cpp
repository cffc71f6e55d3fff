// The operations of the core's side that wait until their events are handled.

#include <gmock/gmock.h>

#include <atomic>
#include <cstring>
#include <thread>

#include "platform/testing/input.h"
#include "plugin/contract/messages.h"
#include "tests/plugin/interface_test.h"
#include "tests/support/gbk_text.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::MakeError;

/// Only the pages' own core knows what is in one.
CQuerySettleResult* SettleResult() {
    static char record[16] = "settlement";
    return reinterpret_cast<CQuerySettleResult*>(record);
}

HWND g_frame = nullptr;

/// Presses Enter in the box over the frame once there is one.
void AnswerBox(void* seen) {
    const HWND active = ::GetActiveWindow();
    if (active == nullptr || active == g_frame) {
        platform::testing::WhenIdle(AnswerBox, seen);
        return;
    }
    *static_cast<bool*>(seen) = true;
    ::PostMessageA(active, WM_COMMAND, IDOK, 0);
}

class CoreSends : public tests::InterfaceTest {
protected:
    CoreSends() {
        core.on_call = [this](std::string_view line) {
            for (const char* name : {"StartSession", "ShowLoginProgress", "NotifyEvent"}) {
                if (line.starts_with(name)) calls_.emplace_back(line);
            }
        };
    }
    ~CoreSends() override { core.on_call = nullptr; }

    std::vector<std::string> TakeCalls() { return std::exchange(calls_, {}); }

    /// Runs `work` on another thread, and the windows on this one until it is through.
    template <class Work>
    void OnAnotherThread(Work work) {
        std::atomic<bool> through = false;
        std::thread thread([&] {
            work();
            through = true;
            ::PostMessageA(frame, WM_NULL, 0, 0);
        });
        MSG message;
        while (!through && ::GetMessageA(&message, nullptr, 0, 0) > 0) {
            ::DispatchMessageA(&message);
        }
        thread.join();
    }

    CZebError refused_ = MakeError(7, "资金不足");

private:
    std::vector<std::string> calls_;
};

/// Stands before the main dialog's procedure and keeps what the settlement's events carry.
class SettlementWatch {
public:
    explicit SettlementWatch(HWND main) : main_(main) {
        g_next = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(main, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    }
    ~SettlementWatch() {
        ::SetWindowLongPtrA(main_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_next));
    }
    SettlementWatch(const SettlementWatch&) = delete;
    SettlementWatch& operator=(const SettlementWatch&) = delete;

    static inline LPARAM g_record = 0;
    static inline std::string g_text;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_CORE_EVENT && wParam == 0x04) g_record = lParam;
        if (message == WM_CORE_EVENT && wParam == 0x40004) {
            g_text = reinterpret_cast<const char*>(lParam);
        }
        return ::CallWindowProcA(g_next, window, message, wParam, lParam);
    }

    static inline WNDPROC g_next = nullptr;
    HWND main_;
};

TEST_F(CoreSends, HandTheSettlementOverAndThenStartTheSession) {
    Start();
    const SettlementWatch watch(Main());
    ui->OnQuerySettleResult(nullptr, nullptr, SettleResult(), 1, 0);
    EXPECT_THAT(TakeCalls(), ElementsAre("NotifyEvent(4, 0x04)"));
    EXPECT_EQ(watch.g_record, reinterpret_cast<LPARAM>(SettleResult()));
    ui->OnQuerySettleResult(nullptr, nullptr, nullptr, 1, 1);
    EXPECT_THAT(TakeCalls(), ElementsAre("NotifyEvent(4, 0x04)", "StartSession()"));
    EXPECT_EQ(watch.g_record, 0);
    ui->OnQuerySettleResult(nullptr, &refused_, SettleResult(), 1, 1);
    EXPECT_THAT(TakeCalls(), ElementsAre("NotifyEvent(4, 0x04 failed)", "StartSession()"));
    EXPECT_GBK_EQ("资金不足", watch.g_text);
}

TEST_F(CoreSends, LeaveTheSettlementAloneWithoutAMainDialog) {
    ui->OnQuerySettleResult(nullptr, nullptr, SettleResult(), 1, 1);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(CoreSends, BringThePagesUpBeforeTheCoreGoesOn) {
    Start();
    OnAnotherThread([this] {
        ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
        EXPECT_EQ(core.CallsOf("NotifyInitDone").size(), 1u);
    });
    EXPECT_THAT(TakeCalls(),
                ElementsAre("ShowLoginProgress(0, \"\") [other thread]", "NotifyEvent(4, 0x28)",
                            "NotifyEvent(4, 0x08)", "NotifyEvent(4, 0x17)"));
}

TEST_F(CoreSends, TellTheCoreHowFarTheLoginHasCome) {
    ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_CONNECTING, nullptr);
    ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_SESSION, nullptr);
    ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
    ui->OnLoginPrompt(nullptr, static_cast<ZEB_LOGIN_PROMPT>(-1), nullptr);
    EXPECT_THAT(TakeCalls(), ElementsAre("ShowLoginProgress(0, \"正在连接...\")", "StartSession()",
                                         "ShowLoginProgress(0, \"\")", "ShowLoginProgress(0, \"\")",
                                         "ShowLoginProgress(0, \"\")"))
        << "all of it without a main dialog";
}

TEST_F(CoreSends, ShowAnErrorOfTheLoginAndGoOn) {
    platform::testing::SeenBox seen;
    platform::testing::AnswerNextBox(IDOK, &seen);
    ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_SESSION, &refused_);
    EXPECT_TRUE(seen.shown);
    EXPECT_EQ(seen.title, text::Utf8FromGbk("错误"));
    EXPECT_EQ(seen.text, text::Utf8FromGbk("资金不足"));
    EXPECT_THAT(TakeCalls(), ElementsAre("StartSession()"));
}

TEST_F(CoreSends, ShowAnErrorFromAnotherThreadAndWaitForItsAnswer) {
    static bool g_seen;
    g_seen = false;
    g_frame = frame;
    platform::testing::WhenIdle(AnswerBox, &g_seen);
    OnAnotherThread([this] { ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_ERROR, &refused_); });
    EXPECT_TRUE(g_seen);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(CoreSends, DoWithoutACore) {
    Start();
    ui->SetUICallBack(nullptr);
    ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_SESSION, nullptr);
    ui->OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
    ui->OnQuerySettleResult(nullptr, nullptr, nullptr, 1, 1);
    ui->Close();
    EXPECT_TRUE(::IsWindow(Main()));
}

}  // namespace
