#pragma once

#include "core/launcher_settings.h"
#include "desktop/start_up_entry.h"
#include "events/event_settings.h"
#include "randomizer/randomizer_settings.h"
#include "upgrade/upgrade_settings.h"

namespace tarvo {

/// Reads the settings of all rooms, once at start-up, after the executables are listed. A value
/// that is a fault ends the reading; writes nothing. Returns the counters of the map starts.
MapStartCounters LoadAll(LauncherSettings& launcher, StartUpEntry& startUp,
                         RandomizerSettings& randomizer, UpgradeSettings& upgrade,
                         EventSettings& events);

/// Writes into this store what the operator can edit.
void SaveAll(SettingsStore& store, const LauncherSettings& launcher, const StartUpEntry& startUp,
             const RandomizerSettings& randomizer, const UpgradeSettings& upgrade,
             const EventSettings& events);

}  // namespace tarvo
