#include "host/terminal/feed.h"

#include <chrono>

namespace terminal {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kPause(20);

}  // namespace

void Feed::Start() {
    if (thread_.joinable()) return;
    thread_ = std::jthread([this](const std::stop_token& stop) { Run(stop); });
}

void Feed::Stop() {
    thread_.request_stop();
    if (thread_.joinable()) thread_.join();
}

void Feed::WhileStill(const std::function<void(market::Market&)>& action) {
    const std::scoped_lock lock(moving_);
    action(market_);
}

void Feed::Run(const std::stop_token& stop) {
    Clock::time_point last = Clock::now();
    while (!stop.stop_requested()) {
        const Clock::time_point now = Clock::now();
        const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - last);
        last += passed;
        std::size_t told = 0;
        if (passed.count() > 0) {
            WhileStill([&](market::Market& market) { told = market.Pass(passed.count()); });
        }
        // At maximum speed there is always more; a short pause lets others read the market.
        const bool busy = told > 0 && market_.Speed() == market::kMaximumSpeed;
        std::unique_lock pause(pausing_);
        wake_.wait_for(pause, stop, busy ? std::chrono::milliseconds(1) : kPause,
                       [] { return false; });
    }
}

}  // namespace terminal
