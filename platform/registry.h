#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarvo {

enum class Hive { LocalMachine, CurrentUser };

/// The registry's type number of a string value (REG_SZ).
inline constexpr std::uint32_t kRegistryText = 1;

/// A value as the registry holds it: a string's bytes may or may not end with a NUL.
struct RegistryData {
  std::uint32_t type = 0;
  std::string bytes;
};

/// The system registry. Key paths have "\" between their parts; a trailing one is ignored.
class Registry {
 public:
  virtual ~Registry() = default;
  /// Nothing when key or value are missing or cannot be read.
  virtual std::optional<RegistryData> Query(Hive hive, const std::string& keyPath,
                                            const std::string& valueName) = 0;
  /// Stores a string value without a terminating NUL, creating the key path when it is missing.
  virtual bool WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                         const std::string& text) = 0;
  /// Removes a value; a missing one is no fault.
  virtual void Erase(Hive hive, const std::string& keyPath, const std::string& valueName) = 0;
};

}  // namespace tarvo
