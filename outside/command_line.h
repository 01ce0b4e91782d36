#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "support/component_kind.h"

namespace tarvo {

enum class CommandVerb {
  State,
  Start,
  Stop,
  Restart,
  Wait,
  Randomize,
  Upgrade,
  Close,
  Unload,
  Check,
  Help,
  Version,
};

enum class StateForm { Text, Json, Prometheus };
enum class AwaitedState { Listening, Stopped };

/// What the program is asked to do instead of opening its window.
struct Command {
  CommandVerb verb = CommandVerb::Help;
  StateForm form = StateForm::Text;        ///< Of State.
  std::optional<ComponentKind> component;  ///< Of Start, Stop, Restart and Wait; none: all three.
  AwaitedState awaited = AwaitedState::Listening;  ///< Of Wait.
  std::uint32_t seconds = 0;                       ///< Of Wait; 0 to `kLongestWaitSeconds`.
  bool json = false;                               ///< Of Check.

  bool operator==(const Command&) const = default;
};

inline constexpr std::uint32_t kLongestWaitSeconds = 604800;  ///< A week.

/// Exit codes of commands. `--check` has its own: 0 to 2 by what it has found.
inline constexpr int kCommandDone = 0;
inline constexpr int kCommandRefused = 1;
inline constexpr int kCommandWrongUsage = 2;
inline constexpr int kCommandNoLauncher = 3;
inline constexpr int kCommandTimeOver = 4;

/// What the arguments mean. No command and no complaint: the launcher starts as ever.
struct CommandLine {
  std::optional<Command> command;
  /// Why the arguments are no command, in one sentence; "" when they are, or none was meant.
  std::string complaint;
};

/// Reads the program's arguments, its name not among them. A first argument that begins with "--"
/// means a command, which has to be right to its last argument; but "--resume" is the launcher's
/// own, for its restart after a fault. All other arguments are nobody's business, as ever. Commands
/// and their words are in small letters.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

/// The arguments that mean this command, its default form spelt out.
std::vector<std::string> ArgumentsOf(const Command& command);

/// What `--help` prints.
std::string UsageText();

}  // namespace tarvo
