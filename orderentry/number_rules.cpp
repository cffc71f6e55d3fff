#include "orderentry/number_rules.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "platform/text/bounded_text.h"

namespace {

using Int = std::numeric_limits<int>;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

const char* SkipSpace(const char* text) {
    while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
    return text;
}

/// Steps over a sign and answers whether it is a minus.
bool TakeSign(const char*& text) {
    const bool negative = *text == '-';
    if (negative || *text == '+') ++text;
    return negative;
}

constexpr int kExactDigits = 3;
constexpr std::uint64_t kPowers[kExactDigits + 1] = {1, 10, 100, 1000};

/// A price as a whole number of its last decimal places, rounded exactly as printf rounds: to the
/// nearest, halves of the binary value to even. False for prices that 64 bits do not do.
bool InLastPlaces(double price, int digits, std::uint64_t* places) {
    constexpr double kLeast = 1.0;
    constexpr double kMost = 1e15;
    if (!(price >= kLeast && price < kMost) || digits > kExactDigits) return false;
    // From 1 on a double has at most 52 binary places, so the fraction times 2^52 is whole, and ten
    // more bits hold its product with 1000.
    constexpr int kFractionBits = 52;
    const auto whole = static_cast<std::uint64_t>(price);
    const auto fraction = static_cast<std::uint64_t>((price - static_cast<double>(whole)) *
                                                     static_cast<double>(1LL << kFractionBits));
    const std::uint64_t scale = kPowers[digits];
    const std::uint64_t product = fraction * scale;
    const std::uint64_t rest = product & ((1ULL << kFractionBits) - 1);
    constexpr std::uint64_t kHalf = 1ULL << (kFractionBits - 1);
    std::uint64_t result = whole * scale + (product >> kFractionBits);
    if (rest > kHalf || (rest == kHalf && (result & 1) != 0)) ++result;
    *places = result;
    return true;
}

/// Writes from the end of a buffer backwards and answers where the text starts.
char* WritePlaces(char* end, std::uint64_t places, int digits) {
    int written = 0;
    while (places != 0 || written <= digits) {
        if (written == digits && digits != 0) *--end = '.';
        *--end = static_cast<char>('0' + places % 10);
        places /= 10;
        ++written;
    }
    return end;
}

}  // namespace

double ReadNumber(const char* text) {
    if (text == nullptr) return 0;
    const char* start = SkipSpace(text);
    const bool negative = TakeSign(start);
    if (!IsDigit(*start) && !(*start == '.' && IsDigit(start[1]))) return 0;
    double value = 0;
    const auto answer = std::from_chars(start, start + std::strlen(start), value);
    // Too large or too small; only the C library tells which.
    if (answer.ec == std::errc::result_out_of_range) value = std::strtod(start, nullptr);
    return negative ? -value : value;
}

int ReadInteger(const char* text) {
    if (text == nullptr) return 0;
    const char* digit = SkipSpace(text);
    const bool negative = TakeSign(digit);
    long long value = 0;
    for (; IsDigit(*digit) && value <= Int::max(); ++digit) value = value * 10 + (*digit - '0');
    return Saturated(negative ? -value : value);
}

int Truncated(double value) {
    if (std::isnan(value)) return 0;
    if (value >= static_cast<double>(Int::max())) return Int::max();
    return value <= static_cast<double>(Int::min()) ? Int::min() : static_cast<int>(value);
}

int Saturated(long long value) {
    return static_cast<int>(std::clamp<long long>(value, Int::min(), Int::max()));
}

int UsableDigits(int digits) {
    constexpr int kMostDigits = 8;
    return digits >= 0 && digits <= kMostDigits ? digits : kUsualDigits;
}

bool FormatPrice(char* text, std::size_t size, double price, int digits) {
    digits = UsableDigits(digits);
    std::uint64_t places = 0;
    if (!InLastPlaces(price, digits, &places)) {
        return text::FormatText(text, size, "%.*f", digits, price);
    }
    char buffer[24];
    char* const end = buffer + sizeof buffer;
    const char* const start = WritePlaces(end, places, digits);
    const auto length = static_cast<std::size_t>(end - start);
    if (size == 0) return false;
    const std::size_t copied = std::min(length, size - 1);
    std::memcpy(text, start, copied);
    text[copied] = '\0';
    return copied == length;
}

std::string_view PriceText(PriceRoom& room, double price, int digits) {
    digits = UsableDigits(digits);
    std::uint64_t places = 0;
    if (!InLastPlaces(price, digits, &places)) {
        text::FormatText(room, sizeof room, "%.*f", digits, price);
        return room;
    }
    char* const end = room + sizeof room;
    const char* const start = WritePlaces(end, places, digits);
    return {start, static_cast<std::size_t>(end - start)};
}
