#include <windows.h>

#include <algorithm>
#include <compare>
#include <cstring>
#include <limits>
#include <string>

#include "platform/text/gbk.h"
#include "platform/win32/kernel/text_compare.h"

namespace winbase {

char16_t FoldCase(char16_t unit) {
    const auto within = [unit](char16_t first, char16_t last) {
        return unit >= first && unit <= last;
    };
    if (within(u'A', u'Z') || within(0xFF21, 0xFF3A)) return static_cast<char16_t>(unit + 32);
    if (within(0x0391, 0x03A9) || within(0x0410, 0x042F)) return static_cast<char16_t>(unit + 32);
    return unit == 0x0401 ? char16_t{0x0451} : unit;
}

bool EqualNoCase(std::string_view left, std::string_view right) {
    const std::u16string a = text::Utf16FromGbk(left);
    const std::u16string b = text::Utf16FromGbk(right);
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return FoldCase(x) == FoldCase(y); });
}

namespace {

/// The place of a character among all: signs, digits, letters, then Chinese by code, which for
/// the common characters is the order of their pronunciation.
int SortKey(char16_t unit) {
    const char16_t folded = FoldCase(unit);
    if (folded >= 0x80) return 0x30000 + text::GbkCodeByUtf16()[folded];
    if (folded >= u'a' && folded <= u'z') return 0x20000 + folded;
    if (folded >= u'0' && folded <= u'9') return 0x10000 + folded;
    return folded;
}

enum class Case { kIgnored, kBreaksTies };

int Compare(LPCSTR left, LPCSTR right, Case letter_case) {
    if (!left || !right) return (left != nullptr) - (right != nullptr);
    const std::u16string a = text::Utf16FromGbk(left);
    const std::u16string b = text::Utf16FromGbk(right);
    const auto by_key = [](char16_t x, char16_t y) { return SortKey(x) <=> SortKey(y); };
    auto order =
        std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end(), by_key);
    // Small letters come before capital ones, the other way round than by code.
    if (order == 0 && letter_case == Case::kBreaksTies) order = b <=> a;
    return (order > 0) - (order < 0);
}

}  // namespace
}  // namespace winbase

int lstrlenA(LPCSTR text) {
    if (!text) return 0;
    const std::size_t length = std::strlen(text);
    return static_cast<int>(std::min<std::size_t>(length, std::numeric_limits<int>::max()));
}

LPSTR lstrcpynA(LPSTR target, LPCSTR source, int size) {
    if (!target || !source) return nullptr;
    if (size <= 0) return target;
    const std::size_t length = strnlen(source, static_cast<std::size_t>(size) - 1);
    std::memmove(target, source, length);
    target[length] = '\0';
    return target;
}

int lstrcmpA(LPCSTR left, LPCSTR right) {
    return winbase::Compare(left, right, winbase::Case::kBreaksTies);
}

int lstrcmpiA(LPCSTR left, LPCSTR right) {
    return winbase::Compare(left, right, winbase::Case::kIgnored);
}
