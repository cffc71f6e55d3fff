#pragma once

namespace tests {

/// How many tagged blocks are alive. This program has its own AllocTaggedBlock, FreeTaggedBlock and
/// TaggedBlockSize, linked in place of the library's: they count, and a block that is freed twice
/// or was never handed out fails the running test. They may be called from any thread.
int LiveBlocks();

/// Is this the payload of a block that is alive?
bool IsLiveBlock(const void* payload);

}  // namespace tests
