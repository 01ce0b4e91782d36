#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class LogFile : public LauncherStory {
 protected:
  void Open() {
    launcher->TheProgram().Dispatch().Run([this] { launcher->TheForm().status.RTLog.OpenFile(); });
  }
  using Paths = std::vector<std::string>;
};

TEST_F(LogFile, OfTodayIsOpenedFromTheLog) {
  machine.SetSetting("WriteLog", "1");
  StartLauncher();
  Open();
  EXPECT_EQ(machine.documents.opened, (Paths{"C:\\srv\\20261121.log"}));
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(LogFile, IsThatOfTheDayOnWhichItIsAskedFor) {
  machine.SetSetting("WriteLog", "1");
  StartLauncher();
  launcher->Pass(24h);
  Open();
  EXPECT_TRUE(machine.documents.opened.empty()) << "nothing was written on the second day";
  launcher->Click("bStart", 0);
  Open();
  EXPECT_EQ(machine.documents.opened, (Paths{"C:\\srv\\20261122.log"}));
}

TEST_F(LogFile, ThatIsNotThereIsExplained) {
  StartLauncher();
  Open();
  EXPECT_TRUE(machine.documents.opened.empty());
  EXPECT_EQ(machine.boxes.NewTexts(),
            "There is no log file of today yet.\r\n"
            "Check \"Save status in log file?\" on the page Servers to have one.\n");
  EXPECT_EQ(machine.boxes.Shown()[0].icon, BoxIcon::Information);
}

}  // namespace
}  // namespace tarvo
