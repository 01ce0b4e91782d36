// Memory runs out while the conf files and the settings are read or saved: each allocation in turn.

#include "core/server_configuration.h"
#include "outside/command_line.h"
#include "tests/core/settings_desk.h"
#include "tests/memory/scarce_story.h"

namespace tarvo {
namespace {

TEST(ScarceMemoryForConf, ReadingRaisesOrIsWhole) {
  const int failed = FailEachAllocation([](ScarceRun& run) {
    SimMachine machine;
    machine.recorder.CountOnly();
    const std::string conf = machine.files.TextOf("C:\\srv\\conf\\map_athena.conf");
    const ServerRoot root(machine.launcherPath, machine.codePage);
    ConfigurationResult result;
    const Ended ended =
        run.Act([&] { result = ReadServerConfiguration(machine.files, machine.files, root); });
    EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
    EXPECT_EQ(result.refusal, "");
    EXPECT_EQ(result.configuration.serverName.has_value(), ended == Ended::Whole);
    EXPECT_EQ(machine.files.TextOf("C:\\srv\\conf\\map_athena.conf"), conf);
  });
  EXPECT_GT(failed, 5);
}

TEST(ScarceMemoryForConf, ARefusalRaisesOrIsWhole) {
  for (const char* name : {"login_athena.conf", "char_athena.conf", "map_athena.conf"}) {
    const std::string path = std::string("C:\\srv\\conf\\") + name;
    std::string whole;
    const int failed = FailEachAllocation([&](ScarceRun& run) {
      SimMachine machine;
      machine.recorder.CountOnly();
      machine.files.LockForReading(path);
      machine.files.HideLocked();
      const ServerRoot root(machine.launcherPath, machine.codePage);
      ConfigurationResult result;
      run.Act([&] { result = ReadServerConfiguration(machine.files, machine.files, root); });
      if (whole.empty()) whole = result.refusal;
      EXPECT_EQ(result.refusal, run.Failed() ? "" : whole) << "no half of a reason";
    });
    EXPECT_NE(whole, "");
    EXPECT_GT(failed, 5);
  }
}

TEST(ScarceMemoryForConf, APortThatIsNoNumberIsAFaultAsEver) {
  const int failed = FailEachAllocation([](ScarceRun& run) {
    SimMachine machine;
    machine.recorder.CountOnly();
    machine.PutConf("C:\\srv", "char_port: many of them and more\r\n", "map_port: 5121\r\n");
    const ServerRoot root(machine.launcherPath, machine.codePage);
    int number = 0;
    const Ended ended = run.Act([&] {
      try {
        ReadServerConfiguration(machine.files, machine.files, root);
      } catch (const RuntimeError& fault) {
        number = fault.Number();
      }
    });
    EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
    EXPECT_EQ(number, run.Failed() ? 0 : 13);
  });
  EXPECT_GT(failed, 5);
}

using Values = std::map<std::string, std::string>;

Values ValuesOf(const SettingsDesk& desk) {
  return desk.machine.registry.ValuesOf(Hive::LocalMachine, desk.root.SettingsKey());
}

/// What the operator has set; other values than `usual` everywhere where they can be.
void SetAllAnew(SettingsDesk& desk) {
  for (ComponentKind kind : kComponents) {
    desk.form.servers.Prior[kind].SetListIndex(4);
    desk.form.servers.TTO[kind].SetText("123456789 and too long for a small text");
    desk.form.servers.chkAutoStart[kind].SetChecked(true);
    desk.form.servers.chkAK[IndexOf(kind)].SetChecked(true);
  }
  desk.form.servers.WLog.SetChecked(true);
  desk.form.servers.SMinimized.SetChecked(true);
}

TEST(ScarceMemoryForSettings, SavingLeavesEachValueAsItWasOrAsItIsNow) {
  Values old;
  Values now;
  const int failed = FailEachAllocation([&](ScarceRun& run) {
    SettingsDesk desk;
    desk.machine.recorder.CountOnly();
    ASSERT_EQ(desk.Load(), "loaded");
    desk.Save();
    const Values before = ValuesOf(desk);
    SetAllAnew(desk);
    const Ended ended = run.Act([&] { desk.Save(); });
    EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
    if (now.empty()) {
      old = before;
      now = ValuesOf(desk);
      EXPECT_NE(now, old);
    }
    ASSERT_EQ(ValuesOf(desk).size(), now.size());
    for (const auto& [name, text] : ValuesOf(desk)) {
      EXPECT_TRUE(text == old[name] || text == now[name]) << name << " = " << text;
    }
    desk.Save();
    EXPECT_EQ(ValuesOf(desk), now);
  });
  EXPECT_GT(failed, 50);
}

TEST(ScarceMemoryForSettings, SavingForTheFirstTimeTearsNone) {
  Values now;
  const int failed = FailEachAllocation([&](ScarceRun& run) {
    SettingsDesk desk;
    desk.machine.recorder.CountOnly();
    ASSERT_EQ(desk.Load(), "loaded");
    SetAllAnew(desk);
    run.Act([&] { desk.Save(); });
    if (now.empty()) now = ValuesOf(desk);
    for (const auto& [name, text] : ValuesOf(desk)) EXPECT_EQ(text, now[name]) << name;
  });
  EXPECT_GT(failed, 50);
}

TEST(ScarceMemoryForSettings, LoadingRaisesAndChangesNoneOfThem) {
  const int failed = FailEachAllocation([](ScarceRun& run) {
    SettingsDesk desk;
    desk.machine.recorder.CountOnly();
    ASSERT_EQ(desk.Load(), "loaded");
    SetAllAnew(desk);
    desk.Save();
    const Values saved = ValuesOf(desk);
    SettingsDesk other;
    for (const auto& [name, text] : saved) {
      other.machine.registry.Put(Hive::LocalMachine, other.root.SettingsKey(), name,
                                 {kRegistryText, text});
    }
    other.machine.recorder.CountOnly();
    std::string loaded;
    const Ended ended = run.Act([&] { loaded = other.Load(); });
    EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
    EXPECT_EQ(ValuesOf(other), saved);
    EXPECT_EQ(other.Load(), "loaded");
    EXPECT_EQ(other.Shown("MapPri"), "4");
    EXPECT_EQ(other.Shown("LoginTimeout"), "123456789 and too long for a small text");
  });
  EXPECT_GT(failed, 50);
}

TEST(ScarceMemoryForCommands, ALineRaisesOrIsReadWhole) {
  const std::vector<std::vector<std::string>> lines = {
      {"--state", "json"},
      {"--wait", "login", "listening", "60"},
      {"--nothing that anybody knows, and long enough for memory"},
      {"--help"},
      {},
  };
  for (const auto& arguments : lines) {
    const CommandLine whole = ReadCommandLine(arguments);
    FailEachAllocation([&](ScarceRun& run) {
      CommandLine line;
      const Ended ended = run.Act([&] { line = ReadCommandLine(arguments); });
      EXPECT_EQ(ended == Ended::WithBadAlloc, run.Failed());
      if (ended == Ended::WithBadAlloc) return;
      EXPECT_EQ(line.command, whole.command);
      EXPECT_EQ(line.complaint, whole.complaint);
    });
  }
}

}  // namespace
}  // namespace tarvo
