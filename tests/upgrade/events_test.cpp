// What an upgrade reports.

#include "tests/upgrade/upgrade_story.h"

namespace tarvo {
namespace {

class UpgradeEvents : public UpgradeStory {
 protected:
  std::string EventsOfUpgrade() {
    launcher->NewEvents();
    PressUpgrade();
    return launcher->NewEvents();
  }
};

TEST_F(UpgradeEvents, TellItsEndBeforeTheServersAreStartedAgain) {
  StartRunning();
  machine.boxes.AnswerNext(Answer::Yes);
  const std::string events = EventsOfUpgrade();
  const auto upgraded = events.find("10:00:11 upgraded all: Upgrade complete!\n");
  ASSERT_NE(upgraded, std::string::npos) << events;
  EXPECT_LT(events.find("stopped Map"), upgraded);
  EXPECT_GT(events.find("started Login"), upgraded);
  EXPECT_EQ(events.find("upgrade-failed"), std::string::npos);
}

TEST_F(UpgradeEvents, TellARefusal) {
  StartReady();
  TypePath(ComponentKind::Map, "");
  EXPECT_EQ(EventsOfUpgrade(),
            "10:00:00 upgrade-failed all: Update Error: Please, select the right new components "
            "(login, char, map)\n");
}

TEST_F(UpgradeEvents, TellThatNotAllAreNewWhenAllHaveToBe) {
  StartReady();
  ClickOption(1, true);
  PressUpgrade();
  BuildAgain(ComponentKind::Login);
  EXPECT_EQ(EventsOfUpgrade(),
            "10:00:00 upgrade-failed all: Error, some server component have not changes! - "
            "Upgrade stopped\n");
}

TEST_F(UpgradeEvents, TellTheFaultThatEndsIt) {
  StartReady();
  machine.copies.FailCopy(5, FileTrouble::DiskFull, 112, "There is not enough space on the disk");
  EXPECT_EQ(EventsOfUpgrade(),
            "10:00:00 upgrade-failed all: Disk full: Copying C:\\new\\char-server.exe to "
            "C:\\srv\\char-server.exe: There is not enough space on the disk (system error 112)\n");
  EXPECT_TRUE(launcher->Ended());
}

TEST_F(UpgradeEvents, DoNotTellThatNothingIsNew) {
  StartReady();
  PressUpgrade();
  EXPECT_EQ(EventsOfUpgrade(), "");
}

}  // namespace
}  // namespace tarvo
