#pragma once

#include <cstdint>
#include <string>

#include "platform/registry.h"
#include "toolkit/controls.h"

namespace tarvo {

/// String values of one registry key of the machine, read into and written from controls. Nothing
/// is cached: each call reads or writes the registry at once.
///
/// A missing value, or one that is no string, counts as its default. Flags, numbers and choices are
/// plain decimal text. A refused write or removal goes unnoticed. The registry must outlive the
/// store.
class SettingsStore {
 public:
  SettingsStore(Registry& registry, std::string keyPath)
      : registry_(registry), keyPath_(std::move(keyPath)) {}

  std::string Text(const std::string& name, const std::string& whenMissing = {});
  /// A 32-bit number. Raises type mismatch (13) or overflow (6), with the value's name as source.
  std::int32_t Integer(const std::string& name, const std::string& whenMissing);
  /// Checks the box for every text but "0", which is the default.
  void ReadFlag(const std::string& name, CheckBox& box);

  void Write(const std::string& name, const std::string& text);
  void WriteFlag(const std::string& name, const CheckBox& box);
  /// "0" or "1" when that option is selected, else "2".
  void WriteChoice(const std::string& name, const OptionGroup& options);
  /// A value that is missing is no error.
  void Erase(const std::string& name);

 private:
  Registry& registry_;
  const std::string keyPath_;
};

/// The text of a string value, cut at its first NUL. The default when key or value are missing or
/// the value is of any other type. Never fails.
std::string ReadRegistryString(Registry& registry, Hive hive, const std::string& keyPath,
                               const std::string& valueName, const std::string& defaultText = {});

/// Stores a string value, creating the key path when it is missing. False when it was refused.
bool WriteRegistryString(Registry& registry, Hive hive, const std::string& keyPath,
                         const std::string& valueName, const std::string& text);

/// Removes a value; nothing happens when it is missing or may not be removed.
void DeleteRegistryValue(Registry& registry, Hive hive, const std::string& keyPath,
                         const std::string& valueName);

}  // namespace tarvo
