// Tells a running sample server how to behave, from outside:
//
//   server-control <exe-name>
//   crash|fault|close-port|hang|answer|show|hide|busy|die|state|count|pids
//   [--pid N]
//
// It prints what it did and ends with 0, or says why it could not and ends with 1. `count` and
// `pids` read the process list and always end with 0. When several processes bear the name, `--pid`
// picks one.

#include <windows.h>
// After windows.h, which it needs.
#include <tlhelp32.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "tests/servers/server_commands.h"

namespace tarvo::sample {
namespace {

constexpr UINT kPatience = 5000;
constexpr WPARAM kBusyTime = 20000;

struct Command {
  const char* name;
  UINT message;
  const char* done;
  bool ends;  ///< The process is gone when it has obeyed.
};
constexpr Command kCommands[] = {
    {"crash", kCrash, "crashed", true},
    {"die", kDie, "ended", true},
    {"close-port", kClosePort, "port closed", false},
    {"hang", kHang, "hangs: alive, nobody accepts", false},
    {"answer", kAnswer, "answers", false},
    {"show", kShow, "window shown", false},
    {"hide", kHide, "window hidden", false},
};

std::vector<DWORD> ProcessesNamed(const char* name) {
  std::vector<DWORD> ids;
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof(entry);
  for (BOOL more = Process32First(snapshot, &entry); more != 0;
       more = Process32Next(snapshot, &entry)) {
    if (lstrcmpiA(entry.szExeFile, name) == 0) ids.push_back(entry.th32ProcessID);
  }
  CloseHandle(snapshot);
  return ids;
}

struct WindowSearch {
  DWORD process;
  HWND found;
};

BOOL CALLBACK StopAtServerWindow(HWND window, LPARAM argument) {
  auto& search = *reinterpret_cast<WindowSearch*>(argument);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  char className[64] = {};
  GetClassNameA(window, className, sizeof(className));
  if (owner != search.process || std::strcmp(className, kWindowClass) != 0) return TRUE;
  search.found = window;
  return FALSE;
}

HWND ServerWindowOf(DWORD process) {
  WindowSearch search{process, nullptr};
  EnumWindows(&StopAtServerWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

int Refuse(const char* name, const std::string& why) {
  std::printf("%s: %s\n", name, why.c_str());
  return 1;
}

/// The result of the message; 0 when there was no answer in time.
DWORD_PTR Send(HWND window, UINT message) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutA(window, message, 0, 0, SMTO_ABORTIFHUNG, kPatience, &result) == 0) {
    return 0;
  }
  return result;
}

bool EndedBy(HWND window, DWORD process, UINT message) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
  PostMessageA(window, message, 0, 0);
  const bool ended = handle != nullptr && WaitForSingleObject(handle, kPatience) == WAIT_OBJECT_0;
  if (handle != nullptr) CloseHandle(handle);
  return ended;
}

/// Whether the process ends of it is for its error mode to say.
int CommitFault(const char* name, HWND window) {
  if (PostMessageA(window, kFault, 0, 0) == 0) return Refuse(name, "did not obey");
  std::printf("%s: commits an access violation\n", name);
  return 0;
}

int PrintState(const char* name, HWND window) {
  const char* names[] = {"gives no answer", "port closed", "answering", "hanging"};
  const DWORD_PTR state = Send(window, kState);
  std::printf("%s: %s\n", name, names[state < 4 ? state : 0]);
  return state == 0 ? 1 : 0;
}

int KeepBusy(const char* name, HWND window) {
  if (PostMessageA(window, kBusy, kBusyTime, 0) == 0) return Refuse(name, "did not obey");
  std::printf("%s: handles no message for 20 seconds\n", name);
  return 0;
}

int Tell(const char* name, const char* what, DWORD process) {
  const HWND window = ServerWindowOf(process);
  const std::string id = std::to_string(process);
  if (window == nullptr) return Refuse(name, "process " + id + " has no sample server's window");
  if (std::strcmp(what, "state") == 0) return PrintState(name, window);
  if (std::strcmp(what, "busy") == 0) return KeepBusy(name, window);
  if (std::strcmp(what, "fault") == 0) return CommitFault(name, window);
  for (const Command& command : kCommands) {
    if (std::strcmp(what, command.name) != 0) continue;
    const bool done = command.ends ? EndedBy(window, process, command.message)
                                   : Send(window, command.message) == 1;
    if (!done) return Refuse(name, "process " + id + " did not obey");
    std::printf("%s: process %s %s\n", name, id.c_str(), command.done);
    return 0;
  }
  return Refuse(name, std::string("no such command: ") + what);
}

int PrintIds(const std::vector<DWORD>& ids) {
  for (const DWORD id : ids) std::printf("%lu\n", id);
  return 0;
}

int Control(const char* name, const char* what, DWORD chosen) {
  const std::vector<DWORD> ids = ProcessesNamed(name);
  if (std::strcmp(what, "pids") == 0) return PrintIds(ids);
  if (std::strcmp(what, "count") == 0) {
    std::printf("%u\n", static_cast<unsigned>(ids.size()));
    return 0;
  }
  if (chosen != 0) return Tell(name, what, chosen);
  if (ids.empty()) return Refuse(name, "not running");
  if (ids.size() > 1) return Refuse(name, "several are running: pick one with --pid");
  return Tell(name, what, ids.front());
}

}  // namespace
}  // namespace tarvo::sample

int main(int count, char** arguments) {
  const bool picked = count == 5 && std::strcmp(arguments[3], "--pid") == 0;
  if (count != 3 && !picked) {
    std::puts(
        "server-control <exe-name> "
        "crash|fault|close-port|hang|answer|show|hide|busy|die|state|count|pids [--pid N]");
    return 1;
  }
  const DWORD id = picked ? std::strtoul(arguments[4], nullptr, 10) : 0;
  return tarvo::sample::Control(arguments[1], arguments[2], id);
}
