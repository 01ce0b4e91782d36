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
/// It keeps a stack of open nodes of its own. The tree must not be changed meanwhile.
template <typename Sink>
class TreeWriter {
 public:
  explicit TreeWriter(Sink& sink) : sink_(sink) {}

  /// The root is written whatever its name; below it, a node without a name is left out with all it
  /// holds, and so is a node that is being written already. False, and something has been written,
  /// when more than `mostLevels` nodes lie within each other.
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
    const auto& childs = open.mark.Node().childs_.list_;
    while (open.nextChild < childs.Size()) {
      Document* child = childs.At(open.nextChild++);
      if (!child->Busy() && !child->name_.Empty()) return child;
    }
    return nullptr;
  }

  void StartNode(Document& node) {
    Indent(open_.size());
    StartTag(node.NameView(), node.Parameters());
    if (node.fields_.Count() == 0 && node.childs_.Count() == 0) {
      sink_.AddToString("/>\r\n");
      return;
    }
    sink_.AddToString(">\r\n");
    open_.push_back({BusyMark(node), 0});
    for (Field* field : node.fields_.list_) WriteField(*field);
  }

  void EndNode() {
    Indent(open_.size() - 1);
    EndTag(open_.back().mark.Node().NameView());
    open_.pop_back();
  }

  void WriteField(Field& field) {
    Indent(open_.size());
    StartTag(field.NameView(), field.Parameters());
    // The kept form is the value with "<" and ">" escaped already.
    const std::string_view value = field.EscapedValueView();
    if (value.empty()) {
      sink_.AddToString("/>\r\n");
      return;
    }
    sink_.AddToString(">");
    sink_.AddToString(value);
    EndTag(field.NameView());
  }

  void StartTag(std::string_view name, const Parameters& parameters) {
    sink_.AddToString("<");
    sink_.AddToString(name);
    if (!parameters.ReadyText().empty()) {
      sink_.AddToString(parameters.ReadyText());
      return;
    }
    parameters.ForEach([this](std::string_view itsName, std::string_view value) {
      sink_.AddToString(" ");
      sink_.AddToString(itsName);
      sink_.AddToString("=\"");
      sink_.AddToString(value);
      sink_.AddToString("\"");
    });
  }

  void EndTag(std::string_view name) {
    sink_.AddToString("</");
    sink_.AddToString(name);
    sink_.AddToString(">\r\n");
  }

  void Indent(std::size_t depth) {
    if (tabs_.size() < depth) tabs_.resize(depth * 2, '\t');
    sink_.AddToString(std::string_view(tabs_).substr(0, depth));
  }

  Sink& sink_;
  std::vector<Open> open_;
  std::string tabs_;
};

}  // namespace tarvo
