#pragma once

#include <cstddef>

#ifdef __SANITIZE_ADDRESS__
// The address sanitizer's own; its header is not everywhere.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#else
#include <malloc.h>
#endif

namespace tarvo {

/// Bytes that the program has allocated and not freed.
inline std::size_t AllocatedBytes() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
#endif
}

}  // namespace tarvo
