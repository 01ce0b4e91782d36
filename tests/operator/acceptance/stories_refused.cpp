// What the launcher refuses, and tells.
#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/stories.h"

namespace tarvo::acceptance {
namespace {

/// The box names all of these, and the launcher ends as after a fault.
void ExpectFault(Desk& desk, std::initializer_list<const char*> parts) {
  const std::string message = desk.Answer("ok");
  for (const char* part : parts) {
    Expect(message.find(part) != std::string::npos,
           "the box says \"" + message + "\", not \"" + part + "\"");
  }
  Expect(desk.AwaitEnd() != 0, "exit code 0 after a fault");
}

void RefusePorts(Desk& desk) {
  const Root& root = desk.TheRoot();
  root.SetConf("map_athena.conf", "map_port", "5121 // main");
  desk.LaunchOnly();
  ExpectFault(desk, {"13", "Type mismatch", "map_port: 5121 // main"});
  root.SetConf("map_athena.conf", "map_port", "99999999999");
  desk.LaunchOnly();
  ExpectFault(desk, {"6", "Overflow", "map_port:"});
  root.SetConf("map_athena.conf", "map_port", std::to_string(root.Port(2)));
}

void RefuseSettings(Desk& desk) {
  desk.WriteSettings({{"CharPri", "high"}});
  desk.LaunchOnly();
  ExpectFault(desk, {"13", "Type mismatch", "CharPri"});
  desk.WriteSettings({{"CharPri", "7"}});
  desk.LaunchOnly();
  ExpectFault(desk, {"380", "CharPri"});
  desk.WriteSettings({{"CharPri", "2"}, {"LoginChkInterval", "often"}});
  desk.StartLauncher();
  desk.ExpectLog(seconds(5), "Login Check Interval: 1 seconds.");
}

/// A box that holds letters is cleaned while they are typed.
void TypeTimes(Desk& desk) {
  desk.Check("chkAK", 1);
  desk.Set("TTO", 1, "12a");
  desk.ExpectText("TTO", 1, "12");
  desk.Set("TTO", 1, "abc");
  desk.ExpectText("TTO", 1, "0");
  // A "-" before the number leaves it a number, but is no digit: the caret goes behind the text.
  desk.Set("TTO", 1, "5");
  desk.Type("TTO", 1, "-7");
  desk.ExpectText("TTO", 1, "-57");
  desk.Set("TTO", 1, "67");
  desk.Type("TTO", 1, "45");
  desk.ExpectText("TTO", 1, "4567");
}

}  // namespace

void NoNumbers(Desk& desk) {
  RefusePorts(desk);
  RefuseSettings(desk);
  TypeTimes(desk);
  desk.Set("TTO", 1, "");
  desk.Click("bStart", 0);
  ExpectFault(desk, {"13", "Type mismatch", "CharTimeout"});
  desk.ExpectNoSetting("CharTimeout");
  desk.ExpectCount("login", 0);
}

void StartRefused(Desk& desk) {
  desk.WriteSettings({{"MapExe", "no-such-server"}});
  desk.StartLauncher();
  desk.Click("bStart", 0);
  desk.ExpectBox("Please, select the right servers from the list", "ok");
  desk.Choose("Exes", 2, "login-server.exe");
  desk.Click("bStart", 1);
  desk.ExpectBox("Please, select the right servers from the list!", "ok");
  desk.Choose("Exes", 2, "map-server.exe");
  desk.Check("chkAK", 0);
  desk.Set("TTO", 0, "4");
  desk.Click("bStart", 1);
  desk.ExpectBox("The min autokill time is 5 second, please check.", "ok");
  desk.ExpectCountOfEach(0);
  desk.Uncheck("chkAK", 0);
  desk.Click("bStart", 1);
  desk.ExpectLog(seconds(10), "Char Server Started");
  desk.Click("bStart", 4);
  desk.ExpectLog(seconds(10), "Char Server Stopped!");
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
