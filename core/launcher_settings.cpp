#include "core/launcher_settings.h"

#include <algorithm>

#include "core/registry_text.h"
#include "support/date_time.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace tarvo {
namespace {

constexpr double kShortestInterval = 1000;
constexpr double kLongestInterval = 60000;

std::string FlagText(bool flag) { return flag ? "1" : "0"; }

/// "0" or "1" when that option is selected, else "2".
std::string ChoiceText(const OptionGroup& options) {
  return options[0].Selected() ? "0" : options[1].Selected() ? "1" : "2";
}

std::string ValueName(ComponentKind kind, const char* what) {
  return std::string(NameOf(kind)) + what;
}

int FirstContaining(const std::vector<std::string>& names, const std::string& part) {
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
    return name.find(part) != std::string::npos;
  });
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

}  // namespace

void LauncherSettings::Load() {
  LoadExecutables();
  for (Component& component : components_) component.AlarmState = AlarmState::NotWatched;
  LoadCheckIntervals();
  LoadTimeouts();
  LoadPriorities();
  LoadAutoStart();
  LoadLogFile();
  const auto& autoStart = form_.servers.chkAutoStart;
  if (std::any_of(autoStart.begin(), autoStart.end(),
                  [](const CheckBox& box) { return box.Checked(); })) {
    form_.frame.SSTab1.SetPage(0);
  }
  ReadFlag("RunAtStartup", form_.servers.Check2);
  LoadAutokill();
  LoadRandomizer();
  if (loadUpgradeSettings) loadUpgradeSettings();
  for (std::size_t i = 0; i < kComponentCount; ++i) chkAK_Click(form_.servers, i);
  LoadStartMinimized();
}

void LauncherSettings::LoadExecutables() {
  const char* const defaults[] = {"login-server", "char-server", "map-server"};
  for (ComponentKind kind : kComponents) {
    Component& component = components_[kind];
    component.storedExecutable = Read(ValueName(kind, "Exe"), defaults[IndexOf(kind)]);
    DropDownList& chooser = form_.servers.Exes[kind];
    chooser.SetListIndex(FirstContaining(chooser.Items(), component.storedExecutable));
  }
}

void LauncherSettings::LoadCheckIntervals() {
  for (ComponentKind kind : kComponents) {
    const double value = NumericValue(Read(ValueName(kind, "ChkInterval"), "10000"));
    const double clamped = std::clamp(value, kShortestInterval, kLongestInterval);
    form_.timers.Probe(kind).SetInterval(static_cast<std::uint32_t>(RoundToInteger(clamped)));
  }
}

void LauncherSettings::LoadTimeouts() {
  const char* const defaults[] = {"20", "300", "60"};
  for (ComponentKind kind : kComponents) {
    form_.servers.TTO[kind].SetText(Read(ValueName(kind, "Timeout"), defaults[IndexOf(kind)]));
  }
}

void LauncherSettings::LoadPriorities() {
  const char* const defaults[] = {"1", "2", "3"};
  for (ComponentKind kind : kComponents) {
    ReadIndex(ValueName(kind, "Pri"), defaults[IndexOf(kind)], form_.servers.Prior[kind]);
  }
}

void LauncherSettings::LoadAutoStart() {
  for (ComponentKind kind : kComponents) {
    ReadFlag(ValueName(kind, "AutoStart"), form_.servers.chkAutoStart[kind]);
  }
}

void LauncherSettings::LoadLogFile() {
  ReadFlag("WriteLog", form_.servers.WLog);
  const std::string text = Read("WriteMode", "0");
  NamingSource("WriteMode",
               [&] { form_.servers.LogH.SetListIndex(RoundToInteger(NumericValue(text))); });
}

void LauncherSettings::LoadAutokill() {
  for (ComponentKind kind : kComponents) {
    ReadFlag(ValueName(kind, "AutoKillEnabled"), form_.servers.chkAK[IndexOf(kind)]);
  }
  ReadFlag("MapFullAutokill", form_.servers.chkAK[3]);
}

