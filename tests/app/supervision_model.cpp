#include "tests/app/supervision_model.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace tarvo {
namespace {

constexpr std::uint64_t kUnanswered = 1000;  // Milliseconds of a connect that nobody answers.
constexpr std::uint64_t kHeldFile = 5000;    // Milliseconds for which a held file is tried again.
constexpr std::int64_t kShortestAutokillTime = 5;
constexpr char kUpgradeSucceeded[] = "Upgrade was succesfull!";

struct ModelFault {
  Fault number;
};

std::string Target(const std::string& executable) { return "C:\\srv\\" + executable; }

/// The texts are what the box of autokill times leaves of what is typed.
std::int64_t Number(const std::string& text) {
  if (text.empty()) throw ModelFault{Fault::TypeMismatch};
  const double number = std::nearbyint(std::strtod(text.c_str(), nullptr));
  using Limits = std::numeric_limits<std::int32_t>;
  if (number < Limits::min() || number > Limits::max()) throw ModelFault{Fault::Overflow};
  return static_cast<std::int64_t>(number);
}

std::string Server(ComponentKind kind) { return std::string(NameOf(kind)) + " Server"; }

std::string PriorityText(ComponentKind kind) {
  const char* const priorities[] = {"Low", "Norm", "High"};
  return std::string(kind == ComponentKind::Login ? "!" : "") + " [" + priorities[IndexOf(kind)] +
         " Priority]";
}

const char* DateSetting(ComponentKind kind) {
  const char* const names[] = {"LDATE", "CDATE", "MDATE"};
  return names[IndexOf(kind)];
}

/// Whether two of the three are the same.
bool AnySame(const std::string& one, const std::string& other, const std::string& third) {
  return one == other || one == third || other == third;
}

}  // namespace

LocalTime ModelMachine::Now() const {
  return std::chrono::local_days(std::chrono::year(2026) / 11 / 21) + std::chrono::hours(10) +
         std::chrono::seconds((age - beginning) / 1000);
}

std::int64_t ModelMachine::Seconds() const { return static_cast<std::uint32_t>(age) / 1000; }

ProcessId ModelMachine::Find(const std::string& executable) const {
  for (const ModelProcess& process : processes) {
    if (process.executable == executable) return process.id;
  }
  return 0;
}

bool ModelMachine::HasWindow(ProcessId id) const {
  return std::any_of(processes.begin(), processes.end(),
                     [id](const ModelProcess& p) { return p.id == id && p.window; });
}

bool ModelMachine::Listens(int port) {
  for (const ModelProcess& process : processes) {
    if (programs[process.executable].port != port) continue;
    if (process.answer == PortAnswer::TimesOut) age += kUnanswered;
    return process.answer == PortAnswer::Listens;
  }
  return false;
}

ProcessId ModelMachine::Launch(const std::string& executable) {
  Add(executable);
  const ProcessId id = lastId;
  if (programs[executable].diesAtOnce) End(id);
  return id;
}

void ModelMachine::Add(const std::string& executable) {
  lastId += 4;
  processes.push_back({lastId, executable, programs[executable].opensWindow, PortAnswer::Listens});
}

void ModelMachine::End(ProcessId id) {
  std::erase_if(processes, [id](const ModelProcess& p) { return p.id == id; });
}

void ModelMachine::EndAll(const std::string& executable) {
  std::erase_if(processes, [&](const ModelProcess& p) { return p.executable == executable; });
}

void ModelMachine::Copy(const std::string& source, const std::string& target) {
  for (const ModelProcess& process : processes) {
    if (Target(process.executable) != target) continue;
    age += kHeldFile;
    throw ModelFault{Fault::PermissionDenied};
  }
  files[target] = files.at(source);
}

void SupervisionModel::Event(const std::function<void()>& event) {
  if (ended_) return;
  try {
    event();
  } catch (const ModelFault& fault) {
    boxes += "Run-time error '" + std::to_string(static_cast<int>(fault.number)) + "'";
    ended_ = true;
  }
}

