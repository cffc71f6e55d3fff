#pragma once

#include <windows.h>

namespace winbase {

/// Sets the last error and answers FALSE (or whatever zero means to the caller).
inline BOOL Fail(DWORD error) {
    SetLastError(error);
    return FALSE;
}

/// The Windows error that tells what an `errno` tells; ENOENT counts as a missing file.
DWORD ErrorFromErrno(int code);

}  // namespace winbase
