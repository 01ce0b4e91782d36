// "for": numbers and moments as a format says.
#include <algorithm>
#include <cmath>
#include <optional>

#include "support/date_time.h"
#include "support/number_text.h"
#include "support/text.h"
#include "xmldoc/rules/letter_case.h"
#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/condition_comparison.h"
#include "xmldoc/template/template_error.h"
#include "xmldoc/template/template_functions.h"

namespace tarvo {
namespace {

constexpr std::string_view kDatePattern = "yyyy-mm-dd";
constexpr std::string_view kTimePattern = "hh:nn:ss";
constexpr std::string_view kDateTimePattern = "yyyy-mm-dd hh:nn:ss";

/// What a number format such as "#,##0.00 %" says.
struct NumberPattern {
  std::string_view before;
  std::string_view after;
  std::size_t leastWhole = 0;
  std::size_t leastFraction = 0;
  std::size_t mostFraction = 0;
  bool grouped = false;
  bool percent = false;
};

std::size_t CountOf(std::string_view text, char wanted) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), wanted));
}

std::optional<NumberPattern> ReadNumberPattern(std::string_view format) {
  NumberPattern pattern;
  if (format.size() == 1 && format[0] >= '1' && format[0] <= '9') {
    pattern.leastWhole = 1;
    pattern.leastFraction = pattern.mostFraction = static_cast<std::size_t>(format[0] - '0');
    return pattern;
  }
  const auto last = format.find_last_of("0#");
  if (last == std::string_view::npos) return std::nullopt;
  const auto first = format.find_first_of("0#.");
  const std::string_view core = format.substr(first, last + 1 - first);
  const auto point = core.find('.');
  const std::string_view whole = core.substr(0, point);
  const std::string_view fraction =
      point == std::string_view::npos ? std::string_view() : core.substr(point + 1);
  pattern.before = format.substr(0, first);
  pattern.after = format.substr(last + 1);
  pattern.leastWhole = CountOf(whole, '0');
  pattern.leastFraction = CountOf(fraction, '0');
  pattern.mostFraction = pattern.leastFraction + CountOf(fraction, '#');
  pattern.grouped = CountOf(whole, ',') > 0;
  pattern.percent = CountOf(format, '%') > 0;
  return pattern;
}

/// The digits of a number of 0 and above on both sides of its point, rounded to so many after it,
/// halves away from 0, as one does by hand with the number as it is printed.
struct Digits {
  std::string whole;
  std::string fraction;
};

Digits RoundedDigits(double value, std::size_t mostFraction) {
  const std::string plain = PlainDecimal(value);
  const auto point = plain.find('.');
  Digits digits{plain.substr(0, point),
                point == std::string::npos ? std::string() : plain.substr(point + 1)};
  if (digits.fraction.size() <= mostFraction) return digits;
  const bool up = digits.fraction[mostFraction] >= '5';
  digits.fraction.resize(mostFraction);
  if (!up) return digits;
  std::string all = "0" + digits.whole + digits.fraction;
  auto at = all.rbegin();
  for (; *at == '9'; ++at) *at = '0';
  ++*at;
  digits.whole = all.substr(0, all.size() - mostFraction);
  digits.fraction = all.substr(all.size() - mostFraction);
  return digits;
}

std::string FormatNumber(double value, const NumberPattern& pattern) {
  if (pattern.percent) value *= 100;
  if (!std::isfinite(value)) RaiseTemplateFault(TemplateFault::FieldOverflow, Fault::Overflow);
  Digits digits = RoundedDigits(std::fabs(value), pattern.mostFraction);
  digits.whole.erase(0, std::min(digits.whole.find_first_not_of('0'), digits.whole.size()));
  while (digits.fraction.size() > pattern.leastFraction && digits.fraction.back() == '0') {
    digits.fraction.pop_back();
  }
  const bool isZero =
      digits.whole.empty() && digits.fraction.find_first_not_of('0') == std::string::npos;
  while (digits.whole.size() < pattern.leastWhole) digits.whole.insert(0, 1, '0');
  while (digits.fraction.size() < pattern.leastFraction) digits.fraction += '0';
  std::string text = value < 0 && !isZero ? "-" : "";
  text += pattern.before;
  text += pattern.grouped ? WithThousands(digits.whole) : digits.whole;
  if (!digits.fraction.empty()) text += "." + digits.fraction;
  text += pattern.after;
  return text;
}

/// The kind that a format begins with, and the pattern after its separator or the kind's own one.
/// Empty when it is no format of a moment.
std::string_view MomentPattern(std::string_view format) {
  const auto separator = format.find_first_of(",;");
  const std::string_view kind = WithoutOuterBlanks(format.substr(0, separator));
  const std::string_view own = IsKeyword(kind, "date")       ? kDatePattern
                               : IsKeyword(kind, "time")     ? kTimePattern
                               : IsKeyword(kind, "datetime") ? kDateTimePattern
                                                             : std::string_view();
  if (own.empty() || separator == std::string_view::npos) return own;
  const std::string_view given = WithoutOuterBlanks(format.substr(separator + 1));
  return given.empty() ? own : given;
}

/// One run of a letter of a moment's pattern: "yyyy" and "yy", "mm" and "m", and so on.
std::string MomentPart(char letter, std::size_t run, LocalTime moment) {
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  const std::size_t width = std::min<std::size_t>(run, 2);
  switch (letter) {
    case 'y':
      return run > 2 ? ZeroPadded(static_cast<int>(date.year()), 4)
                     : ZeroPadded(static_cast<int>(date.year()) % 100, 2);
    case 'm':
      return ZeroPadded(static_cast<unsigned>(date.month()), width);
    case 'd':
      return ZeroPadded(static_cast<unsigned>(date.day()), width);
    case 'h':
      return ZeroPadded(time.hours().count(), width);
    case 'n':
      return ZeroPadded(time.minutes().count(), width);
    default:
      return ZeroPadded(time.seconds().count(), width);
  }
}

}  // namespace

bool IsMomentFormat(std::string_view format) { return !MomentPattern(format).empty(); }

std::string FormatMoment(LocalTime moment, std::string_view format) {
  const std::string pattern = LowerCased(MomentPattern(format));
  std::string text;
  for (std::size_t i = 0; i < pattern.size();) {
    const std::size_t end = std::min(pattern.find_first_not_of(pattern[i], i), pattern.size());
    const bool isPart = std::string_view("ymdhns").find(pattern[i]) != std::string_view::npos;
    text += isPart ? MomentPart(pattern[i], end - i, moment) : pattern.substr(i, end - i);
    i = end;
  }
  return text;
}

std::string FormatValue(std::string_view value, std::string_view format) {
  if (IsMomentFormat(format)) {
    try {
      return FormatMoment(ParseDateTime(value), format);
    } catch (const RuntimeError&) {
      return std::string(value);  // what is no moment stays as it is
    }
  }
  const std::optional<double> number = DecimalNumber(WithoutOuterBlanks(value));
  if (format.empty()) return number ? ShortestDecimal(*number) : std::string(value);
  const std::optional<NumberPattern> pattern = ReadNumberPattern(format);
  if (!pattern) RaiseMalformedField("Unknown format: " + std::string(format));
  return number ? FormatNumber(*number, *pattern) : std::string(value);
}

}  // namespace tarvo
