#include "platform/win32/kernel/process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "platform/text/gbk.h"
#include "platform/win32/kernel/command_line.h"
#include "platform/win32/kernel/path.h"
#include "platform/win32/kernel/pipe.h"
#include "platform/win32/kernel/program_search.h"
#include "platform/win32/kernel/spawn.h"

using namespace winbase;

namespace winbase {

bool Process::Wait(DWORD millis) {
    std::unique_lock lock(mutex_);
    const auto has_ended = [this] { return has_ended_; };
    if (millis != INFINITE) {
        return ended_.wait_for(lock, std::chrono::milliseconds(millis), has_ended);
    }
    ended_.wait(lock, has_ended);
    return true;
}

DWORD Process::ExitCode() {
    const std::lock_guard lock(mutex_);
    return exit_code_;
}

void Process::SetEnded(DWORD exit_code) {
    const std::lock_guard lock(mutex_);
    exit_code_ = exit_code;
    has_ended_ = true;
    ended_.notify_all();
}

namespace {

/// Waits for the end of a process on a thread of its own, so that none stays behind unburied when
/// its handle is closed first.
void Watch(pid_t id, std::shared_ptr<Process> process) {
    std::thread([id, process = std::move(process)] {
        int status = 0;
        while (waitpid(id, &status, 0) < 0 && errno == EINTR) {
        }
        constexpr int kEndedBySignal = 128;
        process->SetEnded(static_cast<DWORD>(
            WIFEXITED(status) ? WEXITSTATUS(status) : kEndedBySignal + WTERMSIG(status)));
    }).detach();
}

int DescriptorOf(HANDLE handle) {
    const auto end = std::dynamic_pointer_cast<PipeEnd>(FindAnyObject(handle));
    return end && end->inheritable() ? end->descriptor() : SpawnRequest::kNothing;
}

void TakeStandardHandles(const STARTUPINFOA& startup, bool inherit, SpawnRequest& request) {
    if (!(startup.dwFlags & STARTF_USESTDHANDLES)) return;
    const HANDLE handles[] = {startup.hStdInput, startup.hStdOutput, startup.hStdError};
    for (std::size_t i = 0; i < std::size(handles); ++i) {
        request.standard[i] = inherit ? DescriptorOf(handles[i]) : SpawnRequest::kNothing;
    }
}

std::vector<std::string> Utf8Arguments(const std::string& line) {
    std::vector<std::string> arguments = SplitCommandLine(line);
    for (std::string& argument : arguments) argument = text::Utf8FromGbk(argument);
    return arguments;
}

void AnswerProcess(pid_t id, PROCESS_INFORMATION& information) {
    const auto process = std::make_shared<Process>();
    Watch(id, process);
    information.hProcess = AddObject(process);
    information.hThread = AddObject(std::make_shared<ProcessThread>(process));
    information.dwProcessId = static_cast<DWORD>(id);
    information.dwThreadId = static_cast<DWORD>(id);
}

std::shared_ptr<KernelObject> FindWaitable(HANDLE handle, Process*& process) {
    auto object = FindAnyObject(handle);
    if (const auto thread = dynamic_cast<ProcessThread*>(object.get())) {
        process = &thread->process();
    } else {
        process = dynamic_cast<Process*>(object.get());
    }
    if (!process) SetLastError(ERROR_INVALID_HANDLE);
    return object;
}

}  // namespace
}  // namespace winbase

BOOL CreateProcessA(LPCSTR program, LPSTR command_line, LPSECURITY_ATTRIBUTES,
                    LPSECURITY_ATTRIBUTES, BOOL inherit_handles, [[maybe_unused]] DWORD flags,
                    [[maybe_unused]] LPVOID environment, LPCSTR folder, LPSTARTUPINFOA startup,
                    LPPROCESS_INFORMATION information) {
    assert((flags & ~CREATE_NO_WINDOW) == 0 && "creation flag without support");
    assert(!environment && "a process gets the environment of its parent");
    const std::string line = command_line ? command_line : program ? program : "";
    if (!startup || !information || line.empty()) return Fail(ERROR_INVALID_PARAMETER);
    SpawnRequest request;
    request.program = program ? HostPath(program) : FindProgram(ProgramCandidates(line));
    if (request.program.empty()) return FALSE;
    if (folder) {
        request.folder = HostPath(folder);
        if (access(request.folder.c_str(), X_OK) != 0) return Fail(ERROR_DIRECTORY);
    }
    request.arguments = Utf8Arguments(line);
    TakeStandardHandles(*startup, inherit_handles != FALSE, request);
    pid_t id = 0;
    const DWORD error = Spawn(request, id);
    if (error != NO_ERROR) return Fail(error);
    AnswerProcess(id, *information);
    return TRUE;
}

DWORD WaitForSingleObject(HANDLE object, DWORD millis) {
    Process* process = nullptr;
    const auto held = FindWaitable(object, process);
    if (!process) return WAIT_FAILED;
    return process->Wait(millis) ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

BOOL GetExitCodeProcess(HANDLE process, LPDWORD code) {
    const auto found = FindObject<Process>(process);
    if (!found) return FALSE;
    if (!code) return Fail(ERROR_INVALID_PARAMETER);
    *code = found->ExitCode();
    return TRUE;
}

BOOL CloseHandle(HANDLE object) {
    const auto found = FindAnyObject(object);
    const bool closable = dynamic_cast<PipeEnd*>(found.get()) ||
                          dynamic_cast<Process*>(found.get()) ||
                          dynamic_cast<ProcessThread*>(found.get());
    if (!closable) return Fail(ERROR_INVALID_HANDLE);
    RemoveObject(object);
    return TRUE;
}

DWORD GetCurrentThreadId() {
    thread_local const DWORD id = static_cast<DWORD>(gettid());
    return id;
}

DWORD GetCurrentProcessId() { return static_cast<DWORD>(getpid()); }
