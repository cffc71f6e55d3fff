#pragma once

#include <cstddef>
#include <string_view>

namespace text {

/// Writes `argument` by a printf-like format that comes out of a configuration file.
///
/// Interpreted are the first "%s", with '-', a width and a precision (both in bytes; a precision
/// never splits a character), and "%%". Everything else is printed as it stands: further "%s",
/// other conversions and flags, '*', a conversion that breaks off. The result is terminated and cut
/// to the field between two characters; the answer tells whether all of it found room. Format and
/// argument must not lie in the field.
bool FormatFromFile(char* field, std::size_t size, std::string_view format,
                    std::string_view argument);

template <std::size_t N>
bool FormatFromFile(char (&field)[N], std::string_view format, std::string_view argument) {
    return FormatFromFile(field, N, format, argument);
}

}  // namespace text
