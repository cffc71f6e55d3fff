#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "platform/win32/kernel/file_attributes.h"
#include "platform/win32/kernel/kernel_object.h"
#include "platform/win32/kernel/path.h"
#include "platform/win32/kernel/text_compare.h"

namespace winbase {
namespace {

struct Entry {
    std::string host_name;
    std::u16string folded;  ///< the name without letter case
};

/// The entries that were there when the search began, and how far it has got.
class FileSearch : public KernelObject {
public:
    FileSearch(std::string folder, std::vector<Entry> entries)
        : folder_(std::move(folder)), entries_(std::move(entries)) {}

    /// Tells of the next entry that still exists; false behind the last one.
    bool Next(WIN32_FIND_DATAA& data);

private:
    std::string folder_;
    std::vector<Entry> entries_;
    std::size_t next_ = 0;
};

FILETIME FileTime(const timespec& time) {
    constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;
    const auto units = static_cast<std::uint64_t>(
        (std::int64_t{time.tv_sec} + kSecondsFrom1601To1970) * 10'000'000 + time.tv_nsec / 100);
    return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

bool FileSearch::Next(WIN32_FIND_DATAA& data) {
    while (next_ < entries_.size()) {
        const Entry& entry = entries_[next_++];
        const std::string host = folder_ + '/' + entry.host_name;
        struct stat status = {};
        if (stat(host.c_str(), &status) != 0 && lstat(host.c_str(), &status) != 0) continue;
        data = {};
        data.dwFileAttributes = AttributesOf(host);
        data.ftCreationTime = FileTime(status.st_ctim);
        data.ftLastAccessTime = FileTime(status.st_atim);
        data.ftLastWriteTime = FileTime(status.st_mtim);
        if (S_ISREG(status.st_mode)) {
            const auto size = static_cast<std::uint64_t>(status.st_size);
            data.nFileSizeLow = static_cast<DWORD>(size);
            data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
        }
        text::CopyText(data.cFileName, text::GbkFromUtf8(entry.host_name));
        return true;
    }
    return false;
}

std::u16string Folded(std::string_view gbk) {
    std::u16string name = text::Utf16FromGbk(gbk);
    std::transform(name.begin(), name.end(), name.begin(), FoldCase);
    return name;
}

/// '*' stands for any characters, '?' for one.
bool Matches(std::u16string_view name, std::u16string_view pattern) {
    std::size_t at = 0;
    std::size_t in_pattern = 0;
    std::size_t star = pattern.npos;
    std::size_t star_at = 0;
    while (at < name.size()) {
        if (in_pattern < pattern.size() && pattern[in_pattern] == u'*') {
            star = in_pattern++;
            star_at = at;
        } else if (in_pattern < pattern.size() &&
                   (pattern[in_pattern] == u'?' || pattern[in_pattern] == name[at])) {
            ++in_pattern;
            ++at;
        } else if (star != pattern.npos) {
            // The last '*' takes one character more.
            in_pattern = star + 1;
            at = ++star_at;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', in_pattern) == pattern.npos;
}

/// The folder as written and the pattern of names behind it.
struct Pattern {
    std::string folder;
    std::string names;
};

Pattern SplitPattern(std::string_view whole) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < whole.size(); i += text::CharLength(whole.substr(i))) {
        if (whole[i] == '\\' || whole[i] == '/' || whole[i] == ':') length = i + 1;
    }
    return {std::string(whole.substr(0, length)), std::string(whole.substr(length))};
}

bool ListFolder(const std::string& folder, std::u16string_view pattern,
                std::vector<Entry>& entries) {
    DIR* directory = opendir(folder.c_str());
    if (!directory) return false;
    const bool root = folder == "/";
    while (const dirent* entry = readdir(directory)) {
        const std::string name = entry->d_name;
        if (root && (name == "." || name == "..")) continue;
        std::u16string folded = Folded(text::GbkFromUtf8(name));
        // "*.*" has always meant every file, with a dot in its name or without.
        if (pattern == u"*.*" || Matches(folded, pattern)) {
            entries.push_back({name, std::move(folded)});
        }
    }
    closedir(directory);
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.folded < b.folded; });
    return true;
}

}  // namespace
}  // namespace winbase

HANDLE FindFirstFileA(LPCSTR pattern, LPWIN32_FIND_DATAA data) {
    using namespace winbase;
    const auto fail = [](DWORD error) {
        SetLastError(error);
        return INVALID_HANDLE_VALUE;
    };
    if (!pattern || !data) return fail(ERROR_INVALID_PARAMETER);
    const Pattern split = SplitPattern(pattern);
    if (split.names.empty()) return fail(ERROR_FILE_NOT_FOUND);
    const std::string folder = HostPath(split.folder.empty() ? "." : split.folder.c_str());
    if (folder.empty()) return INVALID_HANDLE_VALUE;
    std::vector<Entry> entries;
    if (!ListFolder(folder, Folded(split.names), entries)) {
        return fail(errno == EACCES ? ERROR_ACCESS_DENIED : ERROR_PATH_NOT_FOUND);
    }
    const auto search = std::make_shared<FileSearch>(folder, std::move(entries));
    if (!search->Next(*data)) return fail(ERROR_FILE_NOT_FOUND);
    const HANDLE handle = AddObject(search);
    return handle ? handle : INVALID_HANDLE_VALUE;
}

BOOL FindNextFileA(HANDLE search, LPWIN32_FIND_DATAA data) {
    using namespace winbase;
    const auto found = FindObject<FileSearch>(search);
    if (!found) return FALSE;
    if (!data) return Fail(ERROR_INVALID_PARAMETER);
    return found->Next(*data) ? TRUE : Fail(ERROR_NO_MORE_FILES);
}

BOOL FindClose(HANDLE search) {
    using namespace winbase;
    if (!FindObject<FileSearch>(search)) return FALSE;
    RemoveObject(search);
    return TRUE;
}
