#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace terminal {

/// A line of the status line's log, GBK.
struct StatusEntry {
    std::string time;  ///< market time, "HH:MM:SS"
    int code = 0;      ///< as the front end's status texts have it
    std::string text;
};

/// Everything that was reported, the newest last. Any thread may add; `wake` is called, on the
/// thread that adds, when something is new and nobody was told yet.
class StatusLog {
public:
    void SetWake(std::function<void()> wake);
    /// A line feed at the end goes; further ones become blanks, so that an entry is a line.
    void Add(std::string time, int code, std::string text);
    /// The newest entries, at most `most`, oldest first. Counts as having been told.
    std::vector<StatusEntry> Newest(std::size_t most);
    /// Entries from number `first` on (numbers count from 0 and never repeat); `first` moves on.
    std::vector<StatusEntry> Since(std::size_t& first) const;
    std::size_t Count() const;

private:
    mutable std::mutex mutex_;
    std::function<void()> wake_;
    std::deque<StatusEntry> entries_;
    std::size_t dropped_ = 0;
    bool told_ = false;
};

}  // namespace terminal
