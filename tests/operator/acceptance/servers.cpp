#include "tests/operator/acceptance/servers.h"

#include "tests/operator/launcher.h"
#include "tests/servers/server_commands.h"

namespace tarvo::acceptance {
namespace {

constexpr DWORD kPatienceOfOne = 3000;

bool EndsProcess(UINT command) {
  return command == sample::kCrash || command == sample::kDie || command == sample::kFault;
}

bool EndedBy(HWND window, DWORD process, UINT command) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
  if (!handle) return false;
  PostMessageA(window, command, 0, 0);
  const bool ended = WaitForSingleObject(handle, kPatienceOfOne) == WAIT_OBJECT_0;
  CloseHandle(handle);
  return ended;
}

}  // namespace

HWND ServerWindow(DWORD process) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, sample::kWindowClass, nullptr)) != nullptr) {
    if (ProcessOf(window) == process) return window;
  }
  return nullptr;
}

bool TellServer(DWORD process, UINT command) {
  const HWND window = ServerWindow(process);
  if (!window) return false;
  if (EndsProcess(command)) return EndedBy(window, process, command);
  DWORD_PTR done = 0;
  SendMessageTimeoutA(window, command, 0, 0, SMTO_ABORTIFHUNG, kPatienceOfOne, &done);
  return done != 0;
}

void AskToEnd(DWORD process) {
  if (ServerWindow(process)) TellServer(process, sample::kDie);
}

}  // namespace tarvo::acceptance
