// Servers that die.
#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/servers.h"
#include "tests/operator/acceptance/stories.h"

namespace tarvo::acceptance {

void CrashRestart(Desk& desk) {
  desk.StartLauncher();
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(15), "Listening Map Server");
  const DWORD login = desk.Process("login"), charServer = desk.Process("char");
  const DWORD map = desk.Process("map");
  desk.Tell("map", sample::kCrash);
  desk.ExpectLog(seconds(10), "Map Server crashed, restarting...");
  desk.ExpectCount("map", 1);
  Expect(desk.Process("map") != map, "the same process");
  Expect(desk.Text("lblErr").starts_with("Map: 20"), "last failure: " + desk.Text("lblErr"));
  desk.ExpectLight(seconds(5), 2, Light::Trouble);
  desk.ExpectLight(seconds(20), 2, Light::Healthy);
  desk.Tell("map", sample::kCrash);
  desk.ExpectLogCount(seconds(10), "Map Server crashed, restarting...", 2);
  desk.ExpectCount("map", 1);
  Expect(desk.Process("login") == login, "another process of login");
  Expect(desk.Process("char") == charServer, "another process of char");
  desk.ExpectNoLog("Login Server crashed");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

void ServerFault(Desk& desk) {
  desk.StartLauncher();
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(20), "Listening Map Server");
  const DWORD map = desk.Process("map");
  desk.Tell("map", sample::kFault);
  desk.ExpectLog(seconds(10), "Map Server crashed, restarting...");
  desk.ExpectCount("map", 1);
  Expect(desk.Process("map") != map, "the same process");
  desk.ExpectNoLog("Login Server crashed");
  desk.Click("bStart", 4);
  desk.ExpectCountOfEach(0);
  desk.CloseLauncher();
}

void DiesAtStart(Desk& desk) {
  const std::string behaviour = desk.TheRoot().Path("char-server.behaviour");
  WriteBytes(behaviour, "die-at-start\r\n");
  desk.StartLauncher();
  desk.Click("bStart", 1);
  Await(seconds(30), "fewer than three restarts",
        [&] { return desk.CountLog("Char Server crashed, restarting...") >= 3; });
  DeleteFileA(behaviour.c_str());
  desk.ExpectLog(seconds(25), "Listening Char Server");
  desk.Click("bStart", 1);
  desk.ExpectLog(seconds(10), "Char Server Stopped!");
  desk.ExpectCount("char", 0);
  desk.CloseLauncher();
}

namespace {

/// A server's own window and its console.
bool SeesWindowOf(DWORD process) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, nullptr, nullptr)) != nullptr) {
    if (ProcessOf(window) == process && IsWindowVisible(window)) return true;
  }
  return false;
}

void PlayConsoleServer(Desk& desk) {
  const std::string role = "map-console";
  desk.Click("bStart", 2);
  desk.ExpectLog(seconds(20), "Listening Map Server");
  desk.ExpectCount(role, 1);
  Expect(!SeesWindowOf(desk.Process(role)), "its console is to be seen");
  desk.Tell(role, sample::kCrash);
  desk.ExpectLog(seconds(10), "Map Server crashed, restarting...");
  desk.ExpectCount(role, 1);
  desk.Tell(role, sample::kFault);
  desk.ExpectLogCount(seconds(10), "Map Server crashed, restarting...", 2);
  desk.ExpectCount(role, 1);
  desk.Click("bStart", 2);
  desk.ExpectCount(role, 0);
}

}  // namespace

void ConsoleServer(Desk& desk) {
  if (UnderWine()) throw Skipped("under Wine a console's window belongs to another process");
  CopyTo(Beside("console-server.exe"), desk.TheRoot().Path("map-console-server.exe"));
  desk.WriteSettings({{"MapExe", "map-console-server.exe"}});
  desk.StartLauncher();
  desk.ExpectText("Exes", 2, "map-console-server.exe");
  PlayConsoleServer(desk);
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
