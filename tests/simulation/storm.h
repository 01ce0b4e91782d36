#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/simulation/launcher.h"
#include "tests/simulation/storm_watch.h"

namespace tarvo {

/// What the sky can send.
enum class StormFault {
  ProcessGone,
  WindowGone,
  Suspended,
  PortClosed,
  QueueFull,
  SilentHost,
  DeadNameServer,
  LateListener,
  DiesAtOnce,
  RefusesToDie,
  ExecutableLocked,
  ExecutableMissing,
  DiskFull,
  RootReadOnly,
  LogLocked,
  ConfGone,
  SetCutOff,
  RegistryRefused,
  RegistryGarbage,
  ClockForward,
  ClockBack,
  SessionEnds,
  LauncherKilled,
  LauncherTwice,
  // What the operator does meanwhile.
  StopsAndStarts,
  Upgrades,
  UpgradesOnCrash,
  Randomizes,
  Saves,
};
inline constexpr std::size_t kStormFaults = static_cast<std::size_t>(StormFault::Saves) + 1;

const char* NameOf(StormFault fault);

/// A launcher and its operator in random storms of faults, drawn from a seed, on a machine in
/// memory. A fault that lasts ends after up to a minute. A launcher that has ended, by a fault box
/// that the guide tells of, by the session's end or killed, is started again by the operator within
/// eight seconds, after he has put right what the box told.
///
/// The storm's watch writes down what was not as the guide promises; when the weather has cleared,
/// every server must be under control and healthy within two minutes.
class Storm final {
 public:
  explicit Storm(unsigned seed);

  /// So many faults at random moments of that time, then the clearing.
  void Blow(std::size_t faults, std::chrono::milliseconds time);
  /// The launcher watches, and nothing happens.
  void Calm(std::chrono::milliseconds time);
  /// The machine sleeps: both clocks go on, nothing else does.
  void Sleep(std::chrono::milliseconds time);
  /// Milliseconds until the 32-bit tick count begins again at 0.
  std::chrono::milliseconds UntilWrap() const;

  const StormWatch& Watch() const { return watch_; }
  const std::map<StormFault, std::size_t>& Faults() const { return faults_; }
  std::uint64_t Age() const { return machine_.clock.Age(); }

 private:
  using Time = std::chrono::milliseconds;
  struct Due {
    std::uint64_t at;
    std::function<void()> what;
  };

  void Arrange();
  void PassUntil(std::uint64_t moment);
  void Run(const std::function<void()>& act);
  void In(std::uint64_t milliseconds, std::function<void()> what);
  /// The fault lasts a while, until `ends` is called.
  void Last(std::function<void()> ends);
  void Strike(StormFault fault);
  void StrikeServer(StormFault fault);
  void StrikeProgram(StormFault fault);
  void StrikeFiles(StormFault fault);
  void StrikeSystem(StormFault fault);
  void StrikeLauncher(StormFault fault);
  void Act(StormFault act);
  void Silence(PortAnswer answer, bool hangs = false);
  void StartLauncher();
  void StartSecondLauncher();
  void LoseLauncher();
  void CheckEnd();
  void Repair();
  void Clear();
  void CheckClear();
  void PressStart();
  bool Alive() const { return launcher_ && !launcher_->Ended(); }
  std::size_t Draw(std::size_t below) { return random_() % below; }
  const char* AnyServer();

  SimMachine machine_;
  std::mt19937 random_;
  StormWatch watch_;
  std::unique_ptr<Launcher> launcher_;
  std::deque<Due> due_;
  std::map<StormFault, std::size_t> faults_;
  PerComponent<bool> refused_{};  ///< A process of it refused to die in this storm.
  std::size_t boxesSeen_ = 0;
  int built_ = 0;
};

/// What came of a life of storms.
struct StormReport {
  double days = 0;
  std::size_t storms = 0;
  std::map<StormFault, std::size_t> faults;
  std::size_t deaths = 0;
  std::vector<std::uint32_t> successors;  ///< Milliseconds from death to successor, sorted.
  std::uint64_t longestProbe = 0;
  std::uint64_t longestEvent = 0;
  std::vector<std::string> broken;
};

/// Storms of 20 to 100 faults in one to five minutes, for that many days. Awake, the launcher
/// watches between them and one comes a day or so; else the machine sleeps between them, and one
/// comes every two days. Every wrap of the tick count is met by a storm. Ends with the first broken
/// promise.
StormReport StormsOf(unsigned seed, unsigned days, bool awake);

}  // namespace tarvo
