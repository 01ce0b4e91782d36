#pragma once

#include <string>

#include "tests/simulation/launcher_story.h"

namespace tarvo {

/// The backup of a server that the upgrade of ten o'clock, the story's time, has made.
inline std::string SavedAtTen(const char* server) {
  return std::string("C:\\srv\\LBackup\\202611211000_") + server;
}

/// A root with three old executables, and three newly built ones in C:\new, the login server's of
/// the first of January 2026, the others a day later each.
class UpgradeStory : public LauncherStory {
 protected:
  UpgradeStory();

  /// Starts the launcher with the three new executables in their boxes; the log is empty then.
  void StartReady();
  /// The same, and all three servers run.
  void StartRunning();
  /// The new executables are chosen before the launcher starts, the trigger is this option's.
  void SetTrigger(int mode);

  UpgradePage& Page() { return launcher->TheForm().upgrade; }
  void Do(const std::function<void()>& event) { launcher->TheProgram().Dispatch().Run(event); }
  void TypePath(ComponentKind kind, const std::string& path);
  void ClickOption(std::size_t index, bool checked);
  void PressUpgrade();

  /// The new file of a component is built once more, a day later each time.
  void BuildAgain(ComponentKind kind);

  /// New log lines, "level text" each.
  std::string NewLines();
  /// What lies in the root and in LBackup: "path = content" of every executable and backup, a line
  /// each.
  std::string Lying();
  std::string Dates();

  static const char* Old(ComponentKind kind);
  static std::string New(ComponentKind kind);
  static std::string Target(ComponentKind kind);
};

inline constexpr char kNewLogin[] = "C:\\new\\login-server.exe";
inline constexpr char kNewChar[] = "C:\\new\\char-server.exe";
inline constexpr char kNewMap[] = "C:\\new\\map-server.exe";

/// The lines of an upgrade with backup at 10:00, of servers that do not run.
std::string QuietUpgradeLines(const std::string& stamp = "202611211000");

}  // namespace tarvo
