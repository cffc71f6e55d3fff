#include "papercore/units.h"

#include <cmath>
#include <limits>

namespace papercore {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kSmallest = std::numeric_limits<std::int64_t>::min();
constexpr double kMost = 9.2e18;

std::int64_t Rounded(double value) {
    if (std::isnan(value)) return 0;
    if (value >= kMost) return kLargest;
    if (value <= -kMost) return kSmallest;
    return std::llround(value);
}

std::int64_t Product(std::int64_t left, std::int64_t right) {
    std::int64_t product = 0;
    if (!__builtin_mul_overflow(left, right, &product)) return product;
    return (left < 0) == (right < 0) ? kLargest : kSmallest;
}

std::int64_t Sum(std::int64_t left, std::int64_t right) {
    std::int64_t sum = 0;
    if (!__builtin_add_overflow(left, right, &sum)) return sum;
    return left > 0 ? kLargest : kSmallest;
}

/// Half a unit rounds up, also below zero.
std::int64_t Quotient(std::int64_t dividend, std::int64_t divisor) {
    std::int64_t whole = dividend / divisor;
    std::int64_t rest = dividend % divisor;
    if (rest < 0) {
        rest += divisor;
        --whole;
    }
    return 2 * rest >= divisor ? whole + 1 : whole;
}

}  // namespace

Fen FenFromYuan(double yuan) { return Rounded(yuan * 100.0); }

double YuanFromFen(Fen fen) { return static_cast<double>(fen) / 100.0; }

Price PriceFromYuan(double yuan) { return Rounded(yuan * static_cast<double>(kPriceScale)); }

double YuanFromPrice(Price price) {
    return static_cast<double>(price) / static_cast<double>(kPriceScale);
}

Fen Turnover(Price price, int unit, std::int64_t volume) {
    return Quotient(Product(Product(price, unit), volume), kPriceScale / 100);
}

Fen Share(Fen amount, Ppm rate) {
    constexpr std::int64_t kMillion = 1'000'000;
    return Sum(Product(amount / kMillion, rate),
               Quotient(Product(amount % kMillion, rate), kMillion));
}

}  // namespace papercore
