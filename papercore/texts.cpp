#include "papercore/texts.h"

#include <algorithm>

namespace papercore {
namespace {

constexpr int kDecimals = 4;
std::string Magnitude(Fen amount) {
    const auto value = static_cast<std::uint64_t>(amount);
    return std::to_string(amount < 0 ? 0 - value : value);
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

}  // namespace

std::string PlainMoneyText(Fen amount) {
    std::string digits = Magnitude(amount);
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    digits.insert(digits.size() - 2, 1, '.');
    return amount < 0 ? "-" + digits : digits;
}

std::string MoneyText(Fen amount) {
    std::string text = PlainMoneyText(amount);
    const std::size_t first = amount < 0 ? 1 : 0;
    for (std::size_t at = text.size() - 3; at > first + 3; at -= 3) text.insert(at - 3, 1, ',');
    return text;
}

std::string PriceText(Price price, int digits) {
    std::string number = Magnitude(price);
    if (number.size() <= kDecimals) number.insert(0, kDecimals + 1 - number.size(), '0');
    const std::size_t whole = number.size() - kDecimals;
    std::size_t decimals = kDecimals;
    const auto wanted = static_cast<std::size_t>(std::clamp(digits, 0, kDecimals));
    while (decimals > wanted && number[whole + decimals - 1] == '0') --decimals;
    std::string text = price < 0 ? "-" : "";
    text.append(number, 0, whole);
    if (decimals > 0) text.append(1, '.').append(number, whole, decimals);
    return text;
}

bool ReadPrice(std::string_view text, Price& price) {
    text = Trimmed(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    std::int64_t value = 0;
    int decimals = -1;
    bool any = false;
    for (const char character : text) {
        if (character == '.' && decimals < 0) {
            decimals = 0;
            continue;
        }
        if (!IsDigit(character)) return false;
        any = true;
        if (decimals == kDecimals) {
            if (character != '0') return false;
            continue;
        }
        if (decimals >= 0) ++decimals;
        value = value * 10 + (character - '0');
        if (value > kHighestPrice) return false;
    }
    for (int i = std::max(decimals, 0); i < kDecimals; ++i) value *= 10;
    if (!any || value > kHighestPrice) return false;
    price = negative ? -value : value;
    return true;
}

}  // namespace papercore
