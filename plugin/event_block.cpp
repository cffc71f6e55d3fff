#include "plugin/event_block.h"

#include <limits>

#include "platform/text/bounded_text.h"

EventBlock EmptyBlock(std::size_t size) {
    if (size > static_cast<std::size_t>(std::numeric_limits<int>::max())) return nullptr;
    return EventBlock(AllocTaggedBlock(static_cast<int>(size)));
}

EventBlock TextBlock(std::string_view text, std::size_t size) {
    EventBlock block = EmptyBlock(size);
    if (block != nullptr) text::CopyText(static_cast<char*>(block.get()), size, text);
    return block;
}

EventBlock NumberedTextBlock(int number, std::initializer_list<std::string_view> texts,
                             std::size_t size) {
    if (size < sizeof(number) + texts.size()) return nullptr;
    EventBlock block = EmptyBlock(size);
    if (block == nullptr) return nullptr;
    std::memcpy(block.get(), &number, sizeof(number));
    char* place = static_cast<char*>(block.get()) + sizeof(number);
    std::size_t left = size - sizeof(number);
    std::size_t to_come = texts.size();
    for (const std::string_view one : texts) {
        --to_come;  // each of these needs its NUL
        text::CopyText(place, left - to_come, one);
        const std::size_t used = std::strlen(place) + 1;
        place += used;
        left -= used;
    }
    return block;
}
