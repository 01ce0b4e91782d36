#pragma once

#include "platform/clock.h"

namespace tarvo {

/// A minute of the week, whatever the date.
struct MinuteOfWeek {
  int weekday = 0;  ///< Monday 1 to Sunday 7.
  int hour = 0;
  int minute = 0;

  bool operator==(const MinuteOfWeek&) const = default;
};

inline MinuteOfWeek MinuteOfWeekAt(LocalTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::hh_mm_ss clock(time - day);
  return {static_cast<int>(std::chrono::weekday(day).iso_encoding()),
          static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count())};
}

}  // namespace tarvo
