#include "outside/command_run.h"

#include <gtest/gtest.h>

#include <deque>

#include "outside/command_record.h"
#include "tests/simulation/sim_clock.h"
#include "tests/simulation/sim_console.h"

namespace tarvo {
namespace {

/// Answers from a script; the last one again and again. Each call takes a time.
class ScriptedLauncher final : public LauncherCall {
 public:
  explicit ScriptedLauncher(SimClock& clock) : clock_(clock) {}

  CallResult Call(const std::string& instanceName, const std::string& record,
                  std::uint32_t longestWait) override {
    names.push_back(instanceName);
    records.push_back(record);
    waits.push_back(longestWait);
    clock_.Advance(takes);
    const CallResult result = results.front();
    if (results.size() > 1) results.pop_front();
    return result;
  }
  void Answers(int exitCode, const std::string& text = {}) {
    results.push_back({CallEnd::Answered, BytesOf({exitCode, text})});
  }

  std::deque<CallResult> results;
  std::vector<std::string> names;
  std::vector<std::string> records;
  std::vector<std::uint32_t> waits;
  std::uint32_t takes = 10;

 private:
  SimClock& clock_;
};

class CommandRunTest : public ::testing::Test {
 protected:
  int Run(const std::vector<std::string>& arguments) {
    const CommandLine line = ReadCommandLine(arguments);
    EXPECT_TRUE(IsAnsweredHere(line));
    return RunCommand(line, {console, launcher, clock, "NAME", "1.0.0"});
  }

  SimClock clock;
  SimConsole console;
  ScriptedLauncher launcher{clock};
};

TEST_F(CommandRunTest, HelpAndVersionAskNobody) {
  EXPECT_EQ(Run({"--help"}), 0);
  EXPECT_EQ(console.output, UsageText());
  console.output.clear();
  EXPECT_EQ(Run({"--version"}), 0);
  EXPECT_EQ(console.output, "Tarvo Launcher v.1.0.0\n");
  EXPECT_TRUE(launcher.records.empty());
}

TEST_F(CommandRunTest, WrongUsageIsExplainedOnStandardError) {
  EXPECT_EQ(Run({"--start"}), 2);
  EXPECT_EQ(console.error, "--start takes login, char, map or all.\n" + UsageText());
  EXPECT_EQ(console.output, "");
}

TEST_F(CommandRunTest, AnAnswerIsPrintedWhereItBelongs) {
  launcher.Answers(0, "state\n");
  launcher.Answers(1, "Please, stop servers before close this application\n");
  EXPECT_EQ(Run({"--state"}), 0);
  EXPECT_EQ(console.output, "state\n");
  EXPECT_EQ(Run({"--close"}), 1);
  EXPECT_EQ(console.error, "Please, stop servers before close this application\n");
  EXPECT_EQ(launcher.records,
            (std::vector<std::string>{"TarvoCommand 1 --state text", "TarvoCommand 1 --close"}));
  EXPECT_EQ(launcher.names[0], "NAME");
  EXPECT_EQ(launcher.waits[0], kLongestAnswerTime);
}

TEST_F(CommandRunTest, WhyThereIsNoAnswer) {
  struct Row {
    CallEnd end;
    int exitCode;
    std::string text;
  };
  const Row rows[] = {
      {CallEnd::NoLauncher, 3, "No launcher runs in this server root.\n"},
      {CallEnd::NotReached, 1,
       "A launcher runs in this server root, but cannot be reached from here: it is starting or "
       "ending, or runs in another session.\n"},
      {CallEnd::LineBroken, 1, "The launcher ended without an answer.\n"},
      {CallEnd::TimeOver, 4, "The launcher has not answered.\n"}};
  for (const Row& row : rows) {
    launcher.results = {{row.end, {}}};
    console.error.clear();
    EXPECT_EQ(Run({"--state", "json"}), row.exitCode) << row.text;
    EXPECT_EQ(console.error, row.text);
  }
  launcher.results = {{CallEnd::Answered, "nonsense"}};
  EXPECT_EQ(Run({"--state"}), 1);
  EXPECT_EQ(console.output, "");
}

TEST_F(CommandRunTest, AWaitLooksUntilItHolds) {
  launcher.Answers(4);
  launcher.results.push_back({CallEnd::NotReached, {}});
  launcher.Answers(0);
  const std::uint32_t begun = clock.Milliseconds();
  EXPECT_EQ(Run({"--wait", "listening", "map", "10"}), 0);
  EXPECT_EQ(launcher.records.size(), 3U);
  EXPECT_EQ(launcher.records[0], "TarvoCommand 1 --wait listening map 0");
  EXPECT_EQ(clock.Milliseconds() - begun, 3 * launcher.takes + 2 * kWaitStep);
  EXPECT_EQ(console.output + console.error, "");
}

TEST_F(CommandRunTest, AWaitEndsWithItsTime) {
  launcher.Answers(4);
  const std::uint32_t begun = clock.Milliseconds();
  EXPECT_EQ(Run({"--wait", "stopped", "all", "3"}), 4);
  EXPECT_EQ(console.error, "The time is over.\n");
  const std::uint32_t took = clock.Milliseconds() - begun;
  EXPECT_GE(took, 3000U);
  EXPECT_LT(took, 3000U + kWaitStep);
  launcher.records.clear();
  EXPECT_EQ(Run({"--wait", "stopped", "all", "0"}), 4);
  EXPECT_EQ(launcher.records.size(), 1U);
}

TEST_F(CommandRunTest, AWaitWithoutALauncherIsOver) {
  launcher.results = {{CallEnd::NoLauncher, {}}};
  EXPECT_EQ(Run({"--wait", "stopped", "all", "10"}), 3);
  EXPECT_EQ(console.error, "No launcher runs in this server root.\n");
}

TEST_F(CommandRunTest, AStateThatIsNotTakenWholeIsRefused) {
  launcher.Answers(0, "state\n");
  console.takesNothing = true;
  for (const char* form : {"text", "json", "prometheus"}) {
    EXPECT_EQ(Run({"--state", form}), 1) << form;
    EXPECT_EQ(std::exchange(console.error, {}), "The output cannot be written.\n") << form;
  }
  launcher.results = {};
  launcher.Answers(0);
  EXPECT_EQ(Run({"--start", "all"}), 0) << "has nothing to say";
}

TEST(CommandRecordTest, AnswersComeBackAsTheyWere) {
  for (const CommandAnswer& answer :
       {CommandAnswer{0, ""}, CommandAnswer{1, "no\n"}, CommandAnswer{4, std::string("\0x", 2)}}) {
    EXPECT_EQ(AnswerOf(BytesOf(answer)), answer);
  }
  for (const char* bytes : {"", "TarvoAnswer 1 ", "TarvoAnswer 1 5", "TarvoAnswer 1 x",
                            "TarvoAnswer 2 0", "tarvoAnswer 1 0"}) {
    EXPECT_FALSE(AnswerOf(bytes).has_value()) << bytes;
  }
}

}  // namespace
}  // namespace tarvo
