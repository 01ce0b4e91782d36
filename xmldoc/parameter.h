#pragma once

#include <string>
#include <string_view>

#include "xmldoc/nodes/compact_text.h"
#include "xmldoc/nodes/counted_node.h"

namespace tarvo {

/// One attribute: a name without blanks, and a value that is kept as given, without any escaping.
class Parameter : public CountedNode<Parameter> {
 public:
  std::string Name() const { return std::string(name_.View()); }
  /// Trims blanks at both ends. Raises RuntimeError 1 ("Name", "Spaces found in the name") when a
  /// blank is left, and keeps the old name then.
  void SetName(std::string_view name);

  std::string Value() const { return std::string(value_.View()); }
  void SetValue(std::string_view value) { value_.Assign(value); }

  /// The texts in place, valid until they are set or the node is destroyed.
  std::string_view NameView() const { return name_.View(); }
  std::string_view ValueView() const { return value_.View(); }

 private:
  friend class CountedNode<Parameter>;

  Parameter() = default;
  ~Parameter() = default;

  CompactText name_;
  CompactText value_;
};

}  // namespace tarvo
