#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace winbase {

/// The arguments of a command line, by the rules of Windows programs: blanks and tabs separate,
/// double quotes hold together, a backslash escapes a quote (and backslashes before one). The first
/// argument, the program, knows no escapes.
std::vector<std::string> SplitCommandLine(std::string_view line);

/// What the program's name may be, in the order to try: all of a quoted one, else every beginning
/// that ends at a blank, as unquoted names may hold blanks.
std::vector<std::string> ProgramCandidates(std::string_view line);

}  // namespace winbase
