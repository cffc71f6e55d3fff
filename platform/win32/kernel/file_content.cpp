#include "platform/win32/kernel/file_content.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/win32/kernel/descriptor.h"
#include "platform/win32/kernel/path.h"

namespace winbase {
namespace {

constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

/// The file behind symbolic links, so that these stay what they are; the name itself if it is new.
std::string RealName(const std::string& host) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(host.c_str(), nullptr),
                                                           &std::free);
    return real ? real.get() : host;
}

/// Creates a file beside `target` that no other writer has, and tells its name.
Descriptor CreateBeside(const std::string& target, std::string& name) {
    static std::atomic<unsigned> count = 0;
    const std::string start = target + '.' + std::to_string(getpid()) + '-';
    int file = -1;
    do {
        name = start + std::to_string(++count);
        file = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (file < 0 && errno == EEXIST);
    return Descriptor(file);
}

/// A new file beside the one that it is to replace; gone again unless Commit succeeds.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& target)
        : target_(target), file_(CreateBeside(target, name_)) {}
    ~TemporaryFile() {
        if (file_.valid()) unlink(name_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool valid() const { return file_.valid(); }
    bool Write(const std::string& content) {
        return WriteAll(file_.get(), content.data(), content.size()) && fsync(file_.get()) == 0;
    }
    bool SetMode(mode_t mode) { return fchmod(file_.get(), mode) == 0; }
    bool Commit() {
        if (std::rename(name_.c_str(), target_.c_str()) != 0) return false;
        file_ = Descriptor();
        return true;
    }

private:
    std::string target_;
    std::string name_;
    Descriptor file_;
};

}  // namespace

DWORD ReadWholeFile(const std::string& host, std::string& content) {
    // A pipe with nobody at its other end must not hold the caller up.
    const Descriptor file(open(host.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file.valid()) return FileError(errno, host);
    if (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return ERROR_ACCESS_DENIED;
    content.clear();
    char block[16384];
    for (;;) {
        const ssize_t count = read(file.get(), block, sizeof block);
        if (count == 0) return NO_ERROR;
        if (count > 0) {
            content.append(block, static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return FileError(errno, host);
        }
    }
}

DWORD ReplaceFile(const std::string& host, const std::string& content) {
    const std::string target = RealName(host);
    struct stat status = {};
    const bool exists = stat(target.c_str(), &status) == 0;
    if (exists && (!S_ISREG(status.st_mode) || IsReadOnly(target))) return ERROR_ACCESS_DENIED;
    TemporaryFile file(target);
    if (!file.valid()) return FileError(errno, host);
    const bool done =
        (!exists || file.SetMode(status.st_mode & 07777)) && file.Write(content) && file.Commit();
    return done ? NO_ERROR : FileError(errno, host);
}

bool IsReadOnly(const std::string& host) {
    struct stat status = {};
    if (stat(host.c_str(), &status) != 0) return false;
    return (status.st_mode & kWriteBits) == 0 || access(host.c_str(), W_OK) != 0;
}

}  // namespace winbase
