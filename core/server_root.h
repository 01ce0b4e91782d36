#pragma once

#include <string>

namespace tarvo {

/// Where all settings of all server roots lie, under HKEY_LOCAL_MACHINE.
inline constexpr char kSettingsKeyPrefix[] = "Software\\TarvoLab\\Servers\\";

/// The folder that the launcher stands in, and the names that are made from it.
class ServerRoot {
 public:
  /// `executablePath` is the full path of the launcher's executable.
  explicit ServerRoot(const std::string& executablePath);

  /// The folder without a trailing "\"; that of a drive's root is "C:".
  const std::string& AppFolder() const { return appFolder_; }
  /// `AppFolder` with one "\" behind it.
  std::string WithSeparator() const { return appFolder_ + "\\"; }
  /// The launcher's file name without its folder and its ".exe".
  const std::string& ExecutableName() const { return executableName_; }

  /// The MD5 digest of the root with ":" and "\" replaced by "_". Two folders that differ in
  /// nothing but these signs share it.
  std::string RootHash() const;
  /// The registry key of this root's settings.
  std::string SettingsKey() const { return kSettingsKeyPrefix + RootHash(); }

 private:
  std::string appFolder_;
  std::string executableName_;
};

}  // namespace tarvo
