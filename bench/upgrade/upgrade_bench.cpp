// An upgrade of three executables of 60 MB with backup, beside copying the same six files by the
// system's own copy call, in turn. Prints one line: name, ratio of the medians, unit, limit, held
// or short. Works in a folder of its own under the current one, and removes it.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "core/server_configuration.h"
#include "platform/windows/windows_machine.h"
#include "upgrade/component_upgrade.h"

namespace tarvo {
namespace {

constexpr std::size_t kSize = 60U * 1024 * 1024;
constexpr int kRounds = 5;
constexpr double kLimit = 1.2;
const char* const kServers[] = {"login-server.exe", "char-server.exe", "map-server.exe"};

struct Folder {
  explicit Folder(const std::string& name) : path(name) { CreateDirectoryA(path.c_str(), nullptr); }
  std::string File(const std::string& name) const { return path + "\\" + name; }
  std::string path;
};

void WriteNew(const std::string& path, unsigned seed) {
  std::string bytes(kSize, '\0');
  for (char& byte : bytes) byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
  const HANDLE file =
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(file);
  if (written != bytes.size()) {
    std::printf("upgrade_copies n/a: no room for %s\n", path.c_str());
    std::exit(1);
  }
}

void Touch(const std::string& path, DWORD day) {
  const HANDLE file =
      CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, 7, nullptr, OPEN_EXISTING, 0, nullptr);
  const FILETIME time{day, 0x01DC0000 + day};
  SetFileTime(file, nullptr, nullptr, &time);
  CloseHandle(file);
}

/// Everything that an upgrade needs, on the real system; the servers do not run.
struct Desk {
  explicit Desk(const Folder& rootFolder, const Folder& newFolder)
      : root(rootFolder.File("tarvo-launcher.exe")), news(newFolder) {
    ListExecutables(ports.folderLister, root, form.servers.Exes);
    for (ComponentKind kind : kComponents) {
      DropDownList& chooser = form.servers.Exes[kind];
      for (std::size_t i = 0; i < chooser.Items().size(); ++i) {
        if (chooser.Items()[i] == kServers[IndexOf(kind)])
          chooser.SetListIndex(static_cast<int>(i));
      }
      form.upgrade.nPath[kind].SetText(news.File(kServers[IndexOf(kind)]));
    }
  }

  WindowsMachine machine;
  Machine ports = machine.Ports();
  ServerRoot root;
  const Folder& news;
  TimerQueue timers{ports.tickClock};
  Form form{timers};
  ComponentTable components;
  StatusLog log{form.status.RTLog,  form.servers.WLog, form.servers.LogH,
                ports.fileAppender, ports.localClock,  root.AppFolder()};
  ProcessControl processes{ports.processes, ports.foreignWindows, ports.tickClock,
                           form.servers.Exes, root.AppFolder()};
  StartStop startStop{form, components, processes, log, ports.messageBoxes};
  UpgradeSettings settings{form, ports.registry, root, ports.fileDialog};
  bool UpgradeInProgress = false;
  ComponentUpgrade upgrade{{form, components, startStop, log, settings, ports.fileReader,
                            PatientCopies(ports.fileCopies, ports.tickClock), ports.localClock,
                            ports.messageBoxes, root.AppFolder(), UpgradeInProgress}};
};

double Seconds(const std::function<void()>& work) {
  LARGE_INTEGER frequency, begun, ended;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&begun);
  work();
  QueryPerformanceCounter(&ended);
  return static_cast<double>(ended.QuadPart - begun.QuadPart) /
         static_cast<double>(frequency.QuadPart);
}

void CopyByTheSystem(const Folder& root, const Folder& news, const Folder& backup) {
  for (const char* server : kServers) {
    CopyFileA(root.File(server).c_str(), backup.File(server).c_str(), FALSE);
  }
  for (const char* server : kServers) {
    CopyFileA(news.File(server).c_str(), root.File(server).c_str(), FALSE);
  }
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

void RemoveFiles(const Folder& folder) {
  WIN32_FIND_DATAA entry{};
  const HANDLE search = FindFirstFileA(folder.File("*").c_str(), &entry);
  do {
    DeleteFileA(folder.File(entry.cFileName).c_str());
  } while (FindNextFileA(search, &entry) != 0);
  FindClose(search);
  RemoveDirectoryA(folder.path.c_str());
}

int Measure() {
  char here[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, here);
  const Folder top(std::string(here) + "\\upgrade-bench");
  const Folder root(top.File("root"));
  const Folder news(top.File("new"));
  const Folder backup(top.File("by-the-system"));
  for (unsigned i = 0; i < 3; ++i) WriteNew(root.File(kServers[i]), i);
  for (unsigned i = 0; i < 3; ++i) WriteNew(news.File(kServers[i]), 100 + i);
  Desk desk(root, news);
  std::vector<double> ours;
  std::vector<double> systems;
  for (DWORD round = 0; round <= kRounds; ++round) {
    for (const char* server : kServers) Touch(news.File(server), round);
    int code = -1;
    const double mine = Seconds([&] { code = desk.upgrade.RunUpgrade(0); });
    const double its = Seconds([&] { CopyByTheSystem(root, news, backup); });
    if (code != kUpgradeDone) {
      std::printf("upgrade_copies n/a: the upgrade was refused with code %d\n", code);
      return 1;
    }
    if (round == 0) continue;  // Every file exists from now on, in both columns.
    ours.push_back(mine);
    systems.push_back(its);
  }
  const double ratio = Median(ours) / Median(systems);
  std::printf("upgrade_of_three_60_MB_to_system_copy %.2f ratio %.1f %s\n", ratio, kLimit,
              ratio <= kLimit ? "held" : "short");
  std::printf("upgrade_of_three_60_MB %.3f s - -\n", Median(ours));
  std::printf("system_copy_of_the_same_six_files %.3f s - -\n", Median(systems));
  for (const Folder& folder : {Folder(root.File("LBackup")), root, news, backup, top}) {
    RemoveFiles(folder);
  }
  return 0;
}

}  // namespace
}  // namespace tarvo

int main() { return tarvo::Measure(); }
