// What the watches promise while hosts are silent: each connect to one holds the only thread there
// is.

#include <algorithm>
#include <functional>

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

class SilentHosts : public LauncherStory {
 protected:
  SilentHosts() {
    machine.SetSetting("AutoRandomize", "1");
    machine.recorder.beforeEach = [this] { Watch(machine.recorder.Calls().back()); };
  }
  ~SilentHosts() override { machine.recorder.beforeEach = nullptr; }

  void PutHosts(const std::string& login, const std::string& charServer, const std::string& map) {
    machine.PutConf("C:\\srv",
                    "login_ip: " + login + "\r\nlogin_port: 6900\r\nchar_ip: " + charServer +
                        "\r\nchar_port: 6121\r\n",
                    "map_ip: " + map + "\r\nmap_port: 5121\r\n");
  }
  void SetAll(const std::string& setting, const std::string& text) {
    for (const char* name : {"Login", "Char", "Map"}) machine.SetSetting(name + setting, text);
  }
  /// Starts all servers with freeze autokill after so many seconds, and lets half a minute pass.
  void StartAll(const std::string& seconds) {
    SetAll("AutoKillEnabled", "1");
    SetAll("Timeout", seconds);
    StartLauncher();
    launcher->Click("bStart", 3);
    launcher->Pass(30s);
    launcher->ForgetLog();
  }
  void StopAll() {
    launcher->Click("bStart", 4);
    launcher->Pass(1s);
  }
  /// Waits until that server has a process again; the milliseconds from now.
  std::uint64_t UntilStarted(const std::string& executable) {
    const std::uint64_t begin = machine.clock.Age();
    launched_.clear();
    while (!launched_.ends_with(executable) && machine.clock.Age() < begin + 60000) {
      launcher->Pass(50ms);
    }
    return launchedAt_ - begin;
  }
  void Watch(const std::string& call) {
    if (call.starts_with("processes.end(")) endedAt_ = machine.clock.Age();
    if (call.starts_with("processes.launch(")) {
      launched_ = call.substr(0, call.size() - 1);
      launchedAt_ = machine.clock.Age();
    }
  }
  /// Whole seconds from the freeze line to now, one more when in doubt.
  std::uint64_t SinceFreeze(ComponentKind kind, std::uint64_t moment) {
    return moment - static_cast<std::uint64_t>(launcher->Of(kind).FreezeStart) * 1000;
  }

  std::string launched_;
  std::uint64_t launchedAt_ = 0;
  std::uint64_t endedAt_ = 0;
};

TEST_F(SilentHosts, AFrozenServerWithAFullQueueIsKilledWithinFiveSecondsOfItsTime) {
  PutHosts("127.0.0.1", "127.0.0.1", "127.0.0.1");
  StartAll("5");
  for (const bool othersToo : {false, true}) {
    // Two more that freeze in the same seconds hold each step by their own probes.
    const std::uint64_t killed = othersToo ? 12000 : 10000;
    const std::uint64_t started = othersToo ? 9000 : 5000;
    for (milliseconds phase = 0ms; phase < 10s; phase += 370ms) {
      launcher->Pass(phase + 40s);
      launcher->ForgetLog();
      for (const char* name : kServers) {
        if (name != kLogin && !othersToo) continue;
        Process(name).answer = PortAnswer::NobodyAccepts;
        Process(name).queueRoom = 1;
      }
      while (launcher->CountInLog("Shuting down Login...") == 0) launcher->Pass(50ms);
      EXPECT_LE(SinceFreeze(ComponentKind::Login, endedAt_), killed) << phase.count();
      EXPECT_LE(UntilStarted(kLogin), started) << phase.count();
    }
  }
}

TEST_F(SilentHosts, AHealthyServersDeathIsAnsweredWithinNineSecondsWhileTwoOthersAreSilent) {
  for (const char* seconds : {"5", "300"}) {
    PutHosts("127.0.0.1", "10.0.0.5", "10.0.0.6");
    StartAll(seconds);
    for (milliseconds phase = 0ms; phase < 15s; phase += 170ms) {
      launcher->Pass(phase + 10s);
      Crash(kLogin);
      EXPECT_LE(UntilStarted(kLogin), 9000u) << seconds << ' ' << phase.count();
    }
    StopAll();
  }
}

TEST_F(SilentHosts, WithAllThreeSilentNobodyStarves) {
  PutHosts("10.0.0.4", "10.0.0.5", "10.0.0.6");
  StartAll("300");
  struct Beat {
    Timer* timer;
    std::function<void()> tick;
    std::uint64_t last;
    std::uint64_t longest;
  };
  Timers& timers = launcher->TheForm().timers;
  std::vector<Beat> beats;
  for (Timer* timer : {&timers.CrashWatch[0], &timers.CrashWatch[1], &timers.CrashWatch[2],
                       &timers.Mem, &timers.tmrAlarma, &timers.tmr_Calendar}) {
    beats.push_back({timer, timer->onTick, machine.clock.Age(), 0});
  }
  for (Beat& beat : beats) {
    beat.timer->onTick = [this, &beat] {
      beat.longest = std::max(beat.longest, machine.clock.Age() - beat.last);
      beat.last = machine.clock.Age();
      beat.tick();
    };
  }
  launcher->Pass(1h);
  for (const Beat& beat : beats) {
    if (!beat.timer->Enabled()) continue;
    EXPECT_LE(machine.clock.Age() - beat.last, beat.timer->Interval() + 6000) << beat.timer->Name();
    EXPECT_LE(beat.longest, beat.timer->Interval() + 6000) << beat.timer->Name();
  }
  launcher.reset();
}

TEST_F(SilentHosts, TheWindowIsThereWithinEightSeconds) {
  SetAll("AutoKillEnabled", "1");
  SetAll("AutoStart", "1");
  PutHosts("10.0.0.4", "10.0.0.5", "10.0.0.6");
  for (const bool adopted : {false, true}) {
    for (const bool byName : {false, true}) {
      if (byName) {
        PutHosts("login.game", "char.game", "map.game");
        machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
      }
      ASSERT_EQ(machine.processes.Named(kLogin).size(), adopted ? 1u : 0u);
      const std::uint64_t begin = machine.clock.Age();
      StartLauncher();
      EXPECT_TRUE(launcher->Window().Visible());
      EXPECT_LE(machine.clock.Age() - begin, 8000u) << adopted << byName;
      EXPECT_EQ(launcher->CountInLog("Login server freeze!... waiting..."), adopted ? 1u : 0u);
      if (!adopted) launcher->Click("bStart", 4);
      PutHosts("10.0.0.4", "10.0.0.5", "10.0.0.6");
      machine.network.SetNameServerDelay(0);
    }
    if (!adopted) {
      StartLauncher();
      KillLauncher();
    }
  }
}

TEST_F(SilentHosts, ADeadNameServerMakesNoServerFrozenWhoseNameWasKnown) {
  for (const char* name : {"login.game", "char.game", "map.game"}) {
    machine.network.AddServedName(name, {127, 0, 0, 1});
  }
  PutHosts("login.game", "char.game", "map.game");
  StartAll("5");
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  launcher->Pass(1h);
  EXPECT_EQ(launcher->NewLog(), "");
  Process(kChar).answer = PortAnswer::NobodyAccepts;
  while (launcher->CountInLog("Shuting down Char...") == 0) launcher->Pass(50ms);
  EXPECT_LE(SinceFreeze(ComponentKind::Char, endedAt_), 10000u);
  EXPECT_LE(UntilStarted(kChar), 5000u);
}

}  // namespace
}  // namespace tarvo
