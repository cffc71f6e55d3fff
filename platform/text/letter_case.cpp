#include "platform/text/letter_case.h"

#include <algorithm>

#include "platform/text/gbk.h"

namespace text {

char16_t FoldCase(char16_t unit) {
    const auto within = [unit](char16_t first, char16_t last) {
        return unit >= first && unit <= last;
    };
    if (within(u'A', u'Z') || within(0xFF21, 0xFF3A)) return static_cast<char16_t>(unit + 32);
    if (within(0x0391, 0x03A9) || within(0x0410, 0x042F)) return static_cast<char16_t>(unit + 32);
    return unit == 0x0401 ? char16_t{0x0451} : unit;
}

bool EqualNoCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(Utf16FromGbk(left), Utf16FromGbk(right), {}, FoldCase, FoldCase);
}

}  // namespace text
