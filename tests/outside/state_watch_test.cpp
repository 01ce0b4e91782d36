#include "outside/state_watch.h"

#include <gtest/gtest.h>

#include "form/bindings.h"
#include "tests/outside/command_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

TEST(StateOfTest, EveryFactThatDecides) {
  struct Row {
    StateFacts facts;
    ComponentState state;
  };
  const Row rows[] = {
      {{}, ComponentState::Stopped},
      {{.hasProcess = true, .inGrace = true, .silent = true, .killed = true, .probed = true},
       ComponentState::Stopped},
      {{.underControl = true}, ComponentState::Refused},
      {{.underControl = true, .inGrace = true}, ComponentState::Refused},
      {{.underControl = true, .hasProcess = true, .silent = true, .killed = true},
       ComponentState::Killed},
      {{.underControl = true, .hasProcess = true, .inGrace = true, .probed = true},
       ComponentState::Starting},
      {{.underControl = true, .hasProcess = true, .silent = true}, ComponentState::Frozen},
      {{.underControl = true, .hasProcess = true, .probed = true}, ComponentState::Listening},
      {{.underControl = true, .hasProcess = true}, ComponentState::Running},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(StateOf(row.facts), row.state) << NameOf(row.state);
  }
}

TEST(NextEntryTest, TheFirstMomentAfterNow) {
  // 2026-11-21 is a Saturday.
  const LocalTime now = ParseDateTime("2026-11-21 10:00:30");
  std::optional<MinuteOfWeek> ranLast;
  const auto next = [&](const std::vector<std::string>& lines) -> std::string {
    const auto entry = NextEntry(lines, now, ranLast);
    if (!entry) return "none";
    return GeneralDate(entry->at) + (entry->restarts ? " restart" : "");
  };
  EXPECT_EQ(next({}), "none");
  EXPECT_EQ(next({"nonsense", "Sat 24:00 restart=N", "Xyz 10:00 restart=N"}), "none");
  EXPECT_EQ(next({"Sat 10:01 restart=N"}), "2026-11-21 10:01:00");
  EXPECT_EQ(next({"Sat 10:00 restart=Y"}), "2026-11-28 10:00:00 restart");
  EXPECT_EQ(next({"Fri 23:59 restart=N", "Sun 00:00 restart=Y", "Mon 00:00 restart=N"}),
            "2026-11-22 00:00:00 restart");
  EXPECT_EQ(next({"Sun 00:00 restart=Y", "Sun 00:00 restart=N"}), "2026-11-22 00:00:00 restart");
  EXPECT_EQ(next({"Sun 00:00 restart=N", "Sun 00:00 restart=Y"}), "2026-11-22 00:00:00 restart");
  ranLast = {7, 0, 0};
  EXPECT_EQ(next({"Sun 00:00 restart=N", "Sun 00:00 restart=Y"}), "none");
  EXPECT_EQ(next({"Sun 00:00 restart=Y", "Wed 03:00 restart=N"}), "2026-11-25 03:00:00");
}

class StateWatchTest : public CommandStory {
 protected:
  StateWatchTest() {
    for (const char* name : {"Login", "Char", "Map"}) {
      machine.SetSetting(std::string(name) + "AutoKillEnabled", "1");
    }
  }
  /// The component's line of `--state`, up to its endpoint.
  std::string Of(const std::string& name) {
    const std::string text = Send({"--state"});
    const std::size_t begin = text.find("\n" + name + ": ") + name.size() + 3;
    return text.substr(begin, text.find(", at ", begin) - begin);
  }
};

TEST_F(StateWatchTest, AComponentsWayThroughItsStates) {
  StartLauncher();
  EXPECT_EQ(Of("Login"), "stopped since 2026-11-21 10:00:00, no restarts");
  launcher->Pass(5s);
  launcher->Click("bStart", 0);
  const std::string process = std::to_string(Process(kLogin).id);
  EXPECT_EQ(Of("Login"),
            "starting since 2026-11-21 10:00:05, process " + process + ", 50.0 MB, no restarts");
  launcher->Pass(4s);
  EXPECT_EQ(Of("Login"),
            "listening since 2026-11-21 10:00:08, process " + process + ", 50.0 MB, no restarts");
  Freeze(kLogin);
  launcher->Pass(10s);
  EXPECT_EQ(Of("Login"),
            "frozen since 2026-11-21 10:00:18, process " + process + ", 50.0 MB, no restarts");
  Thaw(kLogin);
  launcher->Pass(2s);
  EXPECT_EQ(Of("Login"),
            "listening since 2026-11-21 10:00:20, process " + process + ", 50.0 MB, no restarts");
  launcher->Click("bStart", 0);
  EXPECT_EQ(Of("Login"), "stopped since 2026-11-21 10:00:21, no restarts");
}

