#include "randomizer/calendar_line.h"

#include <algorithm>
#include <charconv>

namespace tarvo {
namespace {

/// Removes the text up to the mark, and the mark, from the front of `rest`; all of it when there is
/// no mark.
std::string_view TakeUpTo(std::string_view& rest, char mark) {
  const std::string_view piece = rest.substr(0, rest.find(mark));
  rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
  return piece;
}

constexpr std::string_view kDays[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};

bool ReadNumber(std::string_view digits, int& number) {
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number);
  return result.ec == std::errc() && result.ptr == end && digits.front() != '-';
}

}  // namespace

int DayIndexOf(std::string_view name) {
  const auto found = std::find(std::begin(kDays), std::end(kDays), name);
  return found == std::end(kDays) ? 0 : static_cast<int>(found - std::begin(kDays)) + 1;
}

std::string_view DayName(int weekday) { return kDays[weekday - 1]; }

std::optional<CalendarEntry> ReadCalendarLine(std::string_view line) {
  // A mark that is missing leaves the piece after it empty, which is no number and no restart.
  CalendarEntry entry;
  entry.at.weekday = DayIndexOf(TakeUpTo(line, ' '));
  std::string_view minute = TakeUpTo(line, ' ');
  const std::string_view hour = TakeUpTo(minute, ':');
  if (!ReadNumber(hour, entry.at.hour) || !ReadNumber(minute, entry.at.minute)) return std::nullopt;
  entry.restarts = line == "restart=Y";
  if (!entry.restarts && line != "restart=N") return std::nullopt;
  return entry;
}

std::string CalendarLineOf(std::string name, std::string_view restart) {
  std::replace(name.begin(), name.end(), '_', ' ');
  return name + (restart == "Yes" ? " restart=Y" : " restart=N");
}

std::string NameInCalendarLine(std::string line) {
  const std::size_t first = line.find(' ');
  if (first == std::string::npos) return line;
  line[first] = '_';
  return line.substr(0, line.find(' ', first));
}

}  // namespace tarvo
