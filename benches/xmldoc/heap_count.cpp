#include "heap_count.h"

#include <malloc.h>

#include <limits>

namespace bench {

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void KeepSpareHeap() {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
}

void ReleaseSpareHeap() { malloc_trim(0); }

}  // namespace bench
