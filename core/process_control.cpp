#include "core/process_control.h"

#include "support/runtime_error.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kPauseBetweenLookups = 10;

// Windows that come and go without end, or a list that goes in a circle, must not block the
// supervision forever.
constexpr int kMostWalks = 20;
constexpr int kMostWindows = 100000;

// A window that is sent to the bottom while the walk is at it takes the walk past all others.
constexpr int kWalksThatProveNone = 2;

enum class WalkEnd { EndOfList, WindowVanished, CutOff };

WalkEnd WalkWindows(ForeignWindows& windows, ProcessId id, WindowHandle& found) {
  WindowHandle window = windows.First();
  for (int count = 0; window != 0; ++count) {
    if (count == kMostWindows) return WalkEnd::CutOff;
    if (windows.Parent(window) == 0 && windows.Owner(window) == id) {
      found = window;
      return WalkEnd::EndOfList;
    }
    const WindowHandle next = windows.Next(window);
    if (next == 0 && !windows.StillThere(window)) return WalkEnd::WindowVanished;
    window = next;
  }
  return WalkEnd::EndOfList;
}

}  // namespace

std::uint32_t PriorityClassFor(int index) {
  switch (index) {
    case 0:
      return 0x40;  // IDLE_PRIORITY_CLASS
    case 1:
      return 0x4000;  // BELOW_NORMAL_PRIORITY_CLASS
    case 2:
      return 0x20;  // NORMAL_PRIORITY_CLASS
    case 3:
      return 0x8000;  // ABOVE_NORMAL_PRIORITY_CLASS
    case 4:
      return 0x80;  // HIGH_PRIORITY_CLASS
    case 5:
      return 0x100;  // REALTIME_PRIORITY_CLASS
    default:
      return 0;
  }
}

std::optional<WindowHandle> MainWindowOf(ForeignWindows& windows, ProcessId id) {
  if (id == 0) return 0;
  int walksToTheEnd = 0;
  for (int walk = 0; walk < kMostWalks && walksToTheEnd < kWalksThatProveNone; ++walk) {
    WindowHandle found = 0;
    const WalkEnd end = WalkWindows(windows, id, found);
    if (found != 0) return found;
    if (end == WalkEnd::CutOff) return std::nullopt;
    if (end == WalkEnd::EndOfList) ++walksToTheEnd;
  }
  if (walksToTheEnd < kWalksThatProveNone) return std::nullopt;
  return 0;
}

ProcessId ProcessControl::FindProcessByName(const std::string& executableName) {
  if (executableName.empty()) return 0;
  const std::string wanted = codePage_.Lowered(executableName);
  for (const ProcessEntry& entry : processes_.Snapshot()) {
    if (codePage_.Lowered(entry.executable) == wanted) return entry.id;
  }
  return 0;
}

void ProcessControl::KillProcessesByName(const std::string& executableName) {
  if (executableName.empty()) return;
  const std::string wanted = codePage_.Lowered(executableName);
  for (const ProcessEntry& entry : processes_.Snapshot()) {
    if (codePage_.Lowered(entry.executable) == wanted) processes_.End(entry.id);
  }
}

void ProcessControl::SetPriority(ProcessId id, std::uint32_t priorityClass) {
  processes_.ChangePriority(id, priorityClass);
}

int ProcessControl::ShowComponentWindow(WindowHandle window, bool show) {
  if (window == 0) return 0;
  return windows_.Show(window, show ? kShowWindowNormal : kHideWindow);
}

LaunchResult ProcessControl::LaunchComponent(ComponentKind kind) {
  const std::string path = appFolder_ + "\\" + executables_[kind].Text();
  // A tick during a file dialog finds another current folder, and the servers look for conf in it.
  workingFolder_.MoveInto(appFolder_ + "\\");
  LaunchResult launched = processes_.LaunchHidden(path);
  if (launched.id == 0 && launched.fileMissing) throw RuntimeError(Fault::FileNotFound, path);
  return launched;
}

bool ProcessControl::StopProcesses(ComponentKind kind) {
  const std::string name = executables_[kind].Text();
  const std::uint32_t start = clock_.Milliseconds();
  while (FindProcessByName(name) != 0) {
    if (clock_.Milliseconds() - start >= kLongestStop) return false;
    KillProcessesByName(name);
    if (FindProcessByName(name) == 0) break;
    clock_.Pause(kPauseBetweenLookups);
  }
  return true;
}

}  // namespace tarvo
