#include "xmldoc/template/template_tag.h"

#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"
#include "xmldoc/template/template_path.h"

namespace tarvo {

std::size_t TemplateTagEnd(std::string_view text, std::size_t from) {
  bool inQuotes = false;
  for (;;) {
    from = text.find_first_of(inQuotes ? "\"" : "\">", from);
    if (from == std::string_view::npos) RaiseMalformedTag();
    if (text[from] == '>') return from;
    inQuotes = !inQuotes;
    ++from;
  }
}

std::optional<TemplateAttributePlace> FindTemplateAttribute(std::string_view tag,
                                                            std::string_view name) {
  const std::string wanted = " " + std::string(name) + "=";
  const auto found = FindIgnoringCase(tag, wanted);
  if (found == std::string_view::npos) return std::nullopt;
  const std::size_t start = found + wanted.size();
  const auto first = tag.find('"', start);
  if (first == std::string_view::npos) RaiseMalformedTag();
  const auto second = tag.find('"', first + 1);
  if (second == std::string_view::npos) RaiseMalformedTag();
  return TemplateAttributePlace{start, second - start};
}

std::optional<std::string> TemplateAttribute(std::string_view tag, std::string_view name) {
  const auto place = FindTemplateAttribute(tag, name);
  if (!place) return std::nullopt;
  std::string value(tag.substr(place->start, place->length));
  std::erase_if(value, IsQuote);
  return value;
}

}  // namespace tarvo
