#pragma once

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
  int Count() const { return packed_.Any() ? packed_.Count() : list_.Size(); }

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
    if (packed_.Any()) {
      packed_.ForEach(visit);
    } else {
      for (tarvo::Parameter* one : list_) visit(one->NameView(), one->ValueView());
    }
  }
  /// All attributes as the writer writes them, while they are as an import left them; empty
  /// otherwise, and for no attributes.
  std::string_view ReadyText() const { return packed_.Text(); }

  /// Takes the attributes of an import as its own, without copying: their bytes have to live as
  /// long as this list, which is still empty.
  void Show(PackedAttributes packed) { packed_ = packed; }

 private:
  void Unpack();
  int IndexOf(std::string_view name);

  NodeList<tarvo::Parameter> list_;
  PackedAttributes packed_;  // while there are any, list_ is empty
};

}  // namespace tarvo
