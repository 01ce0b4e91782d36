#include "core/launcher_settings.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr double kShortestInterval = 1000;
constexpr double kLongestInterval = 60000;

std::string ValueName(ComponentKind kind, const char* what) {
  return std::string(NameOf(kind)) + what;
}

}  // namespace

int ExecutableOf(const std::vector<std::string>& names, const std::string& stored) {
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
    return name.find(stored) != std::string::npos;
  });
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

std::string CleanedSeconds(const std::string& text) {
  return HoldsDigitsOnly(text) ? text : PlainDecimal(NumericValue(text));
}

const char* UsualExecutable(ComponentKind kind) {
  const char* const names[] = {"login-server", "char-server", "map-server"};
  return names[IndexOf(kind)];
}

const char* UsualAutokillTime(ComponentKind kind) {
  const char* const texts[] = {"20", "300", "60"};
  return texts[IndexOf(kind)];
}

void LauncherSettings::LoadServers() {
  LoadExecutables();
  for (Component& component : components_) component.AlarmState = AlarmState::NotWatched;
  LoadCheckIntervals();
  LoadTimeouts();
  LoadPriorities();
  LoadAutoStart();
  LoadLogFile();
  const auto& autoStart = controls_.autoStart;
  if (std::any_of(autoStart.begin(), autoStart.end(),
                  [](const CheckBox& box) { return box.Checked(); })) {
    controls_.pages.SetPage(0);
  }
}

void LauncherSettings::LoadExecutables() {
  for (ComponentKind kind : kComponents) {
    Component& component = components_[kind];
    component.storedExecutable = store_.Text(ValueName(kind, "Exe"), UsualExecutable(kind));
    DropDownList& chooser = controls_.executables[kind];
    chooser.SetListIndex(ExecutableOf(chooser.Items(), component.storedExecutable));
  }
}

void LauncherSettings::LoadCheckIntervals() {
  for (ComponentKind kind : kComponents) {
    const double value = NumericValue(store_.Text(ValueName(kind, "ChkInterval"), "10000"));
    const double clamped = std::clamp(value, kShortestInterval, kLongestInterval);
    controls_.probe[kind].SetInterval(static_cast<std::uint32_t>(RoundToInteger(clamped)));
  }
}

void LauncherSettings::LoadTimeouts() {
  for (ComponentKind kind : kComponents) {
    controls_.autokillTimes[kind].SetText(
        store_.Text(ValueName(kind, "Timeout"), UsualAutokillTime(kind)));
  }
}

void LauncherSettings::LoadPriorities() {
  const char* const defaults[] = {"1", "2", "3"};
  for (ComponentKind kind : kComponents) {
    const std::string name = ValueName(kind, "Pri");
    const std::int32_t index = store_.Integer(name, defaults[IndexOf(kind)]);
    NamingSource(name, [&] { controls_.priorities[kind].SetListIndex(index); });
  }
}

void LauncherSettings::LoadAutoStart() {
  for (ComponentKind kind : kComponents) {
    store_.ReadFlag(ValueName(kind, "AutoStart"), controls_.autoStart[kind]);
  }
}

void LauncherSettings::LoadLogFile() {
  store_.ReadFlag("WriteLog", controls_.writesLogFile);
  const std::string text = store_.Text("WriteMode", "0");
  NamingSource("WriteMode",
               [&] { controls_.logFileLevels.SetListIndex(RoundToInteger(NumericValue(text))); });
}

void LauncherSettings::LoadAutokill() {
  for (ComponentKind kind : kComponents) {
    store_.ReadFlag(ValueName(kind, "AutoKillEnabled"), controls_.autokill[IndexOf(kind)]);
  }
  store_.ReadFlag("MapFullAutokill", controls_.mapRestartsAll);
}

void LauncherSettings::LoadWindow() {
  for (std::size_t i = 0; i < kComponentCount; ++i) chkAK_Click(i);
  store_.ReadFlag("StartMinimized", controls_.startsMinimized);
  if (controls_.startsMinimized.Checked()) controls_.window.SetState(WindowState::Minimized);
}

void LauncherSettings::SaveServers(SettingsStore& store) const {
  for (ComponentKind kind : kComponents) {
    store.Write(ValueName(kind, "Exe"), controls_.executables[kind].Text());
  }
  for (ComponentKind kind : kComponents) {
    store.Write(ValueName(kind, "Timeout"), controls_.autokillTimes[kind].Text());
  }
  for (ComponentKind kind : kComponents) {
    store.Write(ValueName(kind, "Pri"), std::to_string(controls_.priorities[kind].ListIndex()));
  }
  for (ComponentKind kind : kComponents) {
    store.WriteFlag(ValueName(kind, "AutoStart"), controls_.autoStart[kind]);
  }
  store.WriteFlag("WriteLog", controls_.writesLogFile);
  store.Write("WriteMode", std::to_string(controls_.logFileLevels.ListIndex()));
  store.WriteFlag("StartMinimized", controls_.startsMinimized);
}

void LauncherSettings::SaveAutokill(SettingsStore& store) const {
  for (ComponentKind kind : kComponents) {
    store.WriteFlag(ValueName(kind, "AutoKillEnabled"), controls_.autokill[IndexOf(kind)]);
  }
  store.WriteFlag("MapFullAutokill", controls_.mapRestartsAll);
}

void LauncherSettings::chkAK_Click(std::size_t index) {
  if (index >= kComponentCount) return;
  controls_.autokillTimes[index].SetEnabled(controls_.autokill[index].Checked());
}

}  // namespace tarvo
