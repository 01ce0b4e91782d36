#include "core/handed_settings.h"

#include <algorithm>

namespace tarvo {

bool HandedSettings::IsSetting(Hive hive, const std::string& keyPath) const {
  return hive == Hive::LocalMachine && keyPath == settingsKey_;
}

std::optional<RegistryData> HandedSettings::Query(Hive hive, const std::string& keyPath,
                                                  const std::string& valueName) {
  if (IsSetting(hive, keyPath)) {
    for (const SettingText& setting : handed_) {
      if (setting.name == valueName) return RegistryData{kRegistryText, setting.text};
    }
  }
  return below_.Query(hive, keyPath, valueName);
}

bool HandedSettings::WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                               const std::string& text) {
  Drop(hive, keyPath, valueName);
  return below_.WriteText(hive, keyPath, valueName, text);
}

void HandedSettings::Erase(Hive hive, const std::string& keyPath, const std::string& valueName) {
  Drop(hive, keyPath, valueName);
  below_.Erase(hive, keyPath, valueName);
}

void HandedSettings::Drop(Hive hive, const std::string& keyPath, const std::string& valueName) {
  if (!IsSetting(hive, keyPath)) return;
  std::erase_if(handed_, [&](const SettingText& setting) { return setting.name == valueName; });
}

}  // namespace tarvo
