#include "events/event_settings.h"

#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

class EventSettingsStory : public LauncherStory {
 protected:
  /// Starts and closes a launcher, in which the box is brought into that state.
  void CloseWith(std::optional<bool> checked) {
    StartLauncher();
    if (checked) launcher->Check("chkEvents", 0, *checked);
    launcher->Close();
  }
  bool CheckedAtStart() {
    StartLauncher();
    return launcher->TheForm().servers.chkEvents.Checked();
  }
};

TEST_F(EventSettingsStory, AreOffAndNotStoredUntilSomebodySwitchesThemOn) {
  CloseWith(std::nullopt);
  EXPECT_EQ(machine.Setting("RunOnEvent"), "(none)");
  CloseWith(true);
  EXPECT_EQ(machine.Setting("RunOnEvent"), "1");
  EXPECT_TRUE(CheckedAtStart());
  CloseWith(false);
  EXPECT_EQ(machine.Setting("RunOnEvent"), "0");
  EXPECT_FALSE(CheckedAtStart());
}

TEST_F(EventSettingsStory, AreOnForEveryTextButZeroAndNone) {
  const struct {
    const char* text;
    bool on;
  } rows[] = {{"1", true}, {"0", false}, {"", false}, {"yes", true}};
  for (const auto& row : rows) {
    machine.SetSetting("RunOnEvent", row.text);
    EXPECT_EQ(CheckedAtStart(), row.on) << row.text;
  }
}

TEST_F(EventSettingsStory, AreHandedToTheSuccessorOfALauncherThatDied) {
  machine.SetSetting("RunOnEvent", "1");
  StartLauncher();
  launcher->Pass(std::chrono::minutes(2));
  launcher->Check("chkEvents", 0, false);
  machine.selfRestart.Crash();
  ASSERT_TRUE(machine.selfRestart.started);
  EXPECT_FALSE(CheckedAtStart());
}

}  // namespace
}  // namespace tarvo
