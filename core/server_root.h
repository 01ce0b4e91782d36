#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/code_page.h"

namespace tarvo {

/// Where all settings of all server roots are, under HKEY_LOCAL_MACHINE.
inline constexpr char kSettingsKeyPrefix[] = "Software\\TarvoLab\\Servers\\";

/// The folder that the launcher is in, and the names that are derived from it.
class ServerRoot {
 public:
  /// `executablePath` is the full path of the launcher's executable. It is read by characters of
  /// the code page, not by bytes.
  ServerRoot(const std::string& executablePath, CodePage& codePage);

  /// The folder without a trailing "\"; that of a drive's root is "C:".
  const std::string& AppFolder() const { return appFolder_; }
  /// `AppFolder` with one "\" after it.
  std::string WithSeparator() const { return appFolder_ + "\\"; }
  /// The launcher's file name without its folder and its ".exe".
  const std::string& ExecutableName() const { return executableName_; }

  /// The MD5 digest of the root with ":" and "\" replaced by "_". Two folders that differ only in
  /// these signs share it.
  const std::string& RootHash() const { return rootHash_; }
  /// The registry key of this root's settings.
  std::string SettingsKey() const { return kSettingsKeyPrefix + RootHash(); }

 private:
  std::string appFolder_;
  std::string executableName_;
  std::string rootHash_;
};

/// The name by which the machine knows the one launcher of a folder, the same in any letter case of
/// its path. `folder` ends without a "\".
std::string InstanceNameOf(const std::string& folder, CodePage& codePage);

/// The positions of each "\" in a path that is a character of its own, first to last. In the code
/// pages of East Asia the second byte of a character may look like one.
std::vector<std::size_t> SeparatorsIn(const std::string& path, CodePage& codePage);

/// The characters of a path, which the system limits; its bytes may be twice as many.
std::size_t LettersIn(const std::string& path, CodePage& codePage);

}  // namespace tarvo
