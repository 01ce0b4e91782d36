#pragma once

#include <string_view>
#include <utility>

#include "xmldoc/nodes/node_list.h"
#include "xmldoc/nodes/ref.h"

namespace tarvo {

class Document;

/// The ordered list of a node's child nodes, each of which it keeps alive. Names may repeat. Letter
/// case is that of letter_case.h.
///
/// Keys: a number is always an index from 0, a text always a NodeKey: a name in any letter case,
/// perhaps with a condition; of several matches the last wins. Child takes a text that matches no
/// child and holds a "." for a path of keys (see TakePathStep). A key outside the list changes
/// nothing and gives a fresh empty document that belongs to no list, never an empty reference.
class Documents {
 public:
  Documents() = default;
  /// Takes the nodes over; the other list is empty afterwards.
  Documents(Documents&& other) noexcept { list_.Swap(other.list_); }

  int Count() const { return list_.Size(); }

  Ref<Document> Child(int index) const;
  Ref<Document> Child(std::string_view key) const;

  /// Adds a new node of that name before the node at `index`, or at the end for a negative index
  /// and for one beyond the end. Returns its index. Raises what Document::SetName raises, and the
  /// list is as it was then.
  int AddChild(std::string_view name, int index = -1);

  /// Takes a node out, closing the gap, and returns it.
  Ref<Document> RemoveChild(int index);
  Ref<Document> RemoveChild(std::string_view key);

  /// Puts `node` in the place of the one at `index`, and returns that one. An index outside the
  /// list and an empty reference change nothing.
  Ref<Document> SetChild(int index, Ref<Document> node);

  /// The last child of that name, compared exactly or without regard to letter case; a fresh empty
  /// document when there is none.
  Ref<Document> SearchChild(std::string_view name, bool ignoreCase = false) const;
  /// The index of what SearchChild finds, or -1.
  int SearchChild2(std::string_view name, bool ignoreCase = false) const;

  /// The node at the end of a path of keys, which is not empty; a fresh empty document when a step
  /// finds nothing.
  Ref<Document> AtPath(std::string_view path) const;

  /// Orders the nodes by name, byte for byte, ascending for true, descending for false. Nodes of
  /// equal names stay in order.
  void Sort(bool ascending);

  /// Adds a node of whatever name at the end. Others may hold it as well.
  void Append(Ref<Document> node) { list_.Append(std::move(node)); }
  /// The nodes in place, for loops that count no references. Valid until the list changes.
  const NodeList<Document>& Nodes() const { return list_; }

 private:
  friend class Document;   // takes a dying tree apart, whose lists forget their nodes
  friend class NodeMaker;  // keeps the lists of its nodes in the pool

  NodeList<Document> list_;
};

}  // namespace tarvo
