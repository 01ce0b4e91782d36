#pragma once

#include <array>

#include "core/settings_store.h"
#include "platform/clock.h"
#include "randomizer/map_start_gate.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The randomizer's settings: its mode, the limits of the map starts, and how often those have
/// randomized.
///
/// The boxes of the two limits are crossed with the names of their values, and stored settings
/// depend on it: `MaxRndDay` holds the limit per hour, `MaxRndHour` that per day. `LastRandomize`
/// may be a date's number as well; 0 is no moment at all.
class RandomizerSettings {
 public:
  RandomizerSettings(OptionGroup& mode, std::array<TextBox, 2>& limits, SettingsStore& store,
                     LocalClock& clock)
      : mode_(mode), limits_(limits), store_(store), clock_(clock) {}

  /// Reads every value, once at start-up, and returns the counters. Writes nothing.
  MapStartCounters Load();

  /// Writes what the operator can edit.
  void Save(SettingsStore& store) const;

 private:
  OptionGroup& mode_;
  std::array<TextBox, 2>& limits_;
  SettingsStore& store_;
  LocalClock& clock_;
};

}  // namespace tarvo
