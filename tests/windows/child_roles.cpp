#include "tests/windows/child_roles.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>
#include <stdexcept>

#include "platform/windows/fault_guard.h"
#include "platform/windows/file_copies_windows.h"
#include "platform/windows/instance_lock_windows.h"
#include "platform/windows/stack_guard.h"
#include "platform/windows/window_class.h"
#include "tests/windows/test_folder.h"

namespace tarvo::test {
namespace {

constexpr char kHolderClass[] = "TarvoTestHolder";

void WriteFileWith(const std::string& path, const std::string& text) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return;
  std::fwrite(text.data(), 1, text.size(), file);
  std::fclose(file);
}

int Report(const std::string& path) {
  char folder[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, folder);
  STARTUPINFOA startup{};
  GetStartupInfoA(&startup);
  const bool commanded = (startup.dwFlags & STARTF_USESHOWWINDOW) != 0;
  WriteFileWith(path, std::string(GetCommandLineA()) + "\n" + folder + "\n" +
                          (commanded ? std::to_string(startup.wShowWindow) : "none") + "\n");
  return 0;
}

HWND OpenHiddenWindow() {
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = &DefWindowProcA;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = kHolderClass;
  RegisterClassA(&windowClass);
  return CreateWindowExA(0, kHolderClass, "holder", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                         nullptr, windowClass.hInstance, nullptr);
}

int Hold(const std::string& name, bool withWindow, DWORD milliseconds) {
  WindowsInstanceLock lock;
  if (!lock.Acquire(name)) return 1;
  if (withWindow) lock.Publish(name, reinterpret_cast<std::intptr_t>(OpenHiddenWindow()));
  WriteFileWith(name + ".held", "");
  if (milliseconds != INFINITE) {
    Sleep(milliseconds);
    return 0;
  }
  MSG message{};
  while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
  return 0;
}

int CopyForEver(const std::string& files) {
  const std::size_t mark = files.find('*');
  WindowsFileCopies copies;
  while (!copies.CopyOver(files.substr(0, mark), files.substr(mark + 1))) {
  }
  return 1;
}

[[gnu::noinline]] char WriteInto(std::size_t length) {
  char room[16] = {};
  // Nobody but the machine sees what is written where.
  volatile char* const place = room;
  for (std::size_t i = 0; i < length; ++i) place[i] = 'x';
  return room[length % sizeof room];
}

int Overrun(const std::string& length) {
  return WriteInto(std::strtoul(length.c_str(), nullptr, 10)) == 'x' ? 0 : 3;
}

struct Thrower {
  std::optional<LRESULT> Handle(UINT message, WPARAM, LPARAM) {
    if (message != WM_WINDOWPOSCHANGING) return std::nullopt;
    if (memory) throw std::bad_alloc();
    throw std::runtime_error("nobody catches it");
  }
  bool memory = false;
};

int ThrowInWindow(bool memory) {
  WatchForFaults("0");
  const HINSTANCE instance = GetModuleHandleA(nullptr);
  RegisterOnce(WindowClass(instance, "TarvoTestThrower", ProcedureOf<Thrower, &Thrower::Handle>));
  const HWND window = CreateWindowExA(0, "TarvoTestThrower", "", WS_POPUP, 0, 0, 0, 0, nullptr,
                                      nullptr, instance, nullptr);
  Thrower thrower{memory};
  SetOwner(window, &thrower);
  // The system calls the procedure out of its own code.
  SetWindowPos(window, nullptr, 10, 10, 10, 10, SWP_NOZORDER);
  return 0;
}

int TellGuard(const std::string& path) {
  WriteFileWith(path, std::to_string(__stack_chk_guard));
  return 0;
}

}  // namespace

unsigned ExitCodeOf(const std::string& role) {
  SetEnvironmentVariableA(kRoleVariable, role.c_str());
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  const BOOL started = CreateProcessA(OwnPath().c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                      nullptr, nullptr, &start, &made);
  SetEnvironmentVariableA(kRoleVariable, nullptr);
  if (!started) return 1;
  DWORD code = 1;
  if (WaitForSingleObject(made.hProcess, 10000) != WAIT_OBJECT_0) {
    TerminateProcess(made.hProcess, 1);
    WaitForSingleObject(made.hProcess, 10000);
  }
  GetExitCodeProcess(made.hProcess, &code);
  CloseHandle(made.hThread);
  CloseHandle(made.hProcess);
  return code;
}

int PlayRole(const std::string& role) {
  const std::string verb = role.substr(0, role.find(' '));
  const std::string object = role.substr(verb.size() + 1);
  if (verb == "report") return Report(object);
  if (verb == "hold") return Hold(object, false, INFINITE);
  if (verb == "hold-window") return Hold(object, true, INFINITE);
  if (verb == "hold-briefly") return Hold(object, false, 800);
  if (verb == "overrun") return Overrun(object);
  if (verb == "throw") return ThrowInWindow(object == "memory");
  if (verb == "guard") return TellGuard(object);
  if (verb == "copy") return CopyForEver(object);
  return 2;
}

}  // namespace tarvo::test
