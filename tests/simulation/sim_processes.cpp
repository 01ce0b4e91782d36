#include "tests/simulation/sim_processes.h"

#include <algorithm>
#include <stdexcept>

#include "core/server_root.h"

namespace tarvo {
namespace {

std::string Call(const char* name, std::uint64_t argument) {
  return std::string(name) + "(" + std::to_string(argument) + ")";
}

}  // namespace

FileFault FileInUse() {
  return {32, "The process cannot access the file because it is being used by another process"};
}
FileFault NoRights() { return {5, "Access is denied"}; }
FileFault NeedsElevation() { return {740, "The requested operation requires elevation"}; }
FileFault NoMemory() {
  return {1455, "The paging file is too small for this operation to complete"};
}

SimProcesses::SimProcesses(CallRecorder& recorder, SimClock& clock, const SimFiles& files,
                           const SimWorkingFolder& workingFolder, CodePage& codePage)
    : recorder_(recorder),
      clock_(clock),
      files_(files),
      workingFolder_(workingFolder),
      codePage_(codePage) {
  StartForeign("explorer.exe");
}

std::vector<ProcessEntry> SimProcesses::Snapshot() {
  recorder_.Note("processes.snapshot()");
  Settle();
  std::vector<ProcessEntry> entries;
  for (const SimProcess& process : processes_) entries.push_back({process.id, process.executable});
  return entries;
}

void SimProcesses::End(ProcessId id) {
  recorder_.Note(Call("processes.end", id));
  Settle();
  SimProcess* process = Find(id);
  if (!process || process->program.refusesToDie || process->endsAt) return;
  if (process->program.dyingTime == 0) return Bury(id);
  process->endsAt = clock_.Age() + process->program.dyingTime;
  CloseWindows(id);
}

void SimProcesses::ChangePriority(ProcessId id, std::uint32_t priorityClass) {
  recorder_.Note("processes.priority(" + std::to_string(id) + ", " + std::to_string(priorityClass) +
                 ")");
  Settle();
  SimProcess* process = Find(id);
  if (process && priorityClass != 0) process->priorityClass = priorityClass;
}

std::optional<std::int64_t> SimProcesses::MemoryOf(ProcessId id) {
  recorder_.Note("processes.memory(" + std::to_string(id) + ")");
  Settle();
  const SimProcess* process = Find(id);
  return process ? std::optional(process->memory) : std::nullopt;
}

void SimProcesses::TurnErrorDialogsOff() {
  recorder_.Note("processes.turnErrorDialogsOff()");
  errorDialogs_ = false;
}

LaunchResult SimProcesses::LaunchHidden(const std::string& executablePath) {
  recorder_.Note("processes.launch(" + executablePath + ")");
  Settle();
  if (executablesLost_ || !files_.Has(executablePath)) {
    return {0, true, {2, "The system cannot find the file specified"}};
  }
  const std::size_t folderSize = SeparatorsIn(executablePath, codePage_).back() + 1;
  const std::string executable = executablePath.substr(folderSize);
  if (const auto& fault = Program(executable).launchFault) return {0, false, *fault};
  ++launches_;
  if (!Named(executable).empty()) ++secondCopies_;
  SimProcess& process = Add(executable, executablePath.substr(0, folderSize));
  process.errorDialogs = errorDialogs_;
  const ProcessId id = process.id;
  const std::string& conf = process.program.conf;
  const bool findsConf = conf.empty() || files_.Has(workingFolder_.current + conf);
  if (process.program.diesAtOnce || !findsConf) Bury(id);
  return {id, false, {}};
}

WindowHandle SimProcesses::First() {
  recorder_.Note("windows.first()");
  Settle();
  return windows_.empty() ? 0 : windows_.front().handle;
}

WindowHandle SimProcesses::Next(WindowHandle window) {
  recorder_.Note(Call("windows.next", static_cast<std::uint64_t>(window)));
  Settle();
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const SimWindow& w) { return w.handle == window; });
  if (found == windows_.end()) return 0;
  const auto vanishing = std::find(vanishing_.begin(), vanishing_.end(), window);
  if (vanishing != vanishing_.end()) {
    vanishing_.erase(vanishing);
    windows_.erase(found);
    return 0;
  }
  if (found + 1 != windows_.end()) return (found + 1)->handle;
  return circle_ ? windows_.front().handle : 0;
}

bool SimProcesses::StillThere(WindowHandle window) {
  recorder_.Note(Call("windows.stillThere", static_cast<std::uint64_t>(window)));
  Settle();
  return std::any_of(windows_.begin(), windows_.end(),
                     [&](const SimWindow& w) { return w.handle == window; });
}

WindowHandle SimProcesses::Parent(WindowHandle window) {
  recorder_.Note(Call("windows.parent", static_cast<std::uint64_t>(window)));
  Settle();
  for (const SimWindow& w : windows_) {
    if (w.handle == window) return w.parent;
  }
  return 0;
}

