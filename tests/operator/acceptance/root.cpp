// Before windows.h, which brings an older one.
#include <winsock2.h>

#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/patience.h"
#include "tests/operator/acceptance/processes.h"
#include "tests/operator/acceptance/root.h"
#include "tests/operator/acceptance/servers.h"

namespace tarvo::acceptance {
namespace {

std::string leftBehind;

/// The temporary folder by its long names: processes are known by those.
std::string TemporaryFolder() {
  char folder[MAX_PATH * 4] = "";
  char whole[MAX_PATH * 4] = "";
  GetTempPathA(sizeof folder, folder);
  if (GetLongPathNameA(folder, whole, sizeof whole) == 0) lstrcpynA(whole, folder, sizeof whole);
  std::string text = whole;
  while (!text.empty() && text.back() == '\\') text.pop_back();
  // A letter that the code page does not have: no 8-bit path leads there.
  return text.find('?') == std::string::npos ? text : OwnFolder();
}

std::string RootName(bool elsewhere) {
  if (!elsewhere) return "root";
  char name[64] = "";
  BOOL lost = FALSE;
  WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, L"Servidor \u00D1and\u00FA", -1, name,
                      sizeof name, nullptr, &lost);
  return lost ? "Servidor" : name;
}

/// Free at this moment; held together, so that they differ.
std::array<int, 3> FreePorts() {
  SOCKET held[3];
  std::array<int, 3> ports{};
  for (std::size_t i = 0; i < 3; ++i) {
    held[i] = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(held[i], reinterpret_cast<sockaddr*>(&address), sizeof address);
    int size = sizeof address;
    getsockname(held[i], reinterpret_cast<sockaddr*>(&address), &size);
    ports[i] = ntohs(address.sin_port);
  }
  for (const SOCKET one : held) closesocket(one);
  Expect(ports[0] != 0 && ports[1] != 0 && ports[2] != 0, "no free ports");
  return ports;
}

std::string Resource(const char* name) {
  const HRSRC found = FindResourceA(nullptr, name, MAKEINTRESOURCEA(10));
  Expect(found != nullptr, std::string("the program holds no ") + name);
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(nullptr, found)));
  return {bytes, SizeofResource(nullptr, found)};
}

/// Of a line that begins with the key; the line ends stay.
std::string WithValue(std::string text, const std::string& key, const std::string& value) {
  const std::string start = "\n" + key + ": ";
  for (std::size_t at = text.find(start); at != std::string::npos; at = text.find(start, at + 1)) {
    const std::size_t first = at + start.size();
    text.replace(first, text.find('\r', first) - first, value);
  }
  return text;
}

std::string MakeFolder(const std::string& path) {
  Expect(CreateDirectoryA(path.c_str(), nullptr), "no folder " + path + " can be made");
  return path;
}

std::string FolderAround() {
  static int number = 0;
  const std::string name = std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++number);
  return MakeFolder(TemporaryFolder() + "\\tarvo-acceptance-" + name);
}

}  // namespace

Root::Root(bool elsewhere)
    : around_(FolderAround()),
      path_(MakeFolder(around_ + "\\" + RootName(elsewhere))),
      name_("Acceptance " + std::to_string(GetCurrentProcessId())),
      ports_(FreePorts()),
      settings_(path_) {
  MakeFolder(Path("conf"));
  for (const char* file : {"login", "char", "map", "battle"}) WriteConf(file);
  for (const char* role : kRoles) {
    const std::string server = std::string(role) + "-server.exe";
    CopyTo(acceptance::Beside(server), Path(server));
  }
  CopyTo(acceptance::Beside("tarvo-launcher.exe"), Path("tarvo-launcher.exe"));
}

Root::~Root() {
  EndAll();
  RemoveStartUpEntry(name_);
  settings_.Remove();
  const auto gone = [this] {
    RemoveTree(around_);
    return !Exists(around_);
  };
  const ULONGLONG end = GetTickCount64() + 5000;
  while (!gone() && GetTickCount64() < end) Sleep(100);
  leftBehind += Remains();
}

std::string Root::Remains() const {
  std::string remains;
  if (Exists(around_)) remains += "left behind: " + around_ + "\n";
  if (!settings_.Empty()) remains += "left behind: settings of " + path_ + "\n";
  if (StartUpEntryOf(name_)) remains += "left behind: the start-up entry " + name_ + "\n";
  const std::size_t running = ProcessesIn(path_).size();
  if (running != 0) remains += "still running: " + std::to_string(running) + "\n";
  return remains;
}

void Root::WriteConf(const char* file) const {
  std::string text = Resource(file);
  text = WithValue(text, "server_name", name_);
  for (int i = 0; i < 3; ++i) {
    text = WithValue(text, std::string(kRoles[i]) + "_port", std::to_string(Port(i)));
  }
  WriteBytes(Path(std::string("conf\\") + file + "_athena.conf"), text);
}

void Root::SetConf(const std::string& file, const std::string& key,
                   const std::string& value) const {
  const std::string path = Path("conf\\" + file);
  const std::string before = ReadBytes(path);
  const std::string after = WithValue(before, key, value);
  Expect(before != after, "no " + key + " in " + file);
  WriteBytes(path, after);
}

/// The launcher first, which would start the others anew. A server that nobody may end does so
/// itself.
void Root::EndAll() const {
  for (const DWORD id : ProcessesIn(path_, "tarvo-launcher.exe")) Terminate(id);
  for (const DWORD id : ProcessesIn(path_)) {
    AskToEnd(id);
    Terminate(id);
  }
}

std::string LeftBehind() { return leftBehind; }

}  // namespace tarvo::acceptance
