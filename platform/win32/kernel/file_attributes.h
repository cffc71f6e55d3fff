#pragma once

#include <windows.h>

#include <string>

namespace winbase {

/// FILE_ATTRIBUTE_... of a file or folder; a name with a dot in front is a hidden one.
/// INVALID_FILE_ATTRIBUTES with `errno` set when there is no such file.
DWORD AttributesOf(const std::string& host);

}  // namespace winbase
