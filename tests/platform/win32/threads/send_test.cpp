// Messages that other threads post and send to the windows of the user interface thread.

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/system.h"
#include "platform/testing/input.h"

namespace {

constexpr UINT kPlain = WM_USER + 1;  // answers 11
constexpr UINT kPosted = WM_USER + 3;
constexpr UINT kReply = WM_USER + 5;   // answers 15 early
constexpr UINT kNested = WM_USER + 6;  // serves the queue while it is handled
constexpr UINT kGo = WM_USER + 7;      // ends a loop
constexpr UINT kDestroy = WM_USER + 8;

class Sending : public ::testing::Test {
protected:
    Sending() {
        g_test = this;
        WNDCLASSA window_class{};
        window_class.lpfnWndProc = Procedure;
        window_class.hInstance = GetModuleHandleA(nullptr);
        window_class.lpszClassName = "SendingWindow";
        RegisterClassA(&window_class);
        window_ = CreateWindowExA(0, "SendingWindow", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                  GetModuleHandleA(nullptr), nullptr);
        platform::testing::Pump();
    }
    ~Sending() override {
        DestroyWindow(window_);
        platform::testing::Pump();
        g_test = nullptr;
    }

    void Note(const std::string& text) {
        const std::lock_guard lock(mutex_);
        log_ += text + "; ";
    }
    std::string Log() {
        const std::lock_guard lock(mutex_);
        return log_;
    }

    /// Runs a loop until `count` threads have posted kGo.
    void LoopUntil(int count) {
        MSG message;
        while (ended_ < count && GetMessageA(&message, nullptr, 0, 0) > 0) {
            DispatchMessageA(&message);
        }
    }

    /// Runs `work` on another thread and the loop on this one until it is done.
    void While(const std::function<void()>& work) {
        const int wanted = ended_ + 1;
        std::thread other([&] {
            work();
            PostMessageA(window_, kGo, 0, 0);
        });
        LoopUntil(wanted);
        other.join();
    }

    HWND window_ = nullptr;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (g_test == nullptr) return DefWindowProcA(window, message, wParam, lParam);
        return g_test->Handle(window, message, wParam, lParam);
    }

    LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case kPlain: Note(InSendMessage() ? "sent" : "direct"); return 11;
            case kPosted: Note(InSendMessage() ? "posted in a send" : "posted"); return 0;
            case kReply:
                Note(ReplyMessage(15) ? "replied" : "nobody to reply to");
                Note("done");
                return 16;
            case kNested:
                Note("begin");
                platform::testing::Pump();
                Note("end");
                return 17;
            case kGo: ++ended_; return 0;
            case kDestroy: DestroyWindow(window); return 18;
            default: return DefWindowProcA(window, message, wParam, lParam);
        }
    }

    static inline Sending* g_test = nullptr;
    std::mutex mutex_;
    std::string log_;
    int ended_ = 0;
};

TEST_F(Sending, AThreadGetsItsAnswer) {
    LRESULT answer = 0;
    While([&] { answer = SendMessageA(window_, kPlain, 0, 0); });
    EXPECT_EQ(answer, 11);
    EXPECT_EQ(SendMessageA(window_, kPlain, 0, 0), 11);
    EXPECT_EQ(Log(), "sent; direct; ");
}

TEST_F(Sending, SentMessagesComeBeforePostedOnes) {
    std::atomic<bool> waiting = false;
    std::thread other([&] {
        PostMessageA(window_, kPosted, 0, 0);
        waiting = true;
        SendMessageA(window_, kPlain, 0, 0);
        PostMessageA(window_, kGo, 0, 0);
    });
    // Nothing is served until this thread asks its queue.
    while (!waiting || (GetQueueStatus(QS_SENDMESSAGE) >> 16) == 0) std::this_thread::yield();
    EXPECT_EQ(Log(), "");
    LoopUntil(1);
    other.join();
    EXPECT_EQ(Log(), "sent; posted; ");
}

TEST_F(Sending, LookingAloneLetsASendThrough) {
    std::atomic<bool> answered = false;
    std::thread other([&] {
        SendMessageA(window_, kPlain, 0, 0);
        answered = true;
    });
    MSG message;
    while (!answered) PeekMessageA(&message, window_, kGo, kGo, PM_NOREMOVE);
    other.join();
    EXPECT_EQ(Log(), "sent; ");
}

TEST_F(Sending, AnEarlyReplyCounts) {
    LRESULT answer = 0;
    While([&] { answer = SendMessageA(window_, kReply, 0, 0); });
    EXPECT_EQ(answer, 15);
    EXPECT_EQ(SendMessageA(window_, kReply, 0, 0), 16);
    EXPECT_EQ(Log(), "replied; done; nobody to reply to; done; ");
}

