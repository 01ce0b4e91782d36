#include "outside/command_line.h"
#include "outside/state_report.h"
#include "support/json_writer.h"

namespace tarvo {
namespace {

constexpr ComponentState kStates[] = {ComponentState::Stopped,   ComponentState::Starting,
                                      ComponentState::Listening, ComponentState::Running,
                                      ComponentState::Frozen,    ComponentState::Killed,
                                      ComponentState::Refused};

struct LabelPair {
  std::string name;
  std::string value;
};
using Labels = std::vector<LabelPair>;

/// A label's value between quotes; bytes that are no UTF-8 become U+FFFD.
std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  while (!text.empty()) {
    const std::size_t length = Utf8CharacterLength(text);
    const char c = text.front();
    if (length == 0) {
      quoted += "\xEF\xBF\xBD";
    } else if (c == '\n') {
      quoted += "\\n";
    } else {
      if (c == '"' || c == '\\') quoted += '\\';
      quoted += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return quoted + '"';
}

class Exposition {
 public:
  /// What the next samples are of. Counters end with "_total".
  void Metric(const std::string& name, const char* type, const char* help) {
    name_ = "tarvo_" + name;
    text_ += "# HELP " + name_ + " " + help + "\n# TYPE " + name_ + " " + type + "\n";
  }
  void Sample(std::int64_t value, const Labels& labels = {}) {
    text_ += name_;
    for (std::size_t i = 0; i < labels.size(); ++i) {
      text_ += (i == 0 ? "{" : ",") + labels[i].name + "=" + Quoted(labels[i].value);
    }
    text_ += (labels.empty() ? " " : "} ") + std::to_string(value) + "\n";
  }
  /// One sample a component: of those that have a value.
  template <class ValueOf>
  void Samples(const StateReport& report, ValueOf valueOf) {
    for (ComponentKind kind : kComponents) {
      const std::optional<std::int64_t> value = valueOf(report.components[kind]);
      if (value) Sample(*value, {{"component", WordOf(kind)}});
    }
  }

  const std::string& Text() const { return text_; }

 private:
  std::string name_;
  std::string text_;
};

using Figure = std::optional<std::int64_t>;

void AddStates(Exposition& to, const StateReport& report) {
  to.Metric("component_state", "gauge", "1 for the state that the component is in, 0 for others.");
  for (ComponentKind kind : kComponents) {
    for (ComponentState state : kStates) {
      to.Sample(report.components[kind].state == state ? 1 : 0,
                {{"component", WordOf(kind)}, {"state", NameOf(state)}});
    }
  }
  to.Metric("component_state_seconds", "gauge", "How long the component has been in its state.");
  to.Samples(report, [](const ComponentReport& of) { return Figure(of.since.secondsAgo); });
}

void AddListening(Exposition& to, const StateReport& report) {
  to.Metric("component_listening", "gauge", "1 when the component listens, as far as is known.");
  to.Samples(report, [](const ComponentReport& of) { return Figure(of.listeningSince ? 1 : 0); });
  to.Metric("component_listening_seconds", "gauge", "How long the component has been listening.");
  to.Samples(report, [](const ComponentReport& of) {
    return of.listeningSince ? Figure(of.listeningSince->secondsAgo) : std::nullopt;
  });
  to.Metric("component_probed", "gauge", "1 when the component's port is probed: autokill is on.");
  to.Samples(report, [](const ComponentReport& of) { return Figure(of.probed ? 1 : 0); });
  to.Metric("component_probe_failed", "gauge", "1 when the last probe of the port failed.");
  to.Samples(report,
             [](const ComponentReport& of) { return Figure(of.probeFailure.empty() ? 0 : 1); });
}

void AddProcesses(Exposition& to, const StateReport& report) {
  to.Metric("component_process_id", "gauge", "Process id of the component; 0 without a process.");
  to.Samples(report, [](const ComponentReport& of) { return Figure(of.processId); });
  to.Metric("component_memory_bytes", "gauge", "Physical memory that the component has in use.");
  to.Samples(report, [](const ComponentReport& of) { return of.memory; });
}

void AddFailures(Exposition& to, const StateReport& report) {
  to.Metric("component_restarts_total", "counter", "Restarts since the launcher's start.");
  for (ComponentKind kind : kComponents) {
    for (RestartCause cause : kRestartCauses) {
      to.Sample(report.components[kind].restarts[static_cast<std::size_t>(cause)],
                {{"component", WordOf(kind)}, {"cause", NameOf(cause)}});
    }
  }
  to.Metric("component_last_failure_age_seconds", "gauge",
            "How long ago the component crashed, or was ended for a freeze.");
  to.Samples(report, [](const ComponentReport& of) {
    return of.lastFailure ? Figure(of.lastFailure->at.secondsAgo) : std::nullopt;
  });
}

void AddLauncher(Exposition& to, const StateReport& report, const ToUtf8& toUtf8) {
  to.Metric("launcher_info", "gauge", "Always 1; its labels tell the launcher.");
  to.Sample(1, {{"version", toUtf8(report.version)},
                {"root", toUtf8(report.root)},
                {"server_name", toUtf8(report.serverName)}});
  to.Metric("launcher_uptime_seconds", "gauge", "How long ago the launcher was started.");
  to.Sample(report.started.secondsAgo);
  to.Metric("launcher_status_code", "gauge", "Code of the three lights together, 0 to 25.");
  to.Sample(report.statusCode);
  to.Metric("launcher_message_box_open", "gauge", "1 while a message box waits for the operator.");
  to.Sample(report.openBox ? 1 : 0);
  to.Metric("memory_free_bytes", "gauge", "Free physical memory and paging file of the machine.");
  to.Sample(report.freeMemory);
  to.Metric("memory_total_bytes", "gauge", "Physical memory and paging file of the machine.");
  to.Sample(report.totalMemory);
  if (!report.nextCalendarEntry) return;
  to.Metric("calendar_next_entry_seconds", "gauge", "Time until the next entry of the calendar.");
  to.Sample((report.nextCalendarEntry->at - report.now).count());
}

}  // namespace

std::string StateAsPrometheus(const StateReport& report, const ToUtf8& toUtf8) {
  Exposition exposition;
  AddLauncher(exposition, report, toUtf8);
  AddStates(exposition, report);
  AddListening(exposition, report);
  AddProcesses(exposition, report);
  AddFailures(exposition, report);
  return exposition.Text();
}

}  // namespace tarvo
