// Measures another program from outside:
//
//   measure start EXE CLASS [FILE TEXT]
//                                  starts EXE in the current folder; prints the milliseconds until
//                                  a visible window of that class answers, and before them those
//                                  until FILE ends with TEXT; closes it again
//   measure run EXE ARGUMENT...    runs EXE in the current folder to its end, its output into a
//                                  pipe; prints the milliseconds, and fails when its exit code is
//                                  not 0, or nothing came out
//   measure handles NAME           prints how many system handles the process of that file name has
//   measure objects NAME           prints how many GDI objects and how many windows it has
//   measure successor NAME         ends the process of that file name and prints the milliseconds
//                                  until another one of that name runs
//
// Handles are counted in the system's own handle list: Wine answers the plain question with 0.

#include <windows.h>
// After windows.h, which it needs.
#include <winternl.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "benches/windows/object_count.h"
#include "benches/windows/process_search.h"

namespace {

using tarvo::FindProcess;

double Now() {
  LARGE_INTEGER count, frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(count.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

struct WindowSearch {
  DWORD process;
  const char* className;
  HWND window;
};

BOOL CALLBACK MatchWindow(HWND window, LPARAM argument) {
  auto& search = *reinterpret_cast<WindowSearch*>(argument);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  char name[128] = "";
  GetClassNameA(window, name, sizeof name);
  if (owner != search.process || IsWindowVisible(window) == 0 ||
      std::strcmp(name, search.className) != 0) {
    return TRUE;
  }
  search.window = window;
  return FALSE;
}

bool EndsWith(const char* file, const std::string& text) {
  const HANDLE handle = CreateFileA(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  std::string end(text.size(), '\0');
  DWORD read = 0;
  SetFilePointer(handle, -static_cast<LONG>(text.size()), nullptr, FILE_END);
  ReadFile(handle, end.data(), static_cast<DWORD>(end.size()), &read, nullptr);
  CloseHandle(handle);
  return read == text.size() && end == text;
}

int MeasureStart(const char* executable, const char* className, const char* file,
                 const char* text) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  std::string commandLine = executable;
  const double start = Now();
  if (CreateProcessA(executable, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    std::fprintf(stderr, "cannot start %s\n", executable);
    return 1;
  }
  WindowSearch search{process.dwProcessId, className, nullptr};
  DWORD_PTR answer = 0;
  bool told = file == nullptr;
  while (Now() - start < 30000) {
    if (!told && EndsWith(file, text)) {
      std::printf("%.1f ", Now() - start);
      told = true;
    }
    if (search.window == nullptr) EnumWindows(MatchWindow, reinterpret_cast<LPARAM>(&search));
    if (!told) continue;
    if (search.window != nullptr &&
        SendMessageTimeoutA(search.window, WM_NULL, 0, 0, SMTO_NORMAL, 5000, &answer) != 0) {
      std::printf("%.1f\n", Now() - start);
      PostMessageA(search.window, WM_CLOSE, 0, 0);
      return WaitForSingleObject(process.hProcess, 20000) == WAIT_OBJECT_0 ? 0 : 1;
    }
    Sleep(1);
  }
  return 1;
}

int MeasureRun(int count, char** words) {
  std::string commandLine;
  for (int i = 0; i < count; ++i) commandLine += std::string(i == 0 ? "" : " ") + words[i];
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE reader = nullptr;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  PROCESS_INFORMATION process{};
  if (CreatePipe(&reader, &startup.hStdOutput, &inherited, 1 << 16) == 0) return 1;
  SetHandleInformation(reader, HANDLE_FLAG_INHERIT, 0);
  const double start = Now();
  if (CreateProcessA(words[0], commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    std::fprintf(stderr, "cannot start %s\n", words[0]);
    return 1;
  }
  WaitForSingleObject(process.hProcess, 30000);
  const double took = Now() - start;
  DWORD exitCode = 1;
  DWORD printed = 0;
  GetExitCodeProcess(process.hProcess, &exitCode);
  PeekNamedPipe(reader, nullptr, 0, nullptr, &printed, nullptr);
  std::printf("%.1f\n", took);
  return exitCode == 0 && printed > 0 ? 0 : 1;
}

// The system's handle list, class 16 of NtQuerySystemInformation.
struct SystemHandle {
  ULONG owner;
  BYTE type;
  BYTE flags;
  USHORT value;
  void* object;
  ULONG access;
};

int CountHandles(DWORD process) {
  std::vector<std::uint8_t> buffer(1 << 16);
  ULONG size = 0;
  const auto handleList = static_cast<SYSTEM_INFORMATION_CLASS>(16);
  while (NtQuerySystemInformation(handleList, buffer.data(), static_cast<ULONG>(buffer.size()),
                                  &size) == static_cast<NTSTATUS>(0xC0000004)) {
    buffer.resize(buffer.size() * 2);
  }
  ULONG count = 0;
  std::memcpy(&count, buffer.data(), sizeof count);
  const std::uint8_t* entries = buffer.data() + sizeof(void*);
  int owned = 0;
  for (ULONG i = 0; i < count; ++i) {
    SystemHandle handle;
    std::memcpy(&handle, entries + i * sizeof handle, sizeof handle);
    owned += handle.owner == process ? 1 : 0;
  }
  return owned;
}

int MeasureSuccessor(const char* name) {
  const DWORD old = FindProcess(name);
  const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, old);
  const double start = Now();
  if (old == 0 || TerminateProcess(process, 0) == 0) return 1;
  CloseHandle(process);
  while (Now() - start < 30000) {
    if (FindProcess(name, old) != 0) {
      std::printf("%.1f\n", Now() - start);
      return 0;
    }
    Sleep(2);
  }
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc > 2 ? argv[1] : "";
  if (command == "start" && argc == 4) return MeasureStart(argv[2], argv[3], nullptr, nullptr);
  if (command == "start" && argc == 6) {
    return MeasureStart(argv[2], argv[3], argv[4], (std::string(argv[5]) + "\r\n").c_str());
  }
  if (command == "run") return MeasureRun(argc - 2, argv + 2);
  if (command == "successor") return MeasureSuccessor(argv[2]);
  const DWORD process = argc > 2 ? FindProcess(argv[2]) : 0;
  if (process == 0) {
    std::fprintf(stderr,
                 "usage: measure start EXE CLASS [FILE TEXT] | handles|objects|successor NAME\n");
    return 1;
  }
  if (command == "handles") std::printf("%d\n", CountHandles(process));
  if (command == "objects")
    std::printf("%d %d\n", tarvo::CountGdiObjects(process), tarvo::CountWindows(process));
  return 0;
}
