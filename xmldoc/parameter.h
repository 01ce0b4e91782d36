#pragma once

#include <string>
#include <string_view>

#include "xmldoc/nodes/compact_text.h"
#include "xmldoc/nodes/node_pool.h"
#include "xmldoc/nodes/ref.h"

namespace tarvo {

/// One attribute: a name without blanks, and a value that is kept as given, without any escaping.
class Parameter {
 public:
  /// A parameter that belongs to no list.
  static Ref<Parameter> Create();

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
  friend class Ref<Parameter>;

  Parameter() = default;
  ~Parameter() = default;
  void AddReference() { ++header_.references; }
  void DropReference() {
    if (--header_.references == 0) Destroy();
  }
  void Destroy();

  NodeHeader header_;
  CompactText name_;
  CompactText value_;
};

}  // namespace tarvo
