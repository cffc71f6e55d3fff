#include "host/terminal/report_data.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace terminal {
namespace {

constexpr char kProgram[] = "goldterm|1.0|";
constexpr std::size_t kMostChallenge = 128;
constexpr std::size_t kMark = 32;

}  // namespace

std::size_t WriteReportData(char* buffer, const char* challenge) {
    if (!buffer) return 0;
    const std::string_view asked = challenge ? challenge : "";
    std::string report = kProgram + std::string(asked.substr(0, kMostChallenge)) + '|';
    // Characters worked out of the whole challenge, also of what is too long to be repeated.
    std::uint32_t sum = 17;
    for (const char c : asked) sum = sum * 31 + static_cast<unsigned char>(c);
    const std::size_t size = std::max(kLeastReportData, report.size() + kMark);
    while (report.size() < size) {
        report += static_cast<char>('A' + (sum >> 16) % 26);
        sum = sum * 1664525 + 1013904223;
    }
    std::memcpy(buffer, report.data(), report.size());
    return report.size();
}

}  // namespace terminal
