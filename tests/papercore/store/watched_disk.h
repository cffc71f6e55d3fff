#pragma once

#include <sqlite3.h>

#include <functional>

namespace papercore_tests {

/// Stands between SQLite and the system's files and counts what changes them. While it lives, every
/// database opens through it.
class WatchedDisk {
public:
    enum class Step { kMake, kWrite, kTruncate, kSync, kDelete };

    WatchedDisk();
    ~WatchedDisk();
    WatchedDisk(const WatchedDisk&) = delete;
    WatchedDisk& operator=(const WatchedDisk&) = delete;

    /// Called before each step. What it answers other than SQLITE_OK is what SQLite sees instead of
    /// the step; half of a write is done then.
    std::function<int(Step step, int number)> before;
    /// Called after each step that was done.
    std::function<void(int number)> after;
    int Steps() const { return steps_; }

    /// Whether syncs reach the disk. A killed process loses nothing that the system has, so its
    /// tests go without.
    bool syncs = true;

    // What SQLite does.
    int Begin(Step step);
    int Done(int result) const;
    sqlite3_vfs& System() const { return *system_; }

private:
    sqlite3_vfs* system_ = nullptr;
    sqlite3_vfs vfs_{};
    int steps_ = 0;
};

}  // namespace papercore_tests
