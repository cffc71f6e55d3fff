#include "plugin/client_report.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "plugin/contract/core_access.h"

namespace {

/// Bytes of the text with its end, as the server reads it.
constexpr std::size_t kReportTextSize = 4095;

std::string Base64(std::string_view bytes) {
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string encoded;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        if (encoded.size() + 4 >= kReportTextSize - 1) break;
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            const bool there = at + i < bytes.size();
            group = group << 8 | (there ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            const bool padding = i > bytes.size() - at;
            encoded += padding ? '=' : kDigits[group >> (18 - 6 * i) & 63];
        }
    }
    return encoded;
}

}  // namespace

std::string BuildClientReport(const std::string& challenge) {
    char buffer[kHostReportSize] = {};
    if (g_pfnHostCallBack == nullptr) return {};
    const ULONG_PTR written =
        g_pfnHostCallBack(HOST_GET_REPORT_DATA, reinterpret_cast<WPARAM>(buffer),
                          reinterpret_cast<LPARAM>(challenge.c_str()));
    const std::size_t size = std::min<std::size_t>(written, sizeof(buffer));
    return Base64({buffer, size});
}