void SupervisionModel::Log(LogLevel level, const std::string& text) {
  log += GeneralDate(machine.Now()).substr(11) + ' ' + std::to_string(level) + ' ' + text + '\n';
}

void SupervisionModel::Enable(ModelTimer& timer) {
  if (!timer.enabled) Arm(timer);
}

void SupervisionModel::Arm(ModelTimer& timer) {
  timer.enabled = true;
  timer.due = machine.age + timer.interval;
  timer.sequence = ++armed_;
}

void SupervisionModel::DisableFreezeWatch(ModelComponent& component) {
  for (ModelWatch watch : {ModelWatch::Preparation, ModelWatch::Probe, ModelWatch::Reprobe}) {
    Disable(component.TimerOf(watch));
  }
}

void SupervisionModel::ShowFailure(ComponentKind kind) {
  lastFailure = std::string(NameOf(kind)) + ": " + GeneralDate(machine.Now());
}

std::string SupervisionModel::WhyNotDue(ComponentKind kind, ModelWatch watch) {
  const ModelTimer& timer = components[kind].TimerOf(watch);
  if (!timer.enabled) return "ticks while it is off";
  if (timer.due > machine.age) return "ticks too early";
  for (const ModelComponent& component : components) {
    for (const ModelTimer& other : component.timers) {
      if (!other.enabled || other.due > timer.due) continue;
      if (other.due < timer.due || other.sequence < timer.sequence) return "ticks out of turn";
    }
  }
  return {};
}

void SupervisionModel::Tick(ComponentKind kind, ModelWatch watch) {
  Arm(components[kind].TimerOf(watch));
  Event([&] {
    switch (watch) {
      case ModelWatch::Crash:
        return CheckCrash(kind);
      case ModelWatch::Preparation:
        return Prepare(kind);
      case ModelWatch::Probe:
        return Probe(kind);
      case ModelWatch::Reprobe:
        return ProbeAgain(kind);
    }
  });
}

void SupervisionModel::ClickButton(std::size_t button) {
  Event([&] {
    if (const std::string reason = ReasonToRefuse(); !reason.empty()) {
      boxes += reason + '\n';
      return;
    }
    for (ComponentKind kind : kComponents) {
      const bool known = components[kind].id != 0;
      const bool own = button == IndexOf(kind);
      const bool stopped = components[kind].button == "Start";
      if ((own && stopped) || (button == 3 && !known)) {
        Start(kind);
      } else if (own || (button == 4 && known)) {
        Stop(kind);
      }
    }
  });
}

std::string SupervisionModel::ReasonToRefuse() const {
  bool tooShort = false;
  for (const ModelComponent& component : components) {
    // The time of an unwatched server is read as well: it has to be a number.
    if (Number(component.autokillTime) < kShortestAutokillTime && component.autokill) {
      tooShort = true;
    }
  }
  if (tooShort) return "The min autokill time is 5 second, please check.";
  if (AnySame(components[0].executable, components[1].executable, components[2].executable)) {
    return "Please, select the right servers from the list!";
  }
  return {};
}

void SupervisionModel::Start(ComponentKind kind) {
  ModelComponent& component = components[kind];
  component.choosable = false;
  component.button = "Stop";
  component.id = machine.Find(component.executable);
  if (component.id == 0) {
    component.id = machine.Launch(component.executable);
    Log(kInfo, Server(kind) + " Started" + PriorityText(kind));
  } else {
    Log(kInfo, "[" + component.executable + "] was found in memory!");
    Log(kInfo, Server(kind) + " under control" + PriorityText(kind));
    // Whoever runs already gets no time of grace.
    Enable(component.TimerOf(ModelWatch::Preparation));
  }
  Prepare(kind);
  // Begins anew even after a crash, whose own tick it may be.
  Arm(component.TimerOf(ModelWatch::Crash));
}

void SupervisionModel::Stop(ComponentKind kind) {
  ModelComponent& component = components[kind];
  Disable(component.TimerOf(ModelWatch::Crash));
  DisableFreezeWatch(component);
  component.id = 0;
  component.running = false;
  Log(kNotice, Server(kind) + " Stopped!");
  machine.EndAll(component.executable);
  component.alarm = AlarmState::NotWatched;
  component.choosable = true;
  component.button = "Start";
}

