#include "core/patience.h"

#include <gtest/gtest.h>

#include "tests/simulation/sim_code_page.h"
#include "tests/simulation/sim_files.h"

namespace tarvo {
namespace {

constexpr char kFile[] = "C:\\srv\\kept.conf";

class PatienceTest : public testing::Test {
 protected:
  PatienceTest() { files.Put(kFile, "old"); }

  /// "done", or the fault's number.
  std::string Replace() {
    begun = clock.Age();
    const auto fault = patient.ReplaceText(kFile, "new");
    took = clock.Age() - begun;
    tries = recorder.CountOf("files.replace");
    return fault ? std::to_string(fault->number) : "done";
  }

  CallRecorder recorder;
  SimClock clock;
  SimCodePage codePage;
  SimFiles files{recorder, clock, codePage};
  PatientReplacer patient{files, clock};
  std::uint64_t begun = 0;
  std::uint64_t took = 0;
  std::size_t tries = 0;
};

TEST_F(PatienceTest, AFileThatNobodyHoldsIsReplacedAtOnce) {
  EXPECT_EQ(Replace(), "done");
  EXPECT_EQ(tries, 1u);
  EXPECT_EQ(took, 0u);
}

TEST_F(PatienceTest, AFileThatIsHeldForAMomentIsReplacedWhenItIsLetGo) {
  for (std::uint64_t hold : {1u, 100u, 101u, 4999u, 5000u}) {
    files.Put(kFile, "old");
    files.Hold(kFile, hold);
    EXPECT_EQ(Replace(), "done") << hold;
    EXPECT_EQ(took, (hold + 99) / 100 * 100) << hold;
    EXPECT_EQ(files.TextOf(kFile), "new") << hold;
  }
}

TEST_F(PatienceTest, AFileThatIsHeldForGoodIsGivenUpAfterFiveSeconds) {
  files.Hold(kFile, SimFiles::kForGood);
  EXPECT_EQ(Replace(), "32");
  EXPECT_EQ(took, Patience::kLongestHold);
  EXPECT_EQ(tries, 51u);
  EXPECT_EQ(files.TextOf(kFile), "old");
}

TEST_F(PatienceTest, EveryOtherReasonIsToldAtOnce) {
  files.ProtectFromWriting(kFile);
  EXPECT_EQ(Replace(), "5");
  EXPECT_EQ(tries, 1u);
  EXPECT_EQ(took, 0u);
}

TEST_F(PatienceTest, AnAttemptThatTakesLongDoesNotUseUpThePatience) {
  files.SetAttemptTime(7000);
  files.Hold(kFile, 10000);
  EXPECT_EQ(Replace(), "done");
  EXPECT_EQ(tries, 2u);
  EXPECT_EQ(took, 7000u + 100u + 7000u);
}

TEST_F(PatienceTest, SlowAttemptsEndAfterHalfAMinuteButNotBeforeTheFifth) {
  const struct {
    std::uint64_t attempt;
    std::size_t tries;
  } table[] = {{100, 51}, {400, 51}, {1000, 28}, {2000, 15},
               {5919, 6}, {5920, 5}, {7000, 5},  {60000, 5}};
  for (const auto& entry : table) {
    recorder.Forget();
    files.SetAttemptTime(entry.attempt);
    files.Hold(kFile, SimFiles::kForGood);
    EXPECT_EQ(Replace(), "32");
    EXPECT_EQ(tries, entry.tries) << entry.attempt;
    EXPECT_EQ(took, entry.tries * entry.attempt + (entry.tries - 1) * Patience::kBetweenTries);
  }
}

TEST_F(PatienceTest, TheHalfMinuteEndsAcrossAWrapOfTheTickCount) {
  clock.SetTicks(0xFFFFFFFFu - 3000u);
  files.SetAttemptTime(7000);
  files.Hold(kFile, SimFiles::kForGood);
  EXPECT_EQ(Replace(), "32");
  EXPECT_EQ(tries, 5u);
}

}  // namespace
}  // namespace tarvo
