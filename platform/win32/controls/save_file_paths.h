#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace winbase {

// Names and folders of the save-file dialog, as Windows paths in code page 936; no window.

/// One line of the list of file types: what it is called and which names it shows.
struct FileFilter {
    std::string name;
    std::vector<std::string> patterns;
};

/// Reads pairs of texts, ended by an empty one ("Text\0*.txt;*.log\0\0"). Null is an empty list.
std::vector<FileFilter> ReadFilters(const char* pairs);

/// The folder of a path without its last separator ("C:\" keeps it), and what stands behind it.
/// Both separators count; a path without any has no folder.
struct SplitPath {
    std::string folder;
    std::string name;
};
SplitPath SplitFileName(std::string_view path);

std::string JoinPath(const std::string& folder, const std::string& name);
/// The folder above; the folder itself where there is none.
std::string ParentFolder(const std::string& folder);
/// A name as it was typed, made whole: relative ones start at `folder`, "." and ".." are resolved.
std::string FullPath(const std::string& folder, const std::string& typed);

bool HasWildcard(std::string_view name);
/// False for an empty name and for one with characters that no file name may have.
bool IsFileName(std::string_view name);
/// Place of the extension behind the last dot of the file name; 0 when it has none.
std::size_t ExtensionPlace(std::string_view path);

bool FolderExists(const std::string& path);
bool FileExists(const std::string& path);

/// One row of the dialog's list.
struct FolderEntry {
    std::string name;
    bool is_folder = false;
};
/// The folders, then the files that one of the patterns accepts, each in order of their names.
std::vector<FolderEntry> ReadFolder(const std::string& folder,
                                    const std::vector<std::string>& patterns);

}  // namespace winbase
