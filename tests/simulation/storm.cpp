#include "tests/simulation/storm.h"

#include <algorithm>
#include <utility>

#include "tests/simulation/busy_life.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t kLongestAbsence = 8000;
constexpr std::size_t kServerFaults = static_cast<std::size_t>(StormFault::ExecutableLocked) + 1;
constexpr std::chrono::milliseconds kClearing = 2min;
constexpr std::chrono::milliseconds kBeforeWrap = 1min;

/// The boxes that the guide tells of; the numbers are those of the run time's faults.
constexpr const char* kToldBoxes[] = {"Run-time error '6'",
                                      "Run-time error '13'",
                                      "Run-time error '53'",
                                      "Run-time error '61'",
                                      "Run-time error '70'",
                                      "Run-time error '75'",
                                      "Run-time error '380'",
                                      "\xBF"
                                      "Stop all to Upgrade?",
                                      "Upgrade was succesfull!",
                                      "File missing: ",
                                      "FROM and TO components",
                                      "This option will stop the launcher",
                                      "Please, select the right servers",
                                      "The min autokill time"};

std::string CharConfWithNames() {
  std::string conf = UsualCharConf();
  const std::string dotted = "login_ip:127.0.0.1";
  return conf.replace(conf.find(dotted), dotted.size(), "login_ip: login.example");
}

std::string MapConfWithNames() {
  std::string conf = UsualMapConf();
  const std::string dotted = "map_ip:127.0.0.1";
  return conf.replace(conf.find(dotted), dotted.size(), "map_ip: map.example");
}

}  // namespace

Storm::Storm(unsigned seed) : random_(seed), watch_(machine_) {
  machine_.recorder.CountOnly();
  machine_.network.KeepNoConnects();
  machine_.files.DropAppends();
  for (const char* name : {"login.example", "map.example"}) {
    machine_.network.AddServedName(name, {127, 0, 0, 1});
  }
  for (const char* server : kServers) machine_.processes.Program(server).dyingTime = 100;
  machine_.files.Put("C:\\srv\\randomize.xml", "");
  machine_.files.Put("C:\\srv\\rndcalendar.xml", "");
  Repair();
  StartLauncher();
  PassUntil(Age() + static_cast<std::uint64_t>(kClearing.count()));
}

void Storm::Arrange() {
  for (ComponentKind kind : kComponents) {
    const std::string name = NameOf(kind);
    machine_.SetSetting(name + "Exe", kServers[IndexOf(kind)]);
    machine_.SetSetting(name + "AutoStart", "1");
    machine_.SetSetting(name + "AutoKillEnabled", "1");
    machine_.SetSetting(name + "Timeout", "15");
    machine_.SetSetting(name + "Pri", "2");
    machine_.SetSetting(name + "From", std::string("C:\\new\\") + kServers[IndexOf(kind)]);
  }
  for (const char* name : {"UpdateMode", "WriteMode", "DayRndCnt", "HourRndCnt"}) {
    machine_.SetSetting(name, "0");
  }
  machine_.SetSetting("WriteLog", "1");
  machine_.SetSetting("MapFullAutokill", "1");
  machine_.SetSetting("LastRandProcess", "2026-01-01 00:00:00");
}

void Storm::In(std::uint64_t milliseconds, std::function<void()> what) {
  const Due due{Age() + milliseconds, std::move(what)};
  const auto later =
      std::find_if(due_.begin(), due_.end(), [&](const Due& other) { return other.at > due.at; });
  due_.insert(later, due);
}

/// Does what may end the launcher, from within or from outside.
void Storm::Run(const std::function<void()>& act) {
  try {
    act();
  } catch (const LauncherKilled&) {
    LoseLauncher();
  }
  CheckEnd();
}

void Storm::PassUntil(std::uint64_t moment) {
  while (Age() < moment || (!due_.empty() && due_.front().at <= Age())) {
    const std::uint64_t next = due_.empty() ? moment : std::min(moment, due_.front().at);
    if (next > Age()) {
      Run([&] {
        if (Alive()) return launcher_->Pass(Time(next - Age()));
        machine_.clock.Advance(next - Age());
      });
    }
    if (due_.empty() || due_.front().at > Age()) continue;
    const std::function<void()> what = std::move(due_.front().what);
    due_.pop_front();
    Run(what);
    watch_.Look();
  }
}

void Storm::LoseLauncher() {
  machine_.recorder.KillAtCall(0);
  watch_.Leave();
  launcher_.reset();
  machine_.BuryLauncher();
  In(Draw(kLongestAbsence), [this] { StartLauncher(); });
}

/// The launcher may have ended by itself, and any box has to be one that the guide tells of.
void Storm::CheckEnd() {
  for (; boxesSeen_ < machine_.boxes.Shown().size(); ++boxesSeen_) {
    const std::string& text = machine_.boxes.Shown()[boxesSeen_].text;
    const bool told = std::any_of(std::begin(kToldBoxes), std::end(kToldBoxes),
                                  [&](const char* box) { return text.starts_with(box); });
    if (!told) watch_.Complain("a box that nobody has told of: " + text);
  }
  if (launcher_ && launcher_->Ended()) LoseLauncher();
}

