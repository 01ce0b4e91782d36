#include "tests/operator/acceptance/processes.h"

// After windows.h, which it needs.
#include <tlhelp32.h>

#include <utility>

#include "tests/operator/acceptance/story.h"
#include "tests/operator/launcher.h"

namespace tarvo::acceptance {

std::vector<DWORD> ProcessesIn(const std::string& folder, const std::string& name) {
  std::vector<DWORD> ids;
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  const LauncherChoice there{0, folder};
  for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry)) {
    const bool named = name.empty() || lstrcmpiA(entry.szExeFile, name.c_str()) == 0;
    const DWORD id = entry.th32ProcessID;
    if (named && id != GetCurrentProcessId() && there.Fits(id)) ids.push_back(id);
  }
  CloseHandle(snapshot);
  return ids;
}

OwnProcess::OwnProcess(const std::string& executable, const std::string& from,
                       const std::string& arguments) {
  std::string line = "\"" + executable + "\"" + (arguments.empty() ? "" : " ") + arguments;
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (!CreateProcessA(executable.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      from.c_str(), &start, &made)) {
    throw DidNotHold(executable + " cannot be started: error " + std::to_string(GetLastError()));
  }
  CloseHandle(made.hThread);
  handle_ = made.hProcess;
  id_ = made.dwProcessId;
}

OwnProcess::~OwnProcess() {
  if (handle_) CloseHandle(handle_);
}

OwnProcess::OwnProcess(OwnProcess&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)), id_(other.id_) {}

std::optional<DWORD> OwnProcess::ExitCode() const {
  DWORD code = 0;
  if (WaitForSingleObject(handle_, 0) != WAIT_OBJECT_0) return std::nullopt;
  GetExitCodeProcess(handle_, &code);
  return code;
}

void OwnProcess::Kill() const { TerminateProcess(handle_, 1); }

void Terminate(DWORD id) {
  const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
  if (!process) return;
  TerminateProcess(process, 1);
  WaitForSingleObject(process, 5000);
  CloseHandle(process);
}

}  // namespace tarvo::acceptance
