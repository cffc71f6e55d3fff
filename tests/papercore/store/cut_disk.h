#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace papercore_tests {

/// A disk in memory under SQLite, whose power can be cut: what was not synced by then is lost, kept
/// or torn, each sector as chance has it. While it lives, every database opens on it.
class CutDisk {
public:
    CutDisk();
    ~CutDisk();
    CutDisk(const CutDisk&) = delete;
    CutDisk& operator=(const CutDisk&) = delete;

    /// Power goes right before the n-th operation from now on that changes anything. 0: never.
    void CutAt(int operation);
    bool IsCut() const { return cut_; }
    int Operations() const { return operations_; }
    /// Power comes back; what was cut leaves one of the disks that it may leave.
    void Restart(unsigned seed);

    /// What SQLite does; false without power.
    struct Change {
        std::size_t at = 0;
        std::string bytes;
        bool cuts_off = false;  ///< the file ends at `at` from now on
    };
    struct File {
        std::string content;  ///< as programs see it
        std::string synced;
        std::vector<Change> unsynced;
        bool name_synced = false;
        bool deleted = false;  ///< by a deletion that was not synced
    };
    using FileRef = std::shared_ptr<File>;
    FileRef Find(const std::string& name) const;
    FileRef Make(const std::string& name);
    bool Write(File& file, Change change);
    bool Sync(File& file);
    bool Delete(const std::string& name, bool synced);

private:
    bool Step();
    static void Perform(std::string& content, const Change& change);
    void Tear(File& file);

    std::map<std::string, FileRef> files_;
    std::mt19937 random_;
    int operations_ = 0;
    int cut_at_ = 0;
    bool cut_ = false;
    sqlite3_vfs vfs_{};
    sqlite3_vfs* system_ = nullptr;
};

}  // namespace papercore_tests
