#include "tests/app/fault_cell.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <utility>
#include <vector>

namespace tarvo {
namespace {

using namespace std::chrono_literals;

// As docs/faults.md names them.
const char* const kMomentNames[] = {
    "start-up",   "grace",          "watching",       "frozen",        "stopping",
    "restarting", "upgrade before", "upgrade during", "upgrade after", "randomizer's write",
    "close"};

constexpr char kMapLaunch[] = "processes.launch(C:\\srv\\map-server.exe";
// A server gets its priority right after its launch.
constexpr char kPriority[] = "processes.priority(";
constexpr char kBattleConf[] = "C:\\srv\\conf\\battle_athena.conf";

}  // namespace

FaultCell::FaultCell() {
  for (ComponentKind kind : kComponents) {
    machine.SetSetting(std::string(NameOf(kind)) + "AutoKillEnabled", "1");
    machine.SetSetting(std::string(NameOf(kind)) + "Timeout", "20");
  }
  machine.files.Put("C:\\srv\\randomize.xml",
                    "<Randomize>\r\n\t<base_exp_rate Min=\"5\" Max=\"9\"/>\r\n</Randomize>\r\n");
}

FaultCell& FaultCell::With(const Strike& arrange) {
  arrange(*this);
  return *this;
}

FaultCell& FaultCell::OnServer() {
  onServer_ = true;
  return *this;
}

ProcessId FaultCell::MapOrNone() {
  const auto ids = machine.processes.Named(kMap);
  return ids.empty() ? 0 : ids.front();
}

void FaultCell::StrikeAt(const std::string& call, const Strike& strike) {
  machine.recorder.beforeEach = [this, call, strike] {
    const std::string& made = machine.recorder.Calls().back();
    if (struck_ || !made.starts_with(call)) return;
    if (call == kPriority && !made.starts_with(call + std::to_string(MapOrNone()) + ",")) return;
    struck_ = true;
    launcher->ForgetLog();
    machine.boxes.NewTexts();
    strike(*this);
  };
}

void FaultCell::Reach(Moment moment, const Strike& strike) {
  const auto now = [&] {
    struck_ = true;
    launcher->ForgetLog();
    machine.boxes.NewTexts();
    strike(*this);
  };
  const char* const launch = onServer_ ? kPriority : kMapLaunch;
  if (moment == Moment::StartUp) {
    for (ComponentKind kind : kComponents) {
      machine.SetSetting(std::string(NameOf(kind)) + "AutoStart", "1");
    }
    launcher = std::make_unique<Launcher>(machine);
    if (!onServer_) now();
    if (onServer_) StrikeAt(kPriority, strike);
    return launcher->Start();
  }
  StartLauncher();
  if (moment == Moment::Close && !onServer_) {
    StrikeAt("registry.write(", strike);
    return launcher->Close();
  }
  launcher->Click("bStart", 3);
  launcher->Pass(moment == Moment::Grace ? 2s : 11s);
  switch (moment) {
    case Moment::Grace:
    case Moment::Watching:
      return now();
    case Moment::Frozen:
      Freeze(kMap);
      launcher->Pass(12s);
      return now();
    case Moment::Close:
      StrikeAt("boxes.ask(", strike);
      return launcher->Close();
    case Moment::RandomizerWrite:
      StrikeAt(std::string("files.replace(") + kBattleConf, strike);
      return launcher->Click("Command2");
    case Moment::Stopping:
      StrikeAt("processes.end(", strike);
      return launcher->Click("bStart", 2);
    case Moment::Restarting:
      Crash(kMap);
      StrikeAt(launch, strike);
      return launcher->Pass(6s);
    case Moment::BeforeSwap:
      StrikeAt("copies.copy(C:\\srv\\map-server.exe", strike);
      break;
    case Moment::DuringSwap:
      StrikeAt("copies.write(C:\\srv\\map-server.exe", strike);
      break;
    case Moment::AfterSwap:
      StrikeAt(launch, strike);
      break;
    default:
      break;
  }
  machine.boxes.AnswerNext(Answer::Yes);
  PressUpgrade();
}

std::string FaultCell::Play(Moment moment, const Strike& strike) {
  try {
    Reach(moment, strike);
  } catch (const LauncherKilled&) {
    machine.recorder.beforeEach = nullptr;
    StartLauncher();
    launcher->Click("bStart", 3);
  }
  EXPECT_TRUE(struck_) << "the moment did not come";
  machine.recorder.beforeEach = nullptr;
  launcher->Pass(90s);
  return Told() + AtTheEnd();
}

std::string FaultCell::Told() {
  std::vector<std::pair<std::string, int>> told;
  std::istringstream lines(NewLines() + ShownBoxes());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("0 ") || line.starts_with("3 ")) continue;
    const std::string text = line.substr(2);
    const auto known =
        std::find_if(told.begin(), told.end(), [&](const auto& one) { return one.first == text; });
    if (known == told.end()) {
      told.emplace_back(text, 1);
    } else {
      ++known->second;
    }
  }
  std::string text;
  for (const auto& [line, times] : told) {
    text += line + (times == 1 ? "" : " x" + std::to_string(times)) + "\n";
  }
  return text;
}

