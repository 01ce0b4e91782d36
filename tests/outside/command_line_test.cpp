#include "outside/command_line.h"

#include <gtest/gtest.h>

#include "core/restart_state.h"

namespace tarvo {
namespace {

using Arguments = std::vector<std::string>;

Command Of(CommandVerb verb) {
  Command command;
  command.verb = verb;
  return command;
}

Command OfComponent(CommandVerb verb, std::optional<ComponentKind> component) {
  Command command = Of(verb);
  command.component = component;
  return command;
}

Command State(StateForm form) {
  Command command = Of(CommandVerb::State);
  command.form = form;
  return command;
}

Command Wait(AwaitedState awaited, std::optional<ComponentKind> component, std::uint32_t seconds) {
  Command command = OfComponent(CommandVerb::Wait, component);
  command.awaited = awaited;
  command.seconds = seconds;
  return command;
}

Command Check(bool json) {
  Command command = Of(CommandVerb::Check);
  command.json = json;
  return command;
}

TEST(CommandLineTest, EveryCommandThatIsThere) {
  struct Row {
    Arguments arguments;
    Command command;
  };
  const Row rows[] = {
      {{"--state"}, State(StateForm::Text)},
      {{"--state", "text"}, State(StateForm::Text)},
      {{"--state", "json"}, State(StateForm::Json)},
      {{"--state", "prometheus"}, State(StateForm::Prometheus)},
      {{"--start", "login"}, OfComponent(CommandVerb::Start, ComponentKind::Login)},
      {{"--start", "all"}, OfComponent(CommandVerb::Start, std::nullopt)},
      {{"--stop", "char"}, OfComponent(CommandVerb::Stop, ComponentKind::Char)},
      {{"--restart", "map"}, OfComponent(CommandVerb::Restart, ComponentKind::Map)},
      {{"--wait", "listening", "all", "0"}, Wait(AwaitedState::Listening, std::nullopt, 0)},
      {{"--wait", "stopped", "map", "604800"},
       Wait(AwaitedState::Stopped, ComponentKind::Map, 604800)},
      {{"--randomize"}, Of(CommandVerb::Randomize)},
      {{"--upgrade"}, Of(CommandVerb::Upgrade)},
      {{"--close"}, Of(CommandVerb::Close)},
      {{"--unload"}, Of(CommandVerb::Unload)},
      {{"--check"}, Check(false)},
      {{"--check", "--json"}, Check(true)},
      {{"--help"}, Of(CommandVerb::Help)},
      {{"--version"}, Of(CommandVerb::Version)},
  };
  for (const Row& row : rows) {
    const CommandLine read = ReadCommandLine(row.arguments);
    EXPECT_EQ(read.complaint, "") << row.arguments[0];
    ASSERT_TRUE(read.command.has_value()) << row.arguments[0];
    EXPECT_EQ(*read.command, row.command) << row.arguments[0];
  }
}

TEST(CommandLineTest, WrongUsageIsToldAndIsNoCommand) {
  struct Row {
    Arguments arguments;
    std::string complaint;
  };
  const std::string wait =
      "--wait takes listening or stopped, then login, char, map or all, then the seconds to wait, "
      "at most 604800.";
  const Row rows[] = {
      {{"--"}, "There is no command --."},
      {{"--State"}, "There is no command --State."},
      {{"--states"}, "There is no command --states."},
      {{"--state="}, "There is no command --state=."},
      {{"--minimized"}, "There is no command --minimized."},
      {{"--state", ""}, "--state takes text, json or prometheus, or nothing."},
      {{"--state", "JSON"}, "--state takes text, json or prometheus, or nothing."},
      {{"--state", "json", "json"}, "--state takes text, json or prometheus, or nothing."},
      {{"--start"}, "--start takes login, char, map or all."},
      {{"--stop", "Login"}, "--stop takes login, char, map or all."},
      {{"--restart", "login", "map"}, "--restart takes login, char, map or all."},
      {{"--wait"}, wait},
      {{"--wait", "listening", "all"}, wait},
      {{"--wait", "listening", "10", "all"}, wait},
      {{"--wait", "started", "all", "10"}, wait},
      {{"--wait", "stopped", "all", "604801"}, wait},
      {{"--wait", "stopped", "all", "4294967296"}, wait},
      {{"--wait", "stopped", "all", "-1"}, wait},
      {{"--wait", "stopped", "all", "1.5"}, wait},
      {{"--wait", "stopped", "all", ""}, wait},
      {{"--wait", "stopped", "all", "10", "x"}, wait},
      {{"--close", "now"}, "--close takes nothing after it."},
      {{"--help", "--help"}, "--help takes nothing after it."},
      {{"--check", "json"}, "--check takes --json, or nothing."},
      {{"--check", "--json", "--json"}, "--check takes --json, or nothing."},
  };
  for (const Row& row : rows) {
    const CommandLine read = ReadCommandLine(row.arguments);
    EXPECT_FALSE(read.command.has_value()) << ::testing::PrintToString(row.arguments);
    EXPECT_EQ(read.complaint, row.complaint) << ::testing::PrintToString(row.arguments);
  }
}

// A shortcut may carry anything, and always has: the launcher starts.
TEST(CommandLineTest, OtherArgumentsStartTheLauncherAsEver) {
  for (const Arguments& arguments :
       {Arguments{}, Arguments{""}, Arguments{"state"}, Arguments{"-state"}, Arguments{"/?"},
        Arguments{"x", "--state"}, Arguments{"--resume"}, Arguments{"--resume", "nonsense"}}) {
    const CommandLine read = ReadCommandLine(arguments);
    EXPECT_FALSE(read.command.has_value()) << ::testing::PrintToString(arguments);
    EXPECT_EQ(read.complaint, "") << ::testing::PrintToString(arguments);
  }
}

TEST(CommandLineTest, ARestartAfterAFaultIsNoCommand) {
  RestartState state;
  state.underControl = {{true, false, true}};
  state.minimized = true;
  state.settings = {{"LoginPri", "2"}};
  Arguments arguments;
  std::string text = ArgumentsOf(state) + " ";
  for (std::size_t end = text.find(' '); end != text.npos; end = text.find(' ')) {
    arguments.push_back(text.substr(0, end));
    text.erase(0, end + 1);
  }
  ASSERT_EQ(arguments[0], "--resume");
  EXPECT_FALSE(ReadCommandLine(arguments).command.has_value());
  EXPECT_EQ(ReadCommandLine(arguments).complaint, "");
}

TEST(CommandLineTest, TheUsageNamesEveryCommand) {
  for (const char* command :
       {"--state", "--start", "--stop", "--restart", "--wait", "--randomize", "--upgrade",
        "--close", "--unload", "--check", "--help", "--version"}) {
    EXPECT_NE(UsageText().find(std::string("exe ") + command), std::string::npos) << command;
  }
}

}  // namespace
}  // namespace tarvo
