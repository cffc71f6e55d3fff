#include "platform/text/file_path.h"

#ifdef _WIN32

namespace text {

std::string ResolvePath(const char* path) { return path ? path : ""; }

std::FILE* OpenFile(const char* path, const char* mode) {
    return path && mode ? std::fopen(path, mode) : nullptr;
}

}  // namespace text

#else

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/text/gbk.h"
#include "platform/text/letter_case.h"
#include "platform/text/text_stream.h"

namespace text {
namespace {

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};
using Directory = std::unique_ptr<DIR, DirectoryCloser>;

struct SplitPath {
    bool absolute = false;
    bool folder = false;  ///< a separator stands at the end
    std::vector<std::string> parts;
};

/// A name as it is compared; false when GBK cannot write it, so that nobody can ask for it.
bool FoldName(std::string_view utf8, std::u16string& folded) {
    bool replaced = false;
    folded = Utf16FromGbk(GbkFromUtf8(utf8, &replaced));
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldCase);
    return !replaced;
}

bool IsRefused(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 ||
           std::string_view("<>\"|?*:").find(byte) != std::string_view::npos;
}

void AddPart(SplitPath& path, std::string_view part) {
    if (part.empty() || part == ".") return;
    if (part != "..") {
        path.parts.emplace_back(part);
    } else if (!path.parts.empty() && path.parts.back() != "..") {
        path.parts.pop_back();
    } else if (!path.absolute) {
        path.parts.emplace_back(part);
    }
}

bool Split(std::string_view utf8, SplitPath& path) {
    if (utf8.starts_with("C:") || utf8.starts_with("c:")) utf8.remove_prefix(2);
    if (utf8.empty() || std::any_of(utf8.begin(), utf8.end(), IsRefused)) return false;
    path.absolute = utf8.front() == '/' || utf8.front() == '\\';
    path.folder = utf8.back() == '/' || utf8.back() == '\\';
    while (!utf8.empty()) {
        const std::size_t end = std::min(utf8.find_first_of("/\\"), utf8.size());
        AddPart(path, utf8.substr(0, end));
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
    }
    return true;
}

bool Exists(const std::string& name) { return access(name.c_str(), F_OK) == 0; }

/// The entry of `folder` that is called `part` but for letter case; empty if there is none.
std::string FindEntry(const std::string& folder, const std::string& part) {
    std::u16string wanted;
    const Directory directory(opendir(folder.empty() ? "." : folder.c_str()));
    if (!directory || !FoldName(part, wanted)) return {};
    std::string found;
    std::u16string name;
    while (const dirent* entry = readdir(directory.get())) {
        const std::string_view candidate = entry->d_name;
        if (!FoldName(candidate, name) || name != wanted) continue;
        if (found.empty() || candidate < found) found = candidate;
    }
    return found;
}

/// The longest existing beginning in the case of the disk, and the rest as given.
std::string Join(const SplitPath& path) {
    std::string name = path.absolute ? "/" : "";
    bool existing = true;
    for (const std::string& part : path.parts) {
        if (existing && !Exists(name + part)) {
            const std::string entry = FindEntry(name, part);
            existing = !entry.empty();
            name += existing ? entry : part;
        } else {
            name += part;
        }
        name += '/';
    }
    if (path.parts.empty()) return path.absolute ? name : "./";
    if (!path.folder) name.pop_back();
    return name;
}

struct Mode {
    bool valid = false;
    bool binary = false;
    std::string native;
};

Mode ParseMode(std::string_view mode) {
    Mode result;
    if (mode.empty() || std::string_view("rwa").find(mode[0]) == std::string_view::npos) {
        return result;
    }
    bool update = false;
    bool text = false;
    for (const char c : mode.substr(1)) {
        if (c == 'b') result.binary = true;
        if (c == 't') text = true;
        if (c == '+') update = true;
        if (c != 'b' && c != 't' && c != '+') return result;
    }
    result.valid = !(result.binary && text) && (result.binary || !update);
    // 'e': a program that is started later inherits no file.
    result.native = std::string(1, mode[0]) + (update ? "+e" : "e");
    return result;
}

bool IsFolder(std::FILE* file) {
    struct stat status = {};
    return fstat(fileno(file), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::string ResolvePath(const char* path) {
    if (!path) return {};
    bool replaced = false;
    const std::string utf8 = Utf8FromGbk(path, &replaced);
    SplitPath split;
    if (replaced || !Split(utf8, split)) return {};
    return Join(split);
}

std::FILE* OpenFile(const char* path, const char* mode) {
    const Mode parsed = ParseMode(mode ? mode : "");
    if (!parsed.valid) {
        errno = EINVAL;
        return nullptr;
    }
    std::FILE* file = std::fopen(ResolvePath(path).c_str(), parsed.native.c_str());
    if (file && IsFolder(file)) {
        std::fclose(file);
        errno = EACCES;
        return nullptr;
    }
    if (!file || parsed.binary) return file;
    return parsed.native[0] == 'r' ? OpenTextReader(file) : OpenTextWriter(file);
}

}  // namespace text

#endif
