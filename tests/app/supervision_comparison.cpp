#include "tests/app/supervision_comparison.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

/// Goes through everything that launcher and model both have, and keeps the first difference.
class Comparison {
 public:
  Comparison(Launcher& launcher, SimMachine& machine, const SupervisionModel& model)
      : launcher_(launcher), form_(launcher.TheForm()), machine_(machine), model_(model) {}

  std::string First(const Told& told) {
    CompareTold(told);
    // Whatever changes a file or a date says so.
    if (!told.log.empty()) CompareFiles();
    if (model_.Ended()) return first_;
    for (ComponentKind kind : kComponents) {
      about_ = NameOf(kind);
      CompareState(kind);
      CompareControls(kind);
      CompareTimers(kind);
    }
    about_ = "all";
    CompareRest();
    CompareProcesses();
    return first_;
  }

 private:
  template <class Value>
  void Compare(const char* what, const Value& launcher, const Value& model) {
    if (!first_.empty() || launcher == model) return;
    first_ = std::string(about_) + ", " + what + ": launcher " +
             ::testing::PrintToString(launcher) + ", model " + ::testing::PrintToString(model);
  }

  void CompareTold(const Told& told) {
    Compare("ended", launcher_.Ended(), model_.Ended());
    Compare("log", told.log, model_.log);
    // The model knows of a fault its number only, which comes first.
    const bool cut = model_.Ended() && told.boxes.size() > model_.boxes.size();
    Compare("boxes", cut ? told.boxes.substr(0, model_.boxes.size()) : told.boxes, model_.boxes);
  }

  void CompareFiles() {
    for (const auto& [path, file] : model_.machine.files) {
      about_ = path.c_str();
      Compare("text", machine_.files.TextOf(path), file.text);
      Compare("date", machine_.copies.DateOf(path), file.date);
    }
    for (const auto& [name, text] : model_.settings) {
      about_ = name.c_str();
      Compare("setting", machine_.Setting(name), text.empty() ? std::string("(none)") : text);
    }
  }

  void CompareState(ComponentKind kind) {
    const Component& component = launcher_.Of(kind);
    const ModelComponent& model = model_.components[kind];
    Compare("id", component.ProcessId, model.id);
    Compare("runs", component.RunningHandle != 0, model.running);
    Compare("alarm state", component.AlarmState, model.alarm);
    Compare("freeze start", component.FreezeStart, model.freezeStart);
  }

  void CompareControls(ComponentKind kind) {
    const ModelComponent& model = model_.components[kind];
    Compare("button", form_.status.bStart[IndexOf(kind)].Caption(), model.button);
    Compare("executable", form_.servers.Exes[kind].Text(), model.executable);
    Compare("chooser", form_.servers.Exes[kind].Enabled(), model.choosable);
    Compare("autokill", form_.servers.chkAK[IndexOf(kind)].Checked(), model.autokill);
    Compare("autokill time", form_.servers.TTO[kind].Text(), model.autokillTime);
    Compare("new file", form_.upgrade.nPath[kind].Text(), model.newFile);
    Compare("target", form_.upgrade.oPath[IndexOf(kind)].Caption(), "C:\\srv\\" + model.executable);
  }

  void CompareTimers(ComponentKind kind) {
    for (ModelWatch watch : kModelWatches) {
      const Timer& timer = TimerOf(form_.timers, kind, watch);
      const ModelTimer& model = model_.components[kind].timers[static_cast<std::size_t>(watch)];
      Compare(timer.Name().c_str(), timer.Enabled(), model.enabled);
      Compare(timer.Name().c_str(), std::uint64_t{timer.Interval()}, model.interval);
    }
  }

  void CompareRest() {
    Compare("age", machine_.clock.Age(), model_.machine.age);
    Compare("last failure", form_.frame.lblErr.Caption(), model_.lastFailure);
    Compare("last upgrade", form_.upgrade.oPath[kLastUpgrade].Caption(), model_.lastUpgrade);
    for (int mode = 0; mode < 3; ++mode) {
      const auto index = static_cast<std::size_t>(mode);
      Compare("trigger", form_.upgrade.optMode[index].Selected(), model_.trigger == mode);
      Compare("option", form_.upgrade.chk_Opts[index].Checked(), model_.options[index]);
    }
  }

  void CompareProcesses() {
    std::vector<ProcessId> running;
    for (const SimProcess& process : machine_.processes.Running()) running.push_back(process.id);
    std::vector<ProcessId> modelled;
    for (const ModelProcess& process : model_.machine.processes) modelled.push_back(process.id);
    running.erase(running.begin());  // The desktop's own.
    Compare("processes", running, modelled);
  }

  Launcher& launcher_;
  Form& form_;
  SimMachine& machine_;
  const SupervisionModel& model_;
  const char* about_ = "all";
  std::string first_;
};

}  // namespace

std::string FirstDifference(Launcher& launcher, SimMachine& machine, const SupervisionModel& model,
                            const Told& told) {
  return Comparison(launcher, machine, model).First(told);
}

Timer& TimerOf(Timers& timers, ComponentKind kind, ModelWatch watch) {
  switch (watch) {
    case ModelWatch::Crash:
      return timers.CrashWatch[kind];
    case ModelWatch::Preparation:
      return timers.Preparation[kind];
    case ModelWatch::Probe:
      return timers.Probe[kind];
    case ModelWatch::Reprobe:
      break;
  }
  return timers.Reprobe[kind];
}

}  // namespace tarvo
