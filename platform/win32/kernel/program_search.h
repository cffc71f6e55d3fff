#pragma once

#include <string>
#include <vector>

namespace winbase {

/// Name in the file system of the program that is running.
std::string RunningProgram();

/// Name in the file system of the first candidate (Windows names) that is there, with ".exe" added
/// if it has no extension and is not there as it stands. A name without a folder is looked for in
/// the program's folder, the current one and those of PATH. Empty with the last error set when
/// there is none.
std::string FindProgram(const std::vector<std::string>& candidates);

}  // namespace winbase
