#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/foreign_windows.h"
#include "platform/processes.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_clock.h"
#include "tests/simulation/sim_files.h"
#include "tests/simulation/sim_working_folder.h"

namespace tarvo {

enum class PortAnswer {
  Listens,
  Refuses,
  TimesOut,       ///< Packets are dropped.
  NobodyAccepts,  ///< The system lets callers into the queue until it is full, then drops packets.
};

/// How a server program behaves each time it is started.
struct SimProgram {
  std::uint16_t port = 0;
  std::uint32_t portOpensAfter = 0;  ///< Milliseconds from the start.
  bool diesAtOnce = false;
  bool opensWindow = true;
  std::uint32_t windowOpensAfter = 0;  ///< Milliseconds from the start.
  bool refusesToDie = false;
  /// The file that it looks for in its current folder and without which it dies at once; "": none.
  std::string conf;
  std::uint32_t dyingTime = 0;  ///< Milliseconds that an ended process is still listed.
  /// Why the system refuses to start it, for as long as there is a reason.
  std::optional<FileFault> launchFault;
};

/// Reasons for which the system refuses to start a program whose file is there.
FileFault FileInUse();
FileFault NoRights();
FileFault NeedsElevation();
FileFault NoMemory();

struct SimProcess {
  ProcessId id = 0;
  std::string executable;
  std::string path;  ///< Of its file; "" when the system does not tell.
  /// The operator's; 0 is that of the services; nothing when the system does not tell.
  std::optional<std::uint32_t> session = 1;
  SimProgram program;
  PortAnswer answer = PortAnswer::Listens;
  std::uint32_t queueRoom = 0;  ///< Callers that are still let in when nobody accepts.
  bool hangs = false;           ///< Its windows take no message; what they are asked for waits.
  std::uint32_t priorityClass = 0x20;
  std::int64_t memory = 50 * 1024 * 1024;
  std::uint64_t startedAt = 0;  ///< On `SimClock::Age`.
  bool openedWindow = false;
  bool errorDialogs = true;             ///< A fault of its own opens the system's dialog.
  std::optional<std::uint64_t> endsAt;  ///< Dying: its window and its port are gone already.
};

struct SimWindow {
  WindowHandle handle = 0;
  ProcessId owner = 0;
  WindowHandle parent = 0;
  bool visible = false;
  std::optional<bool> askedFor;  ///< To be visible or not, once its program answers again.
};

/// The processes of the machine and their top-level windows, the newest window in front.
class SimProcesses final : public Processes, public ForeignWindows {
 public:
  SimProcesses(CallRecorder& recorder, SimClock& clock, const SimFiles& files,
               const SimWorkingFolder& workingFolder, CodePage& codePage);

  std::vector<ProcessEntry> Snapshot() override;
  void End(ProcessId id) override;
  void ChangePriority(ProcessId id, std::uint32_t priorityClass) override;
  std::optional<std::int64_t> MemoryOf(ProcessId id) override;
  void TurnErrorDialogsOff() override;
  LaunchResult LaunchHidden(const std::string& executablePath) override;

  WindowHandle First() override;
  WindowHandle Next(WindowHandle window) override;
  bool StillThere(WindowHandle window) override;
  WindowHandle Parent(WindowHandle window) override;
  ProcessId Owner(WindowHandle window) override;
  int Show(WindowHandle window, int command) override;

  /// The behaviour of a program from its next start on.
  SimProgram& Program(const std::string& executable);
  /// Somebody else starts a program; it needs no file.
  ProcessId StartForeign(const std::string& executable);
  /// The same from a folder of his own ("D:\\other\\").
  ProcessId StartForeign(const std::string& executable, const std::string& folder);
  /// The process ends by itself.
  void Crash(ProcessId id);
  /// The process commits a fault that ends it, an access violation for example. Under an error
  /// dialog it lives on as it was, its window and its port too.
  void Fault(ProcessId id);
  /// The process stays, its window goes.
  void CloseWindows(ProcessId id);
  WindowHandle OpenWindow(ProcessId owner, WindowHandle parent = 0);
  /// Moves a window to the front of all others.
  void Raise(WindowHandle window);
  /// The window vanishes at the moment at which a walk stands on it and asks for the next one.
  void VanishUnderWalk(WindowHandle window) { vanishing_.push_back(window); }
  /// The next process gets an id just above this one.
  void NumberFrom(ProcessId last) { lastId_ = last; }
  /// No launch finds its file.
  void LoseExecutables() { executablesLost_ = true; }

  /// Listed processes of that name, the dying ones among them.
  std::vector<ProcessId> Named(const std::string& executable);
  /// The one process of that name; it is a fault of the test when there are none or several.
  SimProcess& TheOne(const std::string& executable);
  /// Behind the last window lies the first one again.
  void TurnInACircle(bool turns = true) { circle_ = turns; }

  const std::vector<SimProcess>& Running() {
    Settle();
    return processes_;
  }
  const std::vector<SimWindow>& Windows() const { return windows_; }
  SimWindow* WindowOf(ProcessId id);
  std::size_t Launches() const { return launches_; }
  /// Launches of a program of which one was listed already.
  std::size_t SecondCopies() const { return secondCopies_; }

  /// What a connect to this port of the machine meets now: never `NobodyAccepts`, but what the
  /// queue of such a process makes of it; who is let in takes a place.
  PortAnswer AnswerAt(std::uint16_t port);

 private:
  SimProcess* Find(ProcessId id);
  SimProcess& Add(const std::string& executable, const std::string& folder);
  void Settle();
  void Obey(SimWindow& window);
  void Bury(ProcessId id);

  CallRecorder& recorder_;
  SimClock& clock_;
  const SimFiles& files_;
  const SimWorkingFolder& workingFolder_;
  CodePage& codePage_;
  std::map<std::string, SimProgram> programs_;
  std::vector<SimProcess> processes_;
  std::vector<SimWindow> windows_;
  std::vector<WindowHandle> vanishing_;
  bool circle_ = false;
  ProcessId lastId_ = 1000;
  WindowHandle lastWindow_ = 0x10000;
  std::size_t launches_ = 0;
  std::size_t secondCopies_ = 0;
  bool executablesLost_ = false;
  bool errorDialogs_ = true;
};

}  // namespace tarvo
