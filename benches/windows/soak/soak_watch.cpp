// Watches a launcher and its three servers from outside, for a soak:
//
//   soak-watch SECONDS [MINUTE]    prints a line as soon as there is something to tell, each with
//                                  the seconds since its start:
//                                    death,SECONDS,NAME              a server's process is gone
//                                    successor,SECONDS,NAME,MS       so long after it there is one
//                                    answer,SECONDS,MS               the launcher's window took at
//                                                                    most so long to answer, in the
//                                                                    last MINUTE (60) seconds
//                                    unanswered,SECONDS,NAME         still none, at the end
//
// The processes are looked at every 20 ms, the window is asked for nothing (WM_NULL) every 100 ms
// and waited for ten seconds. A launcher without a window is no answer and counts as none.

#include <windows.h>
// After windows.h, which it needs.
#include <tlhelp32.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace {

constexpr const char* kServers[] = {"login-server.exe", "char-server.exe", "map-server.exe"};
constexpr char kLauncherClass[] = "TarvoLauncherMain";
constexpr DWORD kPatience = 10000;
constexpr DWORD kBetweenLooks = 20;
constexpr DWORD kBetweenQuestions = 100;

std::atomic<DWORD> longestAnswer{0};

DWORD WINAPI AskTheWindow(void* /*nothing*/) {
  for (;; Sleep(kBetweenQuestions)) {
    const HWND window = FindWindowA(kLauncherClass, nullptr);
    if (window == nullptr) continue;
    const DWORD begun = GetTickCount();
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &result);
    longestAnswer = std::max(longestAnswer.load(), GetTickCount() - begun);
  }
}

struct Server {
  DWORD process = 0;
  DWORD diedAt = 0;
  bool dead = false;
};

void Look(Server (&servers)[std::size(kServers)], DWORD begun) {
  DWORD found[std::size(kServers)] = {};
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = Process32First(snapshot, &entry); more != 0;
       more = Process32Next(snapshot, &entry)) {
    for (std::size_t i = 0; i < std::size(kServers); ++i) {
      if (lstrcmpiA(entry.szExeFile, kServers[i]) != 0) continue;
      // The one that was known goes before any other of that name.
      if (found[i] == 0 || entry.th32ProcessID == servers[i].process) {
        found[i] = entry.th32ProcessID;
      }
    }
  }
  CloseHandle(snapshot);
  const DWORD now = GetTickCount();
  const double seconds = (now - begun) / 1000.0;
  for (std::size_t i = 0; i < std::size(kServers); ++i) {
    Server& server = servers[i];
    if (found[i] == server.process) continue;
    if (server.process != 0) {
      std::printf("death,%.2f,%s\n", seconds, kServers[i]);
      server.diedAt = now;
      server.dead = true;
    }
    if (found[i] != 0 && server.dead) {
      std::printf("successor,%.2f,%s,%lu\n", seconds, kServers[i], now - server.diedAt);
      server.dead = false;
    }
    server.process = found[i];
  }
}

}  // namespace

int main(int argc, char** argv) {
  const DWORD length = argc > 1 ? std::strtoul(argv[1], nullptr, 10) * 1000 : 0;
  const DWORD minute = argc > 2 ? std::strtoul(argv[2], nullptr, 10) * 1000 : 60000;
  if (length == 0) {
    std::fprintf(stderr, "usage: soak-watch SECONDS [MINUTE]\n");
    return 2;
  }
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  const HANDLE thread = CreateThread(nullptr, 0, AskTheWindow, nullptr, 0, nullptr);
  Server servers[std::size(kServers)];
  const DWORD begun = GetTickCount();
  DWORD told = begun;
  while (GetTickCount() - begun < length) {
    Look(servers, begun);
    if (GetTickCount() - told >= minute) {
      told += minute;
      std::printf("answer,%.2f,%lu\n", (told - begun) / 1000.0, longestAnswer.exchange(0));
    }
    Sleep(kBetweenLooks);
  }
  std::printf("answer,%.2f,%lu\n", (GetTickCount() - begun) / 1000.0, longestAnswer.load());
  for (std::size_t i = 0; i < std::size(kServers); ++i) {
    if (servers[i].process == 0) {
      std::printf("unanswered,%.2f,%s\n", length / 1000.0, kServers[i]);
    }
  }
  CloseHandle(thread);
  return 0;
}
