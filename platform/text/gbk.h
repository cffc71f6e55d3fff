#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// GBK text (code page 936) and its ways to Unicode.
//
// A character is one byte, or a lead byte (0x81 to 0xFE) with the byte behind it, whatever that
// byte is; a lead byte before the end of a text stands alone. 0x80 is the euro sign. The stretches
// that no standard fills are private characters: 0xAAA1.., 0xF8A1.. and 0xA140.. are U+E000 to
// U+E765, and the codes left over between the assigned ones follow up to U+E864.

namespace text {

inline bool IsLeadByte(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x81 && value <= 0xFE;
}

/// Bytes of the first character of a text: 1 or 2, 0 for an empty text. A NUL is never swallowed.
inline std::size_t CharLength(std::string_view text) {
    if (text.size() < 2) return text.size();
    return IsLeadByte(text[0]) && text[1] != '\0' ? 2 : 1;
}

/// The next character of a NUL-terminated text; the end itself at its end.
inline const char* NextChar(const char* position) {
    if (*position == '\0') return position;
    return position + (IsLeadByte(position[0]) && position[1] != '\0' ? 2 : 1);
}

/// Length of the longest prefix of at most `max_bytes` bytes that splits no character.
std::size_t PrefixLength(std::string_view text, std::size_t max_bytes);

using GbkTable = std::array<char16_t, 0x10000>;

/// The UTF-16 unit of each code (a single byte, or lead << 8 | trail); 0 where there is none. Built
/// on first use, safe from any thread; keep the reference in loops.
const GbkTable& Utf16ByGbkCode();

/// The code of each UTF-16 unit; 0 where GBK has none (and for U+0000).
const GbkTable& GbkCodeByUtf16();

// The conversions keep NUL bytes. What has no counterpart becomes '?', one for each bad character
// (each half of a surrogate pair, when it comes as UTF-16), and `*replaced` tells of it; 0xFF comes
// out as U+F8F5 and counts as replaced.

std::u16string Utf16FromGbk(std::string_view gbk, bool* replaced = nullptr);
std::string GbkFromUtf16(std::u16string_view utf16, bool* replaced = nullptr);
std::string Utf8FromGbk(std::string_view gbk, bool* replaced = nullptr);
std::string GbkFromUtf8(std::string_view utf8, bool* replaced = nullptr);

}  // namespace text
