#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/kernel/file_content.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/kernel/path.h"
#include "platform/win32/kernel/profile_cache.h"
#include "platform/win32/kernel/profile_file.h"

namespace winbase {
namespace {

/// A file that is read, changed and written again belongs to one caller meanwhile.
std::mutex& WriteMutex() {
    static std::mutex mutex;
    return mutex;
}

/// A bare name would mean a file in the folder of the system, where programs keep none.
std::string ProfilePath(LPCSTR file, DWORD error_for_bare_name) {
    if (file && *file != '\0' && IsBareName(file)) {
        SetLastError(error_for_bare_name);
        return {};
    }
    return HostPath(file);
}

std::shared_ptr<const ProfileFile> Load(LPCSTR file) {
    const std::string host = ProfilePath(file, ERROR_FILE_NOT_FOUND);
    if (host.empty()) return nullptr;
    DWORD error = NO_ERROR;
    auto profile = ReadProfile(host, &error);
    if (!profile) SetLastError(error);
    return profile;
}

/// The caller's default, which loses the blanks behind it and quotes around it.
std::string DefaultText(LPCSTR fallback) {
    std::string_view text = fallback ? fallback : "";
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return std::string(StripQuotes(text));
}

DWORD CopyText(std::string_view text, LPSTR buffer, DWORD size) {
    // Up to a stray zero byte: behind it nobody could see anything.
    text = text.substr(0, text.find('\0'));
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    text.copy(buffer, length);
    buffer[length] = '\0';
    return static_cast<DWORD>(length);
}

/// Names with a zero byte behind each and another one at the end. A list that is empty or has to be
/// cut ends with two zero bytes as well.
DWORD CopyNames(const std::vector<std::string>& names, LPSTR buffer, DWORD size) {
    if (size < 2) return CopyText({}, buffer, size);
    std::string list;
    for (const std::string& name : names) list.append(name).push_back('\0');
    const std::size_t length = list.size() < size ? list.size() : size - 2;
    std::memcpy(buffer, list.data(), length);
    buffer[length] = '\0';
    if (length == 0 || length < list.size()) buffer[length + 1] = '\0';
    return static_cast<DWORD>(length);
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Decimal, or hexadecimal behind "0x"; stops at what is no digit and wraps at 32 bits.
std::uint32_t ParseNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const int base = text.starts_with("0x") ? 16 : 10;
    if (base == 16) text.remove_prefix(2);
    std::uint32_t number = 0;
    for (const char c : text) {
        const int digit = HexDigit(c);
        if (digit < 0 || digit >= base) break;
        number = number * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit);
    }
    return negative ? 0 - number : number;
}

bool Edit(ProfileFile& file, LPCSTR section, LPCSTR key, LPCSTR value) {
    if (!key) return file.RemoveSection(section);
    return value ? file.SetValue(section, key, value) : file.RemoveKey(section, key);
}

}  // namespace
}  // namespace winbase

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR fallback, LPSTR buffer,
                               DWORD size, LPCSTR file) {
    using namespace winbase;
    if (!buffer || size == 0) return 0;
    const auto profile = Load(file);
    if (profile && !section) return CopyNames(profile->SectionNames(), buffer, size);
    if (profile && !key) {
        if (const auto names = profile->KeyNames(section)) return CopyNames(*names, buffer, size);
    }
    const auto value = profile && key ? profile->Value(section, key) : std::nullopt;
    return CopyText(value ? *value : DefaultText(fallback), buffer, size);
}

UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT fallback, LPCSTR file) {
    using namespace winbase;
    const auto profile = section && key ? Load(file) : nullptr;
    const auto value = profile ? profile->Value(section, key) : std::nullopt;
    return value && !value->empty() ? ParseNumber(*value) : static_cast<UINT>(fallback);
}

BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR value, LPCSTR file) {
    using namespace winbase;
    // Without a section the call means that written text is to reach the disk, where it is.
    if (!section) return FALSE;
    const std::string host = ProfilePath(file, ERROR_ACCESS_DENIED);
    if (host.empty()) return FALSE;
    const std::lock_guard lock(WriteMutex());
    std::string content;
    const DWORD read_error = ReadWholeFile(host, content);
    if (read_error != NO_ERROR && read_error != ERROR_FILE_NOT_FOUND) return Fail(read_error);
    ProfileFile profile(content);
    const bool changed = Edit(profile, section, key, value);
    if (!changed) return TRUE;
    ForgetProfile(host);
    const DWORD write_error = ReplaceFile(host, profile.Content());
    return write_error == NO_ERROR ? TRUE : Fail(write_error);
}
