#include "plugin/client_report.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <exception>

#include "platform/digest/sha512.h"
#include "plugin/contract/core_access.h"

namespace {

/// Characters of the text with its end, as the server reads it.
constexpr std::size_t kReportTextSize = 4095;
constexpr int kDigestSize = 64;

// Set when the build is configured; the server knows the same two.
constexpr std::string_view kFirstSalt = REPORT_SALT_FIRST;
constexpr std::string_view kSecondSalt = REPORT_SALT_SECOND;
static_assert(kFirstSalt.size() == 4 && kSecondSalt.size() == 4);

/// How many bytes of the buffer the host filled; 0 with no host.
int AskHost(const std::string& challenge, char (&buffer)[kHostReportSize]) {
    if (g_pfnHostCallBack == nullptr) return 0;
    const ULONG_PTR written =
        g_pfnHostCallBack(HOST_GET_REPORT_DATA, reinterpret_cast<WPARAM>(buffer),
                          reinterpret_cast<LPARAM>(challenge.c_str()));
    return static_cast<int>(std::min<ULONG_PTR>(written, sizeof(buffer)));
}

}  // namespace

std::string BuildClientReport(const std::string& challenge) {
    char buffer[kHostReportSize] = {};
    int size = AskHost(challenge, buffer);
    DigestReport(challenge.data(), static_cast<int>(challenge.size()),
                 reinterpret_cast<unsigned char*>(buffer), &size);
    return EncodeReport({buffer, static_cast<std::size_t>(size)}, kReportTextSize);
}

int DigestReport(const char* text, int textLen, unsigned char* buffer, int* len) {
    const int size = *len;
    *len = kDigestSize;
    if (buffer == nullptr || size < kDigestSize) return 0;
    try {
        std::string all(text, static_cast<std::size_t>(textLen));
        all += kFirstSalt;
        all.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(size));
        all += kSecondSalt;
        digest::Sha512Digest made;
        if (!digest::Sha512(all, made)) return -1;
        std::memcpy(buffer, made.data(), made.size());
        return kDigestSize;
    } catch (const std::exception&) {
        return -1;
    }
}

std::string EncodeReport(std::string_view bytes, std::size_t capacity) {
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string encoded;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        if (encoded.size() + 5 >= capacity) break;
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
