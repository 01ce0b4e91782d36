#include "heap_count.h"

#include <malloc.h>

namespace bench {

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void ReleaseSpareHeap() { malloc_trim(0); }

}  // namespace bench
