#include "platform/text/bounded_text.h"

#include <cstdarg>
#include <cstdio>

#include "platform/text/gbk.h"

namespace text {
namespace {

/// Length of the text in a field, at most `size`.
std::size_t UsedLength(const char* field, std::size_t size) {
    const void* end = std::memchr(field, '\0', size);
    return end ? static_cast<std::size_t>(static_cast<const char*>(end) - field) : size;
}

bool FormatList(char* field, std::size_t size, const char* format, std::va_list arguments) {
    if (size == 0) return false;
    const int length = std::vsnprintf(field, size, format, arguments);
    if (length < 0) {
        field[0] = '\0';
        return false;
    }
    if (static_cast<std::size_t>(length) < size) return true;
    // One byte past the end stands in for the lost rest, so that the cut counts as one.
    const std::string_view written(field, size);
    field[PrefixLength(written, size - 1)] = '\0';
    return false;
}

}  // namespace

bool CopyText(char* field, std::size_t size, std::string_view source) {
    if (size == 0) return false;
    const std::string_view text = source.substr(0, source.find('\0'));
    const std::size_t length = PrefixLength(text, size - 1);
    const bool whole = length == text.size();
    if (length != 0) std::memmove(field, text.data(), length);
    field[length] = '\0';
    return whole;
}

bool AppendText(char* field, std::size_t size, std::string_view source) {
    const std::size_t used = size == 0 ? 0 : UsedLength(field, size);
    if (used == size) return false;
    return CopyText(field + used, size - used, source);
}

bool FormatText(char* field, std::size_t size, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const bool whole = FormatList(field, size, format, arguments);
    va_end(arguments);
    return whole;
}

bool AppendFormat(char* field, std::size_t size, const char* format, ...) {
    const std::size_t used = size == 0 ? 0 : UsedLength(field, size);
    if (used == size) return false;
    std::va_list arguments;
    va_start(arguments, format);
    const bool whole = FormatList(field + used, size - used, format, arguments);
    va_end(arguments);
    return whole;
}

}  // namespace text
