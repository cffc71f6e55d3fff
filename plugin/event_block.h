#pragma once

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string_view>

#include "plugin/contract/tagged_block.h"

/// Frees a tagged block.
struct BlockDeleter {
    void operator()(void* payload) const { FreeTaggedBlock(payload); }
};
using EventBlock = std::unique_ptr<void, BlockDeleter>;

// Payloads of core events. All sizes are bytes of the payload; a block is null when the heap
// refuses it. Texts are GBK, end with a NUL, and are cut between two characters where a block is
// too small for them.

EventBlock EmptyBlock(std::size_t size);

/// A text.
EventBlock TextBlock(std::string_view text, std::size_t size);

/// A number and, from offset 4 on, texts that follow each other with their NULs. A text that takes
/// all the room leaves the later ones empty.
EventBlock NumberedTextBlock(int number, std::initializer_list<std::string_view> texts,
                             std::size_t size);

/// A copy of a record in a block of at least its size; null for a null one.
template <class Record>
EventBlock RecordBlock(const Record* record, std::size_t size = sizeof(Record)) {
    if (record == nullptr || size < sizeof(Record)) return nullptr;
    EventBlock block = EmptyBlock(size);
    if (block != nullptr) std::memcpy(block.get(), record, sizeof(Record));
    return block;
}
