#include "app/all_settings.h"

namespace tarvo {

MapStartCounters LoadAll(LauncherSettings& launcher, StartUpEntry& startUp,
                         RandomizerSettings& randomizer, UpgradeSettings& upgrade,
                         EventSettings& events) {
  launcher.LoadServers();
  startUp.Load();
  launcher.LoadAutokill();
  const MapStartCounters counters = randomizer.Load();
  upgrade.LoadUpgradeSettings();
  events.Load();
  launcher.LoadWindow();
  return counters;
}

void SaveAll(SettingsStore& store, const LauncherSettings& launcher, const StartUpEntry& startUp,
             const RandomizerSettings& randomizer, const UpgradeSettings& upgrade,
             const EventSettings& events) {
  launcher.SaveServers(store);
  startUp.Save(store);
  launcher.SaveAutokill(store);
  upgrade.Save(store);
  randomizer.Save(store);
  events.Save(store);
}

}  // namespace tarvo
