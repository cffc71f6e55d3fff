#include "platform/win32/kernel/profile_cache.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <list>
#include <mutex>
#include <optional>

#include "platform/win32/kernel/file_content.h"

namespace winbase {
namespace {

constexpr std::size_t kMostFiles = 8;
constexpr off_t kMostBytes = 16 << 20;
/// File systems stamp with the ticks of a coarse clock: two changes within one tick look alike. So
/// a file is kept only once its last change lies further back than any such tick.
constexpr long long kSettledNanos = 1'000'000'000;

long long Nanos(const timespec& time) { return time.tv_sec * 1'000'000'000LL + time.tv_nsec; }

/// What differs as soon as a file was changed or replaced.
struct Stamp {
    dev_t device;
    ino_t number;
    off_t size;
    long long modified;
    long long changed;  ///< unlike the time of modification nobody can set it
    bool operator==(const Stamp&) const = default;

    bool IsSettled() const {
        timespec now = {};
        clock_gettime(CLOCK_REALTIME, &now);
        return Nanos(now) - modified > kSettledNanos;
    }
};

std::optional<Stamp> StampOf(const std::string& host) {
    struct stat status = {};
    if (stat(host.c_str(), &status) != 0) return std::nullopt;
    return Stamp{status.st_dev, status.st_ino, status.st_size, Nanos(status.st_mtim),
                 Nanos(status.st_ctim)};
}

struct Entry {
    std::string host;
    Stamp stamp;
    std::shared_ptr<const ProfileFile> file;
};

struct Cache {
    std::mutex mutex;
    std::list<Entry> entries;  ///< the one used last is first
};

/// Never destroyed: settings may be written at the very end.
Cache& Files() {
    static auto* const cache = new Cache;
    return *cache;
}

std::shared_ptr<const ProfileFile> Find(const std::string& host, const Stamp& stamp) {
    Cache& cache = Files();
    const std::lock_guard lock(cache.mutex);
    const auto found = std::ranges::find(cache.entries, host, &Entry::host);
    if (found == cache.entries.end() || found->stamp != stamp) return nullptr;
    cache.entries.splice(cache.entries.begin(), cache.entries, found);
    return found->file;
}

void Keep(Entry entry) {
    Cache& cache = Files();
    const std::lock_guard lock(cache.mutex);
    std::erase_if(cache.entries, [&](const Entry& old) { return old.host == entry.host; });
    cache.entries.push_front(std::move(entry));
    off_t bytes = 0;
    std::size_t files = 0;
    std::erase_if(cache.entries, [&](const Entry& one) {
        bytes += one.stamp.size;
        return ++files > kMostFiles || bytes > kMostBytes;
    });
}

}  // namespace

std::shared_ptr<const ProfileFile> ReadProfile(const std::string& host, DWORD* error) {
    // Before the content: a change in between then shows at the next read.
    const std::optional<Stamp> stamp = StampOf(host);
    if (stamp) {
        if (auto kept = Find(host, *stamp)) return kept;
    }
    const bool settled = stamp && stamp->IsSettled();
    std::string content;
    *error = ReadWholeFile(host, content);
    if (*error != NO_ERROR) return nullptr;
    auto file = std::make_shared<const ProfileFile>(content);
    if (settled) Keep({host, *stamp, file});
    return file;
}

void ForgetProfile(const std::string& host) {
    Cache& cache = Files();
    const std::lock_guard lock(cache.mutex);
    std::erase_if(cache.entries, [&](const Entry& entry) { return entry.host == host; });
}

}  // namespace winbase
