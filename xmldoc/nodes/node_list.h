#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "xmldoc/nodes/ref.h"

namespace tarvo {

/// The array in `Documents`, `Fields` and `Parameters`: it owns one reference to each of its nodes.
/// 16 bytes; a list of one node needs no array. Positions run from 0 to Size() - 1; any other is
/// the caller's mistake. What adds a node raises std::bad_alloc, and the list is as it was then.
template <typename Node>
class NodeList {
 public:
  NodeList() = default;
  ~NodeList() { Clear(); }
  NodeList(const NodeList&) = delete;
  NodeList& operator=(const NodeList&) = delete;

  int Size() const { return static_cast<int>(size_); }
  bool Has(int index) const { return index >= 0 && index < Size(); }
  Node* At(int index) const { return begin()[index]; }
  Node* const* begin() const { return capacity_ == 0 ? &slot_.single : slot_.array; }
  Node* const* end() const { return begin() + size_; }
  Node** begin() { return capacity_ == 0 ? &slot_.single : slot_.array; }
  Node** end() { return begin() + size_; }
  /// The position of the last node for which `matches(node)` is true; -1 for none.
  template <typename Matches>
  int LastThat(Matches matches) const {
    int index = Size() - 1;
    while (index >= 0 && !matches(*At(index))) --index;
    return index;
  }

  /// Makes room for one more, so that the next Append or Insert cannot fail.
  void Reserve() {
    if (size_ == (capacity_ == 0 ? 1 : capacity_)) Grow();
  }
  void Append(Ref<Node> node) {
    Reserve();
    begin()[size_++] = node.Detach();
  }
  void Insert(int index, Ref<Node> node) {
    Reserve();
    Node** place = begin() + index;
    std::memmove(place + 1, place, static_cast<std::size_t>(Size() - index) * sizeof(Node*));
    *place = node.Detach();
    ++size_;
  }
  Ref<Node> Replace(int index, Ref<Node> node) {
    return Ref<Node>::Adopt(std::exchange(begin()[index], node.Detach()));
  }
  Ref<Node> Remove(int index) {
    Node** place = begin() + index;
    Ref<Node> node = Ref<Node>::Adopt(*place);
    --size_;
    std::memmove(place, place + 1, static_cast<std::size_t>(Size() - index) * sizeof(Node*));
    return node;
  }
  void Clear() {
    for (Node* node : *this) Ref<Node>::Adopt(node);
    Abandon();
  }
  void Swap(NodeList& other) {
    std::swap(slot_, other.slot_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
  }
  /// Forgets the nodes without dropping their references, which the caller has taken over.
  void Abandon() {
    size_ = 0;
    FreeArray();
  }

 private:
  void Grow() {
    const std::uint32_t capacity = capacity_ == 0 ? 4 : capacity_ * 2;
    void* old = capacity_ == 0 ? nullptr : slot_.array;
    void* memory = std::realloc(old, std::size_t{capacity} * sizeof(Node*));
    if (memory == nullptr) throw std::bad_alloc();
    Node** array = static_cast<Node**>(memory);
    if (capacity_ == 0) array[0] = slot_.single;
    slot_.array = array;
    capacity_ = capacity;
  }
  void FreeArray() {
    if (capacity_ != 0) std::free(slot_.array);
    capacity_ = 0;
  }

  union Slot {
    Node* single = nullptr;  // while capacity_ is 0
    Node** array;
  };
  Slot slot_;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 0;
};

}  // namespace tarvo
