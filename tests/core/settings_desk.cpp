#include "tests/core/settings_desk.h"

#include <map>

#include "core/server_configuration.h"
#include "support/date_time.h"
#include "support/runtime_error.h"

namespace tarvo {
namespace {

std::string Flag(const CheckBox& box) { return box.Checked() ? "1" : "0"; }

std::string Choice(const OptionGroup& options) {
  for (std::size_t i = 0; i < OptionGroup::Size(); ++i) {
    if (options[i].Selected()) return std::to_string(i);
  }
  return "none";
}

}  // namespace

SettingsDesk::SettingsDesk() { ListExecutables(machine.files, root, form.servers.Exes); }

std::string SettingsDesk::Load() {
  try {
    counters = LoadAll(settings, startUp, randomizerSettings, upgradeSettings, eventSettings);
  } catch (const RuntimeError& fault) {
    return std::to_string(fault.Number()) + " " + fault.Source();
  }
  return "loaded";
}

void SettingsDesk::Save() {
  SaveAll(store, settings, startUp, randomizerSettings, upgradeSettings, eventSettings);
}

std::string SettingsDesk::Shown(const std::string& valueName) {
  const ServersPage& servers = form.servers;
  std::map<std::string, std::string> shown = {
      {"WriteLog", Flag(servers.WLog)},
      {"WriteMode", std::to_string(servers.LogH.ListIndex())},
      {"RunAtStartup", Flag(servers.Check2)},
      {"StartMinimized", Flag(servers.SMinimized)},
      {"RunOnEvent", Flag(servers.chkEvents)},
      {"MapFullAutokill", Flag(servers.chkAK[3])},
      {"AutoRandomize", Choice(form.randomizer.opt_Rnd)},
      {"UpdateMode", Choice(form.upgrade.optMode)},
      {"MaxRndDay", form.randomizer.txtMxD[0].Text()},
      {"MaxRndHour", form.randomizer.txtMxD[1].Text()},
      {"LastRandomize", GeneralDate(counters.LastRandomize)},
      {"DayRndCnt", std::to_string(counters.DayRndCnt)},
      {"HourRndCnt", std::to_string(counters.HourRndCnt)},
  };
  for (ComponentKind kind : kComponents) {
    const std::string name = NameOf(kind);
    shown[name + "Exe"] = servers.Exes[kind].Text();
    shown[name + "ChkInterval"] = std::to_string(form.timers.Probe[kind].Interval());
    shown[name + "Timeout"] = servers.TTO[kind].Text();
    shown[name + "Pri"] = std::to_string(servers.Prior[kind].ListIndex());
    shown[name + "AutoStart"] = Flag(servers.chkAutoStart[kind]);
    shown[name + "AutoKillEnabled"] = Flag(servers.chkAK[IndexOf(kind)]);
  }
  return shown.at(valueName);
}

std::string ShownAfterLoading(const std::string& valueName, const std::string& bytes,
                              std::uint32_t type) {
  SettingsDesk desk;
  desk.machine.registry.Put(Hive::LocalMachine, desk.root.SettingsKey(), valueName, {type, bytes});
  const std::string outcome = desk.Load();
  return outcome == "loaded" ? desk.Shown(valueName) : outcome;
}

}  // namespace tarvo
