#include "core/settings_store.h"

#include "support/number_text.h"
#include "support/runtime_error.h"

namespace tarvo {

std::string SettingsStore::Text(const std::string& name, const std::string& whenMissing) {
  return ReadRegistryString(registry_, Hive::LocalMachine, keyPath_, name, whenMissing);
}

std::int32_t SettingsStore::Integer(const std::string& name, const std::string& whenMissing) {
  const std::string text = Text(name, whenMissing);
  return NamingSource(name, [&] { return ToInteger(text); });
}

void SettingsStore::ReadFlag(const std::string& name, CheckBox& box) {
  box.SetChecked(Text(name, "0") != "0");
}

void SettingsStore::Write(const std::string& name, const std::string& text) {
  WriteRegistryString(registry_, Hive::LocalMachine, keyPath_, name, text);
}

void SettingsStore::WriteFlag(const std::string& name, const CheckBox& box) {
  Write(name, box.Checked() ? "1" : "0");
}

void SettingsStore::WriteChoice(const std::string& name, const OptionGroup& options) {
  Write(name, options[0].Selected() ? "0" : options[1].Selected() ? "1" : "2");
}

void SettingsStore::Erase(const std::string& name) {
  DeleteRegistryValue(registry_, Hive::LocalMachine, keyPath_, name);
}

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
