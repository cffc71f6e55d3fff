#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>

#include "host/market/market.h"

namespace terminal {

/// Lets the market's time pass, on a thread of its own, at the market's speed. While it is paused
/// the market moves by Step alone.
class Feed {
public:
    explicit Feed(market::Market& market) : market_(market) {}
    ~Feed() = default;
    Feed(const Feed&) = delete;
    Feed& operator=(const Feed&) = delete;

    void Start();
    void Stop();
    /// Any thread: runs something that moves the market, such as a step or a quote, while the
    /// feed's own thread doesn't.
    void WhileStill(const std::function<void(market::Market&)>& action);

private:
    void Run(const std::stop_token& stop);

    market::Market& market_;
    std::mutex moving_;
    std::mutex pausing_;
    std::condition_variable_any wake_;
    std::jthread thread_;
};

}  // namespace terminal
