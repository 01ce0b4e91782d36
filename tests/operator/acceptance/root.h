#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "tests/operator/acceptance/settings.h"

namespace tarvo::acceptance {

/// In what surroundings the stories are played.
struct Surroundings {
  /// The launcher is started from Windows' own folder, as "Start with Windows" does, and lies in a
  /// folder whose name has letters outside of ASCII, where the code page has them.
  bool elsewhere = false;
  /// An address that answers nothing.
  std::string silentAddress = "192.0.2.1";
};

/// A server root of its own in the temporary folder: conf files with free ports, the three sample
/// servers and the launcher. It goes with everything that was started from it.
class Root {
 public:
  explicit Root(bool elsewhere);
  ~Root();
  Root(const Root&) = delete;
  Root& operator=(const Root&) = delete;

  const std::string& Path() const { return path_; }
  /// A file in it.
  std::string Path(const std::string& name) const { return path_ + "\\" + name; }
  /// A file beside it, that goes with it all the same.
  std::string Beside(const std::string& name) const { return around_ + "\\" + name; }
  /// "login", "char" and "map" are 0, 1 and 2.
  int Port(int index) const { return ports_[static_cast<std::size_t>(index)]; }
  /// The server's name, which no other root has.
  const std::string& Name() const { return name_; }
  /// Replaces the value of a key of a conf file.
  void SetConf(const std::string& file, const std::string& key, const std::string& value) const;

  const Settings& Kept() const { return settings_; }

 private:
  void WriteConf(const char* file) const;
  void EndAll() const;
  /// A line for each thing of this root that is still there.
  std::string Remains() const;

  std::string around_;
  std::string path_;
  std::string name_;
  std::array<int, 3> ports_;
  Settings settings_;
};

inline constexpr const char* kRoles[] = {"login", "char", "map"};

/// What roots have left behind on this machine, a line each; nothing when all went.
std::string LeftBehind();

}  // namespace tarvo::acceptance
