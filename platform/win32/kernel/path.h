#pragma once

#include <windows.h>

#include <string>
#include <string_view>

// The names of files as programs write them, and as the file system below knows them.

namespace winbase {

/// The file system's name (UTF-8), with the letter case of what exists. Empty with the last error
/// set for a drive other than C and for what can be no name.
std::string HostPath(LPCSTR name);

/// The full Windows name (GBK) of an absolute name of the file system.
std::string WindowsPath(std::string_view host);

/// Last error for a name that leads nowhere: 2 when only its last part is missing, else 3.
DWORD MissingError(const std::string& host);

/// Last error for a call on `host` that failed with an `errno`.
DWORD FileError(int code, const std::string& host);

/// True for a name without folder and drive, which some functions look for elsewhere.
bool IsBareName(LPCSTR name);

}  // namespace winbase
