#include <atomic>
#include <condition_variable>
#include <cstring>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "bench/ratio.h"
#include "platform/system.h"

namespace {

constexpr std::size_t kBlockBytes = 1032;
constexpr int kBlocks = 500;  // of one call: an event storm of a busy second
constexpr UINT kBlockPosted = WM_APP + 1;

struct Block {
    char bytes[kBlockBytes];
};

Block* MakeBlock(int number) {
    auto* const block = new Block;
    std::memset(block->bytes, number, sizeof block->bytes);
    return block;
}

/// What a handler does with a block: it reads a little, and lets it go.
class Reader {
public:
    void Take(const Block* block) {
        sum_ += block->bytes[0] + block->bytes[kBlockBytes - 1];
        delete block;
        ++taken_;
    }
    int taken() const { return taken_; }
    void StartOver() { taken_ = 0; }

private:
    int sum_ = 0;
    int taken_ = 0;
};

/// A thread that makes a batch of blocks whenever it is asked to.
class Producer {
public:
    explicit Producer(std::function<void(Block*)> deliver)
        : deliver_(std::move(deliver)), thread_([this] { Run(); }) {}
    ~Producer() {
        stop_ = true;
        Start();
        thread_.join();
    }
    Producer(const Producer&) = delete;
    Producer& operator=(const Producer&) = delete;

    void Start() {
        ++wanted_;
        wanted_.notify_one();
    }

private:
    void Run() {
        for (int done = 0;; ++done) {
            wanted_.wait(done);
            if (stop_) return;
            for (int i = 0; i < kBlocks; ++i) deliver_(MakeBlock(i));
        }
    }

    std::function<void(Block*)> deliver_;
    std::atomic<int> wanted_ = 0;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

/// Through the message queue to a window procedure.
class Posting {
public:
    Posting() {
        WNDCLASSA window_class{};
        window_class.lpfnWndProc = Procedure;
        window_class.lpszClassName = "QueueBench";
        RegisterClassA(&window_class);
        window_ = CreateWindowExA(0, "QueueBench", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                  nullptr, nullptr);
    }

    void Run() {
        reader_.StartOver();
        producer_.Start();
        MSG message;
        while (reader_.taken() < kBlocks && GetMessageA(&message, nullptr, 0, 0) > 0) {
            DispatchMessageA(&message);
        }
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != kBlockPosted) return DefWindowProcA(window, message, wParam, lParam);
        reader_.Take(reinterpret_cast<const Block*>(lParam));
        return 0;
    }

    static inline Reader reader_;
    HWND window_ = nullptr;
    Producer producer_{[this](Block* block) {
        PostMessageA(window_, kBlockPosted, 0, reinterpret_cast<LPARAM>(block));
    }};
};

/// The least that carries a block from one thread to another.
class Handing {
public:
    void Run() {
        reader_.StartOver();
        producer_.Start();
        std::vector<Block*> taken;
        while (reader_.taken() < kBlocks) {
            {
                std::unique_lock lock(mutex_);
                arrived_.wait(lock, [this] { return !blocks_.empty(); });
                taken.swap(blocks_);
            }
            for (Block* block : taken) reader_.Take(block);
            taken.clear();
        }
    }

private:
    void Deliver(Block* block) {
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
    std::vector<Block*> blocks_;
    Producer producer_{[this](Block* block) { Deliver(block); }};
};

RATIO("queue.post_over_mutex_vector") {
    static Posting posting;
    static Handing handing;
    return {[] { posting.Run(); }, [] { handing.Run(); }};
}

}  // namespace
