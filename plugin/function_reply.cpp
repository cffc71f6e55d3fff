#include "plugin/function_reply.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "plugin/contract/get_field.h"

namespace {

constexpr char kSeparator = '|';
constexpr int kFieldsToOutcome = 4;
/// Bytes of a field with its end; what is longer counts as empty.
constexpr int kFieldSize = 31;
constexpr int kChallengeSize = 4096;

constexpr long long kLeastSeconds = 5;
constexpr long long kMostMillis = 0x7FFFFFFF;

}  // namespace

const char* AcceptedFields(const char* reply) {
    char field[kFieldSize] = "";
    const char* rest = reply;
    for (int i = 0; i < kFieldsToOutcome && rest != nullptr; ++i) {
        rest = GetField(rest, field, sizeof(field), kSeparator);
    }
    return rest != nullptr && field[0] == 'Y' ? rest : nullptr;
}

ReportOrder ReadReportOrder(const char* fields) {
    char challenge[kChallengeSize] = "";
    char period[kFieldSize] = "";
    const char* rest = GetField(fields, challenge, sizeof(challenge), kSeparator);
    GetField(rest, period, sizeof(period), kSeparator);
    const long long seconds =
        std::clamp<long long>(std::strtoll(period, nullptr, 10), kLeastSeconds, INT32_MAX);
    return {challenge, static_cast<UINT>(std::min(seconds * 3000 / 4, kMostMillis))};
}
