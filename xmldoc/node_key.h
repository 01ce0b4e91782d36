#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "xmldoc/nodes/node_list.h"
#include "xmldoc/parameters.h"
#include "xmldoc/rules/letter_case.h"

namespace tarvo {

/// A text key of `Fields::Field` and `Documents::Child`: a name, which may be followed by "@" and a
/// condition `attribute=value`. The value may be in double or single quotes, which are removed. The
/// key's text has to outlive the object.
///
/// Chosen where the rules leave it open: the first "@" ends the name and the rest is one condition;
/// the first "=" ends the attribute's name; both are trimmed of blanks. A condition without "="
/// asks only whether the attribute is there. Names compare without regard to letter case, values
/// exactly. An empty name before an "@" means any name.
class NodeKey {
 public:
  explicit NodeKey(std::string_view key);

  bool Matches(std::string_view name, const Parameters& parameters) const;

 private:
  std::string_view name_;
  bool hasCondition_ = false;
  std::string_view attribute_;
  std::optional<std::string_view> value_;
};

/// Takes the first step off a path of keys separated by ".", written `name`, `name@attribute=value`
/// or `name.@attribute=value`. A "." within quotes belongs to the value. `path` keeps what follows
/// the separator; `more` says whether there was one.
std::string TakePathStep(std::string_view& path, bool& more);

/// The position of the last node that a text key names; -1 for none.
template <typename Node>
int LastOfKey(const NodeList<Node>& list, std::string_view key) {
  const NodeKey wanted(key);
  return list.LastThat(
      [&wanted](const Node& node) { return wanted.Matches(node.NameView(), node.Parameters()); });
}

/// The position of the last node of that name, whatever signs the name holds; -1 for none.
template <typename Node>
int LastOfName(const NodeList<Node>& list, std::string_view name, bool ignoreCase) {
  return list.LastThat([name, ignoreCase](const Node& node) {
    return ignoreCase ? EqualIgnoringCase(node.NameView(), name) : node.NameView() == name;
  });
}

}  // namespace tarvo
