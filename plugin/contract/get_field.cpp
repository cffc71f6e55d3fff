#include "plugin/contract/get_field.h"

#include <cstring>

#include "platform/text/gbk.h"

const char* GetField(const char* source, char* out, int capacity, char separator) {
    if (capacity > 0) out[0] = '\0';
    if (!source || *source == '\0') return nullptr;

    const char* end = source;
    while (*end != '\0' && *end != separator) end = text::NextChar(end);
    const auto length = end - source;
    if (length < capacity) {
        std::memcpy(out, source, static_cast<std::size_t>(length));
        out[length] = '\0';
    }
    return *end == '\0' ? end : end + 1;
}
