#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xmldoc/document.h"

namespace tarvo {

/// A path of a template: names separated by ".", walked down from a node through its children. All
/// names compare without regard to letter case; of several children or fields of one name the last
/// is taken, as everywhere in the library. Blanks around the path do not count.
class TemplatePath {
 public:
  explicit TemplatePath(std::string_view path);

  /// The last name of the path; empty for the empty path.
  const std::string& LastName() const { return names_.back(); }
  /// Equal for paths that lead to the same place.
  std::string Key() const;

  /// The node that all names but the last lead to; none when a step finds nothing. It lives as long
  /// as `from` holds it.
  Document* Owner(Document& from) const;
  /// The field that the whole path names, likewise; none when there is none.
  Field* FindField(Document& from) const;
  /// Appends that field's value; nothing when there is none.
  void AppendValue(Document& from, std::string& text) const;

 private:
  std::vector<std::string> names_;
};

/// The first occurrence of `wanted`, which is in lower case, in any letter case; npos when there is
/// none.
std::size_t FindIgnoringCase(std::string_view text, std::string_view wanted, std::size_t from = 0);

}  // namespace tarvo
