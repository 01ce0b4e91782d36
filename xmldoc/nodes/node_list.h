#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "xmldoc/nodes/node_pool.h"
#include "xmldoc/nodes/ref.h"

namespace tarvo {

/// The array in `Documents`, `Fields` and `Parameters`: it owns one reference to each of its nodes.
/// 16 bytes; a list of one node needs no array. Positions run from 0 to Size() - 1; any other is
/// the caller's mistake. What adds a node raises std::bad_alloc, and the list is as it was then.
/// The list of a node that an import has made stays in its pool until somebody changes it.
template <typename Node>
class NodeList {
 public:
  NodeList() = default;
  ~NodeList() {
    for (Node* node : *this) node->LeaveList();
    FreeArray();
  }
  NodeList(const NodeList&) = delete;
  NodeList& operator=(const NodeList&) = delete;

  int Size() const { return static_cast<int>(size_); }
  bool Has(int index) const { return index >= 0 && index < Size(); }
  Node* At(int index) const { return begin()[index]; }
  Node* const* begin() const { return Capacity() == 0 ? &slot_.single : slot_.array; }
  Node* const* end() const { return begin() + size_; }
  Node** begin() { return Capacity() == 0 ? &slot_.single : slot_.array; }
  Node** end() { return begin() + size_; }
  /// The position of the last node for which `matches(node)` is true; -1 for none.
  template <typename Matches>
  int LastThat(Matches matches) const {
    int index = Size() - 1;
    while (index >= 0 && !matches(*At(index))) --index;
    return index;
  }

  /// For an empty list; `import` may be none.
  void StartInPool(NodeChunk* import) {
    slot_.import = import;
    capacity_ = import != nullptr ? kInPool : 0;
  }
  /// `pool`: that of the import which is still at work on the list's node.
  void Append(Ref<Node> node, NodePool* pool = nullptr) {
    Reserve(pool);
    begin()[size_++] = node.Detach();
  }
  void Insert(int index, Ref<Node> node) {
    Reserve(nullptr);
    Node** place = begin() + index;
    std::memmove(place + 1, place, static_cast<std::size_t>(Size() - index) * sizeof(Node*));
    *place = node.Detach();
    ++size_;
  }
  Ref<Node> Replace(int index, Ref<Node> node) {
    LeavePool();
    return Taken(std::exchange(begin()[index], node.Detach()));
  }
  Ref<Node> Remove(int index) {
    LeavePool();
    Node** place = begin() + index;
    Ref<Node> node = Taken(*place);
    --size_;
    std::memmove(place, place + 1, static_cast<std::size_t>(Size() - index) * sizeof(Node*));
    return node;
  }
  void Swap(NodeList& other) {
    LeavePool();
    other.LeavePool();
    std::swap(slot_, other.slot_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
  }
  /// Forgets the nodes without dropping their references, which the caller has taken over.
  void Abandon() {
    size_ = 0;
    FreeArray();
    capacity_ = 0;
  }

 private:
  static constexpr std::uint32_t kInPool = std::uint32_t{1} << 31;

  std::uint32_t Capacity() const { return capacity_ & ~kInPool; }
  /// Lets the import know that its nodes do not lie in its chunks alone any more.
  void LeavePool() {
    if ((capacity_ & kInPool) == 0) return;
    NodePool::CountStrangers(size_ == 0 ? slot_.import : (*begin())->Import(), 1);
    capacity_ = Capacity();
  }
  /// The reference to a node that has been in the list, which the import still counts as that.
  static Ref<Node> Taken(Node* node) {
    NodePool::CountStrangers(node->Import(), 1);
    return Ref<Node>::Adopt(node);
  }
  void Reserve(NodePool* pool) {
    if (pool == nullptr) LeavePool();
    if (size_ == std::max(Capacity(), 1U)) Grow(pool);
  }
  void Grow(NodePool* pool) {
    const std::uint32_t capacity = std::max(Capacity() * 2, 4U);
    const std::size_t bytes = (capacity + std::size_t{1}) * sizeof(Node*);
    std::uint16_t place = 0;
    void* memory = pool ? pool->Allocate(bytes, place) : NodePool::AllocateAlone(bytes);
    Node** array = static_cast<Node**>(memory) + 1;
    array[-1] = reinterpret_cast<Node*>(std::uintptr_t{place});
    std::memcpy(array, begin(), std::size_t{size_} * sizeof(Node*));
    FreeArray();
    slot_.array = array;
    capacity_ = capacity | (capacity_ & kInPool);
  }
  void FreeArray() {
    if (Capacity() == 0) return;
    Node** memory = slot_.array - 1;
    NodePool::Free(memory, static_cast<std::uint16_t>(reinterpret_cast<std::uintptr_t>(*memory)));
  }

  union Slot {
    Node* single = nullptr;  // while there is no capacity
    Node** array;            // behind the place of its memory, as in a node's header
    NodeChunk* import;       // of an empty list in the pool
  };
  Slot slot_;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 0;  // and whether the list is in the pool
};

}  // namespace tarvo
