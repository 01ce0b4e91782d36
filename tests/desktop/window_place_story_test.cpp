#include "tests/simulation/launcher_story.h"
#include "toolkit/window_place.h"

namespace tarvo {
namespace {

class WindowPlace : public LauncherStory {
 protected:
  std::string Standing() {
    const auto& place = launcher->Window().Standing();
    return place ? TextOfPlace(*place) : "(none)";
  }
};

TEST_F(WindowPlace, IsKeptFromOneRunToTheNext) {
  StartLauncher();
  EXPECT_EQ(Standing(), "(none)");
  launcher->Window().MovedTo({-20, 30, 800, 600});
  launcher->Close();
  EXPECT_EQ(machine.Setting("WindowPlace"), "-20,30,800,600");
  StartLauncher();
  EXPECT_EQ(Standing(), "-20,30,800,600");
}

TEST_F(WindowPlace, OfAWindowThatNobodyMovedIsNotWritten) {
  StartLauncher();
  launcher->Close();
  EXPECT_EQ(machine.Setting("WindowPlace"), "(none)");
}

TEST_F(WindowPlace, ThatIsNoPlaceIsPassedOver) {
  for (const char* text : {"", "here", "1,2,3", "1,2,0,0", "99999,1,1,1"}) {
    machine.SetSetting("WindowPlace", text);
    StartLauncher();
    EXPECT_FALSE(launcher->Ended()) << text;
    EXPECT_EQ(Standing(), "(none)") << text;
  }
}

TEST_F(WindowPlace, IsSavedAtTheEndOfTheSessionToo) {
  StartWithAllServers();
  launcher->Window().MovedTo({1, 2, 800, 600});
  launcher->TheProgram().Dispatch().Run([this] { launcher->Window().EndSession(); });
  EXPECT_EQ(machine.Setting("WindowPlace"), "1,2,800,600");
}

}  // namespace
}  // namespace tarvo
