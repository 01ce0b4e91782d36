#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "tests/simulation/launcher.h"

namespace tarvo {

/// A busy quarter of an hour of a launcher and its operator, drawn from a seed: crashes, freezes,
/// upgrades by hand and on crashes, randomizer runs by hand, at map starts and by the calendar, new
/// ranges and entries, settings changed and saved, the launcher closed, unloaded and ended with the
/// session, and started again. All three servers are marked for auto start and watched.
///
/// The same seed always makes the same calls of the machine's ports, as long as nobody else touches
/// the machine.
class BusyLife final {
 public:
  static constexpr std::size_t kActs = 40;

  /// Arranges the machine; the life begins with `Play`.
  BusyLife(SimMachine& machine, unsigned seed);

  /// Lives it to its end.
  void Play();

  /// How often the launcher has reported each event, by its name.
  const std::map<std::string, std::size_t>& Happened() const { return happened_; }

  /// Called whenever an event of the launcher is over.
  std::function<void()> onEventOver;

 private:
  using Time = std::chrono::milliseconds;

  void StartLauncher();
  void Act();
  void Strike();
  void BuildNewExecutables();
  void UpgradeByHand();
  void UpgradeOnCrash();
  void RandomizeNow();
  void ChangeRanges();
  void RandomizeByCalendar();
  void ChangeSettings();
  void StopAndStart();
  void CloseAndReturn();
  std::size_t Draw(std::size_t below) { return random_() % below; }
  std::string Number(std::size_t below) { return std::to_string(Draw(below)); }

  SimMachine& machine_;
  std::mt19937 random_;
  std::unique_ptr<Launcher> launcher_;
  std::map<std::string, std::size_t> happened_;
  int built_ = 0;
};

/// The content of a built executable, and of those that the machine's root begins with (build 0).
std::string BuiltExecutable(ComponentKind kind, int build);
/// The build of a whole executable's content; -1 when it is none.
int BuildOf(ComponentKind kind, const std::string& content);
/// The last-modified date of a build's executables, in seconds after 1970; a day later each.
std::int64_t DateOfBuild(int build);

}  // namespace tarvo
