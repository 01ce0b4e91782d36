// How long the servers are out of service in an upgrade with backup: from the first stop to the
// last start, and what that time is made of. The current folder is a demo root; the new executables
// lie in the folder that is named. Prints lines: name, value, unit, and no limit.

#include <windows.h>

#include <cstdio>

#include "benches/figures.h"
#include "benches/windows/upgrade/upgrade_desk.h"

namespace tarvo {
namespace {

double Now() {
  LARGE_INTEGER frequency, count;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&count);
  return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// The moments of one upgrade, in milliseconds; 0 for not yet.
struct Moments {
  double firstStop = 0;
  double firstCopy = 0;
  double fourthCopy = 0;  ///< The first of a new executable.
  double lastCopied = 0;
  double lastStarted = 0;
  int copies = 0;
};

class TimedProcesses final : public Processes {
 public:
  TimedProcesses(Processes& real, Moments& moments) : real_(real), moments_(moments) {}
  std::vector<ProcessEntry> Snapshot() override { return real_.Snapshot(); }
  void End(ProcessId id) override {
    if (moments_.firstStop == 0) moments_.firstStop = Now();
    real_.End(id);
  }
  void ChangePriority(ProcessId id, std::uint32_t priorityClass) override {
    real_.ChangePriority(id, priorityClass);
  }
  std::optional<std::int64_t> MemoryOf(ProcessId id) override { return real_.MemoryOf(id); }
  void TurnErrorDialogsOff() override { real_.TurnErrorDialogsOff(); }
  LaunchResult LaunchHidden(const std::string& executablePath) override {
    const auto launched = real_.LaunchHidden(executablePath);
    moments_.lastStarted = Now();
    return launched;
  }

 private:
  Processes& real_;
  Moments& moments_;
};

class TimedCopies final : public FileCopies {
 public:
  TimedCopies(FileCopies& real, Moments& moments) : real_(real), moments_(moments) {}
  std::optional<FileFault> ReadLastModified(const std::string& path,
                                            std::chrono::sys_seconds& time) override {
    return real_.ReadLastModified(path, time);
  }
  std::optional<FileFault> CopyOver(const std::string& source, const std::string& target) override {
    if (moments_.firstCopy == 0) moments_.firstCopy = Now();
    if (moments_.copies == 3 && moments_.fourthCopy == 0) moments_.fourthCopy = Now();
    const auto fault = real_.CopyOver(source, target);
    if (!fault) ++moments_.copies;
    moments_.lastCopied = Now();
    return fault;
  }
  bool SameFile(const std::string& one, const std::string& other) override {
    return real_.SameFile(one, other);
  }
  std::optional<FileFault> Remove(const std::string& path) override { return real_.Remove(path); }
  bool FolderExists(const std::string& path) override { return real_.FolderExists(path); }
  std::optional<FileFault> MakeFolder(const std::string& path) override {
    return real_.MakeFolder(path);
  }

 private:
  FileCopies& real_;
  Moments& moments_;
};

int Measure(const std::string& newFolder) {
  char here[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, here);
  WindowsMachine machine;
  const Machine ports = machine.Ports();
  Moments moments;
  TimedProcesses processes(ports.processes, moments);
  TimedCopies copies(ports.fileCopies, moments);
  UpgradeDesk desk(ports, processes, copies, std::string(here) + "\\tarvo-launcher.exe", newFolder);
  for (ComponentKind kind : kComponents) desk.startStop.StartComponent(kind);
  Sleep(2000);  // They have opened their ports and windows.
  moments = {};
  const int code = desk.upgrade.RunUpgrade(0);
  for (ComponentKind kind : kComponents) desk.startStop.StopComponent(kind);
  if (code != kUpgradeDone || moments.copies != 6) {
    std::printf("upgrade_out_of_service n/a: code %d\n", code);
    return 1;
  }
  Figures figures;
  figures.Report("servers out of service", moments.lastStarted - moments.firstStop, "ms");
  figures.Report("  stopping them", moments.firstCopy - moments.firstStop, "ms");
  figures.Report("  saving the old", moments.fourthCopy - moments.firstCopy, "ms");
  figures.Report("  copying the new", moments.lastCopied - moments.fourthCopy, "ms");
  figures.Report("  starting them", moments.lastStarted - moments.lastCopied, "ms");
  return 0;
}

}  // namespace
}  // namespace tarvo

int main(int count, char** words) { return count == 2 ? tarvo::Measure(words[1]) : 2; }
