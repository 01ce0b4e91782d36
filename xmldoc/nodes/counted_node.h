#pragma once

#include <cstdint>
#include <new>

#include "xmldoc/nodes/node_pool.h"
#include "xmldoc/nodes/ref.h"

namespace tarvo {

template <typename Node>
class NodeList;

/// What every node has: its count of references, and where its memory came from. `Node` befriends
/// this class and may have a Die of its own, which ends in Destroy.
template <typename Node>
class CountedNode {
 public:
  /// A node that belongs to no list.
  static Ref<Node> Create() {
    return Ref<Node>::Adopt(new (NodePool::AllocateAlone(sizeof(Node))) Node);
  }
  /// The import that the node's memory belongs to; none for a node of its own.
  NodeChunk* Import() const {
    return header_.place == 0 ? nullptr : NodePool::ChunkOf(this, header_.place)->first;
  }

 protected:
  CountedNode() = default;
  ~CountedNode() = default;
  void Die() { Destroy(); }
  void Destroy() {
    const std::uint16_t place = header_.place;
    static_cast<Node*>(this)->~Node();
    NodePool::Free(this, place);
  }
  /// A part of the node, which may own memory from now on that the import does not know.
  template <typename Part>
  Part& Changed(Part& part) {
    NodePool::CountStrangers(Import(), 1);
    return part;
  }

  NodeHeader header_;

 private:
  friend class Ref<Node>;
  friend class NodeList<Node>;

  void AddReference() {
    ++header_.references;
    NodePool::CountStrangers(Import(), 1);
  }
  void DropReference() {
    if (header_.references > 1) NodePool::CountStrangers(Import(), -1);
    LeaveList();
  }
  /// Drops the reference of a list, which was counted as no stranger's.
  void LeaveList() {
    if (--header_.references == 0) static_cast<Node*>(this)->Die();
  }
};

}  // namespace tarvo
