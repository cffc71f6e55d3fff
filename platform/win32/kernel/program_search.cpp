#include "platform/win32/kernel/program_search.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "platform/win32/kernel/last_error.h"
#include "platform/win32/kernel/path.h"

namespace winbase {
namespace {

bool IsFile(const std::string& host) {
    struct stat status = {};
    return !host.empty() && stat(host.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::vector<std::string> SearchFolders() {
    std::vector<std::string> folders{std::filesystem::path(RunningProgram()).parent_path(), "."};
    const char* variable = std::getenv("PATH");
    for (std::string_view rest = variable ? variable : ""; !rest.empty();) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (end > 0) folders.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return folders;
}

std::string FindBare(const std::string& name) {
    for (const std::string& folder : SearchFolders()) {
        std::string host = HostPath((WindowsPath(folder + '/') + name).c_str());
        if (IsFile(host)) return host;
    }
    SetLastError(ERROR_FILE_NOT_FOUND);
    return {};
}

std::string FindExact(const std::string& name) {
    if (IsBareName(name.c_str())) return FindBare(name);
    std::string host = HostPath(name.c_str());
    if (host.empty() || IsFile(host)) return host;
    SetLastError(MissingError(host));
    return {};
}

}  // namespace

std::string RunningProgram() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

std::string FindProgram(const std::vector<std::string>& candidates) {
    for (const std::string& name : candidates) {
        std::string host = FindExact(name);
        if (host.empty() && name.find('.') == name.npos) host = FindExact(name + ".exe");
        if (!host.empty()) return host;
    }
    return {};
}

}  // namespace winbase
