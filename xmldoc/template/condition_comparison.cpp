#include "xmldoc/template/condition_comparison.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string>

#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"

namespace tarvo {
namespace {

struct Sign {
  std::string_view text;
  Comparison comparison;
};
constexpr std::array<Sign, kComparisonCount> kSigns = {{{">=", Comparison::AtLeast},
                                                        {"<=", Comparison::AtMost},
                                                        {"<>", Comparison::Differs},
                                                        {"->", Comparison::Contains},
                                                        {"=", Comparison::Equal},
                                                        {">", Comparison::Above},
                                                        {"<", Comparison::Below}}};

/// `order`: below 0, 0 or above 0, as the left side is beside the right one.
bool HoldsOrdered(Comparison comparison, int order) {
  const auto isOneOf = [comparison](Comparison a, Comparison b, Comparison c) {
    return comparison == a || comparison == b || comparison == c;
  };
  if (order < 0) return isOneOf(Comparison::Below, Comparison::AtMost, Comparison::Differs);
  if (order > 0) return isOneOf(Comparison::Above, Comparison::AtLeast, Comparison::Differs);
  return isOneOf(Comparison::Equal, Comparison::AtMost, Comparison::AtLeast);
}

int OrderOf(std::string_view left, std::string_view right) {
  const std::optional<double> a = DecimalNumber(left);
  const std::optional<double> b = a ? DecimalNumber(right) : std::nullopt;
  if (a && b) return *a < *b ? -1 : *a > *b ? 1 : 0;
  if (EqualIgnoringCase(left, right)) return 0;
  return LessIgnoringCase(left, right) ? -1 : 1;
}

/// A text of digits alone, few enough to be exact; most numbers are of that kind.
std::optional<double> ShortInteger(std::string_view text) {
  constexpr std::size_t kExactDigits = 15;
  if (text.empty() || text.size() > kExactDigits) return std::nullopt;
  std::int64_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + (c - '0');
  }
  return static_cast<double>(number);
}

}  // namespace

std::optional<double> DecimalNumber(std::string_view text) {
  if (const std::optional<double> number = ShortInteger(text)) return number;
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  // Letters other than those of an exponent would be read as infinity and the like.
  if (text.empty() || text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) {
    return std::nullopt;
  }
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

bool Holds(Comparison comparison, std::string_view left, std::string_view right) {
  left = WithoutOuterBlanks(left);
  right = WithoutOuterBlanks(right);
  if (comparison != Comparison::Contains) return HoldsOrdered(comparison, OrderOf(left, right));
  return FindText(LowerCased(left), LowerCased(right)) != std::string::npos;
}

std::string_view ComparisonSign(std::size_t order, DiffersSign differs) {
  const Sign& sign = kSigns[order];
  if (sign.comparison == Comparison::Differs && differs == DiffersSign::ExclamationMark) {
    return "!=";
  }
  return sign.text;
}

Comparison ComparisonAt(std::size_t order) { return kSigns[order].comparison; }

}  // namespace tarvo