ProcessId SimProcesses::Owner(WindowHandle window) {
  recorder_.Note(Call("windows.owner", static_cast<std::uint64_t>(window)));
  Settle();
  for (const SimWindow& w : windows_) {
    if (w.handle == window) return w.owner;
  }
  return 0;
}

int SimProcesses::Show(WindowHandle window, int command) {
  recorder_.Note("windows.show(" + std::to_string(window) + ", " + std::to_string(command) + ")");
  Settle();
  for (SimWindow& w : windows_) {
    if (w.handle != window) continue;
    const int before = w.visible ? 24 : 0;
    w.askedFor = command != kHideWindow;
    Obey(w);
    return before;
  }
  return 0;
}

SimProgram& SimProcesses::Program(const std::string& executable) {
  return programs_[codePage_.Lowered(executable)];
}

ProcessId SimProcesses::StartForeign(const std::string& executable) {
  const bool ofRoot = files_.Has("C:\\srv\\" + executable);
  return StartForeign(executable, ofRoot ? "C:\\srv\\" : "C:\\Windows\\");
}

ProcessId SimProcesses::StartForeign(const std::string& executable, const std::string& folder) {
  return Add(executable, folder).id;
}

void SimProcesses::Crash(ProcessId id) { Bury(id); }

void SimProcesses::Fault(ProcessId id) {
  if (const SimProcess* process = Find(id); process && !process->errorDialogs) Bury(id);
}

void SimProcesses::CloseWindows(ProcessId id) {
  std::erase_if(windows_, [&](const SimWindow& w) { return w.owner == id; });
}

WindowHandle SimProcesses::OpenWindow(ProcessId owner, WindowHandle parent) {
  lastWindow_ += 2;
  windows_.insert(windows_.begin(), {lastWindow_, owner, parent, false, std::nullopt});
  return lastWindow_;
}

void SimProcesses::Raise(WindowHandle window) {
  std::stable_partition(windows_.begin(), windows_.end(),
                        [&](const SimWindow& w) { return w.handle == window; });
}

std::vector<ProcessId> SimProcesses::Named(const std::string& executable) {
  Settle();
  std::vector<ProcessId> ids;
  for (const SimProcess& process : processes_) {
    if (codePage_.Lowered(process.executable) == codePage_.Lowered(executable))
      ids.push_back(process.id);
  }
  return ids;
}

SimProcess& SimProcesses::TheOne(const std::string& executable) {
  const std::vector<ProcessId> ids = Named(executable);
  if (ids.size() != 1) {
    throw std::logic_error(std::to_string(ids.size()) + " processes are named " + executable);
  }
  return *Find(ids.front());
}

SimWindow* SimProcesses::WindowOf(ProcessId id) {
  for (SimWindow& window : windows_) {
    if (window.owner == id) return &window;
  }
  return nullptr;
}

PortAnswer SimProcesses::AnswerAt(std::uint16_t port) {
  Settle();
  for (SimProcess& process : processes_) {
    const bool open = clock_.Age() >= process.startedAt + process.program.portOpensAfter;
    if (process.program.port != port || !open || process.endsAt) continue;
    if (process.answer != PortAnswer::NobodyAccepts) return process.answer;
    if (process.queueRoom == 0) return PortAnswer::TimesOut;
    --process.queueRoom;
    return PortAnswer::Listens;
  }
  return PortAnswer::Refuses;
}

SimProcess* SimProcesses::Find(ProcessId id) {
  for (SimProcess& process : processes_) {
    if (process.id == id) return &process;
  }
  return nullptr;
}

SimProcess& SimProcesses::Add(const std::string& executable, const std::string& folder) {
  lastId_ += 4;
  SimProcess process;
  process.id = lastId_;
  process.executable = executable;
  process.path = folder + executable;
  process.program = Program(executable);
  process.startedAt = clock_.Age();
  processes_.push_back(process);
  Settle();
  return processes_.back();
}

void SimProcesses::Settle() {
  std::erase_if(processes_, [this](const SimProcess& process) {
    return process.endsAt && *process.endsAt <= clock_.Age();
  });
  for (SimProcess& process : processes_) {
    const SimProgram& program = process.program;
    const bool due = clock_.Age() >= process.startedAt + program.windowOpensAfter;
    if (!program.opensWindow || process.openedWindow || process.endsAt || !due) continue;
    process.openedWindow = true;
    OpenWindow(process.id);
  }
  for (SimWindow& window : windows_) Obey(window);
}

void SimProcesses::Obey(SimWindow& window) {
  const SimProcess* owner = Find(window.owner);
  if (!window.askedFor || (owner && owner->hangs)) return;
  window.visible = *window.askedFor;
  window.askedFor.reset();
}

void SimProcesses::Bury(ProcessId id) {
  CloseWindows(id);
  std::erase_if(processes_, [&](const SimProcess& process) { return process.id == id; });
}

}  // namespace tarvo
