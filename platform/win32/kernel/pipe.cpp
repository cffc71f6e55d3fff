#include "platform/win32/kernel/pipe.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <ctime>

using namespace winbase;

namespace winbase {
namespace {

/// A write to a pipe that nobody reads must fail, not end the process.
class BrokenPipeGuard {
public:
    BrokenPipeGuard() {
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        was_pending_ = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &signal_, &old_mask_);
    }
    ~BrokenPipeGuard() {
        const int code = errno;
        const timespec at_once = {};
        if (!was_pending_) sigtimedwait(&signal_, nullptr, &at_once);
        pthread_sigmask(SIG_SETMASK, &old_mask_, nullptr);
        errno = code;
    }
    BrokenPipeGuard(const BrokenPipeGuard&) = delete;
    BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

private:
    sigset_t signal_;
    sigset_t old_mask_;
    bool was_pending_;
};

/// The same file under a number that is free of the three standard ones, so that handing it to a
/// process as one of these never overwrites another.
Descriptor AboveStandard(Descriptor file) {
    return file.get() > STDERR_FILENO
               ? std::move(file)
               : Descriptor(fcntl(file.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

HANDLE AddEnd(int descriptor, PipeEnd::Side side, Inherit inherit) {
    Descriptor file = AboveStandard(Descriptor(descriptor));
    return AddObject(std::make_shared<PipeEnd>(std::move(file), side, inherit));
}

std::shared_ptr<PipeEnd> FindEnd(HANDLE file, PipeEnd::Side side) {
    auto end = FindObject<PipeEnd>(file);
    if (end && end->side() != side) {
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    return end;
}

}  // namespace
}  // namespace winbase

BOOL CreatePipe(PHANDLE read_end, PHANDLE write_end, LPSECURITY_ATTRIBUTES security, DWORD) {
    if (!read_end || !write_end) return Fail(ERROR_INVALID_PARAMETER);
    const Inherit inherit = security && security->bInheritHandle ? Inherit::kYes : Inherit::kNo;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return Fail(ErrorFromErrno(errno));
    const HANDLE reader = AddEnd(ends[0], PipeEnd::Side::kRead, inherit);
    const HANDLE writer = AddEnd(ends[1], PipeEnd::Side::kWrite, inherit);
    if (!reader || !writer) {
        RemoveObject(reader);
        RemoveObject(writer);
        return FALSE;
    }
    *read_end = reader;
    *write_end = writer;
    return TRUE;
}

BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read_count,
              [[maybe_unused]] LPOVERLAPPED overlapped) {
    assert(!overlapped && "only reading that waits is supported");
    if (read_count) *read_count = 0;
    const auto end = FindEnd(file, PipeEnd::Side::kRead);
    if (!end) return FALSE;
    if (size == 0) return TRUE;
    ssize_t count;
    do {
        count = read(end->descriptor(), buffer, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) return Fail(ErrorFromErrno(errno));
    if (count == 0) return Fail(ERROR_BROKEN_PIPE);
    if (read_count) *read_count = static_cast<DWORD>(count);
    return TRUE;
}

BOOL WriteFile(HANDLE file, LPCVOID data, DWORD size, LPDWORD written,
               [[maybe_unused]] LPOVERLAPPED overlapped) {
    assert(!overlapped && "only writing that waits is supported");
    if (written) *written = 0;
    const auto end = FindEnd(file, PipeEnd::Side::kWrite);
    if (!end) return FALSE;
    const BrokenPipeGuard guard;
    if (!WriteAll(end->descriptor(), data, size)) return Fail(ErrorFromErrno(errno));
    if (written) *written = size;
    return TRUE;
}
