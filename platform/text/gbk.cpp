#include "platform/text/gbk.h"

namespace text {
namespace {

constexpr char32_t kBad = 0xFFFFFFFF;

void Report(bool* replaced, bool value) {
    if (replaced) *replaced = value;
}

/// Appends the code of a unit, or '?'; true if GBK has the unit.
bool AppendUnit(std::string& gbk, char32_t unit) {
    if (unit < 0x80) {
        gbk.push_back(static_cast<char>(unit));
        return true;
    }
    const char16_t code = unit <= 0xFFFF ? GbkCodeByUtf16()[unit] : u'\0';
    if (code == 0) {
        gbk.push_back('?');
        return false;
    }
    if (code > 0xFF) gbk.push_back(static_cast<char>(code >> 8));
    gbk.push_back(static_cast<char>(code & 0xFF));
    return true;
}

void AppendUtf8(std::string& utf8, char16_t unit) {
    if (unit < 0x80) {
        utf8.push_back(static_cast<char>(unit));
        return;
    }
    if (unit < 0x800) {
        utf8.push_back(static_cast<char>(0xC0 | unit >> 6));
    } else {
        utf8.push_back(static_cast<char>(0xE0 | unit >> 12));
        utf8.push_back(static_cast<char>(0x80 | (unit >> 6 & 0x3F)));
    }
    utf8.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
}

/// Takes one character off the front of `utf8`; kBad for bytes that are none (overlong forms,
/// surrogates and values past the end of Unicode among them).
char32_t TakeUtf8(std::string_view& utf8) {
    const auto first = static_cast<unsigned char>(utf8[0]);
    utf8.remove_prefix(1);
    if (first < 0x80) return first;
    if (first < 0xC2 || first > 0xF4) return kBad;
    const int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t value = first & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        if (utf8.empty() || (static_cast<unsigned char>(utf8[0]) & 0xC0) != 0x80) return kBad;
        value = value << 6 | (static_cast<unsigned char>(utf8[0]) & 0x3F);
        utf8.remove_prefix(1);
    }
    constexpr char32_t kFirstOfLength[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    return value < kFirstOfLength[more] || surrogate || value > 0x10FFFF ? kBad : value;
}

}  // namespace

std::size_t PrefixLength(std::string_view text, std::size_t max_bytes) {
    if (text.size() <= max_bytes) return text.size();
    // Behind a byte that cannot lead there is always a border, so the run of possible lead bytes
    // before the cut pairs up from its front; an odd one is a lead byte that would lose its trail.
    std::size_t run = 0;
    while (run < max_bytes && IsLeadByte(text[max_bytes - 1 - run])) ++run;
    return max_bytes - run % 2;
}

std::u16string Utf16FromGbk(std::string_view gbk, bool* replaced) {
    const GbkTable& table = Utf16ByGbkCode();
    std::u16string utf16;
    utf16.reserve(gbk.size());
    bool bad = false;
    while (!gbk.empty()) {
        const std::size_t length = CharLength(gbk);
        unsigned code = static_cast<unsigned char>(gbk[0]);
        if (length == 2) code = code << 8 | static_cast<unsigned char>(gbk[1]);
        const char16_t unit = table[code];
        const bool known = unit != 0 || code == 0;
        bad = bad || !known || code == 0xFF;
        utf16.push_back(known ? unit : u'?');
        gbk.remove_prefix(length);
    }
    Report(replaced, bad);
    return utf16;
}

std::string GbkFromUtf16(std::u16string_view utf16, bool* replaced) {
    std::string gbk;
    gbk.reserve(utf16.size() * 2);
    bool bad = false;
    for (const char16_t unit : utf16) {
        if (!AppendUnit(gbk, unit)) bad = true;
    }
    Report(replaced, bad);
    return gbk;
}

std::string Utf8FromGbk(std::string_view gbk, bool* replaced) {
    std::string utf8;
    utf8.reserve(gbk.size() * 3 / 2);
    for (const char16_t unit : Utf16FromGbk(gbk, replaced)) AppendUtf8(utf8, unit);
    return utf8;
}

std::string GbkFromUtf8(std::string_view utf8, bool* replaced) {
    std::string gbk;
    gbk.reserve(utf8.size());
    bool bad = false;
    while (!utf8.empty()) {
        if (!AppendUnit(gbk, TakeUtf8(utf8))) bad = true;
    }
    Report(replaced, bad);
    return gbk;
}

}  // namespace text
