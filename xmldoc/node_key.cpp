#include "xmldoc/node_key.h"

#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"

namespace tarvo {
namespace {

std::string_view WithoutQuotes(std::string_view value) {
  if (value.size() >= 2 && IsQuote(value.front()) && value.front() == value.back()) {
    value.remove_prefix(1);
    value.remove_suffix(1);
  }
  return value;
}

/// Position of the "." that ends the step, or the end. Quotes count only after an "@": before it
/// they are letters of a name.
std::size_t EndOfStep(std::string_view path) {
  char quote = 0;
  bool inCondition = false;
  for (std::size_t i = 0; i < path.size(); i += CharacterLength(path, i)) {
    const char c = path[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '@') {
      inCondition = true;
    } else if (inCondition && IsQuote(c)) {
      quote = c;
    } else if (c == '.' && (inCondition || path.substr(i, 2) != ".@")) {
      return i;
    }
  }
  return path.size();
}

}  // namespace

NodeKey::NodeKey(std::string_view key) {
  const auto at = FindText(key, "@");
  name_ = key.substr(0, at);
  if (at == std::string_view::npos) return;
  hasCondition_ = true;
  const std::string_view condition = key.substr(at + 1);
  const auto equals = condition.find('=');
  attribute_ = WithoutOuterBlanks(condition.substr(0, equals));
  if (equals == std::string_view::npos) return;
  value_ = WithoutQuotes(WithoutOuterBlanks(condition.substr(equals + 1)));
}

bool NodeKey::Matches(std::string_view name, const Parameters& parameters) const {
  const bool anyName = hasCondition_ && name_.empty();
  if (!anyName && !EqualIgnoringCase(name, name_)) return false;
  return !hasCondition_ || parameters.Holds(attribute_, value_);
}

std::string TakePathStep(std::string_view& path, bool& more) {
  const std::size_t end = EndOfStep(path);
  std::string step(path.substr(0, end));
  more = end < path.size();
  path.remove_prefix(more ? end + 1 : end);
  const auto at = FindText(step, "@");
  if (at != std::string::npos && at > 0 && step[at - 1] == '.') step.erase(at - 1, 1);
  return step;
}

}  // namespace tarvo
