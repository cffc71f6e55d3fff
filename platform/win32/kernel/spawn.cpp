#include "platform/win32/kernel/spawn.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/win32/kernel/path.h"

namespace winbase {
namespace {

class FileActions {
public:
    explicit FileActions(const SpawnRequest& request) {
        posix_spawn_file_actions_init(&actions_);
        for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
            AddStream(request.standard[stream], stream);
        }
        posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        if (!request.folder.empty()) {
            posix_spawn_file_actions_addchdir_np(&actions_, request.folder.c_str());
        }
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    void AddStream(int source, int stream) {
        if (source >= 0) {
            posix_spawn_file_actions_adddup2(&actions_, source, stream);
        } else if (source == SpawnRequest::kNothing) {
            posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
        }
    }

    posix_spawn_file_actions_t actions_;
};

/// A started program begins with no signal blocked, whatever the calling thread holds back.
class Attributes {
public:
    Attributes() {
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK);
    }
    ~Attributes() { posix_spawnattr_destroy(&attributes_); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_;
};

/// A file that can be read but not run is no program; the system calls that a lack of rights.
DWORD SpawnError(int code, const std::string& program) {
    struct stat status = {};
    const bool readable_file = stat(program.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
                               access(program.c_str(), R_OK) == 0;
    return code == EACCES && readable_file ? ERROR_BAD_EXE_FORMAT : FileError(code, program);
}

}  // namespace

DWORD Spawn(const SpawnRequest& request, pid_t& id) {
    std::vector<char*> arguments;
    for (const std::string& argument : request.arguments) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    const FileActions actions(request);
    const Attributes attributes;
    const int code = posix_spawn(&id, request.program.c_str(), actions.get(), attributes.get(),
                                 arguments.data(), environ);
    return code == 0 ? NO_ERROR : SpawnError(code, request.program);
}

}  // namespace winbase
