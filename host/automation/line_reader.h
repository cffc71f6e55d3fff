#pragma once

#include <cstdio>
#include <functional>
#include <string>

namespace automation {

inline constexpr std::size_t kLongestLine = 1 << 20;

/// Reads lines on a thread of its own, for the life of the process: `line` gets each without its
/// end, one that is too long as an empty object's worth of nothing ("{}"), `end` comes once after
/// the last. A line without an end at the end of the file counts.
void ReadLines(std::FILE* file, std::function<void(std::string)> line, std::function<void()> end);

}  // namespace automation
