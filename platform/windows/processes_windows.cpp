#include "platform/windows/processes_windows.h"

#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"
// After windows.h, which it needs.
#include <psapi.h>
#include <tlhelp32.h>

namespace tarvo {

static_assert(sizeof(void*) != 4 || sizeof(PROCESSENTRY32) == 296,
              "the ANSI process entry of a 32-bit program has 296 bytes");

namespace {

constexpr DWORD kLongestEnding = 500;

/// The system names a missing file, too, when the file is there and something that it needs is not.
bool IsMissing(const std::string& path) {
  return GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES &&
         MeansMissing(GetLastError());
}

LaunchResult NothingStarted(const std::string& path, DWORD error) {
  return {
      0, MeansMissing(error) && IsMissing(path), {static_cast<int>(error), SystemMessage(error)}};
}

}  // namespace

std::vector<ProcessEntry> WindowsProcesses::Snapshot() {
  std::vector<ProcessEntry> entries;
  const KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!snapshot.Valid()) return entries;
  PROCESSENTRY32 record{};
  record.dwSize = sizeof(record);
  for (BOOL more = Process32First(snapshot.Get(), &record); more != 0;
       more = Process32Next(snapshot.Get(), &record)) {
    entries.push_back({record.th32ProcessID, record.szExeFile});
  }
  return entries;
}

void WindowsProcesses::End(ProcessId id) {
  const KernelHandle process(OpenProcess(PROCESS_TERMINATE, TRUE, id));
  if (!process.Valid()) return;
  // Refused for one that is dying already. The system ends it in its own time; one that is listed
  // still would be taken for a running server.
  TerminateProcess(process.Get(), 0);
  const KernelHandle ending(OpenProcess(SYNCHRONIZE, FALSE, id));
  if (ending.Valid()) WaitForSingleObject(ending.Get(), kLongestEnding);
}

std::optional<std::int64_t> WindowsProcesses::MemoryOf(ProcessId id) {
  const KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
  PROCESS_MEMORY_COUNTERS counters{};
  // The name under which kernel32 has it, so that no further library is loaded.
  if (!process.Valid() || !K32GetProcessMemoryInfo(process.Get(), &counters, sizeof counters)) {
    return std::nullopt;
  }
  return static_cast<std::int64_t>(counters.WorkingSetSize);
}

void WindowsProcesses::ChangePriority(ProcessId id, std::uint32_t priorityClass) {
  const KernelHandle process(OpenProcess(PROCESS_SET_INFORMATION, FALSE, id));
  if (process.Valid()) SetPriorityClass(process.Get(), priorityClass);
}

void WindowsProcesses::TurnErrorDialogsOff() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
}

LaunchResult WindowsProcesses::LaunchHidden(const std::string& executablePath) {
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_HIDE;
  PROCESS_INFORMATION started{};
  std::string commandLine = executablePath;  // The call may write into it.
  if (CreateProcessA(executablePath.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                     CREATE_NEW_CONSOLE, nullptr, nullptr, &startup, &started) == 0) {
    return NothingStarted(executablePath, GetLastError());
  }
  const KernelHandle process(started.hProcess);
  const KernelHandle thread(started.hThread);
  return {started.dwProcessId, false, {}};
}

}  // namespace tarvo
