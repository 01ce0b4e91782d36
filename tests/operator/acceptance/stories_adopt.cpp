// One launcher after another, and beside another.
#include <array>

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/stories.h"
#include "tests/operator/actions.h"

namespace tarvo::acceptance {
namespace {

std::array<DWORD, 3> Processes(const Desk& desk) {
  return {desk.Process("login"), desk.Process("char"), desk.Process("map")};
}

void ExpectAdoption(const Desk& desk) {
  desk.ExpectLog(seconds(10), "[login-server.exe] was found in memory!");
  desk.ExpectLog(seconds(10), "Login Server under control! [Low Priority]");
  desk.ExpectLog(seconds(10), "Char Server under control [Norm Priority]");
  desk.ExpectLog(seconds(10), "Map Server under control [High Priority]");
  desk.ExpectLog(seconds(5), "Listening Map Server");
}

void Unload(Desk& desk) {
  desk.Click("Command1");
  desk.ExpectBox("This option will stop the launcher without kill the server", "no");
  desk.ExpectCount("map", 1);
  desk.Click("Command1");
  desk.ExpectBox("press Start and the components will be under control again.", "yes");
  ExpectEqual(std::to_string(desk.AwaitEnd()), "0", "the launcher's exit code");
}

}  // namespace

void UnloadAndAdopt(Desk& desk) {
  desk.StartLauncher();
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(15), "Listening Map Server");
  const auto before = Processes(desk);
  Unload(desk);
  desk.StartLauncher();
  desk.ExpectLog(seconds(10), "Attention!, server components found in memory.");
  desk.ExpectNoLog("under control");
  desk.Click("bStart", 3);
  ExpectAdoption(desk);
  Expect(Processes(desk) == before, "other processes");
  desk.Tell("char", sample::kCrash);
  desk.ExpectLog(seconds(10), "Char Server crashed, restarting...");
  desk.ExpectCount("char", 1);
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

void AutoStart(Desk& desk) {
  desk.ChooseAll();
  desk.StartLauncher();
  desk.ExpectLog(seconds(20), "Listening Map Server");
  for (int i = 0; i < 3; ++i) desk.ExpectLight(seconds(5), i, Light::Healthy);
  desk.KillLauncher();
  desk.ExpectCountOfEach(1);
  desk.StartLauncher();
  desk.ExpectLog(seconds(10), "Map Server under control [High Priority]");
  desk.ExpectCountOfEach(1);
  desk.Tell("login", sample::kCrash);
  desk.ExpectLog(seconds(10), "Login Server crashed, restarting...");
  desk.ExpectCount("login", 1);
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

namespace {

/// One more launcher in the root: it shows the first one's window, and ends.
void StartSecond(const Desk& desk) {
  const OwnProcess second(desk.TheRoot().Path("tarvo-launcher.exe"), desk.TheRoot().Path());
  Await(seconds(30), "the second launcher stays", [&] { return second.ExitCode().has_value(); });
  ExpectEqual(std::to_string(*second.ExitCode()), "0", "the second launcher's exit code");
}

}  // namespace

void SecondLauncher(Desk& desk) {
  desk.ChooseAll();
  desk.StartLauncher();
  desk.ExpectLog(seconds(10), "Map Server Started");
  desk.Minimize();
  desk.ExpectHidden();
  StartSecond(desk);
  desk.ExpectShown();
  desk.ExpectCountOfEach(1);
  desk.Click("bStart", 4);
  desk.ExpectLog(seconds(10), "Map Server Stopped!");
  desk.CloseLauncher();
}

void StartMinimized(Desk& desk) {
  desk.ChooseAll();
  desk.WriteSettings({{"StartMinimized", "1"}});
  desk.LaunchOnly();
  Await(seconds(30), "the launcher does not get ready", [&] {
    return FindLauncher(desk.Choice()) != nullptr && desk.CountLog("Launcher Ready!") == 1;
  });
  Expect(!IsWindowVisible(desk.Window()), "the window is to be seen");
  desk.ExpectLog(seconds(10), "Map Server Started");
  StartSecond(desk);
  desk.ExpectShown();
  desk.Minimize();
  desk.ExpectHidden();
  WindowCommand(desk.Window(), SC_RESTORE);
  desk.Click("bStart", 4);
  desk.ExpectLog(seconds(10), "Map Server Stopped!");
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