/// The operator reads why the launcher does not start, and puts it right.
void Storm::Repair() {
  Arrange();
  for (ComponentKind kind : kComponents) {
    const std::string path = std::string("C:\\srv\\") + kServers[IndexOf(kind)];
    if (!machine_.files.Has(path)) machine_.files.Put(path, BuiltExecutable(kind, built_));
  }
  const std::string battle = "C:\\srv\\conf\\battle_athena.conf";
  const std::string kept = machine_.files.TextOf(battle);
  machine_.PutConf("C:\\srv", CharConfWithNames(), MapConfWithNames());
  if (!kept.empty()) machine_.files.Put(battle, kept);
}

void Storm::StartLauncher() {
  if (Alive()) return;
  Repair();
  launcher_ = std::make_unique<Launcher>(machine_);
  launcher_->KeepNoLog();
  watch_.Follow(*launcher_);
  launcher_->Start();
  watch_.Look();
}

void Storm::StartSecondLauncher() {
  const auto mouse = machine_.tray.onMouseMessage;
  const auto restarted = machine_.tray.onShellRestarted;
  const std::size_t launches = machine_.processes.Launches();
  {
    Launcher second(machine_);
    second.Start();
    if (!second.Ended()) watch_.Complain("a second launcher stays");
  }
  if (machine_.processes.Launches() != launches) watch_.Complain("a second launcher acts");
  machine_.tray.onMouseMessage = mouse;
  machine_.tray.onShellRestarted = restarted;
}

void Storm::PressStart() {
  for (std::size_t i = 0; i < 3; ++i) {
    if (Alive() && launcher_->TheForm().status.bStart[i].Caption() == "Start") {
      launcher_->Click("bStart", i);
    }
  }
}

void Storm::Blow(std::size_t faults, Time time) {
  refused_ = {};
  for (std::size_t i = 0; i < faults; ++i) {
    // Half of them are the servers' own: a launcher that is not there cannot answer.
    const std::size_t kinds = Draw(2) == 0 ? kServerFaults : kStormFaults;
    const auto fault = static_cast<StormFault>(Draw(kinds));
    In(Draw(static_cast<std::size_t>(time.count())), [this, fault] { Strike(fault); });
  }
  PassUntil(Age() + static_cast<std::uint64_t>(time.count()));
  Clear();
}

void Storm::Clear() {
  while (!due_.empty()) PassUntil(due_.back().at);
  Repair();
  Run([this] { StartLauncher(); });
  for (const std::string& path : machine_.files.Paths()) {
    if (path.starts_with("C:\\srv\\LBackup\\")) machine_.files.Remove(path);
  }
  Run([this] { PressStart(); });
  PassUntil(Age() + static_cast<std::uint64_t>(kClearing.count()));
  // Once shut down, a process that refused to die is not probed until its next start.
  for (ComponentKind kind : kComponents) {
    if (!refused_[kind] || !Alive()) continue;
    Run([this, kind] { launcher_->Click("bStart", IndexOf(kind)); });
    Run([this] { PressStart(); });
  }
  PassUntil(Age() + static_cast<std::uint64_t>(kClearing.count()));
  CheckClear();
}

void Storm::CheckClear() {
  if (!Alive()) return watch_.Complain("no launcher after the storm");
  for (ComponentKind kind : kComponents) {
    const std::string server = kServers[IndexOf(kind)];
    const auto ids = machine_.processes.Named(server);
    const Component& component = launcher_->Of(kind);
    if (ids.size() != 1) watch_.Complain(std::to_string(ids.size()) + " of " + server);
    if (ids.size() == 1 && component.ProcessId != ids.front()) {
      watch_.Complain(server + " is not under control after the storm");
    }
    if (component.AlarmState != AlarmState::Healthy) {
      watch_.Complain(server + " is not healthy after the storm");
    }
  }
}

void Storm::Calm(Time time) { PassUntil(Age() + static_cast<std::uint64_t>(time.count())); }

void Storm::Sleep(Time time) {
  machine_.clock.Advance(static_cast<std::uint64_t>(time.count()));
  watch_.ForgetTimes();
}

std::chrono::milliseconds Storm::UntilWrap() const {
  return Time(SimClock::kWrap - Age() % SimClock::kWrap);
}

StormReport StormsOf(unsigned seed, unsigned days, bool awake) {
  Storm storm(seed);
  std::mt19937 random(seed + 1);
  StormReport report;
  const std::uint64_t begin = storm.Age();
  const std::uint64_t end = begin + days * 24ULL * 3600000;
  while (storm.Age() < end && storm.Watch().Broken().empty()) {
    storm.Blow(20 + random() % 81, std::chrono::seconds(60 + random() % 241));
    ++report.storms;
    std::chrono::milliseconds pause = std::chrono::minutes(12 * 60 + random() % (24 * 60));
    if (!awake) pause *= 2;
    pause = std::min(pause, std::chrono::milliseconds(end - std::min(end, storm.Age())));
    if (pause > storm.UntilWrap() - kBeforeWrap && storm.UntilWrap() > kBeforeWrap) {
      pause = storm.UntilWrap() - kBeforeWrap;
    }
    awake ? storm.Calm(pause) : storm.Sleep(pause);
  }
  report.days = static_cast<double>(storm.Age() - begin) / (24 * 3600000.0);
  report.faults = storm.Faults();
  const StormWatch& watch = storm.Watch();
  report.deaths = watch.deaths;
  report.successors = watch.successors;
  std::sort(report.successors.begin(), report.successors.end());
  report.longestProbe = watch.longestProbe;
  report.longestEvent = watch.longestEvent;
  report.broken = watch.Broken();
  return report;
}

}  // namespace tarvo
