#include "platform/win32/kernel/utf8.h"

#include <algorithm>
#include <cstdint>

namespace winbase {
namespace {

constexpr char32_t kBad = 0xFFFD;

/// The form of a character by its first byte.
struct Form {
    std::size_t length;  ///< 0: no character begins so
    char32_t first_bits;
    char32_t smallest;  ///< below it the form is too long
};

Form FormOf(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte < 0xC0) return {0, 0, 0};
    if (byte < 0xE0) return {2, byte & 0x1Fu, 0x80};
    if (byte < 0xF0) return {3, byte & 0x0Fu, 0x800};
    if (byte < 0xF8) return {4, byte & 0x07u, 0x10000};
    return {0, 0, 0};
}

bool IsSurrogate(char32_t point) { return point >= 0xD800 && point <= 0xDFFF; }

/// Takes one character, or one bad byte and the trail bytes that fit it, off the text.
char32_t Take(std::string_view& text) {
    const Form form = FormOf(static_cast<unsigned char>(text.front()));
    char32_t point = form.first_bits;
    std::size_t used = 1;
    while (used < form.length && used < text.size()) {
        const auto byte = static_cast<unsigned char>(text[used]);
        if (byte >> 6 != 2) break;
        point = point << 6 | (byte & 0x3Fu);
        ++used;
    }
    const bool whole = form.length != 0 && used == form.length;
    const bool valid = whole && point >= form.smallest && point <= 0x10FFFF && !IsSurrogate(point);
    text.remove_prefix(used);
    return valid ? point : kBad;
}

void Append(std::string& text, char32_t point) {
    const auto trail = [&](int shift) {
        text += static_cast<char>(0x80 | (point >> shift & 0x3F));
    };
    if (point < 0x80) {
        text += static_cast<char>(point);
    } else if (point < 0x800) {
        text += static_cast<char>(0xC0 | point >> 6);
        trail(0);
    } else if (point < 0x10000) {
        text += static_cast<char>(0xE0 | point >> 12);
        trail(6);
        trail(0);
    } else {
        text += static_cast<char>(0xF0 | point >> 18);
        trail(12);
        trail(6);
        trail(0);
    }
}

}  // namespace

std::u16string Utf16FromUtf8(std::string_view utf8, bool& replaced) {
    std::u16string result;
    while (!utf8.empty()) {
        const bool stands_for_itself = utf8.starts_with("\xEF\xBF\xBD");
        const char32_t point = Take(utf8);
        replaced |= point == kBad && !stands_for_itself;
        if (point < 0x10000) {
            result += static_cast<char16_t>(point);
        } else {
            result += static_cast<char16_t>(0xD7C0 + (point >> 10));
            result += static_cast<char16_t>(0xDC00 | (point & 0x3FF));
        }
    }
    return result;
}

std::string Utf8FromUtf16(std::u16string_view utf16) {
    std::string result;
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t point = utf16[i];
        const bool high = point >= 0xD800 && point <= 0xDBFF;
        const bool low_follows =
            i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 && utf16[i + 1] <= 0xDFFF;
        if (high && low_follows) {
            point = 0x10000 + ((point & 0x3FF) << 10) + (utf16[++i] & 0x3FFu);
        } else if (IsSurrogate(point)) {
            point = kBad;
        }
        Append(result, point);
    }
    return result;
}

}  // namespace winbase
