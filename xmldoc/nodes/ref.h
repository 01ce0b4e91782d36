#pragma once

#include <cstddef>
#include <utility>

namespace tarvo {

/// A shared reference to a node of a document: the node lives as long as one reference to it does,
/// whatever list it has been taken out of. The count is in the node, so a reference is one pointer.
///
/// Counts are not atomic: a document and its nodes belong to one thread at a time. Nodes that refer
/// to each other in a circle keep each other alive until the circle is opened (RemoveChild,
/// SetChild). No operation of the library returns an empty reference; a default-constructed one is
/// empty. Node is a CountedNode.
template <typename Node>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  explicit Ref(Node* node) : node_(node) {
    if (node_ != nullptr) node_->AddReference();
  }
  Ref(const Ref& other) : Ref(other.node_) {}
  Ref(Ref&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(node_, other.node_);
    return *this;
  }
  ~Ref() {
    if (node_ != nullptr) node_->DropReference();
  }

  Node* get() const { return node_; }
  Node* operator->() const { return node_; }
  Node& operator*() const { return *node_; }
  explicit operator bool() const { return node_ != nullptr; }
  friend bool operator==(const Ref& a, const Ref& b) { return a.node_ == b.node_; }

  /// Takes over a reference that the caller has counted already.
  static Ref Adopt(Node* node) {
    Ref reference;
    reference.node_ = node;
    return reference;
  }
  /// Hands the counted reference over to the caller; this one is empty afterwards.
  Node* Detach() { return std::exchange(node_, nullptr); }

 private:
  Node* node_ = nullptr;
};

}  // namespace tarvo