TEST_F(Sending, ASendIsServedInTheLoopInsideAnother) {
    std::atomic<int> begun = 0;
    std::thread first([&] {
        ++begun;
        EXPECT_EQ(SendMessageA(window_, kNested, 0, 0), 17);
        PostMessageA(window_, kGo, 0, 0);
    });
    std::thread second([&] {
        ++begun;
        EXPECT_EQ(SendMessageA(window_, kPlain, 0, 0), 11);
        PostMessageA(window_, kGo, 0, 0);
    });
    LoopUntil(2);
    first.join();
    second.join();
    EXPECT_EQ(begun, 2);
}

TEST_F(Sending, ASilentReceiverTimesOut) {
    // This thread serves nothing while it waits for the other one.
    DWORD error = 0;
    LRESULT sent = 1;
    DWORD_PTR result = 77;
    std::thread other([&] {
        sent = SendMessageTimeoutA(window_, kPlain, 0, 0, SMTO_NORMAL, 20, &result);
        error = GetLastError();
    });
    other.join();
    EXPECT_EQ(sent, 0);
    EXPECT_EQ(error, DWORD{ERROR_TIMEOUT});
    EXPECT_EQ(result, DWORD_PTR{77});
    platform::testing::Pump();
    EXPECT_EQ(Log(), "") << "what it showed to its receiver may be gone by now";
}

TEST_F(Sending, AnAnswerInTimeIsHandedOver) {
    DWORD_PTR result = 0;
    LRESULT sent = 0;
    While([&] {
        sent = SendMessageTimeoutA(window_, kPlain, 0, 0, SMTO_ABORTIFHUNG, 60'000, &result);
    });
    EXPECT_NE(sent, 0);
    EXPECT_EQ(result, DWORD_PTR{11});
}

TEST_F(Sending, ANotificationDoesNotWait) {
    std::thread other([&] { EXPECT_TRUE(SendNotifyMessageA(window_, kPlain, 0, 0)); });
    other.join();
    EXPECT_EQ(Log(), "");
    platform::testing::Pump();
    EXPECT_EQ(Log(), "sent; ");
}

TEST_F(Sending, WindowsThatAreGoneRefuse) {
    const DWORD loop = GetCurrentThreadId();
    LRESULT first = 0;
    std::thread other([&] {
        first = SendMessageA(window_, kDestroy, 0, 0);
        SetLastError(0);
        EXPECT_EQ(SendMessageA(window_, kPlain, 0, 0), 0);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
        EXPECT_FALSE(PostMessageA(window_, kPlain, 0, 0));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
        EXPECT_FALSE(SendNotifyMessageA(window_, kPlain, 0, 0));
        EXPECT_TRUE(PostThreadMessageA(loop, kGo, 0, 0));
    });
    MSG message{};
    while (message.message != kGo) ASSERT_GT(GetMessageA(&message, nullptr, 0, 0), 0);
    other.join();
    EXPECT_EQ(first, 18);
    EXPECT_EQ(message.hwnd, nullptr);
}

TEST_F(Sending, EveryPostArrivesOnceAndInOrder) {
    constexpr int kThreads = 4;
    constexpr int kPosts = 2000;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([this, thread] {
            for (int i = 0; i < kPosts; ++i) {
                PostMessageA(window_, WM_APP, static_cast<WPARAM>(thread), i);
            }
        });
    }
    std::vector<LPARAM> next(kThreads, 0);
    MSG message;
    for (int received = 0; received < kThreads * kPosts; ++received) {
        ASSERT_GT(GetMessageA(&message, window_, WM_APP, WM_APP), 0);
        LPARAM& expected = next[static_cast<std::size_t>(message.wParam)];
        ASSERT_EQ(message.lParam, expected);
        ++expected;
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_FALSE(PeekMessageA(&message, window_, WM_APP, WM_APP, PM_REMOVE));
}

TEST_F(Sending, ManyThreadsSendAtOnce) {
    constexpr int kThreads = 4;
    constexpr int kSends = 200;
    std::vector<std::thread> threads;
    std::atomic<int> good = 0;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([this, &good] {
            for (int i = 0; i < kSends; ++i) {
                if (SendMessageA(window_, kPlain, 0, 0) == 11) ++good;
            }
            PostMessageA(window_, kGo, 0, 0);
        });
    }
    LoopUntil(kThreads);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(good, kThreads * kSends);
}

TEST_F(Sending, AnotherThreadHasNoFocusAndNoKeys) {
    While([&] {
        EXPECT_EQ(GetFocus(), nullptr);
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_EQ(GetKeyState(VK_SHIFT), 0);
        EXPECT_FALSE(InSendMessage());
        EXPECT_FALSE(ReplyMessage(1));
        EXPECT_TRUE(IsWindow(window_));
    });
}

}  // namespace
