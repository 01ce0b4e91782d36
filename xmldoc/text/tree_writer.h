#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xmldoc/document.h"

namespace tarvo {

/// Counts the bytes of what is written to it, and keeps nothing.
class TextMeasure {
 public:
  void AddToString(std::string_view text) { bytes_ += text.size(); }
  std::uint64_t Bytes() const { return bytes_; }

 private:
  std::uint64_t bytes_ = 0;
};

/// Sets a node's `Busy` for as long as the node is being written, whatever ends that.
class BusyMark {
 public:
  explicit BusyMark(Document& node) : node_(&node) { node_->header_.busy = 1; }
  BusyMark(BusyMark&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
  BusyMark& operator=(BusyMark&&) = delete;
  ~BusyMark() {
    if (node_ != nullptr) node_->header_.busy = 0;
  }
  Document& Node() const { return *node_; }

 private:
  Document* node_;
};

/// Writes a tree, without its declaration line, to anything that has AddToString(std::string_view).
/// It keeps a stack of open nodes of its own. The tree must not be changed meanwhile. Raises what
/// the sink and the stack raise; no node is Busy afterwards in any case.
template <typename Sink>
class TreeWriter {
 public:
  explicit TreeWriter(Sink& sink) : sink_(sink) {}

  /// The root is written whatever its name; below it, a node without a name is left out with all it
  /// holds, and so is a node that is being written already. False, and something has been written,
  /// when nodes are nested more than `mostLevels` deep.
  bool Write(Document& root, std::size_t mostLevels = static_cast<std::size_t>(-1)) {
    StartNode(root);
    while (!open_.empty()) {
      if (open_.size() > mostLevels) return false;
      Open& top = open_.back();
      if (Document* child = NextChild(top)) {
        StartNode(*child);  // `top` is not valid any more
      } else {
        EndNode();
      }
    }
    return true;
  }

 private:
  struct Open {
    BusyMark mark;
    int nextChild;
  };

  static Document* NextChild(Open& open) {
    const auto& childs = open.mark.Node().Childs().Nodes();
    while (open.nextChild < childs.Size()) {
      Document* child = childs.At(open.nextChild++);
      if (!child->Busy() && !child->NameView().empty()) return child;
    }
    return nullptr;
  }

  void StartNode(Document& node) {
    const Parameters& parameters = std::as_const(node).Parameters();
    Add(Tabs(open_.size()), "<", node.NameView(), parameters.ReadyText());
    AddLooseParameters(parameters);
    if (node.Fields().Count() == 0 && node.Childs().Count() == 0) return Add("/>\r\n");
    Add(">\r\n");
    open_.push_back({BusyMark(node), 0});
    for (Field* field : node.Fields().Nodes()) WriteField(*field);
  }

  void EndNode() {
    Add(Tabs(open_.size() - 1), "</", open_.back().mark.Node().NameView(), ">\r\n");
    open_.pop_back();
  }

  void WriteField(const Field& field) {
    const std::string_view name = field.NameView();
    Add(Tabs(open_.size()), "<", name, field.Parameters().ReadyText());
    AddLooseParameters(field.Parameters());
    // The kept form is the value with "<" and ">" escaped already.
    const std::string_view value = field.EscapedValueView();
    if (value.empty()) return Add("/>\r\n");
    Add(">", value, "</", name, ">\r\n");
  }

  /// The attributes whose text has to be put together.
  void AddLooseParameters(const Parameters& parameters) {
    if (!parameters.ReadyText().empty()) return;
    parameters.ForEach([this](std::string_view name, std::string_view value) {
      Add(" ", name, "=\"", value, "\"");
    });
  }

  std::string_view Tabs(std::size_t depth) {
    if (tabs_.size() < depth) tabs_.resize(depth * 2, '\t');
    return std::string_view(tabs_).substr(0, depth);
  }

  template <typename... Pieces>
  void Add(const Pieces&... pieces) {
    if constexpr (requires { sink_.AddPieces(pieces...); }) {
      sink_.AddPieces(pieces...);
    } else {
      (sink_.AddToString(pieces), ...);
    }
  }

  Sink& sink_;
  std::vector<Open> open_;
  std::string tabs_;
};

}  // namespace tarvo
