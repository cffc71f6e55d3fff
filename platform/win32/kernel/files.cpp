#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include "platform/win32/kernel/file_attributes.h"
#include "platform/win32/kernel/file_content.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/kernel/path.h"

using namespace winbase;

namespace winbase {

DWORD AttributesOf(const std::string& host) {
    struct stat status = {};
    if (stat(host.c_str(), &status) != 0 && lstat(host.c_str(), &status) != 0) {
        return INVALID_FILE_ATTRIBUTES;
    }
    const std::string name = std::filesystem::path(host).filename();
    DWORD attributes = S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    if (name.starts_with('.') && name != "." && name != "..") attributes |= FILE_ATTRIBUTE_HIDDEN;
    // On a folder the attribute would not mean that nothing can be made in it.
    if (S_ISREG(status.st_mode) && IsReadOnly(host)) attributes |= FILE_ATTRIBUTE_READONLY;
    return attributes;
}

}  // namespace winbase

DWORD GetFileAttributesA(LPCSTR name) {
    const std::string host = HostPath(name);
    if (host.empty()) return INVALID_FILE_ATTRIBUTES;
    const DWORD attributes = AttributesOf(host);
    if (attributes == INVALID_FILE_ATTRIBUTES) SetLastError(FileError(errno, host));
    return attributes;
}

BOOL DeleteFileA(LPCSTR name) {
    const std::string host = HostPath(name);
    if (host.empty()) return FALSE;
    const DWORD attributes = AttributesOf(host);
    if (attributes == INVALID_FILE_ATTRIBUTES) return Fail(FileError(errno, host));
    if (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    return unlink(host.c_str()) == 0 ? TRUE : Fail(FileError(errno, host));
}

BOOL CreateDirectoryA(LPCSTR name, LPSECURITY_ATTRIBUTES) {
    const std::string host = HostPath(name);
    if (host.empty()) return FALSE;
    if (mkdir(host.c_str(), 0777) == 0) return TRUE;
    return Fail(errno == ENOENT ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
}

BOOL SetCurrentDirectoryA(LPCSTR name) {
    if (!name || *name == '\0') return Fail(ERROR_INVALID_NAME);
    const std::string host = HostPath(name);
    if (host.empty()) return FALSE;
    if (chdir(host.c_str()) == 0) return TRUE;
    return Fail(errno == ENOTDIR ? ERROR_DIRECTORY : FileError(errno, host));
}

DWORD GetCurrentDirectoryA(DWORD size, LPSTR buffer) {
    std::error_code error;
    const std::filesystem::path current = std::filesystem::current_path(error);
    if (error) return static_cast<DWORD>(Fail(ErrorFromErrno(error.value())));
    const std::string name = WindowsPath(current.native());
    const auto length = static_cast<DWORD>(name.size());
    if (!buffer || size <= length) return length + 1;
    std::memcpy(buffer, name.c_str(), length + 1);
    return length;
}
