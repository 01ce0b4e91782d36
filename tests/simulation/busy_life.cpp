#include "tests/simulation/busy_life.h"

#include "support/date_time.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr std::int64_t kFirstOfJanuary = 1767225600;  // 2026, universal time.
constexpr std::int64_t kDay = 86400;
constexpr char kEnd[] = " (whole)";

std::string NewPath(ComponentKind kind) {
  return std::string("C:\\new\\") + kServers[IndexOf(kind)];
}

std::string Beginning(ComponentKind kind) { return std::string(NameOf(kind)) + " build "; }

}  // namespace

std::string BuiltExecutable(ComponentKind kind, int build) {
  return Beginning(kind) + std::to_string(build) + kEnd;
}

int BuildOf(ComponentKind kind, const std::string& content) {
  const std::string beginning = Beginning(kind);
  if (!content.starts_with(beginning) || !content.ends_with(kEnd)) return -1;
  return std::stoi(content.substr(beginning.size()));
}

std::int64_t DateOfBuild(int build) { return kFirstOfJanuary + build * kDay; }

BusyLife::BusyLife(SimMachine& machine, unsigned seed) : machine_(machine), random_(seed) {
  machine.recorder.CountOnly();
  for (ComponentKind kind : kComponents) {
    const std::string name = NameOf(kind);
    machine.SetSetting(name + "AutoStart", "1");
    machine.SetSetting(name + "AutoKillEnabled", "1");
    machine.SetSetting(name + "Timeout", "5");
    machine.SetSetting(name + "From", NewPath(kind));
    machine.files.Put(std::string("C:\\srv\\") + kServers[IndexOf(kind)], BuiltExecutable(kind, 0));
    machine.processes.Program(kServers[IndexOf(kind)]).dyingTime = 100;
  }
  machine.SetSetting("WriteLog", "1");
  machine.SetSetting("MapFullAutokill", "1");
  machine.fileDialog.answer = NewPath(ComponentKind::Login);
  BuildNewExecutables();
}

void BusyLife::Play() {
  StartLauncher();
  launcher_->Pass(12s);
  for (std::size_t i = 0; i < kActs; ++i) {
    Act();
    launcher_->Pass(Time(500 + Draw(9000)));
  }
  launcher_->EndSession();
}

void BusyLife::StartLauncher() {
  launcher_.reset();
  launcher_ = std::make_unique<Launcher>(machine_);
  launcher_->KeepNoLog();
  launcher_->onEventOver = onEventOver;
  launcher_->TheProgram().TheEvents().listeners.push_back(
      [this](const EventReport& report) { ++happened_[NameOf(report.event)]; });
  launcher_->Start();
  if (onEventOver) onEventOver();
}

void BusyLife::Act() {
  switch (Draw(12)) {
    case 0:
      return UpgradeByHand();
    case 1:
      return UpgradeOnCrash();
    case 2:
      return RandomizeNow();
    case 3:
      return ChangeRanges();
    case 4:
      return RandomizeByCalendar();
    case 5:
      return ChangeSettings();
    case 6:
      return StopAndStart();
    case 7:
      return CloseAndReturn();
    default:
      return Strike();
  }
}

void BusyLife::Strike() {
  const char* const server = kServers[Draw(3)];
  const auto ids = machine_.processes.Named(server);
  if (ids.size() != 1) return;
  switch (Draw(4)) {
    case 0:
      return machine_.processes.Crash(ids.front());
    case 1:
      return machine_.processes.CloseWindows(ids.front());
    case 2:
      machine_.processes.TheOne(server).answer = PortAnswer::TimesOut;
      return;
    default:
      machine_.processes.TheOne(server).answer = PortAnswer::Refuses;
      launcher_->Pass(Time(9000 + Draw(9000)));
      for (ProcessId id : machine_.processes.Named(server)) {
        if (id == ids.front()) machine_.processes.TheOne(server).answer = PortAnswer::Listens;
      }
  }
}

void BusyLife::BuildNewExecutables() {
  ++built_;
  for (ComponentKind kind : kComponents) {
    machine_.files.Put(NewPath(kind), BuiltExecutable(kind, built_));
    machine_.copies.SetDate(NewPath(kind), DateOfBuild(built_));
  }
}

void BusyLife::UpgradeByHand() {
  BuildNewExecutables();
  launcher_->Click("cmd_nBrowse", 0);
  machine_.boxes.AnswerNext(Answer::Yes);
  machine_.boxes.whileNextIsOpen = [this] { launcher_->Pass(6s); };
  launcher_->Click("UpdateNow");
}

void BusyLife::UpgradeOnCrash() {
  BuildNewExecutables();
  launcher_->Click("optMode", 1 + Draw(2));
  for (ProcessId id : machine_.processes.Named(kMap)) machine_.processes.Crash(id);
  launcher_->Pass(6s);
}

void BusyLife::RandomizeNow() {
  machine_.random.Script({static_cast<double>(Draw(1000)) / 1000});
  launcher_->Click("Command2");
}

void BusyLife::ChangeRanges() {
  launcher_->Choose("cmdParam", 0, Draw(2) == 0 ? "base_exp_rate" : "job_exp_rate");
  launcher_->Type("rIni", 0, Number(100));
  launcher_->Type("rEnd", 0, std::to_string(100 + Draw(900)));
  launcher_->Click("rAdd", Draw(4) == 0 ? 1 : 0);
}

void BusyLife::RandomizeByCalendar() {
  const std::string inAMinute = GeneralDate(machine_.clock.Now() + 60s);
  const char* const days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  const auto today = std::chrono::weekday(std::chrono::floor<std::chrono::days>(
      std::chrono::sys_seconds((machine_.clock.Now() + 60s).time_since_epoch())));
  launcher_->Click("opt_Rnd", 2);
  launcher_->Choose("lstDay", 0, days[today.c_encoding()]);
  launcher_->Type("txt_Time", 0, inAMinute.substr(11, 2));
  launcher_->Type("txt_Time", 1, inAMinute.substr(14, 2));
  launcher_->Choose("cmbRstrt", 0, Draw(2) == 0 ? "Yes" : "No");
  launcher_->Click("cmdCalendar", 0);
  launcher_->Pass(75s);
  launcher_->Click("opt_Rnd", Draw(2));
}

void BusyLife::ChangeSettings() {
  const char* const priorities[] = {"V-Low", "Low", "Norm", "High", "V-High"};
  launcher_->Choose("Prior", Draw(3), priorities[Draw(5)]);
  launcher_->Type("TTO", Draw(3), std::to_string(5 + Draw(5)));
  launcher_->Type("txtMxD", Draw(2), Number(50));
  launcher_->Click("Check2");
  launcher_->Click("chkAK", 3);
}

void BusyLife::StopAndStart() {
  const std::size_t one = Draw(3);
  launcher_->Click("bStart", one);
  launcher_->Pass(1s);
  launcher_->Click("bStart", one);
  if (Draw(2) == 0) launcher_->Click("bStart", 4);
  launcher_->Click("bStart", 3);
}

void BusyLife::CloseAndReturn() {
  switch (Draw(3)) {
    case 0:
      launcher_->Click("bStart", 4);
      launcher_->Close();
      break;
    case 1:
      machine_.boxes.AnswerNext(Answer::Yes);
      launcher_->Click("Command1");
      break;
    default:
      launcher_->EndSession();
  }
  machine_.clock.Advance(1000);
  StartLauncher();
}

}  // namespace tarvo
