#pragma once

#include <string_view>

namespace text {

/// A UTF-16 unit with letter case taken out, as names of files, sections and keys ignore it: Latin
/// (also full-width), Greek and Cyrillic letters become small ones.
char16_t FoldCase(char16_t unit);

/// Equality of GBK texts that ignores letter case, and leaves the second byte of a character alone.
bool EqualNoCase(std::string_view left, std::string_view right);

}  // namespace text
