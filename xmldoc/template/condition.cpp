#include "xmldoc/template/condition.h"

#include <algorithm>
#include <optional>

#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"

namespace tarvo {
namespace {

constexpr std::string_view kOr = " or ";
constexpr std::string_view kAnd = " and ";
constexpr std::string_view kVar = "var(";

/// The text as a "when" is read: in lower case, without quotes.
std::string Normal(std::string_view text) {
  std::string normal = LowerCased(text);
  std::erase_if(normal, IsQuote);
  return normal;
}

/// The text with every "var(" name ")" blotted out, so that no operator is found in a name.
std::string WithoutNames(std::string_view text) {
  std::string blotted(text);
  for (auto at = FindText(text, kVar); at != std::string_view::npos;
       at = FindText(text, kVar, at)) {
    const auto end = text.find(')', at);
    if (end == std::string_view::npos) RaiseNoCondition();
    std::fill(blotted.begin() + static_cast<std::ptrdiff_t>(at),
              blotted.begin() + static_cast<std::ptrdiff_t>(end), ' ');
    at = end;
  }
  return blotted;
}

}  // namespace

Condition::Condition(std::string_view text) {
  const std::string normal = Normal(text);
  std::string_view rest = normal;
  if (WithoutOuterBlanks(rest).empty()) return;
  bool joinedByAnd = false;
  std::size_t nextOr = rest.find(kOr);
  std::size_t nextAnd = rest.find(kAnd);
  std::size_t start = 0;
  for (;;) {
    // Each is looked for again only once it has been passed, so that a long condition costs one
    // pass.
    if (nextOr < start) nextOr = rest.find(kOr, start);
    if (nextAnd < start) nextAnd = rest.find(kAnd, start);
    const std::size_t end = std::min(nextOr, nextAnd);
    terms_.push_back(ReadTerm(rest.substr(start, end - start), joinedByAnd));
    if (end == std::string_view::npos) return;
    joinedByAnd = nextAnd < nextOr;
    start = end + (joinedByAnd ? kAnd.size() : kOr.size());
  }
}

Condition::Term Condition::ReadTerm(std::string_view text, bool joinedByAnd) {
  const std::string blotted = WithoutNames(text);
  for (std::size_t order = 0; order < kComparisonCount; ++order) {
    const std::string_view sign = ComparisonSign(order, DiffersSign::AngleBrackets);
    const auto at = blotted.find(sign);
    if (at == std::string::npos) continue;
    return {joinedByAnd, ComparisonAt(order), ReadSide(text.substr(0, at)),
            ReadSide(text.substr(at + sign.size()))};
  }
  RaiseNoCondition();
}

Condition::Side Condition::ReadSide(std::string_view text) {
  Side side;
  text = WithoutOuterBlanks(text);
  for (;;) {
    const auto at = FindText(text, kVar);
    const auto end = at == std::string_view::npos ? at : text.find(')', at);
    side.push_back({std::string(text.substr(0, at)), kNoPath});
    if (end == std::string_view::npos) return side;
    const std::size_t name = at + kVar.size();
    side.back().path = paths_.size();
    paths_.emplace_back(text.substr(name, end - name));
    text.remove_prefix(end + 1);
  }
}

/// `appendValue(path, text)` appends the value of one of the paths.
template <typename AppendValue>
bool Condition::HoldsFor(AppendValue appendValue) const {
  const auto fill = [&appendValue](const Side& side, std::string& text) {
    text.clear();
    for (const Piece& piece : side) {
      text += piece.literal;
      if (piece.path != kNoPath) appendValue(piece.path, text);
    }
  };
  bool result = terms_.empty();
  std::string left;
  std::string right;
  for (const Term& term : terms_) {
    // The terms join from left to right: where the left already decides, the next is not looked at.
    if (&term != &terms_.front() && result != term.joinedByAnd) continue;
    fill(term.left, left);
    fill(term.right, right);
    result = tarvo::Holds(term.comparison, left, right);
  }
  return result;
}

bool Condition::Holds(Document& node) const {
  return HoldsFor(
      [&](std::size_t path, std::string& text) { paths_[path].AppendValue(node, text); });
}

bool Condition::Holds(const std::vector<std::string_view>& values) const {
  return HoldsFor([&](std::size_t path, std::string& text) { text += values[path]; });
}

}  // namespace tarvo
