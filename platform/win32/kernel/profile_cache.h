#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "platform/win32/kernel/profile_file.h"

// The profile files that were read last, so that a page that asks for key after key does not have
// the whole file parsed for each. Whoever changes a file, this process or another, is noticed by
// the next read. From any thread.

namespace winbase {

/// The file as it is now; null with `*error` set when it cannot be read.
std::shared_ptr<const ProfileFile> ReadProfile(const std::string& host, DWORD* error);

/// Lets a file go that is about to be written.
void ForgetProfile(const std::string& host);

}  // namespace winbase