TEST_F(StateWatchTest, AnUnwatchedComponentRuns) {
  machine.SetSetting("CharAutoKillEnabled", "0");
  StartLauncher();
  launcher->Click("bStart", 1);
  launcher->Pass(6s);
  EXPECT_TRUE(Of("Char").starts_with("running since 2026-11-21 10:00:05")) << Of("Char");
  EXPECT_EQ(Send({"--wait", "listening", "char", "0"}), "0: ");
}

TEST_F(StateWatchTest, ARefusedStartIsToldAsOne) {
  machine.processes.Program(kMap).launchFault = NeedsElevation();
  StartLauncher();
  launcher->Click("bStart", 2);
  EXPECT_EQ(Of("Map"), "refused since 2026-11-21 10:00:00, no restarts");
  launcher->Pass(11s);
  EXPECT_EQ(Of("Map"), "refused since 2026-11-21 10:00:00, no restarts");
}

TEST_F(StateWatchTest, RestartsAreCountedByTheirCause) {
  StartWithAllServers();
  Crash(kMap);
  launcher->Pass(5s);
  EXPECT_NE(Of("Map").find("1 restart (1 crash)"), std::string::npos) << Of("Map");
  Crash(kMap);
  launcher->Pass(5s);
  launcher->Pass(20s);
  Freeze(kMap);
  launcher->Pass(150s);
  EXPECT_NE(Of("Map").find("3 restarts (2 crash, 1 freeze)"), std::string::npos) << Of("Map");
  Send({"--restart", "map"});
  EXPECT_NE(Of("Map").find("4 restarts (2 crash, 1 freeze, 1 other)"), std::string::npos);
  EXPECT_NE(Of("Login").find("no restarts"), std::string::npos);
  // The operator's own stop and start are none.
  launcher->Click("bStart", 0);
  launcher->Click("bStart", 0);
  EXPECT_NE(Of("Login").find("no restarts"), std::string::npos) << Of("Login");
}

TEST_F(StateWatchTest, AKillIsTheFailureAndTheCrashThatIsFoundAfterItIsNoOther) {
  StartWithAllServers();
  Freeze(kLogin);
  std::string state;
  for (int i = 0; i < 120 && !state.starts_with("killed"); ++i) {
    launcher->Pass(1s);
    state = Of("Login");
  }
  ASSERT_TRUE(state.starts_with("killed since 2026-11-21 10:")) << state;
  const std::string moment = state.substr(13, 19);
  launcher->Pass(5s);
  const std::string text = Send({"--state"});
  EXPECT_NE(text.find("last failure (freeze) " + moment), std::string::npos) << text;
}

TEST_F(StateWatchTest, HowLongAgoIsNotTheWallClocksMatter) {
  StartWithAllServers();
  machine.clock.SetLocal(ParseDateTime("2026-11-21 12:00:00"));
  launcher->Pass(1s);
  const std::string json = Send({"--state", "json"});
  EXPECT_NE(json.find(R"("started":"2026-11-21T10:00:00","started_seconds":12,)"),
            std::string::npos)
      << json;
}

TEST_F(StateWatchTest, TheLightSaysTheSameInOneSentence) {
  StartWithAllServers();
  launcher->Pass(3s);
  const auto tip = [&] { return launcher->TheForm().frame.Sem[ComponentKind::Login].ToolTip(); };
  EXPECT_EQ(tip(), Of("Login"));
  Freeze(kLogin);
  launcher->Pass(12s);
  const std::string& why = launcher->Of(ComponentKind::Login).probeFailure;
  ASSERT_NE(why, "");
  EXPECT_EQ(tip(), Of("Login") + "\r\n" + why);
}

}  // namespace
}  // namespace tarvo