std::string FaultCell::ShownBoxes() {
  std::string text = machine.boxes.NewTexts();
  if (!text.empty()) text.pop_back();
  std::string shown;
  for (const char c : text) {
    if (c != '\r') shown += c == '\n' ? "|" : std::string(1, c);
  }
  return shown.empty() ? shown : "- box: " + shown + "\n";
}

std::string FaultCell::AtTheEnd() {
  if (launcher->Ended()) return "= ended " + std::to_string(launcher->ExitCode()) + "\n";
  std::string text = "=";
  const char* const names[] = {" login", " char", " map"};
  for (ComponentKind kind : kComponents) {
    const Component& component = launcher->Of(kind);
    const bool answers = component.AlarmState == AlarmState::Healthy;
    if (component.ProcessId != 0) text += names[IndexOf(kind)] + std::string(answers ? "" : "?");
  }
  return text + "\n";
}

std::string FaultCell::Wrong() {
  std::string wrong;
  for (ComponentKind kind : kComponents) {
    std::vector<ProcessId> own;
    for (const SimProcess& one : machine.processes.Running()) {
      if (one.path == Target(kind)) own.push_back(one.id);
    }
    const bool watched = launcher->TheForm().timers.CrashWatch[kind].Enabled();
    const ProcessId known = launcher->Of(kind).ProcessId;
    if (own.size() > 1) wrong += Target(kind) + " runs twice\n";
    if (watched && !launcher->Ended() && !own.empty() && known != own[0]) {
      wrong += Target(kind) + " is watched and not known\n";
    }
    const std::string lies = machine.files.TextOf(Target(kind));
    const bool whole = lies == Old(kind) || lies == std::string("new ") + NameOf(kind);
    if (machine.files.Has(Target(kind)) && !whole) wrong += Target(kind) + " is torn\n";
  }
  const std::string conf = machine.files.TextOf(kBattleConf);
  const bool whole = conf.find("base_exp_rate") != conf.npos && conf.ends_with("\r\n");
  if (machine.files.Has(kBattleConf) && !whole) wrong += "conf is torn\n";
  return wrong;
}

FaultCell::Strike AtTheMapServer(std::function<void(FaultCell&, SimProcess&)> fault) {
  return [fault](FaultCell& cell) {
    if (cell.MapOrNone() != 0) fault(cell, cell.Process(kMap));
  };
}

std::vector<ToldAt> NothingNew(std::vector<ToldAt> others) {
  using enum Moment;
  std::vector<ToldAt> row = {
      {{StartUp, Grace, Watching, Restarting, RandomizerWrite}, kAsEver},
      {{Frozen}, kKilledAndRestarted},
      {{Stopping}, kStopped},
      {{BeforeSwap, DuringSwap}, kUpgraded},
      {{AfterSwap}, kUpgradedNow},
      {{Close}, kClosed},
  };
  for (const ToldAt& other : others) {
    for (const Moment moment : other.moments) {
      for (ToldAt& one : row) std::erase(one.moments, moment);
    }
  }
  std::move(others.begin(), others.end(), std::back_inserter(row));
  return row;
}

void ExpectTold(const FaultAt& fault, const std::vector<ToldAt>& row) {
  for (const ToldAt& one : row) {
    for (const Moment moment : one.moments) {
      SCOPED_TRACE(kMomentNames[static_cast<std::size_t>(moment)]);
      FaultCell cell;
      if (fault.before) cell.With(fault.before);
      if (fault.whom == FaultAt::TheServer) cell.OnServer();
      EXPECT_EQ(cell.Play(moment, fault.strike), one.told);
      EXPECT_EQ(cell.Wrong(), "");
    }
  }
}

}  // namespace tarvo