void SupervisionModel::CheckCrash(ComponentKind kind) {
  ModelComponent& component = components[kind];
  component.running = machine.HasWindow(component.id);
  if (!component.running) Crashed(kind);
}

void SupervisionModel::Crashed(ComponentKind kind) {
  ModelComponent& component = components[kind];
  component.alarm = AlarmState::Trouble;
  DisableFreezeWatch(component);
  machine.EndAll(component.executable);
  ShowFailure(kind);
  Log(kAlert, Server(kind) + " crashed, restarting...");
  component.id = 0;
  if (UpgradeTakesOver(kind)) return;
  if (kind == ComponentKind::Map && mapRestartsAll) RestartOthers();
  Start(kind);
}

bool SupervisionModel::UpgradeTakesOver(ComponentKind kind) {
  const bool holds = trigger == 2 || (trigger == 1 && kind == ComponentKind::Map);
  return holds && Upgrade(kind) == kUpgradeSucceeded;
}

void SupervisionModel::RestartOthers() {
  Log(kNotice, "Map Server Autokill: Closing Components...");
  for (ComponentKind kind : {ComponentKind::Char, ComponentKind::Login}) {
    if (!components[kind].running) continue;
    Stop(kind);
    Start(kind);
  }
}

void SupervisionModel::Prepare(ComponentKind kind) {
  ModelTimer& grace = components[kind].TimerOf(ModelWatch::Preparation);
  if (!grace.enabled) return Enable(grace);
  Disable(grace);
  Probe(kind);
  Log(kInfo, std::string("Listening ") + Server(kind));
  // Whatever the probe has shown: its light begins green.
  components[kind].alarm = AlarmState::Healthy;
}

void SupervisionModel::Probe(ComponentKind kind) {
  ModelComponent& component = components[kind];
  if (!component.autokill) return;
  Disable(component.TimerOf(ModelWatch::Probe));
  if (machine.Listens(component.port)) {
    component.alarm = AlarmState::Healthy;
    component.freezeStart = 0;
    return Enable(component.TimerOf(ModelWatch::Probe));
  }
  const char* const freezes = kind == ComponentKind::Map ? " server is freeze!" : " server freeze!";
  Log(kNotice, std::string(NameOf(kind)) + freezes + "... waiting...");
  component.alarm = AlarmState::Trouble;
  component.freezeStart = machine.Seconds();
  ProbeAgain(kind);
}

void SupervisionModel::ProbeAgain(ComponentKind kind) {
  ModelComponent& component = components[kind];
  ModelTimer& again = component.TimerOf(ModelWatch::Reprobe);
  Disable(again);
  if (machine.Listens(component.port)) {
    Log(kInfo, std::string(NameOf(kind)) + " server is back!");
    // Whoever comes back, the login server's light shows it.
    components[ComponentKind::Login].alarm =
        kind == ComponentKind::Char ? AlarmState::Trouble : AlarmState::Healthy;
    return Enable(component.TimerOf(ModelWatch::Probe));
  }
  if (!FrozenTooLong(component)) return Enable(again);
  Log(kAlert, std::string("Shuting down ") + NameOf(kind) + "...");
  ShowFailure(kind);
  machine.EndAll(component.executable);
}

bool SupervisionModel::FrozenTooLong(const ModelComponent& component) const {
  // A freeze that is no longer watched kills nobody.
  if (!component.autokill) return false;
  const std::int64_t seconds = machine.Seconds() - component.freezeStart;
  // A freeze seen in the first second of the tick count looks like none.
  return seconds > Number(component.autokillTime) && component.freezeStart > 0;
}

void SupervisionModel::ChooseTrigger(int mode) {
  trigger = mode;
  settings["UpdateMode"] = std::to_string(mode);
}

bool SupervisionModel::AnyKnown() const {
  return std::any_of(components.begin(), components.end(),
                     [](const ModelComponent& component) { return component.id != 0; });
}

