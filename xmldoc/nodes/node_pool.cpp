#include "xmldoc/nodes/node_pool.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace tarvo {
namespace {

using UserCount = std::uint64_t;
constexpr std::size_t kSmallestChunk = 512;
constexpr std::size_t kLargestChunk = 64 * 1024 - 64;
// Larger nodes get a block of their own: they would leave too much of a chunk unused.
constexpr std::size_t kLargestPooled = 4 * 1024;

void DropUser(char* chunk) {
  if (--*reinterpret_cast<UserCount*>(chunk) == 0) std::free(chunk);
}

}  // namespace

NodePool::NodePool(std::size_t expectedBytes)
    : nextChunkSize_(expectedBytes == 0 ? 0
                                        : std::clamp(expectedBytes & ~std::size_t{7},
                                                     kSmallestChunk, kLargestChunk)) {}

NodePool::~NodePool() { DropChunk(); }

void NodePool::DropChunk() {
  if (chunk_ != nullptr) DropUser(chunk_);
  chunk_ = nullptr;
  room_ = 0;
}

void* NodePool::AllocateElsewhere(std::size_t bytes, std::uint16_t& place) {
  if (bytes > kLargestPooled || bytes + sizeof(UserCount) > nextChunkSize_) {
    place = 0;
    return AllocateAlone(bytes);
  }
  DropChunk();
  chunk_ = static_cast<char*>(AllocateAlone(nextChunkSize_));
  new (chunk_) UserCount(1);
  next_ = chunk_ + sizeof(UserCount);
  room_ = nextChunkSize_ - sizeof(UserCount);
  nextChunkSize_ = kLargestChunk;
  return Allocate(bytes, place);
}

void* NodePool::AllocateAlone(std::size_t bytes) {
  void* memory = std::malloc(bytes);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void NodePool::Free(void* memory, std::uint16_t place) {
  if (place == 0) {
    std::free(memory);
  } else {
    DropUser(static_cast<char*>(memory) - std::size_t{place} * 8);
  }
}

}  // namespace tarvo
