#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

#include "platform/win32/kernel/kernel_object.h"

namespace winbase {

/// A started process. It has ended when its exit code is there.
class Process : public KernelObject {
public:
    /// False when the time runs out first; INFINITE never does.
    bool Wait(DWORD millis);
    /// STILL_ACTIVE until the end.
    DWORD ExitCode();
    void SetEnded(DWORD exit_code);

private:
    std::mutex mutex_;
    std::condition_variable ended_;
    bool has_ended_ = false;
    DWORD exit_code_ = STILL_ACTIVE;
};

/// The first thread of a process, of which is known only that it ends with it.
class ProcessThread : public KernelObject {
public:
    explicit ProcessThread(std::shared_ptr<Process> process) : process_(std::move(process)) {}
    Process& process() { return *process_; }

private:
    std::shared_ptr<Process> process_;
};

}  // namespace winbase