void SupervisionModel::AskBeforeUpgrade() {
  boxes += "\xBFStop all to Upgrade?\r\nThe server components are running.\n";
}

void SupervisionModel::UpgradeByHand() {
  Event([this] { boxes += Upgrade(std::nullopt) + '\n'; });
}

std::string SupervisionModel::Upgrade(std::optional<ComponentKind> crashed) {
  if (std::string refusal = CheckNewFiles(); !refusal.empty()) return refusal;
  PerComponent<std::string> dates;
  const int news = CountNew(dates);
  if (news == 0) return "FROM and TO components are the same version, upgrade stopped!";
  Log(kNotice, "Upgrade in progress...");
  if (news < 3 && options[1]) {
    Log(kAlert, "Error, some server component have not changes! - Upgrade stopped");
    return "Some components don't have changes, upgrade stopped!";
  }
  if (news < 3) Log(kNotice, "Warning, some server component have not changes!");
  const Marks toStart = StopKnown(crashed);
  if (options[0]) BackUp();
  Replace(dates);
  for (ComponentKind kind : kComponents) {
    if (!toStart[kind]) continue;
    Log(kNotice, "Starting " + Server(kind) + "...");
    Start(kind);
  }
  if (options[2]) ChooseTrigger(0);
  lastUpgrade = settings["LASTUPDATE"];
  return kUpgradeSucceeded;
}

std::string SupervisionModel::RefuseUpgrade(const std::string& reason, const std::string& box) {
  Log(kAlert, "Update Error: " + reason);
  return box;
}

std::string SupervisionModel::CheckNewFiles() {
  for (const ModelComponent& component : components) {
    if (!component.newFile.empty()) continue;
    const char* const reason = "Please, select the right new components (login, char, map)";
    return RefuseUpgrade(reason, reason);
  }
  if (AnySame(components[0].newFile, components[1].newFile, components[2].newFile)) {
    return RefuseUpgrade("Please select the right components.",
                         "Error, please select the right components.");
  }
  for (const ModelComponent& component : components) {
    if (machine.files.contains(component.newFile)) continue;
    const std::string reason = "File missing: " + component.newFile;
    return RefuseUpgrade(reason, reason);
  }
  return {};
}

int SupervisionModel::CountNew(PerComponent<std::string>& dates) {
  int news = 0;
  for (ComponentKind kind : kComponents) {
    const std::int64_t date = machine.files.at(components[kind].newFile).date;
    dates[kind] = GeneralDate(LocalTime(std::chrono::seconds(date)));
    if (dates[kind] != settings[DateSetting(kind)]) ++news;
  }
  return news;
}

SupervisionModel::Marks SupervisionModel::StopKnown(std::optional<ComponentKind> crashed) {
  Marks toStart{};
  for (ComponentKind kind : kComponents) {
    toStart[kind] = components[kind].id != 0 || kind == crashed;
    if (components[kind].id == 0) continue;
    Log(kInfo, "Stopping " + Server(kind) + "...");
    Stop(kind);
  }
  return toStart;
}

void SupervisionModel::BackUp() {
  if (!backupFolder_) Log(kExtra, "Creating LBackup folder (first time)");
  backupFolder_ = true;
  const std::string minute = DateStamp(machine.Now()).substr(0, 12);
  for (const ModelComponent& component : components) {
    const std::string saved = "\\LBackup\\" + minute + "_" + component.executable;
    Log(kExtra, "Saving " + component.executable + " as " + saved);
    machine.Copy(Target(component.executable), "C:\\srv" + saved);
  }
}

void SupervisionModel::Replace(const PerComponent<std::string>& dates) {
  for (ComponentKind kind : kComponents) {
    Log(kExtra, "Upgrading " + Server(kind) + "...");
    machine.Copy(components[kind].newFile, Target(components[kind].executable));
  }
  for (ComponentKind kind : kComponents) settings[DateSetting(kind)] = dates[kind];
  Log(kExtra, "Upgrade complete!");
  settings["LASTUPDATE"] = GeneralDate(machine.Now());
}

}  // namespace tarvo
