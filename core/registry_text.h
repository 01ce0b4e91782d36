#pragma once

#include <string>

#include "platform/registry.h"

namespace tarvo {

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
