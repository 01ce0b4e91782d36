#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/launcher_events.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/scripts.h"
#include "toolkit/controls.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// What the starts of the operator's script depend on.
struct EventScriptControls {
  const CheckBox& runs;     ///< Unchecked: nothing is started, and what waits is dropped.
  const Label& serverName;  ///< For `TARVO_SERVER`.
  Timer& timer;             ///< Enabled while something waits or runs.
};

/// Runs the operator's script `on-event.cmd` of the server root at events, beside the launcher: a
/// report only takes its place among those that wait, and a tick of its own starts them. A script
/// that is missing, or that the system refuses to start, is passed over without a word.
///
/// Each component's event (or the event, when it concerns no single one) has one place among those
/// that wait, 30 in all. What happens while it waits joins it: the script is told the last one and
/// how many there were. It waits while its script was started less than `kOneStartPer` ago, and
/// while `kMostAtOnce` are running; the longest waiting is the next.
class EventScript {
 public:
  static constexpr std::uint32_t kOneStartPer = 60 * 1000;
  static constexpr std::uint32_t kLongestRun = 60 * 1000;
  static constexpr std::size_t kMostAtOnce = 5;
  /// So many letters of a value reach the script.
  static constexpr std::size_t kLongestValue = 1000;

  EventScript(const EventScriptControls& controls, Scripts& scripts, FileReader& files,
              LocalClock& localClock, TickClock& tickClock, const std::string& appFolder)
      : controls_(controls),
        scripts_(scripts),
        files_(files),
        localClock_(localClock),
        tickClock_(tickClock),
        path_(appFolder + "\\on-event.cmd") {}

  /// Something has happened. Starts nothing.
  void Note(const EventReport& report);

  /// The tick of `tmrEvents`: ends what has run longer than `kLongestRun`, again at each tick until
  /// it is gone, and starts what may be started.
  void Tick();

  /// The program is about to end, or to stand still in its last message box: what may be started
  /// now is started, the rest is lost. What runs goes on without the launcher.
  void StartLast() { StartDue(); }

 private:
  struct Waiting {
    EventReport last;
    std::string time;
    std::uint32_t count = 1;
  };
  struct Started {
    LauncherEvent event;
    std::optional<ComponentKind> component;
    std::uint32_t at;
  };
  struct Running {
    ScriptRun run;
    std::uint32_t since;
  };

  void EndOverdue();
  void StartDue();
  bool StartedLately(const EventReport& report) const;
  void Start(const Waiting& waiting);

  EventScriptControls controls_;
  Scripts& scripts_;
  FileReader& files_;
  LocalClock& localClock_;
  TickClock& tickClock_;
  const std::string path_;
  std::vector<Waiting> waiting_;  ///< The longest waiting first.
  std::vector<Started> lately_;   ///< Within `kOneStartPer` of the last look at it.
  std::vector<Running> running_;
};

/// The text as the value of a variable that a command script can put between quotes: control
/// characters become blanks, double quotes single ones, and it is cut at `kLongestValue`.
std::string ScriptValueOf(std::string text);

}  // namespace tarvo
