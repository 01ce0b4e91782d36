#include "outside/command_run.h"

#include <algorithm>

#include "outside/command_record.h"

namespace tarvo {
namespace {

struct Failure {
  CallEnd end;
  int exitCode;
  const char* text;
};

constexpr Failure kFailures[] = {
    {CallEnd::NoLauncher, kCommandNoLauncher, "No launcher runs in this server root.\n"},
    {CallEnd::NotReached, kCommandRefused,
     "A launcher runs in this server root, but cannot be reached from here: it is starting or "
     "ending, or runs in another session.\n"},
    {CallEnd::LineBroken, kCommandRefused, "The launcher ended without an answer.\n"},
    {CallEnd::TimeOver, kCommandTimeOver, "The launcher has not answered.\n"}};

class CommandRun {
 public:
  explicit CommandRun(const CommandPorts& ports) : ports_(ports) {}

  int Ask(const Command& command);
  int Wait(const Command& command);
  bool Print(const std::string& text) {
    return ports_.console.PrintText(OutputStream::Output, text);
  }
  int Complain(int exitCode, const std::string& text) {
    ports_.console.PrintText(OutputStream::Error, text);
    return exitCode;
  }

 private:
  CommandAnswer Call(const Command& command, std::uint32_t longestWait);
  bool MayComeYet(const CommandAnswer& answer) const {
    return answer.exitCode == kCommandTimeOver || end_ == CallEnd::NotReached;
  }

  CallEnd end_ = CallEnd::NoLauncher;  ///< Of the last call.
  const CommandPorts& ports_;
};

/// The launcher's answer, or what is to be said of there being none.
CommandAnswer CommandRun::Call(const Command& command, std::uint32_t longestWait) {
  const CallResult result =
      ports_.launcher.Call(ports_.instanceName, RecordOf(command), longestWait);
  end_ = result.end;
  for (const Failure& failure : kFailures) {
    if (failure.end == result.end) return {failure.exitCode, failure.text};
  }
  return AnswerOf(result.answer).value_or(CommandAnswer{kCommandRefused, "No answer.\n"});
}

int CommandRun::Ask(const Command& command) {
  const CommandAnswer answer = Call(command, kLongestAnswerTime);
  if (answer.exitCode != kCommandDone) return Complain(answer.exitCode, answer.text);
  const bool forPrograms = command.verb == CommandVerb::State && command.form != StateForm::Text;
  const bool printed = answer.text.empty() ||
                       (forPrograms ? ports_.console.PrintUtf8(OutputStream::Output, answer.text)
                                    : Print(answer.text));
  return printed ? kCommandDone : Complain(kCommandRefused, "The output cannot be written.\n");
}

/// A launcher that is starting is waited for, too. At least one look, however short the time is.
/// Ticks wrap after 49 days, a wait lasts a week.
int CommandRun::Wait(const Command& command) {
  Command look = command;
  look.seconds = 0;
  const std::uint32_t begun = ports_.clock.Milliseconds();
  const std::uint32_t longest = command.seconds * 1000;
  for (;;) {
    const std::uint32_t passed = ports_.clock.Milliseconds() - begun;
    const std::uint32_t left = longest - std::min(longest, passed);
    const CommandAnswer answer = Call(look, std::max(left, kWaitStep));
    if (answer.exitCode == kCommandDone) return kCommandDone;
    if (!MayComeYet(answer)) return Complain(answer.exitCode, answer.text);
    if (ports_.clock.Milliseconds() - begun >= longest) {
      return Complain(kCommandTimeOver, "The time is over.\n");
    }
    ports_.clock.Pause(std::min(kWaitStep, std::max(left, 1U)));
  }
}

}  // namespace

bool IsAnsweredHere(const CommandLine& line) {
  return !line.complaint.empty() || (line.command && line.command->verb != CommandVerb::Check);
}

int RunCommand(const CommandLine& line, const CommandPorts& ports) {
  CommandRun run(ports);
  if (!line.complaint.empty()) {
    return run.Complain(kCommandWrongUsage, line.complaint + "\n" + UsageText());
  }
  switch (line.command->verb) {
    case CommandVerb::Help:
      run.Print(UsageText());
      return kCommandDone;
    case CommandVerb::Version:
      run.Print("Tarvo Launcher v." + ports.version + "\n");
      return kCommandDone;
    case CommandVerb::Wait:
      return run.Wait(*line.command);
    default:
      return run.Ask(*line.command);
  }
}

}  // namespace tarvo
