#include "platform/win32/controls/save_file_paths.h"

#include <algorithm>
#include <set>

#include "platform/text/gbk.h"

namespace winbase {

namespace {

// A trail byte can be a backslash, so paths are walked by characters.
template <class Visit>
void ForEachSeparator(std::string_view path, Visit visit) {
    for (std::size_t i = 0; i < path.size(); i += text::CharLength(path.substr(i))) {
        if (path[i] == '\\' || path[i] == '/') visit(i);
    }
}

std::vector<std::string> SplitAt(std::string_view list, char separator) {
    std::vector<std::string> parts;
    std::string part;
    for (std::size_t i = 0; i < list.size();) {
        const std::size_t length = text::CharLength(list.substr(i));
        if (length == 1 && list[i] == separator) {
            parts.push_back(part);
            part.clear();
        } else {
            part += list.substr(i, length);
        }
        i += length;
    }
    parts.push_back(part);
    return parts;
}

bool IsAbsolute(std::string_view path) {
    if (path.empty()) return false;
    return path[0] == '\\' || path[0] == '/' || (path.size() > 1 && path[1] == ':');
}

bool EndsWithSeparator(const std::string& path) {
    std::size_t last = std::string::npos;
    ForEachSeparator(path, [&](std::size_t at) { last = at; });
    return last != std::string::npos && last + 1 == path.size();
}

bool Before(const FolderEntry& left, const FolderEntry& right) {
    if (left.is_folder != right.is_folder) return left.is_folder;
    return lstrcmpiA(left.name.c_str(), right.name.c_str()) < 0;
}

void Search(const std::string& folder, const std::string& pattern, bool folders,
            std::set<std::string>* names) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(JoinPath(folder, pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::string name = found.cFileName;
        const bool is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool hidden = (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
        if (is_folder == folders && !hidden && name != "." && name != "..") names->insert(name);
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

}  // namespace

std::vector<FileFilter> ReadFilters(const char* pairs) {
    std::vector<FileFilter> filters;
    if (pairs == nullptr) return filters;
    while (*pairs != '\0') {
        FileFilter filter;
        filter.name = pairs;
        pairs += filter.name.size() + 1;
        const std::string patterns = pairs;
        pairs += patterns.size() + 1;
        filter.patterns = SplitAt(patterns, ';');
        filters.push_back(filter);
        if (patterns.empty()) break;  // the end of a list that lacks its last text
    }
    return filters;
}

SplitPath SplitFileName(std::string_view path) {
    std::size_t last = std::string_view::npos;
    ForEachSeparator(path, [&](std::size_t at) { last = at; });
    if (last == std::string_view::npos) return {"", std::string(path)};
    std::string folder(path.substr(0, last));
    if (folder.empty() || folder.back() == ':') folder += '\\';
    return {folder, std::string(path.substr(last + 1))};
}

std::string JoinPath(const std::string& folder, const std::string& name) {
    return EndsWithSeparator(folder) ? folder + name : folder + "\\" + name;
}

std::string ParentFolder(const std::string& folder) {
    const SplitPath split = SplitFileName(folder);
    return split.folder.empty() ? folder : split.folder;
}

std::string FullPath(const std::string& folder, const std::string& typed) {
    std::string path = IsAbsolute(typed) ? typed : JoinPath(folder, typed);
    ForEachSeparator(std::string(path), [&](std::size_t at) { path[at] = '\\'; });
    if (path[0] == '\\') path = "C:" + path;
    std::vector<std::string> parts;
    for (const std::string& part : SplitAt(path.substr(2), '\\')) {
        if (part.empty() || part == ".") continue;
        if (part != "..") {
            parts.push_back(part);
        } else if (!parts.empty()) {
            parts.pop_back();
        }
    }
    std::string whole = path.substr(0, 2);
    for (const std::string& part : parts) whole += "\\" + part;
    return parts.empty() ? whole + "\\" : whole;
}

bool HasWildcard(std::string_view name) { return name.find_first_of("*?") != name.npos; }

bool IsFileName(std::string_view name) {
    if (name.empty() || name == "." || name == "..") return false;
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t length = text::CharLength(name.substr(i));
        const bool bad = static_cast<unsigned char>(name[i]) < 0x20 ||
                         std::string_view("<>:\"/\\|?*").find(name[i]) != std::string_view::npos;
        if (length == 1 && bad) return false;
        i += length;
    }
    return true;
}

std::size_t ExtensionPlace(std::string_view path) {
    const std::size_t start = path.size() - SplitFileName(path).name.size();
    const std::size_t dot = path.rfind('.');
    return dot == std::string_view::npos || dot < start || dot + 1 == path.size() ? 0 : dot + 1;
}

bool FolderExists(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool FileExists(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::vector<FolderEntry> ReadFolder(const std::string& folder,
                                    const std::vector<std::string>& patterns) {
    std::set<std::string> folders;
    Search(folder, "*", true, &folders);
    std::set<std::string> files;  // once each, though two patterns may accept a name
    for (const std::string& pattern : patterns) {
        if (!pattern.empty()) Search(folder, pattern, false, &files);
    }
    std::vector<FolderEntry> entries;
    entries.reserve(folders.size() + files.size());
    for (const std::string& name : folders) entries.push_back({name, true});
    for (const std::string& name : files) entries.push_back({name, false});
    std::sort(entries.begin(), entries.end(), Before);
    return entries;
}

}  // namespace winbase
