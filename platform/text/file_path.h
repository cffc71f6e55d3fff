#pragma once

#include <cstdio>
#include <string>

namespace text {

/// The name under which this system knows a path that is written the Windows way in GBK.
///
/// On Windows that is the path itself. Elsewhere the name is UTF-8: backslashes become slashes, the
/// drive C goes (no other exists), "." and ".." are taken out by their spelling alone (as Windows
/// does it, so that "none\..\x" is "x"), a backslash at the end stays one, and each part is
/// replaced by the entry of its folder that has the name, or else the name in other letter case
/// (the first in byte order). From the first part that does not exist the path stays as given, so
/// the name of a new file in an existing folder comes out right. Empty for what can be no path: an
/// empty one, broken GBK, characters that Windows refuses in names.
std::string ResolvePath(const char* path);

/// `fopen` on a resolved path; null with `errno` set on failure, also for a folder.
///
/// The modes are "r", "w" and "a", each with 'b' or 't', and with '+' beside 'b' only. Without 'b'
/// a file is text as on Windows: reading turns CR LF into LF and ends at a byte 26, writing turns
/// LF into CR LF. A file read as text is seekable in its translated form, one written as text is
/// not.
std::FILE* OpenFile(const char* path, const char* mode);

}  // namespace text
