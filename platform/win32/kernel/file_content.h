#pragma once

#include <windows.h>

#include <string>

// Whole files by their names in the file system. Both answer a Windows error, 0 for success.

namespace winbase {

/// Regular files only; anything else is refused as ERROR_ACCESS_DENIED.
DWORD ReadWholeFile(const std::string& host, std::string& content);

/// Puts `content` in the place of the file in one step: whoever reads sees the old file or the new
/// one, and a failure leaves the old one. Refuses read-only files; keeps the mode of an old file.
DWORD ReplaceFile(const std::string& host, const std::string& content);

/// What Windows would call a file with FILE_ATTRIBUTE_READONLY. The mode decides, because a
/// privileged user could write anyway.
bool IsReadOnly(const std::string& host);

}  // namespace winbase
