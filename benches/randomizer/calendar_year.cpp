#include "benches/randomizer/calendar_year.h"

#include <algorithm>
#include <map>

namespace tarvo {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;

constexpr int kMinutesInWeek = 7 * 24 * 60;

/// Minutes since the Monday before; 1970-01-01 was a Thursday.
int WeekMinute(LocalTime time) {
  const auto passed = std::chrono::floor<minutes>(time.time_since_epoch()) + days(3);
  return static_cast<int>(passed.count() % kMinutesInWeek);
}

}  // namespace

std::vector<LocalTime> CalendarRuns(const std::vector<YearEntry>& entries, LocalTime begin,
                                    LocalTime end) {
  // Every occurrence of every entry, in the order of time: the table that the runs are read from.
  std::map<LocalTime, int> occurrences;
  for (const YearEntry& entry : entries) {
    const int place = ((entry.weekday - 1) * 24 + entry.hour) * 60 + entry.minute;
    const int ahead = (place - WeekMinute(begin) + kMinutesInWeek) % kMinutesInWeek;
    for (LocalTime at = begin + minutes(ahead); at < end; at += days(7)) occurrences[at] = place;
  }
  std::vector<LocalTime> runs;
  int last = -1;
  for (const auto& [at, place] : occurrences) {
    if (place == last) continue;
    runs.push_back(at);
    last = place;
  }
  return runs;
}

std::vector<LocalTime> MapStartRuns(int perHour, int perDay, LocalTime begin, LocalTime end) {
  std::vector<LocalTime> runs;
  LocalTime last = begin;
  int inHour = 0;
  int onDay = 0;
  for (LocalTime at = begin; at < end; at += hours(1)) {
    const bool sameHour = WeekMinute(at) / 60 % 24 == WeekMinute(last) / 60 % 24;
    const bool sameDay = WeekMinute(at) / 1440 == WeekMinute(last) / 1440;
    if (!sameHour) inHour = 0;
    if (sameHour && perHour <= inHour) continue;
    if (!sameDay) onDay = 0;
    if (sameDay && perDay <= onDay) continue;
    runs.push_back(at);
    ++inHour;
    ++onDay;
    last = at;
  }
  return runs;
}

}  // namespace tarvo
