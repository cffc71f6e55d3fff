#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstring>

namespace {

TEST(Heap, BlockKnowsTheSizeThatWasAskedFor) {
    const HANDLE heap = GetProcessHeap();
    for (const SIZE_T size : {SIZE_T{0}, SIZE_T{1}, SIZE_T{10}, SIZE_T{1032}, SIZE_T{1'000'003}}) {
        auto* block = static_cast<char*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, size));
        ASSERT_TRUE(block);
        EXPECT_EQ(HeapSize(heap, 0, block), size);
        EXPECT_TRUE(std::all_of(block, block + size, [](char c) { return c == 0; }));
        EXPECT_TRUE(HeapFree(heap, 0, block));
    }
}

TEST(Heap, GrowingKeepsTheContentAndClearsTheRest) {
    const HANDLE heap = GetProcessHeap();
    void* block = HeapAlloc(heap, 0, 10);
    std::memset(block, 7, 10);
    block = HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, 20);
    const auto* bytes = static_cast<const char*>(block);
    EXPECT_EQ(HeapSize(heap, 0, block), 20u);
    EXPECT_TRUE(std::all_of(bytes, bytes + 10, [](char c) { return c == 7; }));
    EXPECT_TRUE(std::all_of(bytes + 10, bytes + 20, [](char c) { return c == 0; }));
    EXPECT_TRUE(HeapFree(heap, 0, block));
}

TEST(Heap, NullIsFreedWithoutEffect) { EXPECT_TRUE(HeapFree(GetProcessHeap(), 0, nullptr)); }

TEST(Heap, SizesThatNoMemoryHoldsAreRefused) {
    EXPECT_EQ(HeapAlloc(GetProcessHeap(), 0, static_cast<SIZE_T>(-8)), nullptr);
}

}  // namespace
