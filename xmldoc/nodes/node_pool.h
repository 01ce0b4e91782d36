#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvo {

/// What every node begins with: its count of references, and where its memory came from.
struct NodeHeader {
  std::uint32_t references = 1;
  std::uint16_t place =
      0;  ///< Distance to the start of its chunk in units of 8 bytes; 0: on its own.
  std::uint8_t busy = 0;             ///< Documents only.
  std::uint8_t stopOnLoadError = 0;  ///< Documents only.
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
    ++*reinterpret_cast<std::uint64_t*>(chunk_);
    place = static_cast<std::uint16_t>((memory - chunk_) / 8);
    return memory;
  }

  /// Memory for a single node, whose header's place is 0. Raises std::bad_alloc.
  static void* AllocateAlone(std::size_t bytes);
  /// Gives back what Allocate or AllocateAlone returned.
  static void Free(void* memory, std::uint16_t place);

 private:
  void* AllocateElsewhere(std::size_t bytes, std::uint16_t& place);
  void DropChunk();

  std::size_t nextChunkSize_;
  char* chunk_ = nullptr;  // begins with the number of its users, the pool among them
  char* next_ = nullptr;
  std::size_t room_ = 0;
};

}  // namespace tarvo