void LauncherSettings::LoadRandomizer() {
  OptionGroup& options = form_.randomizer.opt_Rnd;
  if (Read("AutoRandomize", "1") == "1") options[1].Select();
  if (Read("AutoRandomize", "0") == "0") options[0].Select();
  if (Read("AutoRandomize", "0") == "2") options[2].Select();
  auto& limits = form_.randomizer.txtMxD;
  limits[0].SetText(ShortestDecimal(NumericValue(Read("MaxRndDay", "1"))));
  limits[1].SetText(ShortestDecimal(NumericValue(Read("MaxRndHour", "1"))));
  const std::string last = Read("LastRandomize", GeneralDate(clock_.Now()));
  lastRandomize_ = NamingSource("LastRandomize", [&last] {
    return IsNumeric(last) ? DateOfNumber(NumericValue(last)) : ParseDateTime(last);
  });
  dayRndCnt_ = ReadInteger("DayRndCnt", "0");
  hourRndCnt_ = ReadInteger("HourRndCnt", "0");
}

void LauncherSettings::LoadStartMinimized() {
  ReadFlag("StartMinimized", form_.servers.SMinimized);
  if (form_.servers.SMinimized.Checked()) form_.frame.window.SetState(WindowState::Minimized);
}

void LauncherSettings::Save() {
  const ServersPage& servers = form_.servers;
  for (ComponentKind kind : kComponents) Write(ValueName(kind, "Exe"), servers.Exes[kind].Text());
  for (ComponentKind kind : kComponents) {
    Write(ValueName(kind, "Timeout"), servers.TTO[kind].Text());
  }
  for (ComponentKind kind : kComponents) {
    Write(ValueName(kind, "Pri"), std::to_string(servers.Prior[kind].ListIndex()));
  }
  for (ComponentKind kind : kComponents) {
    WriteFlag(ValueName(kind, "AutoStart"), servers.chkAutoStart[kind]);
  }
  WriteFlag("WriteLog", servers.WLog);
  Write("WriteMode", std::to_string(servers.LogH.ListIndex()));
  WriteFlag("StartMinimized", servers.SMinimized);
  WriteFlag("RunAtStartup", servers.Check2);
  for (ComponentKind kind : kComponents) {
    WriteFlag(ValueName(kind, "AutoKillEnabled"), servers.chkAK[IndexOf(kind)]);
  }
  WriteFlag("MapFullAutokill", servers.chkAK[3]);
  Write("UpdateMode", ChoiceText(form_.upgrade.optMode));
  Write("AutoRandomize", ChoiceText(form_.randomizer.opt_Rnd));
  Write("MaxRndDay", form_.randomizer.txtMxD[0].Text());
  Write("MaxRndHour", form_.randomizer.txtMxD[1].Text());
}

std::string LauncherSettings::Read(const std::string& name, const std::string& defaultText) {
  return ReadRegistryString(registry_, Hive::LocalMachine, settingsKey_, name, defaultText);
}

std::int32_t LauncherSettings::ReadInteger(const std::string& name,
                                           const std::string& defaultText) {
  const std::string text = Read(name, defaultText);
  return NamingSource(name, [&] { return ToInteger(text); });
}

void LauncherSettings::ReadFlag(const std::string& name, CheckBox& box) {
  box.SetChecked(Read(name, "0") != "0");
}

void LauncherSettings::ReadIndex(const std::string& name, const std::string& defaultText,
                                 DropDownList& list) {
  const std::int32_t index = ReadInteger(name, defaultText);
  NamingSource(name, [&] { list.SetListIndex(index); });
}

void LauncherSettings::Write(const std::string& name, const std::string& text) {
  WriteRegistryString(registry_, Hive::LocalMachine, settingsKey_, name, text);
}

void LauncherSettings::WriteFlag(const std::string& name, const CheckBox& box) {
  Write(name, FlagText(box.Checked()));
}

void chkAK_Click(ServersPage& page, std::size_t index) {
  if (index < kComponentCount) page.TTO[index].SetEnabled(page.chkAK[index].Checked());
}

}  // namespace tarvo
