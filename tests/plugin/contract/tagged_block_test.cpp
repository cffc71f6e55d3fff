#include "plugin/contract/tagged_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <thread>
#include <vector>

namespace {

TEST(TaggedBlock, IsZeroBetweenItsGuards) {
    for (const int size : {0, 1, 3, 256, 67128}) {
        auto* payload = static_cast<char*>(AllocTaggedBlock(size));
        ASSERT_TRUE(payload) << size;
        EXPECT_EQ(TaggedBlockSize(payload), size);
        EXPECT_EQ(std::string_view(payload - 4, 4), "$$$$");
        EXPECT_EQ(std::string_view(payload + size, 4), "$$$$");
        EXPECT_TRUE(std::all_of(payload, payload + size, [](char c) { return c == 0; }));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(payload) % 4, 0u);
        FreeTaggedBlock(payload);
    }
}

TEST(TaggedBlock, ImpossibleSizesGiveNull) {
    for (const int size : {-1, INT_MIN, INT_MAX, INT_MAX - 7}) {
        EXPECT_FALSE(AllocTaggedBlock(size)) << size;
    }
}

TEST(TaggedBlock, NullIsHarmless) {
    FreeTaggedBlock(nullptr);
    EXPECT_EQ(TaggedBlockSize(nullptr), 0);
}

TEST(TaggedBlock, PassesBetweenThreads) {
    std::vector<std::thread> threads;
    std::vector<void*> blocks(8);
    threads.reserve(blocks.size());
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        threads.emplace_back([&blocks, i] {
            for (int round = 0; round < 200; ++round) {
                FreeTaggedBlock(blocks[i]);
                blocks[i] = AllocTaggedBlock(round);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (void* block : blocks) {
        EXPECT_EQ(TaggedBlockSize(block), 199);
        FreeTaggedBlock(block);
    }
}

}  // namespace
