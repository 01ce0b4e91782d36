// Starting, stopping, and what is kept between two starts.
#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/stories.h"
#include "tests/operator/launcher.h"

namespace tarvo::acceptance {
namespace {

std::string AddressOf(const Desk& desk, int index) {
  return "127.0.0.1:" + std::to_string(desk.TheRoot().Port(index));
}

void ExpectDefaultsOf(const Desk& desk, int index, const char* priority, const char* time) {
  const std::string role = kRoles[index];
  desk.ExpectText("Exes", index, role + "-server.exe");
  desk.ExpectText("Prior", index, priority);
  desk.ExpectText("TTO", index, time);
  desk.ExpectText("bStart", index, "Start");
  desk.ExpectLight(seconds(5), index, Light::Off);
  desk.ExpectCount(role, 0);
}

void ExpectChoicesStored(const Desk& desk) {
  desk.ExpectSetting("LoginPri", "4");
  desk.ExpectSetting("LoginTimeout", "45");
  desk.ExpectSetting("LoginAutoKillEnabled", "1");
  desk.ExpectSetting("CharAutoKillEnabled", "0");
  desk.ExpectSetting("MapFullAutokill", "1");
  desk.ExpectSetting("WriteLog", "1");
  desk.ExpectSetting("WriteMode", "2");
  desk.ExpectSetting("MapExe", "char-server.exe");
  desk.ExpectSetting("AutoRandomize", "0");
  desk.ExpectNoSetting("LoginChkInterval");
}

void ExpectChoicesShown(const Desk& desk) {
  desk.ExpectText("Prior", 0, "V-High");
  desk.ExpectText("TTO", 0, "45");
  desk.ExpectText("Exes", 2, "char-server.exe");
  desk.ExpectText("LogH", -1, "Errors & Warnings");
  desk.ExpectChecked("chkAK", 0, true);
  desk.ExpectChecked("chkAK", 1, false);
  desk.ExpectChecked("chkAK", 3, true);
  desk.ExpectEnabled("TTO", 0, true);
  desk.ExpectEnabled("TTO", 1, false);
}

}  // namespace

void FirstRun(Desk& desk) {
  const std::string& name = desk.TheRoot().Name();
  desk.StartLauncher();
  desk.ExpectLog(seconds(10), "Launcher Ready!");
  desk.ExpectLog(seconds(1), "Tarvo Launcher v.");
  desk.ExpectLog(seconds(1), "Login Server:  " + AddressOf(desk, 0));
  desk.ExpectLog(seconds(1), "Char Server:  " + AddressOf(desk, 1));
  desk.ExpectLog(seconds(1), "Map Server:  " + AddressOf(desk, 2));
  desk.ExpectNoLog("Check Interval");
  desk.ExpectText("SName", -1, name);
  ExpectEqual(TextOf(desk.Window()), "[" + name + "] - Tarvo Launcher", "the title");
  ExpectDefaultsOf(desk, 0, "Low", "20");
  ExpectDefaultsOf(desk, 1, "Norm", "300");
  ExpectDefaultsOf(desk, 2, "High", "60");
  desk.CloseLauncher();
}

void SettingsKept(Desk& desk) {
  desk.StartLauncher();
  desk.Choose("Prior", 0, "V-High");
  desk.Check("chkAK", 0);
  desk.Check("chkAK", 3);
  desk.Set("TTO", 0, "45");
  desk.Check("WLog");
  desk.Choose("LogH", -1, "Errors & Warnings");
  desk.Choose("Exes", 2, "char-server.exe");
  desk.CloseLauncher();
  ExpectChoicesStored(desk);
  desk.StartLauncher();
  ExpectChoicesShown(desk);
  desk.CloseLauncher();
}

namespace {

void StartOne(Desk& desk) {
  desk.Click("bStart", 1);
  desk.ExpectLog(seconds(10), "Char Server Started [Norm Priority]");
  desk.ExpectCount("char", 1);
  desk.ExpectEnabled("Exes", 1, false);
  desk.ExpectText("bStart", 1, "Stop");
  desk.ExpectLog(seconds(15), "Listening Char Server");
  desk.ExpectLight(seconds(5), 1, Light::Healthy);
}

void StartTheOthers(Desk& desk) {
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(10), "Login Server Started! [Low Priority]");
  desk.ExpectLog(seconds(10), "Map Server Started [High Priority]");
  desk.ExpectCountOfEach(1);
  desk.ExpectLogCount(seconds(0), "Char Server Started", 1);
  desk.ExpectLog(seconds(15), "Listening Map Server");
  desk.Choose("Prior", 2, "V-High");
  desk.ExpectLog(seconds(5), "Map Server running with V-High priority");
}

void StopOne(Desk& desk) {
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(10), "Login Server Stopped!");
  desk.ExpectCount("login", 0);
  desk.ExpectText("bStart", 0, "Start");
  desk.ExpectEnabled("Exes", 0, true);
}

void StopTheOthers(Desk& desk) {
  desk.Click("bStart", 4);
  desk.ExpectLog(seconds(10), "Char Server Stopped!");
  desk.ExpectLog(seconds(10), "Map Server Stopped!");
  desk.ExpectLogCount(seconds(0), "Login Server Stopped!", 1);
  desk.ExpectCountOfEach(0);
  for (int i = 0; i < 3; ++i) desk.ExpectLight(seconds(5), i, Light::Off);
}

}  // namespace

void StartStop(Desk& desk) {
  desk.StartLauncher();
  StartOne(desk);
  StartTheOthers(desk);
  StopOne(desk);
  StopTheOthers(desk);
  desk.ExpectNoLog("crashed");
  desk.CloseLauncher();
}

void RefusesToDie(Desk& desk) {
  WriteBytes(desk.TheRoot().Path("login-server.behaviour"), "refuse-to-die\r\n");
  desk.StartLauncher();
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(10), "Login Server Started!");
  desk.Tell("login", sample::kState);
  desk.ExpectCount("login", 1);
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(15), "[login-server.exe] refuses to end, still in memory!");
  desk.ExpectLog(seconds(1), "Login Server Stopped!");
  desk.ExpectText("bStart", 0, "Start");
  desk.ExpectCount("login", 1);
  desk.Tell("login", sample::kDie);
  desk.ExpectCount("login", 0);
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
