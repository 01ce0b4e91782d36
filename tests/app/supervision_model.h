#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/component.h"
#include "core/status_log.h"
#include "platform/processes.h"
#include "support/component_kind.h"
#include "support/date_time.h"
#include "support/runtime_error.h"
#include "tests/simulation/sim_processes.h"

namespace tarvo {

struct ModelProcess {
  ProcessId id = 0;
  std::string executable;
  bool window = true;
  PortAnswer answer = PortAnswer::Listens;
};

/// How a program behaves each time it is started.
struct ModelProgram {
  int port = 0;
  bool diesAtOnce = false;
  bool opensWindow = true;
};

struct ModelFile {
  std::string text;
  std::int64_t date = 0;  ///< Of its last change, in seconds after 1970.
};

/// The machine under the modelled launcher: as much of one as the supervision can see.
struct ModelMachine {
  std::uint64_t age = 0;        ///< Milliseconds; the tick count is the lower 32 bits.
  std::uint64_t beginning = 0;  ///< The age on 2026-11-21 at 10:00:00.
  ProcessId lastId = 0;
  std::vector<ModelProcess> processes;
  std::map<std::string, ModelProgram> programs;
  std::map<std::string, ModelFile> files;

  LocalTime Now() const;
  std::int64_t Seconds() const;

  ProcessId Find(const std::string& executable) const;
  bool HasWindow(ProcessId id) const;
  /// A connect to the port; one that nobody answers takes its time.
  bool Listens(int port);
  ProcessId Launch(const std::string& executable);
  void Add(const std::string& executable);
  void End(ProcessId id);
  void EndAll(const std::string& executable);
  /// Raises permission denied (70) over the file of a running program, after the time for which a
  /// held file is waited for.
  void Copy(const std::string& source, const std::string& target);
};

struct ModelTimer {
  std::uint64_t interval = 0;
  bool enabled = false;
  std::uint64_t due = 0;
  std::uint64_t sequence = 0;  ///< Order of arming, which decides among equal due times.
};

enum class ModelWatch : std::size_t { Crash, Preparation, Probe, Reprobe };
inline constexpr std::array kModelWatches = {ModelWatch::Crash, ModelWatch::Preparation,
                                             ModelWatch::Probe, ModelWatch::Reprobe};

struct ModelComponent {
  std::string executable;
  int port = 0;
  bool choosable = true;  ///< The chooser of its executable takes a choice.
  std::string button = "Start";
  bool autokill = false;
  std::string autokillTime;  ///< In seconds.
  std::string newFile;

  ProcessId id = 0;
  bool running = false;
  AlarmState alarm = AlarmState::NotWatched;
  std::int64_t freezeStart = 0;
  std::array<ModelTimer, kModelWatches.size()> timers;

  ModelTimer& TimerOf(ModelWatch watch) { return timers[static_cast<std::size_t>(watch)]; }
};

/// What the supervision of three servers has to do, said once more and without the launcher: start
/// and stop, crash watch, freeze watch, upgrade. It runs beside a launcher, is told of the same
/// events, and must come to the same state, log and boxes each time.
///
/// Simple where the launcher is careful: nothing here is refused by the system, no process takes
/// time to die. A fault of the run time ends it.
class SupervisionModel final {
 public:
  /// The buttons 0 to 2 of the components, 3 "start all", 4 "stop all".
  void ClickButton(std::size_t button);
  void ClickOption(std::size_t option) { options[option] = !options[option]; }
  void ChooseTrigger(int mode);
  bool AnyKnown() const;
  /// The question that comes before an upgrade of running servers.
  void AskBeforeUpgrade();
  void UpgradeByHand();
  void Tick(ComponentKind kind, ModelWatch watch);
  /// Nothing, or why this tick may not come now.
  std::string WhyNotDue(ComponentKind kind, ModelWatch watch);

  bool Ended() const { return ended_; }

  ModelMachine machine;
  PerComponent<ModelComponent> components;
  bool mapRestartsAll = false;
  int trigger = 0;                                  ///< 0 by hand, 1 map crash, 2 any crash.
  std::array<bool, 3> options{true, false, false};  ///< Backup, only full ones, then by hand.
  std::string lastFailure;
  std::string lastUpgrade = "n/a";
  std::map<std::string, std::string> settings;
  std::string log;    ///< Lines "hh:mm:ss level text", for the reader to take away.
  std::string boxes;  ///< Their texts, one a line, likewise.

 private:
  using Marks = PerComponent<bool>;

  void Event(const std::function<void()>& event);
  void Log(LogLevel level, const std::string& text);
  void Enable(ModelTimer& timer);
  void Arm(ModelTimer& timer);
  static void Disable(ModelTimer& timer) { timer.enabled = false; }
  void DisableFreezeWatch(ModelComponent& component);
  void ShowFailure(ComponentKind kind);

  std::string ReasonToRefuse() const;
  void Start(ComponentKind kind);
  void Stop(ComponentKind kind);

  void CheckCrash(ComponentKind kind);
  void Crashed(ComponentKind kind);
  bool UpgradeTakesOver(ComponentKind kind);
  void RestartOthers();

  void Prepare(ComponentKind kind);
  void Probe(ComponentKind kind);
  void ProbeAgain(ComponentKind kind);
  bool FrozenTooLong(const ModelComponent& component) const;

  /// What an operator who asked for the upgrade is told.
  std::string Upgrade(std::optional<ComponentKind> crashed);
  std::string RefuseUpgrade(const std::string& reason, const std::string& box);
  std::string CheckNewFiles();
  int CountNew(PerComponent<std::string>& dates);
  Marks StopKnown(std::optional<ComponentKind> crashed);
  void BackUp();
  void Replace(const PerComponent<std::string>& dates);

  bool ended_ = false;
  bool backupFolder_ = false;
  std::uint64_t armed_ = 0;
};

}  // namespace tarvo
