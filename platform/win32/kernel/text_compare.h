#pragma once

#include <string_view>

namespace winbase {

/// The character with letter case taken out: Latin (also full-width), Greek and Cyrillic letters.
char16_t FoldCase(char16_t unit);

/// Equality of GBK texts that ignores letter case, and leaves the second byte of a character alone.
bool EqualNoCase(std::string_view left, std::string_view right);

}  // namespace winbase
