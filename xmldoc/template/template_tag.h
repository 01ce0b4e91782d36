#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// The position of the first ">" outside of double quotes, from `from` on. Raises the fault of a
/// malformed tag when there is none.
std::size_t TemplateTagEnd(std::string_view text, std::size_t from);

/// Where the value of an attribute is in a tag: after a blank, the attribute's name (given in
/// lower case, found in any) and "=", up to the second double quote. Nothing when the tag has no
/// such attribute. Raises the fault of a malformed tag when there are not two double quotes.
struct TemplateAttributePlace {
  std::size_t start;
  std::size_t length;
};
std::optional<TemplateAttributePlace> FindTemplateAttribute(std::string_view tag,
                                                            std::string_view name);

/// That value without its single and double quotes; nothing when the tag has no such attribute.
std::optional<std::string> TemplateAttribute(std::string_view tag, std::string_view name);

}  // namespace tarvo
