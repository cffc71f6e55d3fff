#pragma once

#include <cstddef>

namespace terminal {

inline constexpr std::size_t kLeastReportData = 64;
inline constexpr std::size_t kMostReportData = 256;

/// Facts about this terminal for the periodic report, 64 to 256 printable bytes that follow from
/// the challenge. `buffer` has room for the most; without one nothing is written. The answer is
/// how many bytes were.
std::size_t WriteReportData(char* buffer, const char* challenge);

}  // namespace terminal
