// Memory runs out in a launcher at work, at each allocation of an event in turn: it dies of it and
// is started again, and nothing that the operator has is lost.

#include "tests/memory/scarce_story.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr char kSet[] = "C:\\srv\\randomize.xml";
constexpr char kCalendar[] = "C:\\srv\\rndcalendar.xml";
constexpr char kBattleConf[] = "C:\\srv\\conf\\battle_athena.conf";

/// A launcher with all servers under control, old enough to be started again.
struct ScarceLauncher {
  ScarceLauncher() {
    machine.recorder.CountOnly();
    machine.SetSetting("AutoRandomize", "1");
    machine.files.Put(kSet,
                      "<Randomize>\r\n\t<base_exp_rate Min=\"1\" Max=\"9\"/>\r\n</Randomize>\r\n");
    launcher = std::make_unique<Launcher>(machine);
    launcher->Start();
  }

  void StartServers() {
    launcher->Click("bStart", 3);
    launcher->Pass(11s);
  }

  /// An event in the window, short of memory. False when the launcher died of it; the next one runs
  /// then.
  bool Survives(ScarceRun& run, const std::function<void(Form&)>& event) {
    const std::function<void()> inside = [&] { event(launcher->TheForm()); };
    return SurvivesAll(run, [&] { launcher->TheProgram().Dispatch().Run(inside); });
  }

  /// Whatever the launcher does meanwhile, likewise.
  bool SurvivesAll(ScarceRun& run, const std::function<void()>& what) {
    machine.clock.Advance(60000);
    bool died = false;
    const Ended ended = run.Act([&] {
      try {
        what();
      } catch (const LauncherKilled&) {
        died = true;
      }
    });
    EXPECT_EQ(ended, Ended::Whole) << "nothing but the dispatch may see it";
    if (!died) return true;
    launcher.reset();
    EXPECT_TRUE(machine.selfRestart.started);
    launcher = std::make_unique<Launcher>(machine);
    launcher->Start();
    EXPECT_EQ(
        launcher->CountInLog("Attention!, the launcher was restarted after a fault of its own."),
        1U);
    return false;
  }

  void ExpectAllUnderControl() {
    for (ComponentKind kind : kComponents) {
      const auto ids = machine.processes.Named(kServers[IndexOf(kind)]);
      ASSERT_EQ(ids.size(), 1U);
      EXPECT_EQ(launcher->Of(kind).ProcessId, ids.front());
      EXPECT_TRUE(launcher->TheForm().timers.CrashWatch[kind].Enabled());
    }
  }

  SimMachine machine;
  std::unique_ptr<Launcher> launcher;
};

/// Plays an event that changes one file; there is the old file or the new one at its end.
int PlayChangeOf(const std::string& path, const std::function<void(Form&)>& event) {
  std::string changed;
  return FailEachAllocation([&](ScarceRun& run) {
    ScarceLauncher desk;
    const std::string old = desk.machine.files.TextOf(path);
    const bool survived = desk.Survives(run, event);
    const std::string now = desk.machine.files.TextOf(path);
    if (changed.empty()) changed = now;
    EXPECT_NE(changed, old);
    EXPECT_TRUE(now == old || now == changed) << now;
    if (survived && !run.Failed()) {
      EXPECT_EQ(now, changed);
    }
  });
}

TEST(ScarceMemoryForTheLauncher, ASetThatIsChangedIsTheOldFileOrTheNewOne) {
  const int failed = PlayChangeOf(kSet, [](Form& form) {
    form.randomizer.rIni.Type("150");
    form.randomizer.rEnd.Type("250");
    form.randomizer.rAdd[0].Click();
  });
  EXPECT_GT(failed, 30);
}

TEST(ScarceMemoryForTheLauncher, ACalendarThatIsChangedIsTheOldFileOrTheNewOne) {
  const int failed =
      PlayChangeOf(kCalendar, [](Form& form) { form.randomizer.cmdCalendar[0].Click(); });
  EXPECT_GT(failed, 30);
}

TEST(ScarceMemoryForTheLauncher, AConfFileThatIsDrawnAnewIsTheOldFileOrTheNewOne) {
  const int failed =
      PlayChangeOf(kBattleConf, [](Form& form) { form.randomizer.Command2.Click(); });
  EXPECT_GT(failed, 30);
}

TEST(ScarceMemoryForTheLauncher, ACloseLosesNoSetting) {
  constexpr int kStep = 3;
  const int failed = FailEachAllocation(
      [](ScarceRun& run) {
        ScarceLauncher desk;
        for (std::size_t i = 0; i < 3; ++i) {
          desk.launcher->Choose("Prior", i, "V-High");
          desk.launcher->Check("chkAK", i);
          desk.launcher->Type("TTO", i, "4321");
          desk.launcher->Check("chkAutoStart", i);
        }
        if (!desk.Survives(run, [](Form& form) { form.frame.window.Close(); }))
          desk.launcher->Close();
        EXPECT_TRUE(desk.launcher->Ended());
        for (const char* name : {"Login", "Char", "Map"}) {
          EXPECT_EQ(desk.machine.Setting(std::string(name) + "Pri"), "4");
          EXPECT_EQ(desk.machine.Setting(std::string(name) + "Timeout"), "4321");
          EXPECT_EQ(desk.machine.Setting(std::string(name) + "AutoStart"), "1");
        }
      },
      kStep);
  EXPECT_GT(failed, 50);
}

TEST(ScarceMemoryForTheLauncher, AServerThatIsStartedAgainComesUnderControl) {
  constexpr int kStep = 7;
  const int failed = FailEachAllocation(
      [](ScarceRun& run) {
        ScarceLauncher desk;
        desk.StartServers();
        desk.machine.processes.Crash(desk.machine.processes.TheOne(kMap).id);
        desk.SurvivesAll(run, [&] { desk.launcher->Pass(5s); });
        desk.launcher->Pass(10s);
        desk.ExpectAllUnderControl();
      },
      kStep);
  EXPECT_GT(failed, 50);
}

// What was started and is not yet under control when the launcher dies is told to the operator.
TEST(ScarceMemoryForTheLauncher, AServerThatIsStartedIsUnderControlOrTold) {
  constexpr int kStep = 5;
  const int failed = FailEachAllocation(
      [](ScarceRun& run) {
        ScarceLauncher desk;
        desk.Survives(run, [](Form& form) { form.status.bStart[2].Click(); });
        const auto ids = desk.machine.processes.Named(kMap);
        ASSERT_LE(ids.size(), 1U);
        if (ids.empty() || desk.launcher->Of(ComponentKind::Map).ProcessId == ids.front()) return;
        EXPECT_EQ(desk.launcher->CountInLog("Attention!, server components found in memory."), 1U);
      },
      kStep);
  EXPECT_GT(failed, 50);
}

}  // namespace
}  // namespace tarvo
