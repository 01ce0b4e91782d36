#include "xmldoc/nodes/node_pool.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

namespace tarvo {
namespace {

constexpr std::size_t kSmallestChunk = 512;
constexpr std::size_t kLargestChunk = 64 * 1024 - 64;
// Larger nodes get a chunk of their own: they would leave too much of one unused.
constexpr std::size_t kLargestPooled = 4 * 1024;

void DropUser(NodeChunk* chunk) {
  if (chunk == nullptr || --chunk->users > 0) return;
  NodeChunk* first = chunk->first == chunk ? nullptr : chunk->first;
  chunk->previous->next = chunk->next;
  chunk->next->previous = chunk->previous;
  std::free(chunk);
  DropUser(first);
}

}  // namespace

NodePool::NodePool(std::size_t expectedBytes)
    : nextChunkSize_(expectedBytes == 0 ? 0
                                        : std::clamp(expectedBytes & ~std::size_t{7},
                                                     kSmallestChunk, kLargestChunk)) {}

NodePool::~NodePool() {
  DropUser(chunk_);
  DropUser(first_);
}

void NodePool::Finish(std::size_t tops) {
  if (first_ != nullptr) first_->tops = static_cast<std::uint32_t>(tops);
}

NodeChunk* NodePool::AddChunk(std::size_t bytes) {
  auto* chunk = static_cast<NodeChunk*>(AllocateAlone(bytes));
  if (first_ == nullptr) {
    first_ = new (chunk) NodeChunk{chunk, chunk, chunk, 2, 0, 0};
  } else {
    new (chunk) NodeChunk{first_, first_, first_->next, 1, 0, 0};
    first_->next->previous = chunk;
    first_->next = chunk;
    ++first_->users;
  }
  return chunk;
}

void* NodePool::AllocateElsewhere(std::size_t bytes, std::uint16_t& place) {
  place = nextChunkSize_ == 0 ? 0 : sizeof(NodeChunk) / 8;
  if (place == 0) return AllocateAlone(bytes);
  if (bytes > kLargestPooled || bytes + sizeof(NodeChunk) > nextChunkSize_) {
    return AddChunk(bytes + sizeof(NodeChunk)) + 1;
  }
  NodeChunk* chunk = AddChunk(nextChunkSize_);
  DropUser(std::exchange(chunk_, chunk));
  next_ = reinterpret_cast<char*>(chunk + 1);
  room_ = nextChunkSize_ - sizeof(NodeChunk);
  nextChunkSize_ = std::min(nextChunkSize_ * 4, kLargestChunk);
  return Allocate(bytes, place);
}

void* NodePool::AllocateAlone(std::size_t bytes) {
  void* memory = std::malloc(bytes);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void NodePool::Free(void* memory, std::uint16_t place) {
  if (place == 0) return std::free(memory);
  DropUser(ChunkOf(memory, place));
}

void NodePool::FreeAll(NodeChunk* first) {
  for (NodeChunk* chunk = first->next; chunk != first;) {
    std::free(std::exchange(chunk, chunk->next));
  }
  std::free(first);
}

}  // namespace tarvo
