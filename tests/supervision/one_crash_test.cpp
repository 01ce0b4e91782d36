#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

TEST_F(LauncherStory, ACrashedServerIsStartedAgainAndTheOthersAreLeftAlone) {
  StartWithAllServers();
  const ProcessId login = Process(kLogin).id;
  Crash(kMap);
  launcher->Pass(std::chrono::seconds(5));
  EXPECT_EQ(launcher->Log(),
            "10:00:15 2 Map Server crashed, restarting...\n"
            "10:00:15 0 Map Server Started [High Priority]\n");
  EXPECT_EQ(Process(kLogin).id, login);
}

}  // namespace
}  // namespace tarvo
