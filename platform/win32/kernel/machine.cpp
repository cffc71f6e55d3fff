#include <mntent.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "platform/text/gbk.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/kernel/path.h"

using namespace winbase;

namespace winbase {
namespace {

constexpr char kSystemFolder[] = "/usr/lib";

/// The name by which the network knows the machine: without its domain, in capitals.
std::string ComputerName() {
    char host[256] = {};
    if (gethostname(host, sizeof host - 1) != 0) return {};
    std::string name(host, strcspn(host, "."));
    name.resize(std::min<std::size_t>(name.size(), MAX_COMPUTERNAME_LENGTH));
    for (char& c : name) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 0x20);
    }
    return name;
}

/// What is mounted at the root, which may be several things, the last one on top. A changed root
/// is listed nowhere.
std::string RootFileSystem() {
    const std::unique_ptr<FILE, decltype(&endmntent)> mounts(setmntent("/proc/self/mounts", "r"),
                                                             &endmntent);
    std::string type = "rootfs";
    if (!mounts) return type;
    mntent entry = {};
    char buffer[4096];
    while (getmntent_r(mounts.get(), &entry, buffer, sizeof buffer)) {
        if (std::string_view(entry.mnt_dir) == "/") type = entry.mnt_type;
    }
    return type;
}

/// 0, or the error of a name that is no root of a drive with its slash.
DWORD CheckRoot(LPCSTR root) {
    if (!root) return NO_ERROR;
    const std::string_view name = root;
    const auto is_slash = [](char c) { return c == '\\' || c == '/'; };
    const bool has_drive = name.size() >= 2 && name[1] == ':';
    if (!has_drive || !is_slash(name.back())) return ERROR_INVALID_NAME;
    if (HostPath(root).empty()) return GetLastError();
    return name.size() == 3 ? NO_ERROR : ERROR_DIR_NOT_ROOT;
}

/// Nothing is asked for without a buffer; a buffer that is too small is an error.
bool CopyField(std::string_view text, LPSTR buffer, DWORD size) {
    if (!buffer) return true;
    if (text.size() >= size) return false;
    std::memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = '\0';
    return true;
}

template <class T>
void Answer(T* target, T value) {
    if (target) *target = value;
}

ULARGE_INTEGER Bytes(unsigned long blocks, unsigned long block_size) {
    ULARGE_INTEGER bytes;
    bytes.QuadPart = ULONGLONG{blocks} * block_size;
    return bytes;
}

}  // namespace
}  // namespace winbase

BOOL GetComputerNameA(LPSTR buffer, LPDWORD size) {
    if (!size) return Fail(ERROR_INVALID_PARAMETER);
    const std::string name = ComputerName();
    if (name.empty()) return Fail(ERROR_GEN_FAILURE);
    const auto length = static_cast<DWORD>(name.size());
    if (!buffer || *size <= length) {
        *size = length + 1;
        return Fail(ERROR_BUFFER_OVERFLOW);
    }
    std::memcpy(buffer, name.c_str(), length + 1);
    *size = length;
    return TRUE;
}

UINT GetSystemDirectoryA(LPSTR buffer, UINT size) {
    const std::string name = WindowsPath(kSystemFolder);
    const auto length = static_cast<UINT>(name.size());
    return buffer && CopyField(name, buffer, size) ? length : length + 1;
}

BOOL GetVolumeInformationA(LPCSTR root, LPSTR name, DWORD name_size, LPDWORD serial,
                           LPDWORD component_length, LPDWORD flags, LPSTR file_system,
                           DWORD file_system_size) {
    const DWORD error = CheckRoot(root);
    if (error != NO_ERROR) return Fail(error);
    struct statfs status = {};
    if (statfs("/", &status) != 0) return Fail(ErrorFromErrno(errno));
    if (!CopyField("", name, name_size) ||
        !CopyField(RootFileSystem(), file_system, file_system_size)) {
        return Fail(ERROR_MORE_DATA);
    }
    DWORD id[2] = {};
    static_assert(sizeof status.f_fsid == sizeof id);
    std::memcpy(id, &status.f_fsid, sizeof id);
    const DWORD read_only = status.f_flags & ST_RDONLY ? FILE_READ_ONLY_VOLUME : 0;
    Answer<DWORD>(serial, id[0] ^ id[1]);
    Answer(component_length, static_cast<DWORD>(status.f_namelen));
    Answer<DWORD>(flags, FILE_CASE_PRESERVED_NAMES | FILE_UNICODE_ON_DISK | read_only);
    return TRUE;
}

BOOL GetDiskFreeSpaceExA(LPCSTR folder, PULARGE_INTEGER available, PULARGE_INTEGER total,
                         PULARGE_INTEGER free) {
    const std::string host = HostPath(folder ? folder : ".");
    if (host.empty()) return FALSE;
    struct statvfs status = {};
    if (statvfs(host.c_str(), &status) != 0) {
        return Fail(errno == ENOENT ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
    }
    Answer(available, Bytes(status.f_bavail, status.f_frsize));
    Answer(total, Bytes(status.f_blocks, status.f_frsize));
    Answer(free, Bytes(status.f_bfree, status.f_frsize));
    return TRUE;
}
