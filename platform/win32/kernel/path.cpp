#include "platform/win32/kernel/path.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "platform/text/file_path.h"
#include "platform/text/gbk.h"
#include "platform/win32/kernel/last_error.h"

namespace winbase {
namespace {

bool IsFolder(const std::string& host) {
    struct stat status = {};
    return stat(host.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string ParentOf(std::string host) {
    while (host.size() > 1 && host.back() == '/') host.pop_back();
    const std::size_t slash = host.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : host.substr(0, slash);
}

}  // namespace

std::string HostPath(LPCSTR name) {
    const std::string_view view = name ? name : "";
    if (view.empty()) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return {};
    }
    if (view.size() >= 2 && view[1] == ':') {
        if ((view[0] | 0x20) != 'c') {
            SetLastError(ERROR_PATH_NOT_FOUND);
            return {};
        }
        // A drive alone is its current folder.
        if (view.size() == 2) return ".";
    }
    std::string host = text::ResolvePath(name);
    if (host.empty()) SetLastError(ERROR_INVALID_NAME);
    return host;
}

std::string WindowsPath(std::string_view host) {
    std::string name(host);
    std::replace(name.begin(), name.end(), '/', '\\');
    return "C:" + text::GbkFromUtf8(name);
}

DWORD MissingError(const std::string& host) {
    return IsFolder(ParentOf(host)) ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

DWORD FileError(int code, const std::string& host) {
    return code == ENOENT ? MissingError(host) : ErrorFromErrno(code);
}

bool IsBareName(LPCSTR name) {
    // A backslash can be the second byte of a character.
    for (; *name != '\0'; name = text::NextChar(name)) {
        if (*name == '\\' || *name == '/' || *name == ':') return false;
    }
    return true;
}

}  // namespace winbase
