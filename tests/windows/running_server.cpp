#include <winsock2.h>
// After winsock2.h.
#include "platform/windows/foreign_windows_windows.h"
#include "platform/windows/processes_windows.h"
#include "tests/servers/server_commands.h"
#include "tests/windows/running_server.h"
#include "tests/windows/test_folder.h"

namespace tarvo::test {
namespace {

void WriteText(const std::string& path, const std::string& text) {
  const KernelHandle file(
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  DWORD written = 0;
  WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

std::string CurrentFolder() {
  char folder[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, folder);
  return folder;
}

}  // namespace

unsigned short FreePort() {
  WSADATA data{};
  WSAStartup(MAKEWORD(2, 2), &data);
  const SOCKET probe = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  bind(probe, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
  int length = sizeof(address);
  getsockname(probe, reinterpret_cast<sockaddr*>(&address), &length);
  closesocket(probe);
  WSACleanup();
  return ntohs(address.sin_port);
}

RunningServer::RunningServer(const std::string& role, const std::string& behaviour)
    : port_(FreePort()) {
  const std::string folder = CurrentFolder();
  const std::string executable = folder + "\\" + role + "-server.exe";
  CopyFileA(SampleServerPath(role).c_str(), executable.c_str(), FALSE);
  CreateDirectoryA((folder + "\\conf").c_str(), nullptr);
  WriteText(folder + "\\conf\\" + role + "_athena.conf",
            "// port\r\n" + role + "_port: " + std::to_string(port_) + "\r\n");
  WriteText(folder + "\\" + role + "-server.behaviour", behaviour);
  id_ = WindowsProcesses().LaunchHidden(executable).id;
  process_.Reset(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, id_));
  Within(5000, [this] { return Window() != 0 || !Runs(); });
  // It listens before it takes its first message.
  DWORD_PTR answer = 0;
  SendMessageTimeoutA(reinterpret_cast<HWND>(Window()), WM_NULL, 0, 0, SMTO_NORMAL, 5000, &answer);
}

RunningServer::~RunningServer() {
  if (!Runs()) return;
  PostMessageA(reinterpret_cast<HWND>(Window()), sample::kDie, 0, 0);
  if (WaitForSingleObject(process_.Get(), 5000) == WAIT_OBJECT_0) return;
  WindowsProcesses().End(id_);
  WaitForSingleObject(process_.Get(), 5000);
}

WindowHandle RunningServer::Window() const {
  WindowsForeignWindows windows;
  for (WindowHandle each = windows.First(); each != 0; each = windows.Next(each)) {
    char name[64] = {};
    GetClassNameA(reinterpret_cast<HWND>(each), name, sizeof(name));
    if (windows.Owner(each) == id_ && std::string(name) == sample::kWindowClass) return each;
  }
  return 0;
}

LRESULT RunningServer::Tell(UINT message) const {
  return SendMessageA(reinterpret_cast<HWND>(Window()), message, 0, 0);
}

bool RunningServer::Runs() const {
  return process_.Valid() && WaitForSingleObject(process_.Get(), 0) == WAIT_TIMEOUT;
}

DWORD RunningServer::ExitCode() const {
  DWORD code = 0;
  GetExitCodeProcess(process_.Get(), &code);
  return code;
}

}  // namespace tarvo::test
