#include "outside/command_line.h"
#include "outside/state_report.h"
#include "support/json_writer.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr std::int64_t kFormat = 1;

/// "2026-11-21T10:32:07", local time.
std::string IsoTime(LocalTime time) {
  std::string text = GeneralDate(time);
  text[text.find(' ')] = 'T';
  return text;
}

const char* NameOf(AlarmState state) {
  switch (state) {
    case AlarmState::Healthy:
      return "healthy";
    case AlarmState::Trouble:
      return "trouble";
    case AlarmState::NotWatched:
      break;
  }
  return "not watched";
}

class StateJson {
 public:
  explicit StateJson(const ToUtf8& toUtf8) : toUtf8_(toUtf8) {}

  std::string Write(const StateReport& report);

 private:
  void Moment(const char* name, const std::optional<PastMoment>& moment);
  void Component(ComponentKind kind, const ComponentReport& component);
  void Restarts(const ComponentReport& component);
  void Failure(const std::optional<FailureReport>& failure);
  void NextEntry(const StateReport& report);
  void OptionalText(const char* name, const std::optional<std::string>& text);

  const ToUtf8& toUtf8_;
  JsonWriter json_;
};

/// "since" and "since_seconds", or with another name: null without a moment.
void StateJson::Moment(const char* name, const std::optional<PastMoment>& moment) {
  json_.Name(name);
  moment ? json_.String(IsoTime(moment->time)) : json_.Null();
  json_.Name(std::string(name) + "_seconds");
  moment ? json_.Number(moment->secondsAgo) : json_.Null();
}

void StateJson::OptionalText(const char* name, const std::optional<std::string>& text) {
  json_.Name(name);
  text ? json_.String(toUtf8_(*text)) : json_.Null();
}

void StateJson::Restarts(const ComponentReport& component) {
  json_.Name("restarts").BeginObject();
  for (RestartCause cause : kRestartCauses) {
    json_.Name(tarvo::NameOf(cause));
    json_.Number(component.restarts[static_cast<std::size_t>(cause)]);
  }
  json_.EndObject();
}

void StateJson::Failure(const std::optional<FailureReport>& failure) {
  json_.Name("last_failure");
  if (!failure) {
    json_.Null();
    return;
  }
  json_.BeginObject().Name("cause").String(tarvo::NameOf(failure->cause));
  Moment("at", failure->at);
  json_.EndObject();
}

void StateJson::Component(ComponentKind kind, const ComponentReport& component) {
  const bool listens = component.listeningSince.has_value();
  json_.Name(WordOf(kind)).BeginObject();
  json_.Name("state").String(tarvo::NameOf(component.state));
  Moment("since", component.since);
  json_.Name("alarm").String(NameOf(component.alarm));
  json_.Name("process_id");
  component.processId == 0 ? json_.Null() : json_.Number(component.processId);
  json_.Name("memory_bytes");
  component.memory ? json_.Number(*component.memory) : json_.Null();
  json_.Name("host").String(toUtf8_(std::string(Trimmed(component.endpoint.host))));
  json_.Name("port").Number(component.endpoint.port);
  json_.Name("listening").Truth(listens).Name("probed").Truth(component.probed);
  Moment("listening_since", component.listeningSince);
  Restarts(component);
  Failure(component.lastFailure);
  OptionalText("probe_failure", component.probeFailure.empty()
                                    ? std::nullopt
                                    : std::optional(component.probeFailure));
  json_.EndObject();
}

void StateJson::NextEntry(const StateReport& report) {
  json_.Name("next_calendar_entry");
  if (!report.nextCalendarEntry) {
    json_.Null();
    return;
  }
  const CalendarMoment& next = *report.nextCalendarEntry;
  json_.BeginObject().Name("at").String(IsoTime(next.at));
  json_.Name("in_seconds").Number((next.at - report.now).count());
  json_.Name("restarts").Truth(next.restarts).EndObject();
}

std::string StateJson::Write(const StateReport& report) {
  json_.BeginObject().Name("format").Number(kFormat);
  json_.Name("version").String(toUtf8_(report.version));
  json_.Name("root").String(toUtf8_(report.root));
  json_.Name("server_name").String(toUtf8_(report.serverName));
  json_.Name("time").String(IsoTime(report.now));
  Moment("started", report.started);
  json_.Name("components").BeginObject();
  for (ComponentKind kind : kComponents) Component(kind, report.components[kind]);
  json_.EndObject();
  json_.Name("free_memory_bytes").Number(report.freeMemory);
  json_.Name("total_memory_bytes").Number(report.totalMemory);
  json_.Name("status_code").Number(report.statusCode);
  NextEntry(report);
  // What was stored may be any text; the page says "n/a" for nothing.
  OptionalText("last_upgrade",
               report.lastUpgrade == "n/a" ? std::nullopt : std::optional(report.lastUpgrade));
  OptionalText("message_box", report.openBox);
  return json_.EndObject().Text() + "\n";
}

}  // namespace

std::string StateAsJson(const StateReport& report, const ToUtf8& toUtf8) {
  return StateJson(toUtf8).Write(report);
}

}  // namespace tarvo
