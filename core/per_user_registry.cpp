#include "core/per_user_registry.h"

#include "core/server_root.h"

namespace tarvo {
namespace {

bool HasPerUserCopy(Hive hive, const std::string& keyPath) {
  return hive == Hive::LocalMachine && keyPath.starts_with(kSettingsKeyPrefix);
}

}  // namespace

std::optional<RegistryData> PerUserRegistry::Query(Hive hive, const std::string& keyPath,
                                                   const std::string& valueName) {
  if (HasPerUserCopy(hive, keyPath)) {
    auto copy = system_.Query(Hive::CurrentUser, keyPath, valueName);
    if (copy && copy->type == kRegistryText) return copy;
  }
  return system_.Query(hive, keyPath, valueName);
}

bool PerUserRegistry::WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                                const std::string& text) {
  const bool written = system_.WriteText(hive, keyPath, valueName, text);
  if (!HasPerUserCopy(hive, keyPath)) return written;
  if (!written) return system_.WriteText(Hive::CurrentUser, keyPath, valueName, text);
  system_.Erase(Hive::CurrentUser, keyPath, valueName);
  return true;
}

void PerUserRegistry::Erase(Hive hive, const std::string& keyPath, const std::string& valueName) {
  if (HasPerUserCopy(hive, keyPath)) system_.Erase(Hive::CurrentUser, keyPath, valueName);
  system_.Erase(hive, keyPath, valueName);
}

}  // namespace tarvo
