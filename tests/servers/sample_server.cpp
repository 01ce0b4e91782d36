// A stand-in for a login, char or map server: it listens at its port, owns a hidden window, and
// does what it is told by messages to that window (server_commands.h) or by a file beside it
// (server_files.h). Like a real server it looks for its conf files in the current folder.

#include <winsock2.h>
// After winsock2.h.
#include <aclapi.h>

#include <string>

#include "tests/servers/server_commands.h"
#include "tests/servers/server_files.h"
#include "tests/servers/server_port.h"

namespace tarvo::sample {
namespace {

constexpr UINT kAccepted = WM_APP + 100;
constexpr UINT_PTR kStartTimer = 1;

struct Server {
  std::string role;
  unsigned short port = 0;
  ServerPort* listener = nullptr;
};

Server server;

[[noreturn]] void CrashNow() {
  TerminateProcess(GetCurrentProcess(), kExitCrash);
  for (;;) Sleep(INFINITE);
}

LONG CALLBACK EndAtOnce(EXCEPTION_POINTERS*) { return EXCEPTION_EXECUTE_HANDLER; }

/// Wine asks no error mode and starts its debugger, which takes seconds: there the server just
/// ends.
void CommitFault() {
  if (GetProcAddress(GetModuleHandleA("ntdll"), "wine_get_version") != nullptr) {
    SetUnhandledExceptionFilter(&EndAtOnce);
  }
  volatile int* volatile nowhere = nullptr;
  *nowhere = 1;
}

/// Adds to the rights of this process that nobody may end it. Whoever owns the process can take
/// that back, and a debugger's privilege passes it by; a supervisor does neither.
void DenyTermination() {
  SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
  PSID everyone = nullptr;
  AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everyone);
  EXPLICIT_ACCESSA rules[2] = {};
  const DWORD rights[2] = {PROCESS_TERMINATE, PROCESS_ALL_ACCESS & ~DWORD{PROCESS_TERMINATE}};
  const ACCESS_MODE modes[2] = {DENY_ACCESS, GRANT_ACCESS};
  for (int i = 0; i < 2; ++i) {
    rules[i].grfAccessPermissions = rights[i];
    rules[i].grfAccessMode = modes[i];
    rules[i].Trustee.TrusteeForm = TRUSTEE_IS_SID;
    rules[i].Trustee.ptstrName = static_cast<char*>(everyone);
  }
  PACL list = nullptr;
  if (SetEntriesInAclA(2, rules, nullptr, &list) == ERROR_SUCCESS) {
    SetSecurityInfo(GetCurrentProcess(), SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                    nullptr, list, nullptr);
    LocalFree(list);
  }
  FreeSid(everyone);
}

/// A port that somebody else holds ends a server that starts, as it ends a real one.
void StartListening() {
  if (server.listener->Answer()) return;
  ReportFault(server.role, server.role + " server: port " + std::to_string(server.port) +
                               " is in use by another process");
  ExitProcess(kExitPortBusy);
}

void ShowOrHide(HWND window, bool show) {
  // The first call of a process that was started hidden is taken back by the system.
  ShowWindow(window, show ? SW_SHOWNORMAL : SW_HIDE);
  ShowWindow(window, show ? SW_SHOWNORMAL : SW_HIDE);
}

LRESULT CALLBACK Obey(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kCrash:
      CrashNow();
    case kClosePort:
      server.listener->Close();
      return 1;
    case kHang:
      return server.listener->Hang() ? 1 : 0;
    case kAnswer:
      return server.listener->Answer() ? 1 : 0;
    case kShow:
    case kHide:
      ShowOrHide(window, message == kShow);
      return 1;
    case kDie:
      DestroyWindow(window);
      return 1;
    case kBusy:
      Sleep(static_cast<DWORD>(wParam));
      return 1;
    case kErrorMode:
      return static_cast<LRESULT>(GetErrorMode());
    case kState:
      return static_cast<LRESULT>(server.listener->State());
    case kAccepted:
      server.listener->Accept();
      return 0;
    case WM_TIMER:
      KillTimer(window, kStartTimer);
      StartListening();
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcA(window, message, wParam, lParam);
  }
}

HWND OpenHiddenWindow(HINSTANCE instance) {
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = &Obey;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = kWindowClass;
  RegisterClassA(&windowClass);
  const std::string title = server.role + " server";
  return CreateWindowExA(0, kWindowClass, title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                         CW_USEDEFAULT, 320, 120, nullptr, nullptr, instance, nullptr);
}

int Run(HINSTANCE instance, const Behaviour& behaviour) {
  WSADATA data{};
  WSAStartup(MAKEWORD(2, 2), &data);
  const HWND window = OpenHiddenWindow(instance);
  ServerPort listener(server.port, window, kAccepted);
  server.listener = &listener;
  if (behaviour.startDelay > 0) {
    SetTimer(window, kStartTimer, behaviour.startDelay, nullptr);
  } else {
    StartListening();
  }
  MSG message{};
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    // Not in the window's procedure: the system may swallow a fault there.
    if (message.message == kFault) CommitFault();
    DispatchMessageA(&message);
  }
  return 0;
}

}  // namespace
}  // namespace tarvo::sample

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  using namespace tarvo::sample;
  const auto role = OwnRole();
  if (!role) return kExitConf;
  const auto port = OwnPort(*role);
  if (!port) {
    ReportFault(*role, *role + " server: no port in conf\\" + *role + "_athena.conf");
    return kExitConf;
  }
  server.role = *role;
  server.port = *port;
  const Behaviour behaviour = ReadBehaviour(*role);
  if (behaviour.dieAtStart) return kExitCrash;
  if (behaviour.refuseToDie) DenyTermination();
  return Run(instance, behaviour);
}
