#pragma once

#include <cstddef>

namespace bench {

/// Bytes that the heap has given out and not got back, its own headers included.
std::size_t HeapInUse();

}  // namespace bench
