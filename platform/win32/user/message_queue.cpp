#include "platform/win32/user/message_queue.h"

#include <algorithm>
#include <chrono>

#include "platform/present/screen.h"

namespace winbase {

bool MessageFilter::TakesWindow(HWND handle) const {
    if (thread_only) return handle == nullptr;
    return window == nullptr || window == handle || IsChild(window, handle);
}

MessageQueue& TheQueue() {
    // Kept to the end: other threads may still post while the program's objects go.
    static auto* const queue = new MessageQueue;
    return *queue;
}

bool MessageQueue::Post(const MSG& message) {
    const std::lock_guard lock(mutex_);
    if (posted_count_ >= kMostPosted) return false;
    incoming_.push_back(message);
    ++posted_count_;
    has_incoming_ = true;
    news_ |= QS_POSTMESSAGE;
    WakeLocked();
    return true;
}

void MessageQueue::Send(const std::shared_ptr<Request>& request) {
    const std::lock_guard lock(mutex_);
    requests_.push_back(request);
    has_requests_ = true;
    news_ |= QS_SENDMESSAGE;
    WakeLocked();
}

bool MessageQueue::WaitForAnswer(Request& request, int millis) {
    std::unique_lock lock(mutex_);
    const auto is_answered = [&request] { return request.answered; };
    if (millis < 0) {
        answered_.wait(lock, is_answered);
    } else if (!answered_.wait_for(lock, std::chrono::milliseconds(millis), is_answered)) {
        request.abandoned = true;
        return false;
    }
    return true;
}

void MessageQueue::Answer(Request& request, LRESULT result) {
    const std::lock_guard lock(mutex_);
    if (request.answered) return;
    request.result = result;
    request.answered = true;
    answered_.notify_all();
}

void MessageQueue::Wake() {
    const std::lock_guard lock(mutex_);
    WakeLocked();
}

void MessageQueue::WakeLocked() {
    woken_ = true;
    if (!asleep_) return;
    asleep_ = false;
    if (asleep_in_ != nullptr) {
        asleep_in_->Wake();
    } else {
        wake_.notify_one();
    }
}

std::shared_ptr<Request> MessageQueue::NextRequest() {
    if (!has_requests_) return nullptr;
    const std::lock_guard lock(mutex_);
    while (!requests_.empty()) {
        const std::shared_ptr<Request> request = requests_.front();
        requests_.pop_front();
        has_requests_ = !requests_.empty();
        if (!request->abandoned) return request;
    }
    return nullptr;
}

// Takes over what other threads posted in one go, so that they seldom meet this one at the lock.
void MessageQueue::Drain() {
    if (!has_incoming_) return;
    {
        const std::lock_guard lock(mutex_);
        drained_.swap(incoming_);
        has_incoming_ = false;
    }
    posted_.insert(posted_.end(), drained_.begin(), drained_.end());
    drained_.clear();
}

bool MessageQueue::TakePosted(const MessageFilter& filter, bool remove, MSG& message) {
    Drain();
    const auto found = std::find_if(posted_.begin(), posted_.end(), [&filter](const MSG& posted) {
        return filter.Takes(posted.hwnd, posted.message);
    });
    if (found == posted_.end()) return false;
    message = *found;
    if (remove) {
        posted_.erase(found);
        --posted_count_;
    }
    return true;
}

bool MessageQueue::HasPosted() {
    Drain();
    return !posted_.empty();
}

void MessageQueue::Forget(HWND window) {
    Drain();
    posted_count_ -=
        std::erase_if(posted_, [window](const MSG& posted) { return posted.hwnd == window; });
}

std::vector<present::Event> MessageQueue::Sleep(int millis, present::Screen* screen) {
    std::unique_lock lock(mutex_);
    std::vector<present::Event> events;
    asleep_ = !woken_;
    asleep_in_ = screen;
    if (screen != nullptr) {
        const int patience = woken_ ? 0 : millis;
        lock.unlock();
        events = screen->Wait(patience);
        lock.lock();
    } else if (millis < 0) {
        wake_.wait(lock, [this] { return woken_; });
    } else {
        wake_.wait_for(lock, std::chrono::milliseconds(millis), [this] { return woken_; });
    }
    asleep_ = false;
    asleep_in_ = nullptr;
    woken_ = false;
    return events;
}

}  // namespace winbase
