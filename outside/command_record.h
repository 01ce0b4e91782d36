#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "outside/command_line.h"

namespace tarvo {

/// A command as it is sent to the launcher: "TarvoCommand 1 --start map". A newer form gets another
/// number, which this one refuses.
std::string RecordOf(const Command& command);

/// Reads a record, which may come from anybody: nothing unless it is, to the last byte, what
/// `RecordOf` makes of a command that a launcher answers.
std::optional<Command> CommandOf(std::string_view record);

/// Whether a running launcher answers this command.
bool IsForLauncher(CommandVerb verb);

struct CommandAnswer {
  int exitCode = 0;  ///< 0 to 4, of the program that has asked.
  /// For its standard output, or with exit code 1 its standard error: a text of the code page, but
  /// UTF-8 where the command asks for a form that other programs read.
  std::string text;

  bool operator==(const CommandAnswer&) const = default;
};

std::string BytesOf(const CommandAnswer& answer);
/// Nothing for bytes that are no answer.
std::optional<CommandAnswer> AnswerOf(std::string_view bytes);

}  // namespace tarvo
