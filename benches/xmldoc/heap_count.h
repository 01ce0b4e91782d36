#pragma once

#include <cstddef>

namespace bench {

/// Bytes that the heap has given out and not got back, its own headers included.
std::size_t HeapInUse();

/// Gives what the heap keeps for later back to the system, so that every round begins with fresh
/// memory.
void ReleaseSpareHeap();

}  // namespace bench
