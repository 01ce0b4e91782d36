#include "core/registry_text.h"

namespace tarvo {

std::string ReadRegistryString(Registry& registry, Hive hive, const std::string& keyPath,
                               const std::string& valueName, const std::string& defaultText) {
  const auto data = registry.Query(hive, keyPath, valueName);
  if (!data || data->type != kRegistryText) return defaultText;
  return data->bytes.substr(0, data->bytes.find('\0'));
}

bool WriteRegistryString(Registry& registry, Hive hive, const std::string& keyPath,
                         const std::string& valueName, const std::string& text) {
  return registry.WriteText(hive, keyPath, valueName, text);
}

void DeleteRegistryValue(Registry& registry, Hive hive, const std::string& keyPath,
                         const std::string& valueName) {
  registry.Erase(hive, keyPath, valueName);
}

}  // namespace tarvo
