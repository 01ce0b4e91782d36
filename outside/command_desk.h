#pragma once

#include <memory>
#include <span>
#include <string>

#include "core/start_stop.h"
#include "core/status_log.h"
#include "outside/command_boxes.h"
#include "outside/command_record.h"
#include "outside/state_watch.h"
#include "platform/code_page.h"
#include "platform/launcher_call.h"
#include "toolkit/controls.h"
#include "toolkit/event_dispatch.h"
#include "toolkit/main_window.h"

namespace tarvo {

/// What the operator would press.
struct CommandControls {
  std::span<CommandButton, kStopAllButton + 1> startButtons;
  CommandButton& randomize;
  CommandButton& upgrade;
  CommandButton& unload;
  MainWindow& window;
};

/// Carries out the commands that other programs send to the launcher: each presses the operator's
/// own button, and whoever sent it is told what became of it.
///
/// A message that is no command, or that comes from nobody who waits for an answer, has no effect
/// at all. A command is refused while a message box or another dialog waits for the operator, while
/// the operator's session is ending, and from a program with less rights than this one; to
/// `--state` and `--wait` nothing of this applies, since they change nothing.
///
/// A box that a command leads to does not come up: its text is the answer, a refusal with exit code
/// 1, unless it tells that an upgrade was successful. So is a line of the log's level "alert" for
/// --start, --stop, --restart and --randomize. Questions count as answered with Yes.
class CommandDesk {
 public:
  struct Parts {
    CommandControls controls;
    StateWatch& states;
    CommandBoxes& boxes;
    AnswerLines& lines;
    EventDispatch& dispatch;
    TimerQueue& timers;
    CodePage& codePage;
    std::string upgradeDone;  ///< The text of the box after a successful upgrade.
  };

  explicit CommandDesk(Parts parts) : with_(std::move(parts)) {}

  /// A message has come to the window. Not within an event: it is made one here.
  void Receive(const std::string& message);

  /// A listener of the log.
  void Hear(const LogLine& line);
  /// An event has ended, which may have been a command: its sender is answered now.
  void EndEvent();

 private:
  void Take(const Command& command, std::unique_ptr<AnswerLine> line);
  std::string ReasonToRefuse(AnswerLine& line);
  CommandAnswer Told(const Command& command);
  std::string StateText(StateForm form);
  bool Holds(const Command& command);
  void CarryOut(const Command& command);
  void Press(std::size_t button, bool started);
  void StartOrStop(const Command& command, bool starts);

  Parts with_;
  Command command_;
  std::unique_ptr<AnswerLine> line_;  ///< Of the command that is being carried out.
  std::string alerts_;
};

}  // namespace tarvo
