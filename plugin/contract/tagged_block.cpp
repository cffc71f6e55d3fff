#include "plugin/contract/tagged_block.h"

#include <cstring>
#include <limits>

#include "platform/heap.h"

namespace {

constexpr int kGuardSize = 4;
constexpr char kGuard[kGuardSize] = {'$', '$', '$', '$'};

char* BlockOf(void* payload) { return static_cast<char*>(payload) - kGuardSize; }

}  // namespace

void* AllocTaggedBlock(int n) {
    if (n < 0 || n > std::numeric_limits<int>::max() - 2 * kGuardSize) return nullptr;
    const auto size = static_cast<SIZE_T>(n) + 2 * kGuardSize;
    auto* block = static_cast<char*>(HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size));
    if (!block) return nullptr;
    std::memcpy(block, kGuard, kGuardSize);
    std::memcpy(block + kGuardSize + n, kGuard, kGuardSize);
    return block + kGuardSize;
}

void FreeTaggedBlock(void* payload) {
    if (payload) HeapFree(GetProcessHeap(), 0, BlockOf(payload));
}

int TaggedBlockSize(void* payload) {
    if (!payload) return 0;
    return static_cast<int>(HeapSize(GetProcessHeap(), 0, BlockOf(payload))) - 2 * kGuardSize;
}
