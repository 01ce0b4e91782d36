#pragma once

#include <cstddef>

namespace bench {

/// Bytes that the heap has given out and not got back, its own headers included.
std::size_t HeapInUse();

/// From now on memory goes back to the system by ReleaseSpareHeap alone. Otherwise the kernel's
/// work on the pages falls on whoever happens to free the upper end of the heap.
void KeepSpareHeap();
/// Gives what the heap keeps for later back to the system, so that every round begins with fresh
/// memory.
void ReleaseSpareHeap();

}  // namespace bench
