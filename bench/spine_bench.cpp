// A changed order on its way from a thread of the core to the main dialog: how long it takes, and
// what a million of them leave behind.

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "bench/ratio.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/tagged_block.h"
#include "plugin/qm_interface_ui.h"
#include "tests/support/front_end/recording_core.h"

namespace {

constexpr int kOrders = 500;  // of one call, all threads together: a storm of a busy second
constexpr int kMostThreads = 4;

/// Threads that push orders whenever they are asked to.
class Producers {
public:
    Producers(int threads, std::function<void(CZebOrder&)> push) : push_(std::move(push)) {
        for (int i = 0; i < threads; ++i) {
            threads_.emplace_back([this, threads] { Run(kOrders / threads); });
        }
    }
    ~Producers() {
        stop_ = true;
        Start();
        for (std::thread& thread : threads_) thread.join();
    }
    Producers(const Producers&) = delete;
    Producers& operator=(const Producers&) = delete;

    void Start() {
        ++wanted_;
        wanted_.notify_all();
    }

private:
    void Run(int orders) {
        CZebOrder order{};
        for (int done = 0;; ++done) {
            wanted_.wait(done);
            if (stop_) return;
            for (int i = 0; i < orders; ++i) push_(order);
        }
    }

    std::function<void(CZebOrder&)> push_;
    std::atomic<int> wanted_ = 0;
    std::atomic<bool> stop_ = false;
    std::vector<std::thread> threads_;
};

/// What either way's handler does with a block.
class Reader {
public:
    void Take(void* block) {
        const auto* bytes = static_cast<const char*>(block);
        sum_ += bytes[0] + bytes[sizeof(CZebOrder) - 1];
        FreeTaggedBlock(block);
        ++taken_;
    }
    int taken() const { return taken_; }
    void StartOver() { taken_ = 0; }

private:
    int sum_ = 0;
    int taken_ = 0;
};

/// A logged-in core that writes nothing down and counts the events.
class QuietCore : public tests::RecordingCore {
public:
    QuietCore() { logged_in = true; }
    void NotifyEvent(int, WPARAM, LPARAM) override { ++events; }
    void ShowStatusText(const char*, int) override {}

    int events = 0;
};

class FrontEnd {
public:
    FrontEnd() {
        ui.SetUICallBack(&core);
        frame_.CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, CRect(0, 0, 900, 600), nullptr, 0);
        ui.Create(0, 0, 900, 600, frame_);
    }
    ~FrontEnd() { ui.SetUICallBack(nullptr); }
    FrontEnd(const FrontEnd&) = delete;
    FrontEnd& operator=(const FrontEnd&) = delete;

    QuietCore core;

private:
    CWnd frame_;
    QmInterfaceUI ui_;

public:
    CBaseUI& ui = ui_;
};

template <class Done>
void PumpUntil(Done done) {
    MSG message;
    while (!done() && GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
}

/// Through the exported class to the window procedure of the main dialog.
class Pushing {
public:
    explicit Pushing(int threads)
        : producers_(threads,
                     [this](CZebOrder& order) { one_.ui.OnOrderChange(nullptr, &order); }) {
        const HWND main = one_.ui.GetMainDlg()->GetSafeHwnd();
        g_next = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(main, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
    }

    void Run() {
        g_reader.StartOver();
        producers_.Start();
        PumpUntil([] { return g_reader.taken() >= kOrders; });
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_CORE_EVENT) {
            return CallWindowProcA(g_next, window, message, wParam, lParam);
        }
        g_reader.Take(reinterpret_cast<void*>(lParam));
        return 0;
    }

    static inline Reader g_reader;
    static inline WNDPROC g_next = nullptr;
    FrontEnd one_;
    Producers producers_;
};

/// The least that carries the same copy from threads to another one.
class Handing {
public:
    explicit Handing(int threads)
        : producers_(threads, [this](CZebOrder& order) { Deliver(order); }) {}

    void Run() {
        reader_.StartOver();
        producers_.Start();
        std::vector<void*> taken;
        while (reader_.taken() < kOrders) {
            {
                std::unique_lock lock(mutex_);
                arrived_.wait(lock, [this] { return !blocks_.empty(); });
                taken.swap(blocks_);
            }
            for (void* block : taken) reader_.Take(block);
            taken.clear();
        }
    }

private:
    void Deliver(const CZebOrder& order) {
        void* const block = AllocTaggedBlock(sizeof(order));
        std::memcpy(block, &order, sizeof(order));
        bool first = false;
        {
            const std::lock_guard lock(mutex_);
            first = blocks_.empty();
            blocks_.push_back(block);
        }
        if (first) arrived_.notify_one();
    }

    Reader reader_;
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::vector<void*> blocks_;
    Producers producers_;
};

bench::Pair PushAndHand(int threads) {
    const auto pushing = std::make_shared<Pushing>(threads);
    const auto handing = std::make_shared<Handing>(threads);
    return {[pushing] { pushing->Run(); }, [handing] { handing->Run(); }};
}

RATIO("spine.push_over_mutex_vector") { return PushAndHand(1); }

RATIO("spine.push_over_mutex_vector_4_threads") { return PushAndHand(kMostThreads); }

/// What the process holds, in bytes.
struct Holding {
    double heap;
    double resident;
};

Holding Measure() {
    const struct mallinfo2 heap = mallinfo2();
    long pages = 0;
    if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%*s %ld", &pages) != 1) pages = 0;
        std::fclose(file);
    }
    constexpr double kPageBytes = 4096;
    return {static_cast<double>(heap.uordblks + heap.hblkhd),
            static_cast<double>(pages) * kPageBytes};
}

/// What a million orders leave behind that went the whole way through their event's case.
Holding LeftByAMillion() {
    constexpr int kMillion = 1'000'000;
    FrontEnd one;
    Producers producers(kMostThreads,
                        [&one](CZebOrder& order) { one.ui.OnOrderChange(nullptr, &order); });
    const auto push = [&](int orders) {
        one.core.events = 0;
        for (int sent = kOrders; sent <= orders; sent += kOrders) {
            producers.Start();
            PumpUntil([&] { return one.core.events >= sent; });
        }
    };
    push(kMillion / 100);  // first uses are over
    const Holding before = Measure();
    push(kMillion);
    const Holding after = Measure();
    return {after.heap - before.heap, after.resident - before.resident};
}

const Holding& Left() {
    static const Holding left = LeftByAMillion();
    return left;
}

MEASURE("spine.blocks_alive_after_1e6") {
    return std::max(0.0, static_cast<double>(static_cast<int>(Left().heap / sizeof(CZebOrder))));
}

MEASURE("spine.rss_growth_mb_after_1e6") { return Left().resident / 1e6; }

}  // namespace
