#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include "xmldoc/field.h"
#include "xmldoc/nodes/node_list.h"

namespace tarvo {

/// The ordered list of a node's fields, each of which it keeps alive. Names may repeat. Letter case
/// is that of letter_case.h.
///
/// Keys: a number is always an index from 0, a text always a NodeKey: a name in any letter case,
/// perhaps with a condition; of several matches the last wins. A key outside the list changes
/// nothing and gives a fresh empty field that belongs to no list, never an empty reference.
class Fields {
 public:
  int Count() const { return list_.Size(); }
  /// Fields whose name and value equal the given ones, both without regard to letter case; what is
  /// not given is not compared.
  int Count(std::optional<std::string_view> name,
            std::optional<std::string_view> value = std::nullopt) const;

  Ref<tarvo::Field> Field(int index) const;
  Ref<tarvo::Field> Field(std::string_view key) const;

  /// The last field of that name, compared exactly or without regard to letter case; a fresh empty
  /// field when there is none, so that its Value reads "".
  Ref<tarvo::Field> SearchField(std::string_view name, bool ignoreCase = false) const;

  /// Adds a field at the end and returns its index. Raises what Field::SetName raises, and the list
  /// is as it was then.
  int AddField(std::string_view name, std::string_view value = {},
               std::string_view encodePassword = {}, std::int32_t cryptType = 0);

  /// Takes a field out, closing the gap, and returns it.
  Ref<tarvo::Field> RemoveField(int index);
  Ref<tarvo::Field> RemoveField(std::string_view key);

  /// Orders the fields by name in lower case, ascending for true, descending for false. Fields of
  /// equal names stay in order.
  void Sort(bool ascending);

  /// Adds a field of whatever name at the end. Others may hold it as well.
  void Append(Ref<tarvo::Field> field) { list_.Append(std::move(field)); }
  /// The fields in place, for loops that count no references. Valid until the list changes.
  const NodeList<tarvo::Field>& Nodes() const { return list_; }

 private:
  friend class Document;  // as for Documents
  friend class NodeMaker;

  NodeList<tarvo::Field> list_;
};

}  // namespace tarvo
