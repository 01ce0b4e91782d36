#include "randomizer/server_settings.h"

#include "randomizer/server_lines.h"
#include "support/number_text.h"
#include "support/text.h"

namespace tarvo {

void ReadServerSettings(std::string_view text, Fields& settings) {
  ForEachLine(text, [&](std::string_view line) {
    const auto name = NameOnLine(line);
    if (!name || name->find(' ') != std::string_view::npos) return;
    std::string_view value = line.substr(name->size() + 1);
    value = value.substr(0, value.find(':'));
    if (IsNumeric(value)) settings.AddField(*name, ShortestDecimal(NumericValue(value)));
  });
}

int IndexOfField(const Fields& fields, std::string_view name) {
  for (int index = 0; index < fields.Count(); ++index) {
    if (fields.Field(index)->NameView() == name) return index;
  }
  return -1;
}

void RemoveFieldOfLine(Fields& fields, std::string_view name, int line) {
  const bool stands = line < fields.Count() && fields.Field(line)->NameView() == name;
  fields.RemoveField(stands ? line : IndexOfField(fields, name));
}

std::unordered_map<std::string_view, int> FirstFields(const Fields& fields) {
  std::unordered_map<std::string_view, int> first;
  first.reserve(static_cast<std::size_t>(fields.Count()));
  for (int index = 0; index < fields.Count(); ++index) {
    first.try_emplace(fields.Field(index)->NameView(), index);
  }
  return first;
}

}  // namespace tarvo
