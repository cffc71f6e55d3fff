#include <windows.h>

#include <cassert>
#include <cstdlib>
#include <cstring>
#include <limits>

// The C library's allocator rounds sizes up and keeps no note of what was asked for, so each block
// carries its size in front.

namespace {

struct alignas(std::max_align_t) BlockHead {
    SIZE_T size;
};

constexpr SIZE_T kLargestBlock =
    static_cast<SIZE_T>(std::numeric_limits<std::ptrdiff_t>::max()) - sizeof(BlockHead);
constexpr SIZE_T kNoSize = static_cast<SIZE_T>(-1);
constexpr DWORD kFlags = HEAP_NO_SERIALIZE | HEAP_ZERO_MEMORY;

// Outside the numbers of every handle table.
HANDLE ProcessHeap() { return reinterpret_cast<HANDLE>(ULONG_PTR{0x10000}); }

bool IsHeap(HANDLE heap, [[maybe_unused]] DWORD flags) {
    assert((flags & ~kFlags) == 0 && "heap flag without support");
    return heap == ProcessHeap();
}

BlockHead* HeadOf(LPVOID block) { return static_cast<BlockHead*>(block) - 1; }

}  // namespace

HANDLE GetProcessHeap() { return ProcessHeap(); }

LPVOID HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size) {
    if (!IsHeap(heap, flags) || size > kLargestBlock) return nullptr;
    const SIZE_T whole = sizeof(BlockHead) + size;
    void* memory = flags & HEAP_ZERO_MEMORY ? std::calloc(1, whole) : std::malloc(whole);
    if (!memory) return nullptr;
    auto* head = static_cast<BlockHead*>(memory);
    head->size = size;
    return head + 1;
}

LPVOID HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size) {
    if (!IsHeap(heap, flags) || !block || size > kLargestBlock) return nullptr;
    const SIZE_T old_size = HeadOf(block)->size;
    void* memory = std::realloc(HeadOf(block), sizeof(BlockHead) + size);
    if (!memory) return nullptr;
    auto* head = static_cast<BlockHead*>(memory);
    head->size = size;
    auto* bytes = reinterpret_cast<unsigned char*>(head + 1);
    if (flags & HEAP_ZERO_MEMORY && size > old_size) {
        std::memset(bytes + old_size, 0, size - old_size);
    }
    return bytes;
}

BOOL HeapFree(HANDLE heap, DWORD flags, LPVOID block) {
    if (!IsHeap(heap, flags)) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (block) std::free(HeadOf(block));
    return TRUE;
}

SIZE_T HeapSize(HANDLE heap, DWORD flags, LPCVOID block) {
    if (!IsHeap(heap, flags) || !block) return kNoSize;
    return (static_cast<const BlockHead*>(block) - 1)->size;
}
