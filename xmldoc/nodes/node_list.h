#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

#include "xmldoc/nodes/node_pool.h"
#include "xmldoc/nodes/ref.h"

namespace tarvo {

/// The array in `Documents`, `Fields` and `Parameters`: it owns one reference to each of its nodes.
/// One word; a list of one node needs no array. Positions run from 0 to Size() - 1; any other is
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

  int Size() const {
    if (HasArray()) return static_cast<int>(ArrayHead().size);
    return slot_.single == nullptr || IsEmptyInPool() ? 0 : 1;
  }
  bool Has(int index) const { return index >= 0 && index < Size(); }
  Node* At(int index) const { return begin()[index]; }
  Node* const* begin() const { return HasArray() ? Array() : &slot_.single; }
  Node* const* end() const { return begin() + Size(); }
  Node** begin() { return HasArray() ? Array() : &slot_.single; }
  Node** end() { return begin() + Size(); }
  /// Of a list with a node at least.
  Node*& Last() { return HasArray() ? Array()[ArrayHead().size - 1] : slot_.single; }
  /// The position of the last node for which `matches(node)` is true; -1 for none.
  template <typename Matches>
  int LastThat(Matches matches) const {
    Node* const* nodes = begin();
    int index = Size() - 1;
    while (index >= 0 && !matches(*nodes[index])) --index;
    return index;
  }

  /// For an empty list; `import` may be none.
  void StartInPool(NodeChunk* import) {
    if (import != nullptr) slot_.word = reinterpret_cast<std::uintptr_t>(import) + kEmptyInPool;
  }
  /// `pool`: of an import at work, whose nodes the list gets.
  void Append(Ref<Node> node, NodePool* pool = nullptr) {
    Reserve(pool);
    (HasArray() ? Array()[ArrayHead().size++] : slot_.single) = node.Detach();
  }
  void Insert(int index, Ref<Node> node) {
    Append(std::move(node));
    std::rotate(begin() + index, end() - 1, end());
  }
  Ref<Node> Replace(int index, Ref<Node> node) {
    LeavePool();
    return Taken(std::exchange(begin()[index], node.Detach()));
  }
  Ref<Node> Remove(int index) {
    LeavePool();
    std::rotate(begin() + index, begin() + index + 1, end());
    Ref<Node> node = Taken(Last());
    HasArray() ? --ArrayHead().size : slot_.word = 0;
    return node;
  }
  void Swap(NodeList& other) {
    LeavePool();
    other.LeavePool();
    std::swap(slot_, other.slot_);
  }
  /// Forgets the nodes without dropping their references, which the caller has taken over.
  void Abandon() {
    FreeArray();
    slot_.single = nullptr;
  }

 private:
  static constexpr std::uintptr_t kEmptyInPool = 1;  // added to the import's address
  static constexpr std::uintptr_t kArray = 2;        // added to that of the array's head
  struct alignas(8) Head {
    std::uint32_t size;
    std::uint32_t capacity;
    std::uint16_t place;  // of its memory, as in a node's header
  };

  bool IsEmptyInPool() const { return (slot_.word & kEmptyInPool) != 0; }
  bool HasArray() const { return (slot_.word & kArray) != 0; }
  Head& ArrayHead() const { return *reinterpret_cast<Head*>(slot_.word - kArray); }
  Node** Array() const { return reinterpret_cast<Node**>(&ArrayHead() + 1); }
  /// Lets the import know that its nodes do not lie in its chunks alone any more.
  void LeavePool() {
    if (IsEmptyInPool()) {
      NodePool::CountStrangers(reinterpret_cast<NodeChunk*>(slot_.word - kEmptyInPool), 1);
      slot_.single = nullptr;
    } else if (Size() > 0) {
      NodePool::CountStrangers((*begin())->Import(), 1);
    }
  }
  /// The reference to a node that has been in the list, which the import still counts as that.
  static Ref<Node> Taken(Node* node) {
    NodePool::CountStrangers(node->Import(), 1);
    return Ref<Node>::Adopt(node);
  }
  void Reserve(NodePool* pool) {
    if (pool == nullptr) LeavePool();
    if (HasArray() ? ArrayHead().size == ArrayHead().capacity : Size() == 1) Grow(pool);
  }
  void Grow(NodePool* pool) {
    const auto size = static_cast<std::uint32_t>(Size());
    const std::uint32_t capacity = std::max(size * 2, 4U);
    const std::size_t bytes = sizeof(Head) + std::size_t{capacity} * sizeof(Node*);
    std::uint16_t place = 0;
    void* memory = pool ? pool->Allocate(bytes, place) : NodePool::AllocateAlone(bytes);
    Head* head = new (memory) Head{size, capacity, place};
    std::memcpy(head + 1, begin(), std::size_t{size} * sizeof(Node*));
    FreeArray();
    slot_.word = reinterpret_cast<std::uintptr_t>(head) + kArray;
  }
  void FreeArray() {
    if (HasArray()) NodePool::Free(&ArrayHead(), ArrayHead().place);
  }

  union Slot {
    Node* single = nullptr;  // or none
    std::uintptr_t word;     // of an address whose lowest bits are free
  };
  Slot slot_;
};

}  // namespace tarvo
