#include "controls/color_tag.h"

#include <algorithm>
#include <string_view>

#include "platform/system.h"

namespace {

constexpr std::string_view kOpening = "<COLOR#";
constexpr std::size_t kDigits = 9;

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

BYTE PartAt(std::string_view digits) {
    const int value = (digits[0] - '0') * 100 + (digits[1] - '0') * 10 + (digits[2] - '0');
    return static_cast<BYTE>(value & 0xFF);
}

bool IsTag(std::string_view text) {
    return text.size() > kDigits && text[kDigits] == '>' &&
           std::all_of(text.begin(), text.begin() + kDigits, IsDigit);
}

}  // namespace

bool ParseColorTag(const char* text, COLORREF& color) {
    if (!text) return false;
    const std::string_view whole(text);
    if (whole.find_first_of("\r\n") != std::string_view::npos) return false;
    for (std::size_t at = whole.rfind(kOpening); at != std::string_view::npos;
         at = at == 0 ? std::string_view::npos : whole.rfind(kOpening, at - 1)) {
        const std::string_view digits = whole.substr(at + kOpening.size());
        if (!IsTag(digits)) continue;
        color = RGB(PartAt(digits), PartAt(digits.substr(3)), PartAt(digits.substr(6)));
        return true;
    }
    return false;
}
