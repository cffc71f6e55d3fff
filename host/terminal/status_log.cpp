#include "host/terminal/status_log.h"

#include <algorithm>
#include <utility>

namespace terminal {
namespace {

constexpr std::size_t kMostEntries = 2000;

std::string OneLine(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    // Neither byte is part of a two-byte character.
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return text;
}

}  // namespace

void StatusLog::SetWake(std::function<void()> wake) {
    const std::scoped_lock lock(mutex_);
    wake_ = std::move(wake);
}

void StatusLog::Add(std::string time, int code, std::string text) {
    std::function<void()> wake;
    {
        const std::scoped_lock lock(mutex_);
        entries_.push_back({std::move(time), code, OneLine(std::move(text))});
        if (entries_.size() > kMostEntries) {
            entries_.pop_front();
            ++dropped_;
        }
        if (!std::exchange(told_, true)) wake = wake_;
    }
    if (wake) wake();
}

std::vector<StatusEntry> StatusLog::Newest(std::size_t most) {
    const std::scoped_lock lock(mutex_);
    told_ = false;
    const std::size_t count = std::min(most, entries_.size());
    return {entries_.end() - static_cast<std::ptrdiff_t>(count), entries_.end()};
}

std::vector<StatusEntry> StatusLog::Since(std::size_t& first) const {
    const std::scoped_lock lock(mutex_);
    const std::size_t skip = first > dropped_ ? first - dropped_ : 0;
    first = dropped_ + entries_.size();
    if (skip >= entries_.size()) return {};
    return {entries_.begin() + static_cast<std::ptrdiff_t>(skip), entries_.end()};
}

std::size_t StatusLog::Count() const {
    const std::scoped_lock lock(mutex_);
    return dropped_ + entries_.size();
}

}  // namespace terminal
