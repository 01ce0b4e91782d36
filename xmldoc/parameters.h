#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "xmldoc/nodes/node_list.h"
#include "xmldoc/nodes/packed_attributes.h"
#include "xmldoc/parameter.h"

namespace tarvo {

/// The ordered list of an element's attributes, each of which it keeps alive. Names may repeat.
///
/// Keys: a number is always an index from 0, a text always a name, compared without regard to
/// letter case; of several matches the last wins. A key outside the list changes nothing and gives
/// a fresh empty parameter that belongs to no list.
class Parameters {
 public:
  Parameters() = default;
  ~Parameters() { delete Objects(); }
  Parameters(const Parameters&) = delete;
  Parameters& operator=(const Parameters&) = delete;

  int Count() const { return Objects() != nullptr ? Objects()->Size() : Packed().Count(); }

  Ref<tarvo::Parameter> Parameter(int index);
  Ref<tarvo::Parameter> Parameter(std::string_view name);

  /// Adds an attribute at the end and returns its index. Raises what Parameter::SetName raises, and
  /// the list is as it was then.
  int AddParameter(std::string_view name, std::string_view value = {});

  /// Takes an attribute out, closing the gap, and returns it.
  Ref<tarvo::Parameter> RemoveParameter(int index);
  Ref<tarvo::Parameter> RemoveParameter(std::string_view name);

  /// Whether there is an attribute of that name (in any letter case), with exactly that value when
  /// one is given.
  bool Holds(std::string_view name, std::optional<std::string_view> value = std::nullopt) const;

  /// Calls visit(nameView, valueView) for each attribute, in order. `visit` must not change the
  /// list.
  template <typename Visit>
  void ForEach(Visit visit) const {
    if (Objects() == nullptr) return Packed().ForEach(visit);
    for (tarvo::Parameter* one : *Objects()) visit(one->NameView(), one->ValueView());
  }
  /// All attributes as the writer writes them, while they are as an import left them; empty
  /// otherwise, and for no attributes.
  std::string_view ReadyText() const { return Packed().Text(); }

  /// Takes the attributes of an import as its own, without copying: their bytes, which lie at a
  /// multiple of 8, have to live as long as this list, which is still empty.
  void Show(const char* packed) { held_ = reinterpret_cast<std::uintptr_t>(packed); }

 private:
  using List = NodeList<tarvo::Parameter>;

  List* Objects() const { return (held_ & 1) != 0 ? reinterpret_cast<List*>(held_ - 1) : nullptr; }
  PackedAttributes Packed() const {
    return PackedAttributes((held_ & 1) != 0 ? nullptr : reinterpret_cast<const char*>(held_));
  }
  List& Unpacked();
  int IndexOf(std::string_view name);
  bool Has(int index) const { return index >= 0 && index < Count(); }

  std::uintptr_t held_ = 0;  // where packed attributes are, or a list of objects and a lowest bit
};

}  // namespace tarvo
