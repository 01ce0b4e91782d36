#include "tests/simulation/log_order.h"

#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

const char* ExecutableOf(ComponentKind kind) {
  const char* const names[] = {kLogin, kChar, kMap};
  return names[IndexOf(kind)];
}

}  // namespace

std::string LogOrder::Take(const std::string& text) {
  for (ComponentKind kind : kComponents) {
    if (!TakeOf(kind, text)) return "out of order: " + text;
  }
  return {};
}

bool LogOrder::Start(One& one, State next) {
  const bool legal =
      one.state == State::Stopped || one.state == State::Crashed || one.state == State::Refused;
  one = {next, next == State::Started, false};
  return legal;
}

bool LogOrder::TakeOf(ComponentKind kind, const std::string& text) {
  One& one = all_[kind];
  const std::string name = NameOf(kind);
  const std::string server = name + " Server ";
  const std::string executable = std::string("[") + ExecutableOf(kind) + "] ";
  const bool counts = one.state != State::Stopped;
  if (text.starts_with(server + "Started") || text.starts_with(server + "under control")) {
    return Start(one, State::Started);
  }
  if (text.starts_with(executable + "can't be started")) return Start(one, State::Refused);
  if (text == "Listening " + name + " Server") {
    return std::exchange(one.listeningIsDue, false) && counts;
  }
  if (text.starts_with(name + " server freeze!") || text.starts_with(name + " server is freeze!")) {
    return std::exchange(one.state, State::Frozen) == State::Started;
  }
  if (text == name + " server is back!") {
    return std::exchange(one.state, State::Started) == State::Frozen;
  }
  if (text == "Shuting down " + name + "...") {
    return std::exchange(one.state, State::ShutDown) == State::Frozen;
  }
  if (text == server + "crashed, restarting...") {
    one = {State::Crashed, false, false};
    return counts;
  }
  if (text == server + "Stopped!") {
    one = {State::Stopped, false, true};
    return counts;
  }
  if (text == executable + "refuses to end, still in memory!") {
    return std::exchange(one.justStopped, false);
  }
  return true;
}

}  // namespace tarvo
