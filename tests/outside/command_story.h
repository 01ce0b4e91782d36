#pragma once

#include <string>
#include <vector>

#include "outside/command_record.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {

/// A launcher that gets commands from another program of its machine.
class CommandStory : public LauncherStory {
 protected:
  /// Sends the command; what came back, as "exit code: text", or "nothing".
  std::string Send(const std::vector<std::string>& arguments) {
    const auto command = ReadCommandLine(arguments).command;
    return SendRecord(command ? RecordOf(*command) : "no command");
  }

  std::string SendRecord(const std::string& record) {
    machine.answerLines.Lay(kAddress);
    launcher->Window().Receive(kAddress + record);
    const auto came = machine.answerLines.Came(kAddress);
    if (!came) return "nothing";
    const auto answer = AnswerOf(*came);
    return answer ? std::to_string(answer->exitCode) + ": " + answer->text : "no answer";
  }

  const std::string kAddress = "0123456789abcdef0123456789abcdef";
};

}  // namespace tarvo
