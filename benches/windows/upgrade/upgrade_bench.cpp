// An upgrade of three executables of 60 MB with backup, beside copying the same six files by the
// system's own copy call, in turn. Works in a folder of its own under the current one, and removes
// it.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "benches/figures.h"
#include "benches/windows/upgrade/upgrade_desk.h"

namespace tarvo {
namespace {

constexpr std::size_t kSize = 60U * 1024 * 1024;
constexpr int kRounds = 5;
constexpr double kLimit = 1.2;

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
  WindowsMachine machine;
  const Machine ports = machine.Ports();
  UpgradeDesk desk(ports, ports.processes, ports.fileCopies, root.File("tarvo-launcher.exe"),
                   news.path);
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
  Figures figures;
  figures.AtMost("upgrade of three of 60 MB to system's copies", ratio, "ratio", kLimit);
  figures.Report("upgrade of three of 60 MB", Median(ours), "s");
  figures.Report("system's copies of the same six files", Median(systems), "s");
  for (const Folder& folder : {Folder(root.File("LBackup")), root, news, backup, top}) {
    RemoveFiles(folder);
  }
  return figures.ExitCode();
}

}  // namespace
}  // namespace tarvo

int main() { return tarvo::Measure(); }
