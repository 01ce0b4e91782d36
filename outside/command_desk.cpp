#include "outside/command_desk.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr char kLessRights[] =
    "The launcher runs with more rights than this program: it tells its state, and takes commands "
    "only from a program that was started as administrator or by the same user, as it was.";

bool OnlyAsks(CommandVerb verb) { return verb == CommandVerb::State || verb == CommandVerb::Wait; }

void SendAnswer(AnswerLine& line, const CommandAnswer& answer) {
  const std::string bytes = BytesOf(answer);
  line.Send(bytes.size() <= kLongestAnswer
                ? bytes
                : BytesOf({kCommandRefused, "The answer is too long to be told.\n"}));
}

bool AlertsRefuse(CommandVerb verb) {
  return verb == CommandVerb::Start || verb == CommandVerb::Stop || verb == CommandVerb::Restart ||
         verb == CommandVerb::Randomize;
}

}  // namespace

void CommandDesk::Receive(const std::string& message) {
  if (message.size() < kAddressLength || message.size() > kLongestMessage) return;
  const auto command = CommandOf(std::string_view(message).substr(kAddressLength));
  if (!command) return;
  std::unique_ptr<AnswerLine> line = with_.lines.Open(message.substr(0, kAddressLength));
  if (!line) return;
  if (with_.dispatch.Closed()) {
    const std::string reason = with_.boxes.OpenText().value_or("The launcher is ending.");
    return SendAnswer(*line, {kCommandRefused, reason + "\n"});
  }
  with_.dispatch.Run([this, &command, &line] { Take(*command, std::move(line)); });
}

void CommandDesk::Take(const Command& command, std::unique_ptr<AnswerLine> line) {
  if (OnlyAsks(command.verb)) return SendAnswer(*line, Told(command));
  const std::string reason = ReasonToRefuse(*line);
  if (!reason.empty()) return SendAnswer(*line, {kCommandRefused, reason + "\n"});
  command_ = command;
  line_ = std::move(line);
  alerts_.clear();
  with_.boxes.BeginCommand();
  CarryOut(command);
}

std::string CommandDesk::ReasonToRefuse(AnswerLine& line) {
  if (line.CallerHasLessRights()) return kLessRights;
  if (const auto text = with_.boxes.OpenText()) {
    return "A message box of the launcher waits for its operator: " + *text;
  }
  if (with_.dispatch.Nested()) return "A dialog of the launcher waits for its operator.";
  if (with_.timers.Held()) return "The operator's session is ending.";
  return {};
}

CommandAnswer CommandDesk::Told(const Command& command) {
  if (command.verb == CommandVerb::State) return {kCommandDone, StateText(command.form)};
  return {Holds(command) ? kCommandDone : kCommandTimeOver, {}};
}

std::string CommandDesk::StateText(StateForm form) {
  StateReport report = with_.states.Report();
  report.openBox = with_.boxes.OpenText();
  const auto toUtf8 = [this](const std::string& text) { return with_.codePage.ToUtf8(text); };
  switch (form) {
    case StateForm::Json:
      return StateAsJson(report, toUtf8);
    case StateForm::Prometheus:
      return StateAsPrometheus(report, toUtf8);
    case StateForm::Text:
      break;
  }
  return StateAsText(report);
}

bool CommandDesk::Holds(const Command& command) {
  return std::all_of(kComponents.begin(), kComponents.end(), [&](ComponentKind kind) {
    if (command.component.value_or(kind) != kind) return true;
    const ComponentReport report = with_.states.ReportOf(kind);
    return command.awaited == AwaitedState::Listening ? report.listeningSince.has_value()
                                                      : report.state == ComponentState::Stopped;
  });
}

void CommandDesk::CarryOut(const Command& command) {
  const CommandControls& controls = with_.controls;
  switch (command.verb) {
    case CommandVerb::Start:
      return StartOrStop(command, true);
    case CommandVerb::Stop:
      return StartOrStop(command, false);
    case CommandVerb::Restart:
      StartOrStop(command, false);
      if (!with_.boxes.HasKept()) StartOrStop(command, true);
      return;
    case CommandVerb::Randomize:
      return controls.randomize.Click();
    case CommandVerb::Upgrade:
      return controls.upgrade.Click();
    case CommandVerb::Close:
      return controls.window.Close();
    case CommandVerb::Unload:
      return controls.unload.Click();
    default:
      return;
  }
}

void CommandDesk::StartOrStop(const Command& command, bool starts) {
  if (command.component) return Press(IndexOf(*command.component), !starts);
  with_.controls.startButtons[starts ? kStartAllButton : kStopAllButton].Click();
}

/// A component's button starts or stops it, whichever it says; one that would do the opposite of
/// what is wanted has nothing left to do.
void CommandDesk::Press(std::size_t button, bool started) {
  CommandButton& pressed = with_.controls.startButtons[button];
  if (pressed.Caption().ends_with(started ? "Stop" : "Start")) pressed.Click();
}

void CommandDesk::Hear(const LogLine& line) {
  if (!line_ || line.level != kAlert || !AlertsRefuse(command_.verb)) return;
  for (std::size_t i = 1; i < line.pieces.size(); ++i) alerts_ += line.pieces[i].text;
  alerts_ += '\n';
}

void CommandDesk::EndEvent() {
  if (!line_) return;
  CommandAnswer answer;
  for (const std::string& text : with_.boxes.EndCommand()) {
    if (text != with_.upgradeDone) answer.exitCode = kCommandRefused;
    answer.text += text + "\n";
  }
  if (!alerts_.empty()) answer = {kCommandRefused, alerts_ + answer.text};
  SendAnswer(*line_, answer);
  line_.reset();
}

}  // namespace tarvo
