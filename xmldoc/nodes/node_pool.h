#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvo {

/// What every node begins with.
struct NodeHeader {
  std::uint32_t references = 1;
  std::uint16_t place = 0;           ///< See NodePool::ChunkOf; 0: memory of its own.
  std::uint8_t busy = 0;             ///< Documents only.
  std::uint8_t stopOnLoadError = 0;  ///< Documents only.
};

/// The head of a piece of memory with nodes of one import, in a ring with its other pieces. The
/// first one stands for the import, and goes last.
struct NodeChunk {
  NodeChunk* first;
  NodeChunk* previous;
  NodeChunk* next;
  std::uint32_t users;  ///< What lies in it, and the pool; for the first one each other chunk too.
  std::uint32_t tops;   ///< Of the first one: see NodePool::Finish.
  /// Of the first one: references to its nodes but for one each, that of their list; and what has
  /// been done to them that the chunks do not show. While there are none, all go with the tops.
  std::int64_t strangers;
};

/// Memory for the nodes of one import, which are put one after the other into chunks, in the order
/// of the text. A chunk is returned to the system when its last node has been freed, so nodes need
/// not know the pool, which is destroyed long before them.
class NodePool {
 public:
  /// `expectedBytes`: about how much will be asked for; small imports get a small chunk. 0 gives
  /// every node a block of its own, so that a sanitizer sees where each one ends.
  explicit NodePool(std::size_t expectedBytes);
  ~NodePool();
  NodePool(const NodePool&) = delete;
  NodePool& operator=(const NodePool&) = delete;

  /// `bytes` of memory, aligned for any node. `place` is for the header of the node put there.
  /// Raises std::bad_alloc.
  void* Allocate(std::size_t bytes, std::uint16_t& place) {
    bytes = (bytes + 7) & ~std::size_t{7};
    if (bytes > room_) return AllocateElsewhere(bytes, place);
    char* memory = next_;
    next_ += bytes;
    room_ -= bytes;
    ++chunk_->users;
    place = static_cast<std::uint16_t>((memory - reinterpret_cast<char*>(chunk_)) / 8);
    return memory;
  }
  /// Says how many of the nodes are in no other node's list, once all are where they belong.
  void Finish(std::size_t tops);

  /// Memory for a single node, whose header's place is 0. Raises std::bad_alloc.
  static void* AllocateAlone(std::size_t bytes);
  /// Gives back what Allocate or AllocateAlone returned.
  static void Free(void* memory, std::uint16_t place);
  /// Gives back a whole import.
  static void FreeAll(NodeChunk* first);
  /// The chunk that lies so many times 8 bytes before `memory`.
  static NodeChunk* ChunkOf(const void* memory, std::uint16_t place) {
    const char* chunk = static_cast<const char*>(memory) - std::size_t{place} * 8;
    return reinterpret_cast<NodeChunk*>(const_cast<char*>(chunk));
  }
  static void CountStrangers(NodeChunk* first, int more) {
    if (first != nullptr) first->strangers += more;
  }

 private:
  void* AllocateElsewhere(std::size_t bytes, std::uint16_t& place);
  NodeChunk* AddChunk(std::size_t bytes);

  std::size_t nextChunkSize_;
  NodeChunk* first_ = nullptr;
  NodeChunk* chunk_ = nullptr;
  char* next_ = nullptr;
  std::size_t room_ = 0;
};

}  // namespace tarvo
