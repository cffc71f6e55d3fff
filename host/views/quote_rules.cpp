#include "host/views/quote_rules.h"

#include <algorithm>
#include <cstdlib>

#include "platform/text/bounded_text.h"

namespace views {
namespace {

constexpr char kNothing[] = "--";
constexpr int kPriceDigits = 4;  // papercore::kPriceScale

std::string Signed(const std::string& text, bool negative) { return (negative ? "-" : "+") + text; }

// In whole units of the last place shown, half a unit up.
std::int64_t Rounded(papercore::Price magnitude, int digits) {
    std::int64_t unit = 1;
    for (int place = digits; place < kPriceDigits; ++place) unit *= 10;
    return (magnitude + unit / 2) / unit;
}

std::string Decimal(std::int64_t units, int digits) {
    std::int64_t whole = 1;
    for (int place = 0; place < digits; ++place) whole *= 10;
    char text[48];
    if (digits == 0) {
        text::FormatText(text, sizeof text, "%lld", static_cast<long long>(units));
    } else {
        text::FormatText(text, sizeof text, "%lld.%0*lld", static_cast<long long>(units / whole),
                         digits, static_cast<long long>(units % whole));
    }
    return text;
}

}  // namespace

std::string PriceText(papercore::Price price, int digits) {
    if (price <= 0) return kNothing;
    const int places = std::clamp(digits, 0, kPriceDigits);
    return Decimal(Rounded(price, places), places);
}

int Tendency(papercore::Price price, papercore::Price against) {
    if (price <= 0 || against <= 0 || price == against) return 0;
    return price > against ? 1 : -1;
}

papercore::Price Reference(const papercore::Quote& quote) {
    return quote.previous_settlement > 0 ? quote.previous_settlement : quote.previous_close;
}

COLORREF TendencyColor(const skin::Palette& palette, int tendency) {
    if (tendency == 0) return palette.even;
    return tendency > 0 ? palette.buy : palette.sell;
}

std::string ChangeText(const papercore::Quote& quote, int digits) {
    const papercore::Price reference = Reference(quote);
    if (quote.last <= 0 || reference <= 0) return kNothing;
    const papercore::Price change = quote.last - reference;
    const int places = std::clamp(digits, 0, kPriceDigits);
    const std::string text = Decimal(Rounded(std::abs(change), places), places);
    return change == 0 ? text : Signed(text, change < 0);
}

std::string ChangePercentText(const papercore::Quote& quote) {
    const papercore::Price reference = Reference(quote);
    if (quote.last <= 0 || reference <= 0) return kNothing;
    const double percent =
        100.0 * static_cast<double>(quote.last - reference) / static_cast<double>(reference);
    char text[32];
    text::FormatText(text, sizeof text, "%+.2f%%", percent);
    const bool none = std::string(text + 1) == "0.00%";
    return none ? text + 1 : text;
}

std::string CountText(std::int64_t count) {
    std::string digits = std::to_string(count);
    const std::size_t first = digits[0] == '-' ? 1 : 0;
    for (std::size_t at = digits.size(); at > first + 3;) {
        at -= 3;
        digits.insert(at, ",");
    }
    return digits;
}

std::string TimeText(papercore::Instant time) {
    constexpr papercore::Instant kDay = 24LL * 60 * 60 * 1000;
    const papercore::Instant seconds = ((time % kDay + kDay) % kDay) / 1000;
    char text[16];
    text::FormatText(text, sizeof text, "%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                     static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
    return text;
}

}  // namespace views
