#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

// Writing GBK text into fixed fields. Every operation leaves a terminated text that ends between
// two characters, touches no byte behind the terminator, does nothing to a field of no bytes, and
// answers whether the whole text found room. The source may lie in the field itself.

namespace text {

bool CopyText(char* field, std::size_t size, std::string_view source);
bool AppendText(char* field, std::size_t size, std::string_view source);

/// A null source counts as empty.
inline bool CopyText(char* field, std::size_t size, const char* source) {
    return CopyText(field, size, std::string_view(source ? source : ""));
}
inline bool AppendText(char* field, std::size_t size, const char* source) {
    return AppendText(field, size, std::string_view(source ? source : ""));
}

template <std::size_t N, class Source>
bool CopyText(char (&field)[N], const Source& source) {
    return CopyText(field, N, source);
}
template <std::size_t N, class Source>
bool AppendText(char (&field)[N], const Source& source) {
    return AppendText(field, N, source);
}

/// As `printf` writes it. The format is the program's own text, never one out of a file; no
/// argument may lie in the field.
[[gnu::format(printf, 3, 4)]] bool FormatText(char* field, std::size_t size, const char* format,
                                              ...);
[[gnu::format(printf, 3, 4)]] bool AppendFormat(char* field, std::size_t size, const char* format,
                                                ...);

/// The text of a field that somebody else filled, and perhaps to its last byte.
template <std::size_t N>
std::string_view FieldText(const char (&field)[N]) {
    const void* end = std::memchr(field, '\0', N);
    return {field, end ? static_cast<std::size_t>(static_cast<const char*>(end) - field) : N};
}

}  // namespace text
