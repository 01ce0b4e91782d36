#include <algorithm>
#include <numeric>

#include "outside/state_report.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr double kBytesInMegabyte = 1024.0 * 1024.0;

/// On one line, whatever ends its lines.
std::string OnOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return text;
}

std::string Megabytes(std::int64_t bytes) {
  const auto tenths = static_cast<long long>(static_cast<double>(bytes) / kBytesInMegabyte * 10);
  return WithThousands(std::to_string(tenths / 10)) + "." + std::to_string(tenths % 10) + " MB";
}

std::string RestartText(const std::array<std::int64_t, 3>& restarts) {
  const std::int64_t all = std::accumulate(restarts.begin(), restarts.end(), std::int64_t{0});
  if (all == 0) return "no restarts";
  std::string causes;
  for (RestartCause cause : kRestartCauses) {
    const std::int64_t count = restarts[static_cast<std::size_t>(cause)];
    if (count == 0) continue;
    causes += (causes.empty() ? "" : ", ") + std::to_string(count) + " " + NameOf(cause);
  }
  return std::to_string(all) + (all == 1 ? " restart (" : " restarts (") + causes + ")";
}

std::string LineOf(ComponentKind kind, const ComponentReport& component) {
  const ComponentEndpoint& endpoint = component.endpoint;
  std::string line = std::string(NameOf(kind)) + ": " + SentenceOf(component) + ", at " +
                     OnOneLine(std::string(Trimmed(endpoint.host))) + ":" +
                     std::to_string(endpoint.port);
  if (const auto& failure = component.lastFailure) {
    line += std::string(", last failure (") + NameOf(failure->cause) + ") " +
            GeneralDate(failure->at.time);
  }
  if (!component.probeFailure.empty()) line += ". " + component.probeFailure;
  return line + "\n";
}

std::string EntryText(const std::optional<CalendarMoment>& entry) {
  if (!entry) return "none";
  return GeneralDate(entry->at) + (entry->restarts ? ", with restart" : ", without restart");
}

}  // namespace

const char* NameOf(ComponentState state) {
  switch (state) {
    case ComponentState::Stopped:
      return "stopped";
    case ComponentState::Starting:
      return "starting";
    case ComponentState::Listening:
      return "listening";
    case ComponentState::Running:
      return "running";
    case ComponentState::Frozen:
      return "frozen";
    case ComponentState::Killed:
      return "killed";
    case ComponentState::Refused:
      break;
  }
  return "refused";
}

const char* NameOf(RestartCause cause) {
  switch (cause) {
    case RestartCause::Crash:
      return "crash";
    case RestartCause::Freeze:
      return "freeze";
    case RestartCause::Other:
      break;
  }
  return "other";
}

std::string SentenceOf(const ComponentReport& component) {
  std::string text =
      std::string(NameOf(component.state)) + " since " + GeneralDate(component.since.time);
  if (component.processId != 0) text += ", process " + std::to_string(component.processId);
  if (component.memory) text += ", " + Megabytes(*component.memory);
  return text + ", " + RestartText(component.restarts);
}

std::string StateAsText(const StateReport& report) {
  std::string text = "Tarvo Launcher v." + report.version + " in " + report.root + " [" +
                     OnOneLine(report.serverName) + "], since " + GeneralDate(report.started.time) +
                     "\n";
  for (ComponentKind kind : kComponents) text += LineOf(kind, report.components[kind]);
  text += "Free memory: " + Megabytes(report.freeMemory) + " of " + Megabytes(report.totalMemory) +
          "\n";
  text += "Status code: " + std::to_string(report.statusCode) + "\n";
  text += "Next calendar entry: " + EntryText(report.nextCalendarEntry) + "\n";
  text += "Last upgrade: " + report.lastUpgrade + "\n";
  if (report.openBox) text += "Message box open: " + OnOneLine(*report.openBox) + "\n";
  return text;
}

}  // namespace tarvo
