#pragma once

#include <windows.h>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace present {
class Screen;
struct Event;
}  // namespace present

namespace winbase {

/// Which messages a call asks for.
struct MessageFilter {
    HWND window = nullptr;     ///< with its descendants; null for all
    bool thread_only = false;  ///< only messages without a window
    UINT first = 0;            ///< both 0 for all
    UINT last = 0;

    bool TakesAll() const { return window == nullptr && !thread_only && first == 0 && last == 0; }
    bool TakesMessage(UINT message) const {
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
    bool TakesWindow(HWND handle) const;
    bool Takes(HWND handle, UINT message) const {
        return TakesMessage(message) && TakesWindow(handle);
    }
};

/// A message sent from another thread, or a call that is to run on the user interface thread.
struct Request {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    std::function<void()> call;
    LRESULT result = 0;
    bool delivered = false;  ///< the window was there
    bool answered = false;
    bool abandoned = false;  ///< the sender waited long enough; what lParam shows may be gone
};

/// Messages on their way to the user interface thread. Post, Send, Answer and Wake are for any
/// thread, the rest for the user interface thread.
class MessageQueue {
public:
    /// False when 10,000 messages wait already.
    bool Post(const MSG& message);
    void Send(const std::shared_ptr<Request>& request);
    /// Waits until the request is answered; false when it was not within `millis` (-1: no end).
    bool WaitForAnswer(Request& request, int millis);
    void Answer(Request& request, LRESULT result);
    void Wake();

    /// The next request in the order of sending, or null.
    std::shared_ptr<Request> NextRequest();
    bool TakePosted(const MessageFilter& filter, bool remove, MSG& message);
    bool HasPosted();
    bool HasRequest() const { return has_requests_; }
    /// Drops what was posted to a window.
    void Forget(HWND window);
    /// Sleeps up to `millis` (-1: no end) unless something arrived since the sleep before. With a
    /// screen it waits there and answers the input events.
    std::vector<present::Event> Sleep(int millis, present::Screen* screen);

    /// Kinds of messages (QS_...) that arrived since the bits were taken.
    void AddNews(UINT bits) { news_ |= bits; }
    UINT News() const { return news_; }
    UINT TakeNews() { return news_.exchange(0); }

private:
    static constexpr std::size_t kMostPosted = 10'000;

    void Drain();
    void WakeLocked();

    std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable answered_;
    std::vector<MSG> incoming_;
    std::vector<MSG> drained_;
    std::deque<std::shared_ptr<Request>> requests_;
    bool woken_ = false;
    bool asleep_ = false;
    present::Screen* asleep_in_ = nullptr;
    std::atomic<bool> has_incoming_ = false;
    std::atomic<bool> has_requests_ = false;
    std::atomic<std::size_t> posted_count_ = 0;
    std::atomic<UINT> news_ = 0;
    std::deque<MSG> posted_;  ///< the user interface thread's own
};

/// The one queue there is.
MessageQueue& TheQueue();

}  // namespace winbase
