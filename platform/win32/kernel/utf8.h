#pragma once

#include <string>
#include <string_view>

namespace winbase {

/// What is no UTF-8 (overlong forms and surrogates too) becomes U+FFFD, and `replaced` tells of it.
std::u16string Utf16FromUtf8(std::string_view utf8, bool& replaced);

/// Lone surrogates become U+FFFD.
std::string Utf8FromUtf16(std::u16string_view utf16);

}  // namespace winbase
