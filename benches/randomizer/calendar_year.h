#pragma once

#include <vector>

#include "platform/clock.h"

namespace tarvo {

/// An entry of the calendar as the bench plays it.
struct YearEntry {
  int weekday = 1;  ///< Monday 1 to Sunday 7.
  int hour = 0;
  int minute = 0;
};

/// The moments (whole minutes) at which the calendar runs in the minutes from `begin` to `end`,
/// told from its rules alone: an entry whose minute it is runs, unless the last run of all was in
/// the same minute of the week. `entries` hold no minute twice.
std::vector<LocalTime> CalendarRuns(const std::vector<YearEntry>& entries, LocalTime begin,
                                    LocalTime end);

/// Which of the hourly map starts from `begin` to `end` run, told from the rules alone, with these
/// limits of runs an hour and a day; the counters begin at 0 and at `begin`.
std::vector<LocalTime> MapStartRuns(int perHour, int perDay, LocalTime begin, LocalTime end);

}  // namespace tarvo
