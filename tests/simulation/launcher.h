#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/principal.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {

/// The launcher on a simulated machine, and the operator in front of it. Its end of life is the
/// program's sudden death: nothing is saved, nothing is told.
///
/// The operator's verbs name a control as the form does, and reach the program through its dispatch
/// as a native window would. Time passes by the timer queue, every tick at its moment, and as long
/// as the window has not ended: that nothing acts any more is the program's own business.
class Launcher final {
 public:
  explicit Launcher(SimMachine& machine);
  Launcher(const Launcher&) = delete;
  Launcher& operator=(const Launcher&) = delete;

  void Start(std::intptr_t nativeWindow = 77);

  /// The native window is complete and painted. No other story says so: there nothing happens by
  /// itself then.
  void CompleteWindow();

  void Click(const std::string& name, std::size_t index = 0);
  void Type(const std::string& name, std::size_t index, const std::string& text);
  void Choose(const std::string& name, std::size_t index, const std::string& item);
  /// Brings a box into that state by a click, if it takes one.
  void Check(const std::string& name, std::size_t index, bool checked = true);
  void Close();

  /// The two messages by which the system ends the operator's session, and the one that calls it
  /// off.
  void AskForEndOfSession();
  void CallOffEndOfSession();
  void EndSession();

  /// Lets time pass. A blocking call may make it longer.
  void Pass(std::chrono::milliseconds time);

  bool Ended() { return Window().Ended(); }
  int ExitCode() { return Window().ExitCode(); }
  MainWindow& Window() { return principal_.TheForm().frame.window; }
  Form& TheForm() { return principal_.TheForm(); }
  Principal& TheProgram() { return principal_; }
  const Component& Of(ComponentKind kind) const { return principal_.Components()[kind]; }

  /// The log lines since `ForgetLog`, each "hh:mm:ss level text".
  std::string Log() const;
  void ForgetLog() { lines_.clear(); }
  /// The log lines since the last `NewLog` or `ForgetLog`.
  std::string NewLog();
  /// How many log lines since `ForgetLog` have this text.
  std::size_t CountInLog(const std::string& text) const;
  /// What was reported since the last call, each "hh:mm:ss event component: text", the component
  /// "all" for a report without one.
  std::string NewEvents() { return std::exchange(events_, {}); }
  /// Keeps no copy of the log's lines nor of the events, for runs of months.
  void KeepNoLog() { keepLog_ = false; }

  /// Ticks that the dispatch let through.
  std::size_t Ticks() const { return ticks_; }

  /// Called when an event, a tick or an act of the operator's, is over; not for those within
  /// others.
  std::function<void()> onEventOver;
  /// Milliseconds that the last of them took.
  std::uint64_t LastEventTook() const { return lastEventTook_; }

  /// The names of the running timers that belong to a component, for example "LCtrl PrepL".
  std::string RunningTimers(ComponentKind kind);

 private:
  struct Line {
    std::string stamp;
    std::string text;
    LogLevel level;
  };

  void Event(const std::function<void()>& event);
  void Tick(const std::function<void()>& tick);
  void Note(const EventReport& report);

  SimMachine& machine_;
  SimInstanceLock lock_;
  Principal principal_;
  std::vector<Line> lines_;
  std::string events_;
  std::size_t ticks_ = 0;
  int depth_ = 0;
  std::uint64_t lastEventTook_ = 0;
  bool keepLog_ = true;
};

}  // namespace tarvo
