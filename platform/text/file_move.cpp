#include "platform/text/file_move.h"

#ifdef _WIN32

#include <windows.h>

namespace text {

bool MoveOver(const char* from, const char* to) {
    return MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING) != 0;
}

}  // namespace text

#else

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/text/file_path.h"

namespace text {

namespace {

/// The mode decides as well as the right, because a privileged user could write anyway.
bool IsWritable(const std::string& name, const struct stat& status) {
    constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;
    return S_ISREG(status.st_mode) && (status.st_mode & kWriteBits) != 0 &&
           access(name.c_str(), W_OK) == 0;
}

}  // namespace

bool MoveOver(const char* from, const char* to) {
    const std::string source = ResolvePath(from);
    std::string target = ResolvePath(to);
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(target.c_str(), nullptr),
                                                           &std::free);
    if (real) {
        target = real.get();
        struct stat status = {};
        if (stat(target.c_str(), &status) == 0 && !IsWritable(target, status)) return false;
    }
    return std::rename(source.c_str(), target.c_str()) == 0;
}

}  // namespace text

#endif
