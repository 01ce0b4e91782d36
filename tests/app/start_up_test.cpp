#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class StartUp : public LauncherStory {};

TEST_F(StartUp, AFirstRunTellsVersionEndpointsAndReady) {
  StartLauncher();
  EXPECT_EQ(launcher->Log(),
            "10:00:00 0 Tarvo Launcher v.1.0.0\n"
            "10:00:00 0 Login Server: 127.0.0.1:6900\n"
            "10:00:00 0 Char Server: 127.0.0.1:6121\n"
            "10:00:00 0 Map Server: 127.0.0.1:5121\n"
            "10:00:00 0 Launcher Ready!\n");
  EXPECT_EQ(launcher->Window().Title(), "[Northwind] - Tarvo Launcher");
  EXPECT_TRUE(launcher->Window().Visible());
  EXPECT_EQ(launcher->TheForm().frame.SSTab1.Page(), 1);
}

TEST_F(StartUp, StartAllBringsThreeServersUp) {
  StartLauncher();
  launcher->ForgetLog();
  launcher->Click("bStart", 3);
  launcher->Pass(10s);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 0 Login Server Started! [Low Priority]\n"
            "10:00:00 0 Char Server Started [Norm Priority]\n"
            "10:00:00 0 Map Server Started [High Priority]\n"
            "10:00:03 0 Listening Login Server\n"
            "10:00:05 0 Listening Char Server\n"
            "10:00:10 0 Listening Map Server\n");
}

}  // namespace
}  // namespace tarvo
