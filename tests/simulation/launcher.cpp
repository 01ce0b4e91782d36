#include "tests/simulation/launcher.h"

#include <algorithm>
#include <stdexcept>

#include "support/date_time.h"

namespace tarvo {
namespace {

[[noreturn]] void NoSuch(const std::string& name) {
  throw std::logic_error("no control is named " + name);
}

CheckBox* FindCheckBox(ServersPage& page, const std::string& name, std::size_t index) {
  if (name == "chkAutoStart") return &page.chkAutoStart.at(index);
  if (name == "chkAK") return &page.chkAK.at(index);
  if (name == "WLog") return &page.WLog;
  if (name == "Check2") return &page.Check2;
  if (name == "SMinimized") return &page.SMinimized;
  if (name == "chkEvents") return &page.chkEvents;
  return nullptr;
}

CommandButton* FindButton(Form& form, const std::string& name, std::size_t index) {
  if (name == "bStart") return &form.status.bStart.at(index);
  if (name == "Command1") return &form.servers.Command1;
  if (name == "cmdCheckUp") return &form.servers.cmdCheckUp;
  if (name == "cmdRepair") return &form.checkUp.cmdRepair;
  if (name == "cmdCopy") return &form.checkUp.cmdCopy;
  if (name == "cmdAgain") return &form.checkUp.cmdAgain;
  if (name == "Command2") return &form.randomizer.Command2;
  if (name == "rAdd") return &form.randomizer.rAdd.at(index);
  if (name == "cmdCalendar") return &form.randomizer.cmdCalendar.at(index);
  if (name == "cmd_nBrowse") return &form.upgrade.cmd_nBrowse.at(index);
  if (name == "UpdateNow") return &form.upgrade.UpdateNow;
  return nullptr;
}

OptionButton* FindOption(Form& form, const std::string& name, std::size_t index) {
  if (name == "opt_ShowWin") return &form.servers.opt_ShowWin[index];
  if (name == "opt_Rnd") return &form.randomizer.opt_Rnd[index];
  if (name == "optMode") return &form.upgrade.optMode[index];
  return nullptr;
}

TextBox& FindTextBox(Form& form, const std::string& name, std::size_t index) {
  if (name == "TTO") return form.servers.TTO.at(index);
  if (name == "txtMxD") return form.randomizer.txtMxD.at(index);
  if (name == "rIni") return form.randomizer.rIni;
  if (name == "rEnd") return form.randomizer.rEnd;
  if (name == "txt_Time") return form.randomizer.txt_Time.at(index);
  NoSuch(name);
}

ItemList& FindList(Form& form, const std::string& name, std::size_t index) {
  if (name == "Exes") return form.servers.Exes.at(index);
  if (name == "Prior") return form.servers.Prior.at(index);
  if (name == "LogH") return form.servers.LogH;
  if (name == "cmdParam") return form.randomizer.cmdParam;
  if (name == "lstRnd") return form.randomizer.lstRnd;
  if (name == "lstDay") return form.randomizer.lstDay;
  if (name == "cmbRstrt") return form.randomizer.cmbRstrt;
  if (name == "lstDTRands") return form.randomizer.lstDTRands;
  NoSuch(name);
}

}  // namespace

Launcher::Launcher(SimMachine& machine)
    : machine_(machine),
      lock_(machine.recorder, machine.locks),
      principal_(machine.PortsFor(lock_)) {
  auto& listeners = principal_.TheLog().listeners;
  listeners.insert(listeners.begin(), [this](const LogLine& line) {
    if (keepLog_) lines_.push_back({line.pieces[0].text, line.pieces[1].text, line.level});
  });
  principal_.TheEvents().listeners.push_back([this](const EventReport& report) { Note(report); });
}

void Launcher::Note(const EventReport& report) {
  if (!keepLog_) return;
  events_ += GeneralDate(machine_.clock.Now()).substr(11) + ' ' + NameOf(report.event) + ' ' +
             (report.component ? NameOf(*report.component) : "all") + ": " + report.text + '\n';
}

void Launcher::Start(std::intptr_t nativeWindow) { principal_.Start(nativeWindow); }

void Launcher::CompleteWindow() {
  Event([this] { TheForm().frame.onComplete(); });
}

void Launcher::Event(const std::function<void()>& event) {
  if (Ended()) return;
  const std::uint64_t begun = machine_.clock.Age();
  ++depth_;
  principal_.Dispatch().Run(event);
  if (--depth_ > 0) return;
  lastEventTook_ = machine_.clock.Age() - begun;
  if (onEventOver) onEventOver();
}

void Launcher::Click(const std::string& name, std::size_t index) {
  Event([&] {
    if (CommandButton* button = FindButton(TheForm(), name, index)) return button->Click();
    if (CheckBox* box = FindCheckBox(TheForm().servers, name, index)) return box->Click();
    if (OptionButton* option = FindOption(TheForm(), name, index)) return option->Click();
    NoSuch(name);
  });
}

void Launcher::Type(const std::string& name, std::size_t index, const std::string& text) {
  Event([&] { FindTextBox(TheForm(), name, index).Type(text); });
}

void Launcher::Choose(const std::string& name, std::size_t index, const std::string& item) {
  Event([&] {
    ItemList& list = FindList(TheForm(), name, index);
    const auto& items = list.Items();
    const auto found = std::find(items.begin(), items.end(), item);
    if (found == items.end()) NoSuch(name + " entry " + item);
    list.Choose(static_cast<int>(found - items.begin()));
  });
}

void Launcher::Check(const std::string& name, std::size_t index, bool checked) {
  CheckBox* box = FindCheckBox(TheForm().servers, name, index);
  if (!box) NoSuch(name);
  if (box->Checked() != checked) Click(name, index);
}

void Launcher::Close() {
  Event([this] { Window().Close(); });
}

void Launcher::AskForEndOfSession() {
  Event([this] { Window().AskForEndOfSession(); });
}

void Launcher::CallOffEndOfSession() {
  Event([this] { Window().CallOffEndOfSession(); });
}

void Launcher::EndSession() {
  Event([this] { Window().EndSession(); });
}

void Launcher::Pass(std::chrono::milliseconds time) {
  const std::uint64_t end = machine_.clock.Age() + static_cast<std::uint64_t>(time.count());
  TimerQueue& timers = principal_.TheTimers();
  while (!Ended()) {
    const auto wait = timers.UntilNext();
    if (!wait || machine_.clock.Age() + *wait > end) break;
    machine_.clock.Advance(*wait);
    timers.RunNext([this](const std::function<void()>& tick) { Tick(tick); });
  }
  if (machine_.clock.Age() < end) machine_.clock.Advance(end - machine_.clock.Age());
}

void Launcher::Tick(const std::function<void()>& tick) {
  Event([&] {
    ++ticks_;
    tick();
  });
}

std::string Launcher::Log() const {
  std::string text;
  for (const Line& line : lines_) {
    // The stamp is "yyyy-mm-dd hh:mm:ss: ".
    text += line.stamp.substr(11, 8) + ' ' + std::to_string(line.level) + ' ' + line.text + '\n';
  }
  return text;
}

std::string Launcher::NewLog() {
  std::string text = Log();
  ForgetLog();
  return text;
}

std::size_t Launcher::CountInLog(const std::string& text) const {
  return static_cast<std::size_t>(std::count_if(
      lines_.begin(), lines_.end(), [&](const Line& line) { return line.text == text; }));
}

std::string Launcher::RunningTimers(ComponentKind kind) {
  Timers& timers = TheForm().timers;
  std::string names;
  for (const Timer* timer : {&timers.CrashWatch[kind], &timers.Preparation[kind],
                             &timers.Probe[kind], &timers.Reprobe[kind]}) {
    if (timer->Enabled()) names += (names.empty() ? "" : " ") + timer->Name();
  }
  return names;
}

}  // namespace tarvo
