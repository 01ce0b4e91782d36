#pragma once

#include <array>
#include <cstdint>

#include "core/settings_store.h"
#include "platform/clock.h"
#include "randomizer/engine.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The date-time that means "never".
LocalTime ZeroDateTime();

/// How often starts of the map server have randomized, and when they last did.
struct MapStartCounters {
  LocalTime LastRandomize = ZeroDateTime();
  std::int32_t DayRndCnt = 0;
  std::int32_t HourRndCnt = 0;
};

/// The operator's mode of the randomizer, and his limits of the map starts.
struct MapStartControls {
  const OptionGroup& mode;               ///< 0 at map starts, 1 by hand, 2 by the calendar.
  const std::array<TextBox, 2>& limits;  ///< 0 per hour, 1 per day.
};

/// Randomizes at the starts of the map server, within the operator's limits.
///
/// The limits compare the hour of the day (0 to 23) and the weekday alone, never the date: the runs
/// of an hour yesterday count in the same hour today, those of a weekday in the same weekday of the
/// next week. A limit is the number that its box starts with, read again each time.
class MapStartGate {
 public:
  MapStartGate(const MapStartControls& controls, RandomizerEngine& engine, SettingsStore& store,
               LocalClock& clock)
      : controls_(controls), engine_(engine), store_(store), clock_(clock) {}

  /// What the settings hold, once at start-up.
  void SetCounters(const MapStartCounters& counters) { counters_ = counters; }
  const MapStartCounters& Counters() const { return counters_; }

  /// The map server is about to be started. In the mode "Map Start", and unless a limit is reached,
  /// one run of the engine; it counts whatever comes of it, and the counters are saved. Counters
  /// that were set back for a new hour or day before a limit stopped the run are not saved.
  void RandomizeOnMapStart();

 private:
  bool LimitReached(LocalTime now);
  void Save();

  MapStartControls controls_;
  RandomizerEngine& engine_;
  SettingsStore& store_;
  LocalClock& clock_;
  MapStartCounters counters_;
};

}  // namespace tarvo
