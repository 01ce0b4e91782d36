#include "checkup/settings_checks.h"

#include <algorithm>

#include "support/date_time.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace tarvo {
namespace {

constexpr std::int32_t kShortestTime = 5;  // Seconds.
constexpr int kNoSelection = -1;
constexpr int kLastPriority = 4;
constexpr int kLastLevel = 3;
constexpr std::size_t kMostListed = 8;

void TakeIndex(std::int32_t index, int last) {
  if (index < kNoSelection || index > last) throw RuntimeError(Fault::InvalidPropertyValue);
}

/// Converts the text as the start does; raises what the start raises.
void Convert(const std::string& text, ValueRule rule) {
  switch (rule) {
    case ValueRule::AnyText:
      return;
    case ValueRule::Number:
      ToInteger(text);
      return;
    case ValueRule::PriorityIndex:
      return TakeIndex(ToInteger(text), kLastPriority);
    case ValueRule::LevelIndex:
      return TakeIndex(RoundToInteger(NumericValue(text)), kLastLevel);
    case ValueRule::Moment:
      IsNumeric(text) ? DateOfNumber(NumericValue(text)) : ParseDateTime(text);
      return;
  }
}

/// Why a start with this value ends; nothing when it does not.
std::optional<std::string> WhyFatal(const std::string& text, ValueRule rule) {
  try {
    Convert(text, rule);
    return std::nullopt;
  } catch (const RuntimeError& fault) {
    return fault.Description();  // What is told here is not to end this run.
  }
}

std::string Listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < std::min(names.size(), kMostListed); ++i) {
    text += (i == 0 ? "" : ", ") + names[i];
  }
  if (names.size() > kMostListed) {
    text += " and " + std::to_string(names.size() - kMostListed) + " more";
  }
  return text;
}

Findings CheckTime(ComponentKind kind, const Choices::OfComponent& of) {
  const char advice[] =
      "Enter seconds, 5 or more, under \"Freeze Autokill after\" on the page Servers.";
  try {
    if (!of.autokill || ToInteger(of.autokillTime) >= kShortestTime) {
      ToInteger(of.autokillTime);
      return {};
    }
    return {{"watch", Severity::Error, NameOf(kind),
             "The autokill time is shorter than 5 seconds, so no server can be started.", advice}};
  } catch (const RuntimeError&) {
    // Every start of a server converts all three, used or not.
    return {{"watch", Severity::Error, NameOf(kind),
             "The autokill time \"" + of.autokillTime.substr(0, 40) +
                 "\" is no number of seconds, and ends the launcher when a "
                 "server is started or stopped.",
             advice}};
  }
}

}  // namespace

Findings CheckWatch(const Choices& choices) {
  Findings findings;
  const auto& all = choices.of;
  if (std::none_of(all.begin(), all.end(),
                   [](const Choices::OfComponent& of) { return of.autokill; })) {
    findings.push_back({"watch", Severity::Note, "Freeze autokill",
                        "It is off for all components, so none is probed, and one that freezes "
                        "stays frozen.",
                        "Check \"Freeze Autokill after\" on the page Servers for each component "
                        "that is to be restarted."});
  }
  for (ComponentKind kind : kComponents) {
    for (Finding& finding : CheckTime(kind, all[kind])) findings.push_back(std::move(finding));
  }
  return findings;
}

std::vector<SettingName> SettingNames() {
  std::vector<SettingName> names;
  for (ComponentKind kind : kComponents) {
    const std::string component = NameOf(kind);
    for (const char* what :
         {"Exe", "ChkInterval", "Timeout", "AutoStart", "AutoKillEnabled", "From"}) {
      names.push_back({component + what, ValueRule::AnyText});
    }
    names.push_back({component + "Pri", ValueRule::PriorityIndex});
  }
  names.push_back({"WriteMode", ValueRule::LevelIndex});
  names.push_back({"LastRandomize", ValueRule::Moment});
  for (const char* number : {"DayRndCnt", "HourRndCnt", "UpdateMode"}) {
    names.push_back({number, ValueRule::Number});
  }
  for (const char* text : {"WriteLog", "RunAtStartup", "StartMinimized", "MapFullAutokill",
                           "AutoRandomize", "MaxRndDay", "MaxRndHour", "LastRandProcess", "LDATE",
                           "CDATE", "MDATE", "LASTUPDATE", "WindowPlace", "RunOnEvent"}) {
    names.push_back({text, ValueRule::AnyText});
  }
  return names;
}

Findings CheckSettings(const std::vector<StoredValue>& values) {
  Findings findings;
  std::vector<std::string> alone;
  std::vector<std::string> hiding;
  for (const StoredValue& value : values) {
    const auto& counts = value.ofUser ? value.ofUser : value.ofMachine;
    if (!counts) continue;
    const std::string& name = value.setting.name;
    if (const auto why = WhyFatal(*counts, value.setting.rule)) {
      findings.push_back({"settings", Severity::Error, name,
                          "The value \"" + counts->substr(0, 40) +
                              "\" ends the launcher's next start (" + *why + ").",
                          "Delete or correct it in the registry."});
    }
    if (!value.ofUser) continue;
    if (!value.ofMachine) alone.push_back(name);
    if (value.ofMachine && value.ofMachine != value.ofUser) hiding.push_back(name);
  }
  if (!hiding.empty()) {
    findings.push_back({"settings", Severity::Warning, Listed(hiding),
                        "This user's own copy hides the value that all other users have.",
                        "Start the launcher once as administrator, and close it, to have one "
                        "value for all."});
  }
  if (!alone.empty()) {
    findings.push_back({"settings", Severity::Note, Listed(alone),
                        "For want of rights these values are kept for this user alone.",
                        "Start the launcher once as administrator, and close it, to keep them for "
                        "all users."});
  }
  return findings;
}

}  // namespace tarvo
