#pragma once

#include <sys/types.h>
#include <windows.h>

#include <string>
#include <vector>

namespace winbase {

struct SpawnRequest {
    /// What a standard stream may be besides a descriptor: the parent's own, or one without
    /// content.
    static constexpr int kParents = -1;
    static constexpr int kNothing = -2;

    std::string program;                 ///< name in the file system
    std::string folder;                  ///< empty: the parent's
    std::vector<std::string> arguments;  ///< the program's name first
    int standard[3] = {kParents, kParents, kParents};
};

/// Starts a program that gets the three standard streams and no other open file.
DWORD Spawn(const SpawnRequest& request, pid_t& id);

}  // namespace winbase
