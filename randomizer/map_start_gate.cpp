#include "randomizer/map_start_gate.h"

#include <limits>

#include "randomizer/calendar_line.h"
#include "support/date_time.h"
#include "support/number_text.h"

namespace tarvo {
namespace {

bool NotAbove(const TextBox& limit, std::int32_t count) {
  return NumericValue(limit.Text()) <= count;
}

void AddOne(std::int32_t& count) {
  if (count < std::numeric_limits<std::int32_t>::max()) ++count;
}

}  // namespace

LocalTime ZeroDateTime() {
  using namespace std::chrono_literals;
  return std::chrono::local_days(1899y / 12 / 30);
}

void MapStartGate::RandomizeOnMapStart() {
  if (!controls_.mode[0].Selected()) return;
  const LocalTime now = clock_.Now();
  if (counters_.LastRandomize == ZeroDateTime()) counters_.LastRandomize = now;
  if (LimitReached(now)) return;
  engine_.RunRandomizer();
  AddOne(counters_.HourRndCnt);
  AddOne(counters_.DayRndCnt);
  counters_.LastRandomize = clock_.Now();
  Save();
}

bool MapStartGate::LimitReached(LocalTime now) {
  const MinuteOfWeek last = MinuteOfWeekAt(counters_.LastRandomize);
  const MinuteOfWeek current = MinuteOfWeekAt(now);
  if (last.hour != current.hour) {
    counters_.HourRndCnt = 0;
  } else if (NotAbove(controls_.limits[0], counters_.HourRndCnt)) {
    return true;
  }
  if (last.weekday != current.weekday) {
    counters_.DayRndCnt = 0;
  } else if (NotAbove(controls_.limits[1], counters_.DayRndCnt)) {
    return true;
  }
  return false;
}

void MapStartGate::Save() {
  store_.Write("LastRandomize", GeneralDate(counters_.LastRandomize));
  store_.Write("DayRndCnt", std::to_string(counters_.DayRndCnt));
  store_.Write("HourRndCnt", std::to_string(counters_.HourRndCnt));
}

}  // namespace tarvo
