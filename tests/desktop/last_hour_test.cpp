#include "desktop/last_hour.h"

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kNewest = StatusStrip::kCells - 1;

/// A strip as letters: '.' unseen, 's' stopped, 'n' not watched, 'h' healthy, 'T' trouble. Only the
/// newest cells are told.
std::string Newest(const StatusStrip& strip, std::size_t cells) {
  std::string letters;
  for (std::size_t i = StatusStrip::kCells - cells; i < StatusStrip::kCells; ++i) {
    letters += ".snhT"[static_cast<std::size_t>(strip.Cell(i))];
  }
  return letters;
}

class CountingMirror final : public ControlMirror {
 public:
  void Refresh(const Control&) override { ++refreshed; }
  int refreshed = 0;
};

TEST(Strip, BeginsUnseen) {
  const StatusStrip strip;
  EXPECT_EQ(strip.CountOf(StripState::Unseen), StatusStrip::kCells);
}

TEST(Strip, TheNewestCellSaysWhatWasNotedLastUnlessThereWasTrouble) {
  StatusStrip strip;
  strip.Note(StripState::Stopped, 0);
  strip.Note(StripState::Healthy, 0);
  EXPECT_EQ(Newest(strip, 2), ".h");
  strip.Note(StripState::Trouble, 0);
  for (StripState later : {StripState::Healthy, StripState::Stopped, StripState::NotWatched}) {
    EXPECT_FALSE(strip.Note(later, 0));
    EXPECT_EQ(Newest(strip, 2), ".T");
  }
}

TEST(Strip, MovesOnAndLosesItsOldestCells) {
  StatusStrip strip;
  strip.Note(StripState::Trouble, 0);
  for (std::size_t i = 0; i < kNewest; ++i) strip.Note(StripState::Healthy, 1);
  EXPECT_EQ(strip.Cell(0), StripState::Trouble);
  EXPECT_EQ(strip.CountOf(StripState::Healthy), kNewest);
  strip.Note(StripState::Healthy, 1);
  EXPECT_EQ(strip.CountOf(StripState::Trouble), 0U);
}

TEST(Strip, CellsThatWereSkippedAreUnseen) {
  StatusStrip strip;
  strip.Note(StripState::Healthy, 0);
  strip.Note(StripState::Stopped, 3);
  EXPECT_EQ(Newest(strip, 5), ".h..s");
  for (std::size_t jump : {StatusStrip::kCells, StatusStrip::kCells + 1, std::size_t{1} << 40}) {
    strip.Note(StripState::Healthy, jump);
    EXPECT_EQ(strip.CountOf(StripState::Unseen), kNewest) << jump;
    EXPECT_EQ(strip.Cell(kNewest), StripState::Healthy) << jump;
  }
}

TEST(Strip, IsDrawnAgainOnlyWhenItLooksDifferent) {
  StatusStrip strip;
  CountingMirror mirror;
  strip.SetMirror(&mirror);
  EXPECT_TRUE(strip.Note(StripState::Healthy, 0));
  for (int i = 0; i < 100; ++i) EXPECT_FALSE(strip.Note(StripState::Healthy, 0));
  EXPECT_EQ(mirror.refreshed, 1);
  EXPECT_TRUE(strip.Note(StripState::Healthy, 1));
  EXPECT_EQ(mirror.refreshed, 2);
  strip.SetMirror(nullptr);
}

TEST(LastHourStates, AreThoseOfTheLightsAndStopped) {
  struct Row {
    AlarmState alarm;
    ProcessId id;
    StripState wanted;
  };
  for (const Row& row : {Row{AlarmState::Healthy, 5, StripState::Healthy},
                         Row{AlarmState::Healthy, 0, StripState::Healthy},
                         Row{AlarmState::Trouble, 5, StripState::Trouble},
                         Row{AlarmState::Trouble, 0, StripState::Trouble},
                         Row{AlarmState::NotWatched, 5, StripState::NotWatched},
                         Row{AlarmState::NotWatched, 0, StripState::Stopped}}) {
    Component component;
    component.AlarmState = row.alarm;
    component.ProcessId = row.id;
    EXPECT_EQ(StripStateOf(component), row.wanted);
  }
}

class LastHourStory : public LauncherStory {
 protected:
  const StatusStrip& Strip(ComponentKind kind) { return launcher->TheForm().frame.Strip[kind]; }
};

