#include "platform/win32/kernel/last_error.h"

#include <cerrno>
#include <cstdio>

#include "platform/text/gbk.h"

namespace {
thread_local DWORD last_error = 0;
}

namespace winbase {

DWORD ErrorFromErrno(int code) {
    switch (code) {
        case 0: return ERROR_SUCCESS;
        case ENOENT: return ERROR_FILE_NOT_FOUND;
        case ENOTDIR:
        case ELOOP: return ERROR_PATH_NOT_FOUND;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR: return ERROR_ACCESS_DENIED;
        case EMFILE:
        case ENFILE: return ERROR_TOO_MANY_OPEN_FILES;
        case EAGAIN:
        case ENOMEM: return ERROR_NOT_ENOUGH_MEMORY;
        case ENOSPC:
        case EDQUOT: return ERROR_DISK_FULL;
        case EEXIST: return ERROR_ALREADY_EXISTS;
        case ENOEXEC: return ERROR_BAD_EXE_FORMAT;
        case ENAMETOOLONG: return ERROR_FILENAME_EXCED_RANGE;
        case EPIPE: return ERROR_NO_DATA;
        default: return ERROR_GEN_FAILURE;
    }
}

}  // namespace winbase

DWORD GetLastError() { return last_error; }

void SetLastError(DWORD code) { last_error = code; }

void OutputDebugStringA(LPCSTR text) {
    if (text) std::fputs(text::Utf8FromGbk(text).c_str(), stderr);
}
