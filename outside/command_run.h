#pragma once

#include <string>

#include "outside/command_line.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/launcher_call.h"

namespace tarvo {

/// What carrying out a command needs, in the program that it was given to.
struct CommandPorts {
  Console& console;
  LauncherCall& launcher;
  TickClock& clock;
  std::string instanceName;  ///< Of this root's launcher.
  std::string version;       ///< Of the program.
};

/// Whether the arguments are answered by `RunCommand`: all commands but `--check`, and wrong usage.
bool IsAnsweredHere(const CommandLine& line);

/// Carries out a command: prints what there is to print, the reason of a refusal on standard error,
/// and returns the program's exit code. A launcher's answer that is not taken whole, as by a disk
/// that is full or a pipe that nobody reads, is a refusal: who reads half a state must know it.
int RunCommand(const CommandLine& line, const CommandPorts& ports);

/// Milliseconds that the launcher may take for its answer; an upgrade copies files.
inline constexpr std::uint32_t kLongestAnswerTime = 120000;
/// Milliseconds between two looks of `--wait`.
inline constexpr std::uint32_t kWaitStep = 250;

}  // namespace tarvo
