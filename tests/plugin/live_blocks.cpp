#include "tests/plugin/live_blocks.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <mutex>
#include <unordered_map>

#include "plugin/contract/tagged_block.h"

namespace {

// The payload stands where the library puts it, so that nothing comes to rely on more.
constexpr std::size_t kGuardSize = 4;

struct Registry {
    std::mutex mutex;
    std::unordered_map<const void*, int> sizes;
};

/// Never destroyed: process-wide lists free their blocks late.
Registry& Blocks() {
    static auto* const registry = new Registry;
    return *registry;
}

}  // namespace

void* AllocTaggedBlock(int n) {
    if (n < 0) return nullptr;
    auto* block = static_cast<char*>(std::calloc(static_cast<std::size_t>(n) + 2 * kGuardSize, 1));
    if (block == nullptr) return nullptr;
    Registry& registry = Blocks();
    const std::lock_guard lock(registry.mutex);
    registry.sizes[block + kGuardSize] = n;
    return block + kGuardSize;
}

void FreeTaggedBlock(void* payload) {
    if (payload == nullptr) return;
    Registry& registry = Blocks();
    {
        const std::lock_guard lock(registry.mutex);
        if (registry.sizes.erase(payload) == 0) {
            ADD_FAILURE() << "no block that is alive was freed";
            return;
        }
    }
    std::free(static_cast<char*>(payload) - kGuardSize);
}

int TaggedBlockSize(void* payload) {
    if (payload == nullptr) return 0;
    Registry& registry = Blocks();
    const std::lock_guard lock(registry.mutex);
    const auto found = registry.sizes.find(payload);
    if (found != registry.sizes.end()) return found->second;
    ADD_FAILURE() << "the size of no block that is alive was asked for";
    return 0;
}

namespace tests {

int LiveBlocks() {
    Registry& registry = Blocks();
    const std::lock_guard lock(registry.mutex);
    return static_cast<int>(registry.sizes.size());
}

bool IsLiveBlock(const void* payload) {
    Registry& registry = Blocks();
    const std::lock_guard lock(registry.mutex);
    return registry.sizes.contains(payload);
}

}  // namespace tests
