#include "platform/windows/scripts_windows.h"

#include <string>
#include <string_view>

#include "platform/windows/code_page_windows.h"

namespace tarvo {
namespace {

// The path reaches the interpreter as the value of a variable: read from its command line, a "%" in
// it would be taken for the beginning of one. /d leaves out what the user lets every interpreter
// run, /s takes the outer quotes away and no others.
constexpr wchar_t kPathVariable[] = L"TARVO_SCRIPT";
constexpr wchar_t kArguments[] = L"cmd.exe /d /v:off /s /c \"\"%TARVO_SCRIPT%\"\"";

constexpr DWORD kCreation =
    CREATE_SUSPENDED | CREATE_NO_WINDOW | CREATE_UNICODE_ENVIRONMENT | BELOW_NORMAL_PRIORITY_CLASS;

struct LetterCaseAside {
  bool operator()(const std::wstring& a, const std::wstring& b) const {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_LESS_THAN;
  }
};

/// In the order in which the system wants an environment.
using Environment = std::map<std::wstring, std::wstring, LetterCaseAside>;

Environment OwnEnvironment() {
  Environment environment;
  wchar_t* const own = GetEnvironmentStringsW();
  if (own == nullptr) return environment;
  for (std::wstring_view entry = own; !entry.empty();
       entry = std::wstring_view(entry.data() + entry.size() + 1)) {
    // The current folder of a drive is kept under a name that begins with "=".
    const std::size_t sign = entry.find(L'=', 1);
    if (sign == std::wstring_view::npos) continue;
    environment[std::wstring(entry.substr(0, sign))] = entry.substr(sign + 1);
  }
  FreeEnvironmentStringsW(own);
  return environment;
}

std::wstring BlockOf(const Environment& environment) {
  std::wstring block;
  for (const auto& [name, value] : environment) block += name + L"=" + value + L'\0';
  return block + L'\0';
}

/// "" when the system does not tell, and then nothing is started.
std::wstring Interpreter() {
  wchar_t folder[MAX_PATH] = {};
  const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return {};
  return std::wstring(folder, length) + L"\\cmd.exe";
}

PROCESS_INFORMATION StartSuspended(const std::wstring& path, std::wstring environment) {
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_HIDE;
  PROCESS_INFORMATION started{};
  const std::wstring interpreter = Interpreter();
  const std::size_t end = path.rfind(L'\\');
  if (interpreter.empty() || end == std::wstring::npos) return started;
  std::wstring arguments = kArguments;  // The call may write into it.
  const std::wstring folder = path.substr(0, end + 1);
  if (CreateProcessW(interpreter.c_str(), arguments.data(), nullptr, nullptr, FALSE, kCreation,
                     environment.data(), folder.c_str(), &startup, &started) == 0) {
    return {};
  }
  return started;
}

}  // namespace

ScriptRun WindowsScripts::Start(const std::string& path,
                                const std::vector<ScriptVariable>& variables) {
  Environment environment = OwnEnvironment();
  for (const ScriptVariable& variable : variables) {
    environment[WideTextOf(variable.name)] = WideTextOf(variable.value);
  }
  const std::wstring widePath = WideTextOf(path);
  environment[kPathVariable] = widePath;
  const PROCESS_INFORMATION started = StartSuspended(widePath, BlockOf(environment));
  Running running{KernelHandle(started.hProcess), KernelHandle(CreateJobObjectW(nullptr, nullptr))};
  const KernelHandle thread(started.hThread);
  if (!running.process.Valid()) return 0;
  if (AssignProcessToJobObject(running.job.Get(), running.process.Get()) == 0) running.job.Reset();
  ResumeThread(thread.Get());
  running_.emplace(++last_, std::move(running));
  return last_;
}

bool WindowsScripts::Running::Goes() const {
  JOBOBJECT_BASIC_ACCOUNTING_INFORMATION counts{};
  if (job.Valid() && QueryInformationJobObject(job.Get(), JobObjectBasicAccountingInformation,
                                               &counts, sizeof(counts), nullptr) != 0) {
    return counts.ActiveProcesses != 0;
  }
  return WaitForSingleObject(process.Get(), 0) == WAIT_TIMEOUT;
}

bool WindowsScripts::Runs(ScriptRun run) {
  const auto found = running_.find(run);
  if (found == running_.end()) return false;
  if (found->second.Goes()) return true;
  running_.erase(found);
  return false;
}

void WindowsScripts::End(ScriptRun run) {
  const auto found = running_.find(run);
  if (found == running_.end()) return;
  const Running& running = found->second;
  if (running.job.Valid()) {
    TerminateJobObject(running.job.Get(), 1);
  } else {
    TerminateProcess(running.process.Get(), 1);
  }
}

}  // namespace tarvo