TEST_F(LastHourStory, TellsWhatHappenedWhileTheOperatorWasAway) {
  StartLauncher();
  launcher->Pass(60s);
  launcher->Click("bStart", 3);
  launcher->Pass(60s);
  Crash(kMap);
  launcher->Pass(120s);
  // Every cell is half a minute; the first tick comes 2 s after the start.
  EXPECT_EQ(Newest(Strip(ComponentKind::Map), 9), ".sshhThhh");
  EXPECT_EQ(Newest(Strip(ComponentKind::Login), 9), ".sshhhhhh");
  EXPECT_EQ(Strip(ComponentKind::Map).ToolTip(),
            "Map, last hour: trouble 0.5 min, healthy 2.5 min, stopped 1 min");
}

TEST_F(LastHourStory, SaysSoBeforeItHasSeenAnything) {
  StartLauncher();
  EXPECT_EQ(Strip(ComponentKind::Char).ToolTip(), "Char, last hour: nothing seen");
}

TEST_F(LastHourStory, KeepsItsWordsWhileNothingChanges) {
  StartLauncher();
  launcher->Pass(10s);
  StatusStrip& strip = launcher->TheForm().frame.Strip[ComponentKind::Login];
  strip.SetToolTip("as it was");
  launcher->Pass(2s);
  EXPECT_EQ(strip.ToolTip(), "as it was");
}

TEST_F(LastHourStory, TellsOfAServerThatNobodyWatchesYet) {
  StartLauncher();
  launcher->Click("bStart", 2);
  launcher->Pass(2s);
  EXPECT_EQ(Strip(ComponentKind::Map).ToolTip(), "Map, last hour: not watched 0.5 min");
}

TEST_F(LastHourStory, AnHourLaterTheTroubleIsGone) {
  StartWithAllServers();
  Crash(kMap);
  launcher->Pass(30s);
  EXPECT_EQ(Strip(ComponentKind::Map).CountOf(StripState::Trouble), 1U);
  launcher->Pass(59min);
  EXPECT_EQ(Strip(ComponentKind::Map).CountOf(StripState::Trouble), 1U);
  launcher->Pass(2min);
  EXPECT_EQ(Strip(ComponentKind::Map).CountOf(StripState::Trouble), 0U);
  EXPECT_EQ(Strip(ComponentKind::Map).CountOf(StripState::Healthy), StatusStrip::kCells);
  EXPECT_EQ(Strip(ComponentKind::Map).ToolTip(), "Map, last hour: healthy 60 min");
}

TEST_F(LastHourStory, ASleepOfTheMachineIsUnseen) {
  StartWithAllServers();
  launcher->Pass(60s);
  machine.clock.Advance(5 * 60000);
  launcher->Pass(2s);
  EXPECT_EQ(Strip(ComponentKind::Login).CountOf(StripState::Healthy), 4U);
  EXPECT_EQ(Newest(Strip(ComponentKind::Login), 11), "h.........h");
}

TEST_F(LastHourStory, GoesOnOverTheWrapOfTheTickCount) {
  machine.clock.SetTicks(0x100000000 - 60000);
  StartLauncher();
  launcher->Pass(5min);
  EXPECT_EQ(Strip(ComponentKind::Char).CountOf(StripState::Stopped), 10U);
  EXPECT_EQ(Newest(Strip(ComponentKind::Char), 11), ".ssssssssss");
}

TEST_F(LastHourStory, LeavesNothingBehind) {
  StartLauncher();
  launcher->Close();
  const auto before = machine.registry.ValuesOf(Hive::LocalMachine, machine.SettingsKey());
  StartWithAllServers();
  machine.recorder.Forget();
  launcher->Pass(60min);
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0U);
  EXPECT_EQ(machine.recorder.CountOf("files.append"), 0U);
  StartLauncher();
  EXPECT_EQ(Strip(ComponentKind::Map).CountOf(StripState::Unseen), StatusStrip::kCells);
  EXPECT_EQ(machine.registry.ValuesOf(Hive::LocalMachine, machine.SettingsKey()), before);
}

TEST(LastHourWords, OfAStripThatHasSeenNothing) {
  EXPECT_EQ(WordsOf(StatusStrip(), ComponentKind::Login), "Login, last hour: nothing seen");
}

}  // namespace
}  // namespace tarvo
