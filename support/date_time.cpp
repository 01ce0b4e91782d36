#include "support/date_time.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::local_days;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::year_month_day;

/// Writes the six numbers of a moment with these marks before month, day, hour, minute, second.
std::string Compose(LocalTime time, std::string_view dateMark, std::string_view middle,
                    std::string_view timeMark) {
  const local_days day = std::chrono::floor<days>(time);
  const year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  std::string text = ZeroPadded(static_cast<int>(date.year()), 4);
  for (const unsigned part : {unsigned(date.month()), unsigned(date.day())}) {
    text.append(dateMark) += ZeroPadded(part);
  }
  text.append(middle) += ZeroPadded(clock.hours().count());
  text.append(timeMark) += ZeroPadded(clock.minutes().count());
  text.append(timeMark) += ZeroPadded(clock.seconds().count());
  return text;
}

/// Removes pieces from the front of a text; each member says whether its piece was there.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  std::optional<int> Number(std::size_t maxDigits) {
    int value = 0;
    const std::size_t limit = std::min(rest_.size(), maxDigits);
    const auto result = std::from_chars(rest_.data(), rest_.data() + limit, value);
    if (result.ec != std::errc() || rest_.front() == '-') return std::nullopt;
    rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
    return value;
  }

  bool Mark(char mark) {
    if (rest_.empty() || rest_.front() != mark) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool Blanks() {
    const std::size_t before = rest_.size();
    while (Mark(' ')) {
    }
    return rest_.size() != before;
  }

  bool Word(std::string_view lower) {
    if (LowerCase(rest_.substr(0, lower.size())) != lower) return false;
    rest_.remove_prefix(lower.size());
    return true;
  }

 private:
  std::string_view rest_;
};

/// A year of two digits as the whole year nearest to our time.
int WholeYear(int year) {
  if (year >= 100) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

std::optional<local_days> ReadDate(Scanner& scan) {
  const auto first = scan.Number(4);
  const char mark = scan.Mark('-') ? '-' : scan.Mark('/') ? '/' : scan.Mark('.') ? '.' : '\0';
  if (!first || !mark) return std::nullopt;
  const auto second = scan.Number(2);
  if (!second || !scan.Mark(mark)) return std::nullopt;
  const auto third = scan.Number(4);
  if (!third) return std::nullopt;
  const bool yearFirst = *first >= 100;
  const int year = yearFirst ? *first : WholeYear(*third);
  int month = yearFirst ? *second : *first;
  int day = yearFirst ? *third : *second;
  if (!yearFirst && (mark == '.' || month > 12)) std::swap(month, day);
  const year_month_day date(std::chrono::year(year),
                            std::chrono::month(static_cast<unsigned>(month)),
                            std::chrono::day(static_cast<unsigned>(day)));
  if (day > 31 || !date.ok()) return std::nullopt;
  return local_days(date);
}

std::optional<seconds> ReadTime(Scanner& scan) {
  auto hour = scan.Number(2);
  if (!hour || !scan.Mark(':')) return std::nullopt;
  const auto minute = scan.Number(2);
  std::optional<int> second = 0;
  if (scan.Mark(':')) second = scan.Number(2);
  if (!minute || !second || *minute > 59 || *second > 59) return std::nullopt;
  scan.Blanks();
  const bool morning = scan.Word("am");
  const bool afternoon = !morning && scan.Word("pm");
  if (morning || afternoon) {
    if (*hour < 1 || *hour > 12) return std::nullopt;
    hour = *hour % 12 + (afternoon ? 12 : 0);
  }
  if (*hour > 23) return std::nullopt;
  return hours(*hour) + minutes(*minute) + seconds(*second);
}

local_days DayZero() {
  using namespace std::chrono_literals;
  return local_days(1899y / 12 / 30);
}

}  // namespace

std::string GeneralDate(LocalTime time) { return Compose(time, "-", " ", ":"); }

std::string DateStamp(LocalTime time) { return Compose(time, "", "", ""); }

LocalTime ParseDateTime(std::string_view text) {
  const std::string_view trimmed = Trimmed(text);
  Scanner dated(trimmed);
  const auto day = ReadDate(dated);
  if (day && dated.AtEnd()) return *day;
  Scanner timed = day && dated.Blanks() ? dated : Scanner(trimmed);
  const auto time = ReadTime(timed);
  if (!time || !timed.AtEnd()) throw RuntimeError(Fault::TypeMismatch);
  return day.value_or(DayZero()) + *time;
}

LocalTime DateOfNumber(double number) {
  constexpr double kFirst = -657434;       // 0100-01-01
  constexpr double kBehindLast = 2958466;  // 10000-01-01
  constexpr double kSecondsInDay = 86400;
  if (!(number > kFirst - 1 && number < kBehindLast)) throw RuntimeError(Fault::TypeMismatch);
  const double day = std::trunc(number);
  const double second = std::round(std::fabs(number - day) * kSecondsInDay);
  return DayZero() + days(static_cast<int>(day)) + seconds(static_cast<int>(second));
}

}  // namespace tarvo
