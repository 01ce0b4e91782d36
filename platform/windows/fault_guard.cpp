#include "platform/windows/fault_guard.h"

#include <windows.h>

#include <csignal>
#include <cstdint>
#include <cstring>
#include <exception>
#include <new>

#include "platform/fault_text.h"
#include "platform/windows/path_length.h"

namespace tarvo {
namespace {

constexpr DWORD kShortestLife = 60000;  // Milliseconds.
/// How long the event log may take, in milliseconds: a successor takes a window that is still there
/// after half a second for that of somebody alive.
constexpr DWORD kLongestEntry = 300;
constexpr int kMostStarts = 600;
constexpr DWORD kBetweenStarts = 1000;  // Milliseconds.
constexpr std::size_t kReserve = 1024 * 1024;
constexpr ULONG kStackAfterOverflow = 128 * 1024;
constexpr DWORD kNoMemory = 0xC0000017;      // STATUS_NO_MEMORY
constexpr DWORD kFatalAppExit = 0x40000015;  // STATUS_FATAL_APP_EXIT
constexpr DWORD kCxxException = 0x20474343;  // As the compiler's own throw raises it.

/// Everything that a fault needs, in the program's own image. It begins as zeros.
struct Guard {
  const char* version = nullptr;  ///< Set before anything watches for faults.
  ULONGLONG started = 0;
  char program[kLongestPath] = {};
  char commandLine[kLongestPath] = {};
  bool startsAgain = false;
  char logFolder[kLongestPath] = {};
  void* reserve = nullptr;
  void* lackedMemory = nullptr;  ///< Who asked for memory when there was none.
  LONG volatile dying = 0;       ///< The thread that is at it.
  STARTUPINFOA startup{};
  PROCESS_INFORMATION successor{};
  FixedText line;
  FixedText file;
  FixedText entry;
};

Guard guard;

bool StartsAgain() {
  return guard.startsAgain && GetTickCount64() - guard.started >= kShortestLife;
}

bool InOwnImage(const void* address) {
  MEMORY_BASIC_INFORMATION page{};
  return VirtualQuery(address, &page, sizeof page) != 0 &&
         page.AllocationBase == GetModuleHandleA(nullptr);
}

FaultFacts FactsOf(DWORD code, const void* address) {
  FaultFacts facts;
  facts.code = code;
  facts.address = reinterpret_cast<std::uintptr_t>(address);
  if (InOwnImage(address)) {
    facts.offset = facts.address - reinterpret_cast<std::uintptr_t>(GetModuleHandleA(nullptr));
  }
  facts.version = guard.version;
  facts.startsAgain = StartsAgain();
  return facts;
}

FaultMoment Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

void WriteLine(const FaultFacts& facts) {
  if (guard.logFolder[0] == '\0') return;
  const FaultMoment moment = Now();
  AddDayFile(guard.file, guard.logFolder, moment);
  AddFaultLine(guard.line, moment, facts);
  const HANDLE file = CreateFileA(guard.file.Text(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  DWORD written = 0;
  WriteFile(file, guard.line.Text(), static_cast<DWORD>(guard.line.Length()), &written, nullptr);
  CloseHandle(file);
}

/// Nobody watches before it is there, so it is tried again while memory is lacking, a scanner holds
/// the executable or its share is away.
void StartSuccessor() {
  guard.startup.cb = sizeof guard.startup;
  for (int tries = 0; tries < kMostStarts; ++tries) {
    if (CreateProcessA(guard.program, guard.commandLine, nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &guard.startup, &guard.successor) != 0) {
      return;
    }
    Sleep(kBetweenStarts);
  }
}

DWORD WINAPI EndSoon(void* code) {
  Sleep(kLongestEntry);
  TerminateProcess(GetCurrentProcess(), static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(code)));
  return 0;
}

/// Ends the program even when the thread that is at it hangs from now on.
void EndOnTime(DWORD code) {
  void* argument = reinterpret_cast<void*>(static_cast<std::uintptr_t>(code));
  const HANDLE thread = CreateThread(nullptr, 0, &EndSoon, argument, 0, nullptr);
  if (thread != nullptr) CloseHandle(thread);
}

void WriteEntry(const FaultFacts& facts) {
  AddFaultText(guard.entry, facts);
  const HANDLE source = RegisterEventSourceA(nullptr, "Tarvo Launcher");
  if (source == nullptr) return;
  const char* text = guard.entry.Text();
  ReportEventA(source, EVENTLOG_ERROR_TYPE, 0, 0, nullptr, 1, 0, &text, nullptr);
  DeregisterEventSource(source);
}

/// Line, successor, entry; at most once in the life of the program.
void Tell(DWORD code, const void* address) {
  const auto thread = static_cast<LONG>(GetCurrentThreadId());
  const LONG before = InterlockedCompareExchange(&guard.dying, thread, 0);
  // A fault on the way down ends here; another thread's waits for the end that is coming.
  if (before == thread) TerminateProcess(GetCurrentProcess(), code);
  if (before != 0) Sleep(INFINITE);
  if (guard.reserve) VirtualFree(guard.reserve, 0, MEM_RELEASE);
  guard.reserve = nullptr;
  const FaultFacts facts = FactsOf(code, address);
  WriteLine(facts);
  if (facts.startsAgain) {
    StartSuccessor();
    EndOnTime(code);
  }
  WriteEntry(facts);
}

[[noreturn]] void DieOf(DWORD code, const void* address) {
  Tell(code, address);
  TerminateProcess(GetCurrentProcess(), code);
  for (;;) Sleep(INFINITE);
}

LONG WINAPI DieOfException(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  DieOf(record.ExceptionCode, record.ExceptionAddress);
}

/// A fault in the launcher's own code, before anybody may handle it. Nearly all of that code runs
/// inside callbacks of the system, and there an exception that leaves the callback is swallowed on
/// Wine, and on some 64-bit versions of Windows: the launcher would go on in whatever state it is.
/// What goes wrong in the system's code, the system may have means against.
LONG WINAPI DieOfOwnFault(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  switch (record.ExceptionCode) {
    case EXCEPTION_ACCESS_VIOLATION:
    case EXCEPTION_IN_PAGE_ERROR:
    case EXCEPTION_ILLEGAL_INSTRUCTION:
    case EXCEPTION_PRIV_INSTRUCTION:
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
    case EXCEPTION_DATATYPE_MISALIGNMENT:
    case EXCEPTION_STACK_OVERFLOW:
      if (InOwnImage(record.ExceptionAddress)) DieOf(record.ExceptionCode, record.ExceptionAddress);
  }
  return EXCEPTION_CONTINUE_SEARCH;
}

[[noreturn]] void DieOfTerminate() {
  try {
    if (const std::exception_ptr raised = std::current_exception()) std::rethrow_exception(raised);
  } catch (const std::bad_alloc&) {
    DieOf(kNoMemory, guard.lackedMemory);
  } catch (...) {  // Told as an abort.
  }
  DieOf(kFatalAppExit, __builtin_return_address(0));
}

void DieOfAbort(int) { DieOf(kFatalAppExit, __builtin_return_address(0)); }

/// Memory is lacking. Whoever asked may know how to go on, so this only notes who it was: the
/// caller of the operator that called this.
void NoteLackOfMemory() {
  void* caller[1] = {};
  if (CaptureStackBackTrace(2, 1, caller, nullptr) == 1) guard.lackedMemory = caller[0];
  throw std::bad_alloc();
}

/// The same for faults in the system's code that a callback has led to, where the system can be
/// told so.
void LetExceptionsThroughCallbacks() {
  using GetPolicy = BOOL(WINAPI*)(DWORD*);
  using SetPolicy = BOOL(WINAPI*)(DWORD);
  constexpr DWORD kCallbackFilter = 1;
  const HMODULE kernel = GetModuleHandleA("kernel32.dll");
  const auto get = reinterpret_cast<GetPolicy>(
      reinterpret_cast<void*>(GetProcAddress(kernel, "GetProcessUserModeExceptionPolicy")));
  const auto set = reinterpret_cast<SetPolicy>(
      reinterpret_cast<void*>(GetProcAddress(kernel, "SetProcessUserModeExceptionPolicy")));
  DWORD policy = 0;
  if (get && set && get(&policy)) set(policy & ~kCallbackFilter);
}

bool Put(char (&room)[kLongestPath], const std::string& text) {
  const bool fits = text.size() < kLongestPath;
  std::memcpy(room, text.c_str(), fits ? text.size() + 1 : 0);
  return fits;
}

}  // namespace

void WatchForFaults(const char* version) {
  guard.version = version;
  guard.started = GetTickCount64();
  const DWORD length = GetModuleFileNameA(nullptr, guard.program, kLongestPath);
  if (length == 0 || length >= kLongestPath) guard.program[0] = '\0';
  guard.reserve = VirtualAlloc(nullptr, kReserve, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  AddVectoredExceptionHandler(1, &DieOfOwnFault);
  SetUnhandledExceptionFilter(&DieOfException);
  LetExceptionsThroughCallbacks();
  ULONG stack = kStackAfterOverflow;
  SetThreadStackGuarantee(&stack);
  std::set_terminate(&DieOfTerminate);
  std::signal(SIGABRT, &DieOfAbort);
  std::set_new_handler(&NoteLackOfMemory);
}

std::string WindowsSelfRestart::Arguments() {
  const std::string line = GetCommandLineA();
  // The program's own name, with or without quotes, goes before them.
  const std::size_t end = line.find(line.starts_with('"') ? '"' : ' ', 1);
  const std::size_t first = end == line.npos ? end : line.find_first_not_of(' ', end + 1);
  return first == line.npos ? std::string() : line.substr(first);
}

void WindowsSelfRestart::Keep(const RestartOrder& order) {
  guard.startsAgain = false;  // While the rest is on its way a fault finds nothing half.
  guard.logFolder[0] = '\0';
  Put(guard.logFolder, order.logFolder);
  if (order.arguments.empty() || guard.program[0] == '\0') return;
  guard.startsAgain =
      Put(guard.commandLine, "\"" + std::string(guard.program) + "\" " + order.arguments);
}

void WindowsSelfRestart::Die(OwnFault fault) {
  const bool memory = fault == OwnFault::OutOfMemory;
  const bool startsAgain = StartsAgain();
  Tell(memory ? kNoMemory : kCxxException, memory ? guard.lackedMemory : nullptr);
  if (startsAgain) TerminateProcess(GetCurrentProcess(), memory ? kNoMemory : kCxxException);
}

}  // namespace tarvo
