#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace tarvo {

/// A minute of the week, whatever the date.
struct MinuteOfWeek {
  int weekday = 0;  ///< Monday 1 to Sunday 7.
  int hour = 0;
  int minute = 0;

  bool operator==(const MinuteOfWeek&) const = default;
};

/// A week has this minute: one of a line that was written by hand may never come.
constexpr bool ComesInAWeek(const MinuteOfWeek& at) {
  return at.weekday >= 1 && at.weekday <= 7 && at.hour >= 0 && at.hour <= 23 && at.minute >= 0 &&
         at.minute <= 59;
}

inline MinuteOfWeek MinuteOfWeekAt(LocalTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::hh_mm_ss clock(time - day);
  return {static_cast<int>(std::chrono::weekday(day).iso_encoding()),
          static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count())};
}

/// "Mon" to "Sun" as 1 to 7, compared exactly; 0 for any other text.
int DayIndexOf(std::string_view name);

/// The name of a weekday, 1 to 7.
std::string_view DayName(int weekday);

/// What a line of the calendar's list says.
struct CalendarEntry {
  MinuteOfWeek at;
  bool restarts = false;

  bool operator==(const CalendarEntry&) const = default;
};

/// Reads a line "Mon 08:30 restart=Y". Nothing for a line of any other form (three pieces separated
/// by single blanks, the second made of digits, ":" and digits, the third with "restart=Y" or
/// "restart=N"), which only a hand-edited file can contain. A day or time that no week has is read,
/// and never comes.
std::optional<CalendarEntry> ReadCalendarLine(std::string_view line);

/// The line of an entry: its name with blanks for "_", and whether `restart` is exactly "Yes".
std::string CalendarLineOf(std::string name, std::string_view restart);

/// The way back to the name: the line with "_" for its first blank, cut at the next one.
std::string NameInCalendarLine(std::string line);

}  // namespace tarvo
