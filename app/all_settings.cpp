#include "app/all_settings.h"

namespace tarvo {

MapStartCounters LoadAll(LauncherSettings& launcher, StartUpEntry& startUp,
                         RandomizerSettings& randomizer, UpgradeSettings& upgrade) {
  launcher.LoadServers();
  startUp.Load();
  launcher.LoadAutokill();
  const MapStartCounters counters = randomizer.Load();
  upgrade.LoadUpgradeSettings();
  launcher.LoadWindow();
  return counters;
}

void SaveAll(SettingsStore& store, const LauncherSettings& launcher, const StartUpEntry& startUp,
             const RandomizerSettings& randomizer, const UpgradeSettings& upgrade) {
  launcher.SaveServers(store);
  startUp.Save(store);
  launcher.SaveAutokill(store);
  upgrade.Save(store);
  randomizer.Save(store);
}

}  // namespace tarvo
