// The files that the launcher rewrites for the servers' sake, and those who hold them meanwhile.
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr char kConf[] = "C:\\srv\\conf\\battle_athena.conf";
constexpr char kSet[] = "C:\\srv\\randomize.xml";
constexpr char kCalendar[] = "C:\\srv\\rndcalendar.xml";
constexpr char kMarks[] = "hidden; the operators may write, everybody else reads";

struct Rewritten {
  const char* path;
  const char* button;
  std::size_t index;
};

class RewrittenFile : public LauncherStory, public testing::WithParamInterface<Rewritten> {
 protected:
  RewrittenFile() {
    machine.files.Put(kSet,
                      "<Randomize>\r\n\t<base_exp_rate Min=\"5\" Max=\"9\"/>\r\n"
                      "</Randomize>\r\n");
    machine.files.Put(kCalendar, "<Calendar>\r\n\t<Mon_08:30 Restart=\"No\"/>\r\n</Calendar>\r\n");
    machine.random.Script({0.9});
    before_ = Text();
    machine.files.Mark(GetParam().path, kMarks);
    StartLauncher();
    Page().rEnd.Type("12");
    launcher->ForgetLog();
  }

  RandomizerPage& Page() { return launcher->TheForm().randomizer; }
  std::string Text() { return machine.files.TextOf(GetParam().path); }
  /// Presses the button that rewrites the file; how long that took.
  std::uint64_t Press() {
    const std::uint64_t begun = machine.clock.Age();
    launcher->Click(GetParam().button, GetParam().index);
    return machine.clock.Age() - begun;
  }

  std::string before_;
};

INSTANTIATE_TEST_SUITE_P(HeldFiles, RewrittenFile,
                         testing::Values(Rewritten{kConf, "Command2", 0},
                                         Rewritten{kSet, "rAdd", 0},
                                         Rewritten{kCalendar, "cmdCalendar", 0}),
                         [](const auto& the) { return std::string(the.param.button); });

TEST_P(RewrittenFile, IsWrittenWhenAScannerLetsItGo) {
  machine.files.Hold(GetParam().path, 3000);
  EXPECT_EQ(Press(), 3000u);
  EXPECT_NE(Text(), before_);
  EXPECT_EQ(launcher->CountInLog(std::string("Can't write ") + kConf + " file."), 0u);
}

TEST_P(RewrittenFile, StaysAsItWasWhenItIsHeldForGood) {
  machine.files.Hold(GetParam().path, SimFiles::kForGood);
  EXPECT_EQ(Press(), Patience::kLongestHold);
  EXPECT_EQ(Text(), before_);
  EXPECT_FALSE(launcher->Ended());
  EXPECT_EQ(machine.eventLog.Entries().size(), 1u);
}

TEST_P(RewrittenFile, KeepsItsMarks) {
  Press();
  EXPECT_NE(Text(), before_);
  EXPECT_EQ(machine.files.MarksOf(GetParam().path), kMarks);
}

TEST_P(RewrittenFile, IsRewrittenWhereItsLinkLeads) {
  const std::string real = "D:\\shared\\kept";
  machine.files.Remove(GetParam().path);
  machine.files.Put(real, before_);
  machine.files.Link(GetParam().path, real);
  Press();
  EXPECT_TRUE(machine.files.IsLink(GetParam().path));
  EXPECT_NE(machine.files.TextOf(real), before_);
}

TEST_P(RewrittenFile, IsWrittenByAnAttemptThatTakesLongerThanThePatience) {
  machine.files.SetAttemptTime(6000);
  machine.files.Hold(GetParam().path, 7000);
  EXPECT_EQ(Press(), 12100u);
  EXPECT_NE(Text(), before_);
}

}  // namespace
}  // namespace tarvo
