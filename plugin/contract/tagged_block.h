#pragma once

// Tagged blocks carry the payload of core events and serve as scratch memory. A block is an
// allocation of the process heap: four characters "$$$$", the payload, "$$$$" again. The guards are
// there for whoever looks at a heap dump; nothing reads them.
//
// Because of the guard in front a payload stands at an address of 4 modulo 8. All three functions
// may be called from any thread.

/// A zero-filled payload of `n` bytes; null for a negative or impossible size.
void* AllocTaggedBlock(int n);

/// Takes a payload's address. Null is harmless; anything else must come from AllocTaggedBlock.
void FreeTaggedBlock(void* payload);

/// Bytes of a payload; 0 for null.
int TaggedBlockSize(void* payload);
